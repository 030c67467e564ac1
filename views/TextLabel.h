// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/AccessibleText.h"

#include <QLabel>

namespace zib {

/// A label of changing text with a lasting accessible name. Where the text does not fit, part of it gives way
/// to "…", its end unless told otherwise, and the whole text is the tip.
class TextLabel : public QLabel, public ShowsText {
    Q_OBJECT

  public:
    explicit TextLabel(const QString& accessibleName, QWidget* parent = nullptr);

    void setShownText(const QString& text);
    void setElideMode(Qt::TextElideMode mode) { elideMode_ = mode; }
    [[nodiscard]] QString shownText() const override { return text_; }
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void updateTip();

    QString text_;
    Qt::TextElideMode elideMode_ = Qt::ElideRight;
};

} // namespace zib
