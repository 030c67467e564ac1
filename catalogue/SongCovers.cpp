// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SongCovers.h"

#include "catalogue/SongPictures.h"

namespace zib {

namespace {

constexpr int mostKilobytes = 24 * 1024;

} // namespace

SongCovers::SongCovers(CoverProcess reader)
    : reader_(std::move(reader))
    , recent_(mostKilobytes)
{
}

QByteArray SongCovers::cover(const IndexedSong& song) const
{
    const QByteArray key = song.path + '\0' + QByteArray::number(song.modified);
    {
        const std::lock_guard lock(mutex_);
        if (const auto* known = recent_.object(key))
            return *known;
    }
    QByteArray picture = reader_.read(song.path);
    if (picture.isEmpty())
        picture = pictureBeside(song.path, song.folder);
    const std::lock_guard lock(mutex_);
    recent_.insert(key, new QByteArray(picture), int(picture.size() / 1024) + 1);
    return picture;
}

} // namespace zib
