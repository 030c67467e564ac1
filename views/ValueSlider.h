// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSlider>

#include <functional>

namespace zib {

/// A drawn horizontal slider from 0 to 100: a click or drag goes straight to its place, the wheel and keys
/// step. It begins where reading begins.
class ValueSlider : public QSlider {
    Q_OBJECT

  public:
    explicit ValueSlider(QWidget* parent = nullptr);

    /// Shows a value that the program found, without reporting it; ignored while the user drags.
    void showValue(int value);
    /// The text of the tip at a place, by percent.
    void setTip(std::function<QString(double percent)> tip) { tip_ = std::move(tip); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The user chose a value, of any precision.
    void chosen(double percent);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

    /// Whether dragging reports every place passed, or only the one where it ends.
    bool reportsWhileDragging_ = true;

  private:
    [[nodiscard]] double percentAt(double x) const;
    void moveTo(double percent, bool report);
    void showTip(const QPoint& globalPosition, double percent);

    std::function<QString(double)> tip_;
    bool quiet_ = false; ///< a value that is set is not the user's
    int wheel_ = 0;
};

/// How far the song has got, in percent.
class ProgressSlider : public ValueSlider {
    Q_OBJECT

  public:
    explicit ProgressSlider(QWidget* parent = nullptr);
};

/// The loudness in percent.
class VolumeSlider : public ValueSlider {
    Q_OBJECT

  public:
    explicit VolumeSlider(QWidget* parent = nullptr);
};

} // namespace zib
