// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/AtomicFile.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace zib {
namespace {

constexpr mode_t readableByAll = 0666; // less what the user masks

QByteArray folderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/') + 1);
}

QByteArray withLinksFollowed(const QString& path)
{
    const QFileInfo info(path);
    return QFile::encodeName(info.exists() ? info.canonicalFilePath() : info.absoluteFilePath());
}

} // namespace

AtomicFile::AtomicFile(const QString& path)
    : path_(withLinksFollowed(path))
    , temporary_(folderOf(path_) + '.' + path_.mid(folderOf(path_).size()) + ".new")
    , file_(::open(temporary_.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW,
                   readableByAll))
{
}

AtomicFile::~AtomicFile()
{
    if (!committed_ && file_.descriptor() >= 0)
        ::unlink(temporary_.constData());
}

bool AtomicFile::commit()
{
    if (!file_.sync() || !file_.check(::rename(temporary_.constData(), path_.constData()) == 0))
        return false;
    committed_ = true;
    return file_.check(WrittenFile::syncFolder(folderOf(path_)));
}

QString AtomicFile::error() const
{
    return qt_error_string(file_.error());
}

} // namespace zib
