// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Database.h"
#include "catalogue/MusicFiles.h"
#include "catalogue/SongTags.h"

#include <QHash>
#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>

namespace zib {

/// One artist of the index or of the demo songs.
struct Artist {
    QString key; ///< folded(name): what tells artists apart
    QString name;
    QStringList tags;   ///< most fitting first
    double hotness = 0; ///< 0 to 1
    double familiarity = 0;
    double recentPlays = 0; ///< see RecentPlays
};

using Artists = std::shared_ptr<const QList<Artist>>;

struct IndexedSong {
    QString id; ///< 32 lower-case hexadecimal characters, a digest of the path
    QByteArray path;
    QByteArray folder;   ///< the music folder that it lies in
    qint64 modified = 0; ///< nanoseconds since 1970
    SongTags tags;       ///< without genres and lyrics
};

/// The songs in the user's own music folders, kept in the database. Any thread may ask while one updates.
class SongIndex {
  public:
    struct Update {
        int read = 0;       ///< files whose tags were read, new and changed ones
        int unplayable = 0; ///< of those
        int removed = 0;
        bool complete = false;
    };
    /// Called on the updating thread now and then.
    using Progress = std::function<void(int done, int total)>;

    /// Its tables and those of the plays, which are always in a file: paths mean something on one machine
    /// only.
    static const DatabaseSchema& schema();

    explicit SongIndex(Database database);

    /// Drops at once what lies in folders that are not among these.
    void keepOnly(const QList<QByteArray>& folders);

    /// Brings the index up to date with the folders: reads new and changed files, drops those that are gone.
    /// What was done when it is stopped is kept.
    Update update(const QList<QByteArray>& folders, TagReader& reader, const Progress& progress = {},
                  const std::stop_token& stop = {});

    [[nodiscard]] Artists artists() const;
    /// The artist's songs by album, track number and title.
    [[nodiscard]] QList<IndexedSong> songs(const QString& artistKey, int most) const;
    [[nodiscard]] std::optional<IndexedSong> song(const QString& id) const;
    /// The songs of the release with that MusicBrainz id, in the same order.
    [[nodiscard]] QList<IndexedSong> songsOfRelease(const QString& releaseId, int most) const;
    /// What is sung in the song of that id; empty when nobody has written it down.
    [[nodiscard]] QString lyrics(const QString& id) const;
    [[nodiscard]] int songCount() const;

    static QString songId(const QByteArray& path);

  private:
    struct Known {
        qint64 size = 0;
        qint64 modified = 0;
    };

    [[nodiscard]] QHash<QByteArray, Known> knownFiles() const;
    bool store(const QList<MusicFile>& files, TagReader& reader, Update& update, const std::stop_token& stop);
    bool drop(const QList<QByteArray>& paths);
    [[nodiscard]] QList<IndexedSong> songsWhere(QLatin1String condition, const QString& value,
                                                int most) const;
    [[nodiscard]] Artists gatheredArtists() const;
    void changed();

    Database database_;

    mutable std::mutex mutex_; ///< guards what follows
    mutable Artists artists_;  ///< empty when the songs have changed since
    mutable quint64 version_ = 0;
};

} // namespace zib
