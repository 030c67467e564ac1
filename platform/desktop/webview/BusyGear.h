// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBasicTimer>
#include <QWidget>

namespace zib {

/// A gear of 32 x 32 that turns while it is shown, unless motion is not wanted.
class BusyGear : public QWidget {
    Q_OBJECT

  public:
    BusyGear(bool motionReduced, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    QBasicTimer turn_;
    bool motionReduced_;
    int step_ = 0;
};

} // namespace zib
