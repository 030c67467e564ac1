// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Desktop.h"

#include <QPointer>
#include <QWidget>

namespace zib {

/// The desktop, as Qt reaches it.
class WidgetDesktop : public Desktop {
  public:
    /// The window that is brought to the front; none until then.
    void setMainWindow(QWidget* window) { window_ = window; }

    bool openUrl(const QUrl& url) override;
    void beep() override;
    [[nodiscard]] QString userFullName() const override;
    [[nodiscard]] bool isActive() const override;
    void bringToFront() override;
    /// The same for another program's sake.
    /// @param activationToken of that program's start, which the desktop honours; may be empty.
    void bringToFront(const QString& activationToken);

  private:
    QPointer<QWidget> window_;
};

} // namespace zib
