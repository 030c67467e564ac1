// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/DesktopTrash.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace zib {
namespace {

const QByteArray pathKey = "Path=";

QString recordOf(const QString& trashed)
{
    const QFileInfo place(trashed);
    return place.path().chopped(5) + QStringLiteral("info/") + place.fileName() +
           QStringLiteral(".trashinfo");
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The record of a trashed file names its old path with percent-escapes; Qt writes it as it is, so that a
/// name like "100%41" would come back as another. Escapes that are there already are left alone.
void escapePathInRecord(const QString& trashed, const QString& path)
{
    const QString record = recordOf(trashed);
    const QByteArray content = contentOf(record);
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

bool DesktopTrash::moveNow(const QString& path)
{
    QString trashed;
    if (!QFile::moveToTrash(path, &trashed))
        return false;
    escapePathInRecord(trashed, path);
    moved_.insert(path, {trashed, contentOf(recordOf(trashed))});
    return true;
}

bool DesktopTrash::restore(const QString& path)
{
    const Place place = moved_.value(path);
    const QString record = recordOf(place.file);
    const bool isThere = !place.record.isEmpty() && contentOf(record) == place.record;
    // Otherwise it never went, or somebody else has brought it back.
    if (waiting_.removeOne(path) || !isThere || !QFileInfo::exists(place.file))
        return QFileInfo(path).isFile();
    QDir().mkpath(QFileInfo(path).path());
    if (!QFile::rename(place.file, path))
        return false;
    QFile::remove(record);
    moved_.remove(path);
    return true;
}

void DesktopTrash::moveNext()
{
    if (!waiting_.isEmpty()) {
        const QString path = waiting_.takeFirst();
        if (!moveNow(path))
            Q_EMIT failed(path);
    }
    if (waiting_.isEmpty())
        next_.stop();
}

} // namespace zib
