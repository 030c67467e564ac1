// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/DesktopTrash.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace zib {
namespace {

const QByteArray pathKey = "Path=";

/// The record of a trashed file names its old path with percent-escapes; Qt writes it as it is, so that a
/// name like "100%41" would come back as another. Escapes that are there already are left alone.
void escapePathInRecord(const QString& trashed, const QString& path)
{
    const QFileInfo place(trashed);
    const QString record =
        place.path().chopped(5) + QStringLiteral("info/") + place.fileName() + QStringLiteral(".trashinfo");
    QFile file(record);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray content = file.readAll();
    const qsizetype begin = content.indexOf(pathKey) + pathKey.size();
    const qsizetype end = content.indexOf("\nDeletionDate=", begin);
    const QByteArray written = content.mid(begin, end - begin); // absolute, or below the disk's mount point
    if (begin < pathKey.size() || end < begin || !path.toUtf8().endsWith(written))
        return;
    QSaveFile escaped(record);
    if (!escaped.open(QIODevice::WriteOnly))
        return;
    escaped.write(content.left(begin) + written.toPercentEncoding("/") + content.mid(end));
    escaped.commit();
}

bool moveNow(const QString& path)
{
    QString trashed;
    if (!QFile::moveToTrash(path, &trashed))
        return false;
    escapePathInRecord(trashed, path);
    return true;
}

} // namespace

DesktopTrash::DesktopTrash()
{
    connect(&next_, &QTimer::timeout, this, &DesktopTrash::moveNext);
}

DesktopTrash::~DesktopTrash()
{
    for (const QString& path : waiting_)
        moveNow(path);
}

void DesktopTrash::moveToTrash(const QString& path)
{
    waiting_.append(path);
    next_.start(0);
}

void DesktopTrash::moveNext()
{
    const QString path = waiting_.takeFirst();
    if (waiting_.isEmpty())
        next_.stop();
    if (!moveNow(path))
        Q_EMIT failed(path);
}

} // namespace zib
