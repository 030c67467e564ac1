// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/WidgetDesktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

namespace zib {

bool WidgetDesktop::openUrl(const QUrl& url)
{
    return url.isValid() && !url.isEmpty() && QDesktopServices::openUrl(url);
}

void WidgetDesktop::beep()
{
    QApplication::beep();
}

void WidgetDesktop::bringToFront()
{
    if (!window_)
        return;
    if (window_->isMinimized())
        window_->showNormal();
    else
        window_->show();
    window_->raise();
    window_->activateWindow();
}

} // namespace zib
