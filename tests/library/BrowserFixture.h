// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/RVDataManager.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeLibraryView.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/library/Library.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zib {

/// The library over tables that know their rows; a controller that only keeps what it is told.
class BrowserFixture : public testing::Test {
  protected:
    class Controller : public RVDataManagerDelegate {
      public:
        [[nodiscard]] Record nowplayingTrack() const override { return playing; }
        [[nodiscard]] int nowplayingSourceType() const override { return source; }
        [[nodiscard]] qint64 nowplayingPlaylistUID() const override { return uid; }
        void setNowplayingPlaylistItems(const QList<Record>& list) override { items = list; }
        void nowplayingPlaylistReordered(const Record& track) override { playing = track; }
        void updateNowplayingTrack(const Record& track) override { updated = track; }
        [[nodiscard]] bool connectedToInternet() const override { return online; }

        void play(const Record& track, const RVDataManager& from)
        {
            playing = track;
            source = int(from.currentSourceType());
            uid = from.currentUID();
        }

        Record playing;
        int source = -1;
        qint64 uid = -1;
        QList<Record> items;
        Record updated;
        bool online = true;
    };

    BrowserFixture()
    {
        library.setDelegate(&controller);
        view.artists.rowCount = [this] { return int(library.allArtists().size()); };
        view.albums.rowCount = [this] { return int(library.allAlbums().size()); };
        view.songs.rowCount = [this] { return int(library.items().size()); };
    }

    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }
    /// Adds a song of that id, artist, album and name; a null text leaves the field out.
    Record add(const char* id, const char* artist, const char* album, const char* name = "Song")
    {
        Record track = song(text(id));
        track.set(keys::Name, text(name));
        if (artist != nullptr)
            track.set(keys::Artist, text(artist));
        if (album != nullptr)
            track.set(keys::Album, text(album));
        library.library().insert(track.string(keys::Id), track);
        return track;
    }
    void choose(FakeTableView& table, int row)
    {
        table.selectRows({row});
        library.browser().selectionDidChange(table);
    }
    void sortBy(const QList<SortDescriptor>& descriptors)
    {
        view.songs.setSortDescriptors(descriptors);
        library.browser().sortDescriptorsDidChange();
    }
    void showPlaylist(const QStringList& ids, qint64 uid = 77)
    {
        library.playlists() = {Record::make({{keys::Id, uid}, {keys::Tracks, ids}})};
        library.setSource(SourceType::Playlists);
        library.setCurrentPlaylistIndex(0);
    }
    [[nodiscard]] static QString idsOf(const QList<Record>& records)
    {
        QStringList ids;
        for (const Record& record : records)
            ids.append(record.string(keys::Id));
        return ids.join(QLatin1Char(' '));
    }
    [[nodiscard]] QString shown() const { return idsOf(library.items()); }

    QTemporaryDir folder;
    FakeUserDefaults defaults;
    FakeAlerts alerts;
    FakeClock clock;
    FakeLibraryView view;
    Controller controller;
    RVDataManager library{defaults, alerts, clock, view, folder.filePath(QStringLiteral("l.zib"))};
};

} // namespace zib
