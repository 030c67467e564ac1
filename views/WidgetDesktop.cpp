// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/WidgetDesktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

#include <pwd.h>
#include <unistd.h>

namespace zib {

bool WidgetDesktop::openUrl(const QUrl& url)
{
    return url.isValid() && !url.isEmpty() && QDesktopServices::openUrl(url);
}

void WidgetDesktop::beep()
{
    QApplication::beep();
}

QString WidgetDesktop::userFullName() const
{
    const passwd* account = getpwuid(getuid());
    if (account == nullptr)
        return {};
    // The field of comments: the full name, then what else is known, with commas between.
    const QString name = QString::fromLocal8Bit(account->pw_gecos).section(QLatin1Char(','), 0, 0).trimmed();
    return name.isEmpty() ? QString::fromLocal8Bit(account->pw_name) : name;
}

bool WidgetDesktop::isActive() const
{
    return QGuiApplication::applicationState() == Qt::ApplicationActive;
}

void WidgetDesktop::bringToFront()
{
    if (!window_)
        return;
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized); // and as large as it was
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void WidgetDesktop::bringToFront(const QString& activationToken)
{
    // Where the window system knows such tokens, the next activation uses up what stands here.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    bringToFront();
}

} // namespace zib
