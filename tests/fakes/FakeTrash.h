// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Trash.h"

#include <QFile>
#include <QHash>

namespace zib {

/// A trash in memory. The event loop brings what is moved there, as with the real one.
class FakeTrash : public Trash {
  public:
    void moveToTrash(const QString& path) override
    {
        QMetaObject::invokeMethod(
            this, [this, path] { move(path); }, Qt::QueuedConnection);
    }

    QHash<QString, QByteArray> files; ///< what was moved there, by the path it had

  private:
    void move(const QString& path)
    {
        QFile file(path);
        const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        if (file.remove())
            files.insert(path, bytes);
        else
            Q_EMIT failed(path);
    }
};

} // namespace zib
