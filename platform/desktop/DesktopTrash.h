// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Trash.h"

#include <QHash>
#include <QStringList>
#include <QTimer>

namespace zib {

/// The trash that all desktops share: the file goes to where it can stay on its disk, with a note of where it
/// came from.
class DesktopTrash : public Trash {
    Q_OBJECT

  public:
    DesktopTrash();
    ~DesktopTrash() override;

    void moveToTrash(const QString& path) override;
    bool restore(const QString& path) override;

  private:
    /// Where a file lies in the trash, and what the trash's record says of it: another file may come to have
    /// that place when the trash is emptied.
    struct Place {
        QString file;
        QByteArray record;
    };

    bool moveNow(const QString& path);
    void moveNext();

    QStringList waiting_;
    QHash<QString, Place> moved_; // by the path it had
    QTimer next_;                 // one file at a time, so that the window lives while many go
};

} // namespace zib
