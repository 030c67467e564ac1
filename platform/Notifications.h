// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

namespace zib {

/// What the desktop shows for a few seconds beside its windows. Plain text.
struct Notification {
    QString title;
    QString body;

    friend bool operator==(const Notification& a, const Notification& b) = default;
};

/// The desktop's notifications, one of ours at a time. Main thread. On a desktop without any, nothing is
/// shown.
class Notifications : public QObject {
    Q_OBJECT

  public:
    /// Shows it in place of the one before, with a button for the next song where the desktop has buttons.
    virtual void show(const Notification& notification) = 0;
    /// Takes back the one that is shown, if any.
    virtual void withdraw() = 0;

  Q_SIGNALS:
    /// The user has clicked it. @param activationToken by which the desktop lets a window come to the front;
    /// may be empty.
    void activated(const QString& activationToken);
    void nextRequested();
};

} // namespace zib
