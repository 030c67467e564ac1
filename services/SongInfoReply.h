// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace zib {

/// What the music-information service knows of a song.
struct SongInfo {
    std::optional<QString> artist;
    std::optional<QString> album;
    std::optional<QString> name;
    QString
        wiki; ///< HTML whose only tags are line breaks and links to "zib://search/artist/…" or ".../tag/…"
    std::optional<QString> mbid; ///< of the album
    QString artwork;             ///< address of a small picture of the album, perhaps empty
    QString artworkLarge;        ///< address of a large one, or the path of the picture that stands for none
    QStringList tags;            ///< most given first
};

/// The path of the picture of no cover.
extern const QString noCoverBig;

/// Takes what the reply says into what is known already, and fills with defaults what is then still unknown.
/// A reply that says nothing, or is none, is no failure.
/// @param webSite HOST[:PORT][/PATH] of the service's pages for people; links to artists and tags there
/// become links within the program.
void readSongInfoReply(const QByteArray& reply, const QString& webSite, SongInfo& info);

} // namespace zib
