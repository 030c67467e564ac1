// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Database.h"
#include "catalogue/playlists/PlaylistForm.h"
#include "catalogue/playlists/PlaylistSongs.h"

#include <QList>

#include <optional>

namespace zib {

/// A publication as a list shows it.
struct PublishedPlaylist {
    int id = 0;
    QString author;
    QString name;
    QString description;
    QString artists;
    QStringList tags;
    bool hidden = false;
    qint64 published = 0; ///< milliseconds since 1970, of the first publication
    int songCount = 0;
    int seconds = 0; ///< all songs together
};

/// Where a list goes on: behind that publication.
struct ListPlace {
    qint64 published = 0;
    int id = 0;
};

struct ListQuery {
    QString words = {}; ///< each is the beginning of a word of the name
    QString tag = {};
    std::optional<ListPlace> after = {};
};

enum class StoreError {
    Unavailable, ///< the database does not answer; the reason is in the log
    NotYours,    ///< nothing of that id was published by this user
};

/// The published playlists. Any thread, and any number of processes over one database.
class PlaylistStore {
  public:
    static constexpr int listLength = 24;

    explicit PlaylistStore(Database database);
    static const DatabaseSchema& schema();

    /// Publishes anew, or in the place of the form's id when the same user has published that.
    /// @param now milliseconds since 1970
    /// @return the id: from 1 to the greatest 32-bit number, of no other publication, and not to be guessed,
    /// so that who has no link does not come upon what is hidden
    tl::expected<int, StoreError> publish(const PlaylistForm& form, const QList<PlaylistSong>& songs,
                                          qint64 now);

    tl::expected<std::optional<PublishedPlaylist>, StoreError> playlist(int id) const;
    tl::expected<QList<PlaylistSong>, StoreError> songs(int id) const;
    /// The archive as it was published; none of an unknown id.
    tl::expected<std::optional<QByteArray>, StoreError> archive(int id) const;

    /// What is not hidden, newest first: up to listLength, and one more when the list goes on.
    tl::expected<QList<PublishedPlaylist>, StoreError> list(const ListQuery& query) const;

    /// Another number after each publication, whichever process made it: what was read from the database
    /// after this number stays true as long as it is the same.
    tl::expected<qint64, StoreError> changes() const;

    /// Whether the database answers.
    [[nodiscard]] bool isAvailable() const;

  private:
    Database database_;
};

} // namespace zib
