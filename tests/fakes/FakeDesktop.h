// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Desktop.h"

#include <QList>
#include <QStringList>

namespace zib {

/// Keeps what was asked of the desktop.
class FakeDesktop : public Desktop {
  public:
    bool openUrl(const QUrl& url) override
    {
        opened.append(url);
        calls.append(QStringLiteral("openUrl"));
        return opens;
    }
    void beep() override { calls.append(QStringLiteral("beep")); }
    [[nodiscard]] QString userFullName() const override { return fullName; }
    [[nodiscard]] bool isActive() const override { return active; }
    void bringToFront() override { calls.append(QStringLiteral("bringToFront")); }

    bool opens = true;
    bool active = true;
    QString fullName = QStringLiteral("Ann Other");
    QList<QUrl> opened;
    QStringList calls; ///< every call by its name, in order
};

} // namespace zib
