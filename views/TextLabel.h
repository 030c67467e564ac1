// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/AccessibleText.h"

#include <QLabel>

namespace zib {

/// A label of changing text with a lasting accessible name. It ends in "…" where the text does not fit, and
/// then has the whole text as its tip.
class TextLabel : public QLabel, public ShowsText {
    Q_OBJECT

  public:
    explicit TextLabel(const QString& accessibleName, QWidget* parent = nullptr);

    void setShownText(const QString& text);
    [[nodiscard]] QString shownText() const override { return text_; }
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void updateTip();

    QString text_;
};

} // namespace zib
