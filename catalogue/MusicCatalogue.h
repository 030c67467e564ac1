// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/DemoCatalogue.h"
#include "catalogue/PlayCounts.h"
#include "catalogue/SongIndex.h"

#include <QDateTime>
#include <QHash>

namespace zib {

/// A song as it is announced to clients.
struct CatalogueSong {
    QString id;
    QString extension;
    QByteArray mediaType;
    QString artist;
    QString album;
    QString title;
    int seconds = 0;
    QDateTime date; ///< UTC
    bool isDemo = false;
    QString about = {};   ///< some sentences, for demo songs
    int milliseconds = 0; ///< the length more exactly
};

/// The song of a file as clients are told of it.
CatalogueSong announced(const IndexedSong& song);

/// The demo songs and the user's own as one catalogue. Usable on any thread.
class MusicCatalogue {
  public:
    MusicCatalogue(const DemoSongs& demo, const SongIndex& index, const PlayCounts& plays);

    /// Every artist once: who is in both has the tags of both. The more is played, the more an artist's
    /// hotness follows the plays.
    [[nodiscard]] Artists artists() const;
    /// The artist's songs in the order of an artist page.
    [[nodiscard]] QList<CatalogueSong> songs(const QString& artistKey, int most) const;
    [[nodiscard]] std::optional<CatalogueSong> song(const QString& id) const;
    [[nodiscard]] int songCount() const;
    /// What is sung in the song of that id; empty when that is unknown or nothing.
    [[nodiscard]] QString lyrics(const QString& songId) const;
    [[nodiscard]] const QList<DemoArtist>& demoArtists() const { return demo_.artists(); }
    /// What the demo songs tell of an artist; nullptr when they do not have that one. Lives as long as they
    /// do.
    [[nodiscard]] const DemoArtist* demoArtist(const QString& artistKey) const;

    /// The artist of that name, case and accents apart.
    /// @param nearly whether the artist whose name is most like it will do as well
    [[nodiscard]] std::optional<Artist> artistNamed(const QString& name, bool nearly) const;
    /// The artist's song of that title, case and accents apart.
    [[nodiscard]] std::optional<CatalogueSong> songNamed(const QString& artistKey,
                                                         const QString& title) const;

  private:
    const DemoSongs& demo_;
    const SongIndex& index_;
    const PlayCounts& plays_;
    QHash<QString, qsizetype> demoPlaces_; ///< in the demo songs' artists, by artist key
    QHash<QString, QString> demoLyrics_;   ///< by song id
    QList<Artist> demoArtists_;
    QHash<QString, CatalogueSong> demoSongs_;
    QHash<QString, QStringList> demoSongIds_; ///< by artist key

    mutable std::mutex mutex_; ///< guards what follows
    mutable Artists own_;      ///< what artists_ was made from, with recent_
    mutable std::shared_ptr<const RecentPlays> recent_;
    mutable Artists artists_;
};

} // namespace zib
