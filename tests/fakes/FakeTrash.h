// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Trash.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStringList>

namespace zib {

/// A trash in memory. The event loop brings what is moved there, as with the real one.
class FakeTrash : public Trash {
  public:
    void moveToTrash(const QString& path) override
    {
        waiting_.append(path);
        QMetaObject::invokeMethod(
            this, [this, path] { move(path); }, Qt::QueuedConnection);
    }
    bool restore(const QString& path) override
    {
        if (waiting_.removeOne(path) || !files.contains(path))
            return QFile::exists(path);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        return file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.write(files.take(path)) >= 0;
    }

    QHash<QString, QByteArray> files; ///< what was moved there, by the path it had

  private:
    void move(const QString& path)
    {
        if (!waiting_.removeOne(path))
            return;
        QFile file(path);
        const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        if (file.remove())
            files.insert(path, bytes);
        else
            Q_EMIT failed(path);
    }

    QStringList waiting_;
};

} // namespace zib
