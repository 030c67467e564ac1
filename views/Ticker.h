// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/AccessibleText.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

namespace zib {

/// One line of text that scrolls round, 30 pixels a second after a pause, when it is wider than its place and
/// motion is wanted; otherwise it stands, cut with "…". A text that is read from the right scrolls that way.
class Ticker : public QWidget, public ShowsText {
    Q_OBJECT

  public:
    explicit Ticker(QWidget* parent = nullptr);

    void setText(const QString& text);
    [[nodiscard]] QString shownText() const override { return text_; }
    [[nodiscard]] bool isScrolling() const { return timer_.isActive(); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void restart();
    /// How far the text has moved towards its own beginning, in pixels.
    [[nodiscard]] int offset() const;
    [[nodiscard]] int textWidth() const;

    QString text_;
    QTimer timer_;
    QElapsedTimer sinceStart_;
};

} // namespace zib
