// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace zib {

/// What a file says of its song; empty and 0 where it says nothing.
struct SongTags {
    QString artist;
    QString album;
    QString title;
    QStringList genres;
    int year = 0;
    int track = 0;
    int seconds = 0;
    int disc = 0;
    int milliseconds = 0;    ///< the length more exactly than seconds tells it
    QString date;            ///< of the release: "2011", "2011-05" or "2011-05-04"
    QString label;           ///< who published the release
    QString country;         ///< where it was published
    QString releaseType;     ///< "Album", "EP" and the like
    QString releaseId;       ///< the release's MusicBrainz id
    QString lyrics;          ///< lines parted by '\n'
    bool hasPicture = false; ///< the file carries one, see embeddedPicture()
};

/// Reads the tags of files.
class TagReader {
  public:
    virtual ~TagReader() = default;
    /// @return nothing when the file holds no song that can be read
    virtual std::optional<SongTags> read(const QByteArray& path) = 0;
};

/// Reads in this process. A crafted file may make the tag library take gigabytes or crash, so this is for a
/// process that may be lost: see TagProcess.
class TagFileReader final : public TagReader {
  public:
    std::optional<SongTags> read(const QByteArray& path) override;
};

/// The tags with what is missing taken from the file's place, FOLDER/artist/album/title.mp3.
SongTags completedTags(SongTags tags, const QByteArray& path, const QByteArray& folder);

} // namespace zib
