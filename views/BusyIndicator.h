// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>

namespace zib {

/// A small turning ring for what has been going on for half a second, on the ground of a text field; nothing
/// is seen of it before. Where motion is not wanted the ring stands.
class BusyIndicator : public QWidget {
    Q_OBJECT

  public:
    explicit BusyIndicator(QWidget* parent = nullptr);
    void setBusy(bool busy);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QTimer delay_;
    QTimer turn_;
    bool shown_ = false;
    int step_ = 0;
};

} // namespace zib
