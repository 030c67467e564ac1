// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/DefaultSettings.h"
#include "controller/RVMainController.h"
#include "controller/SongPlaces.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "playback/RVPlayer.h"
#include "records/PropertyValue.h"
#include "tests/controller/FakeMainWindow.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeAudioFileStreams.h"
#include "tests/fakes/FakeAudioQueues.h"
#include "tests/fakes/FakeBusyPanel.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeHttpReadStreams.h"
#include "tests/fakes/FakeLibraryView.h"
#include "tests/fakes/FakeMovies.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakeShareWindow.h"
#include "tests/fakes/FakeTagApi.h"
#include "tests/fakes/FakeTrash.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

namespace zib {

/// The whole controller on a real library and a real player; what they reach for outside is fake. The table
/// and the window are the derived fixture's.
class ControllerWorld : public testing::Test {
  protected:
    ControllerWorld()
    {
        registerDefaultSettings(defaults);
        defaults.setValue(settings::MusicFolder, folder.filePath(QStringLiteral("Music")));
        defaults.setValue(settings::SongSearchHost, QStringLiteral("search.example"));
        // A web where every song can be had.
        http.onOpen = [](FakeHttpExchange& exchange) {
            FakeHttpReadStreams::serve(exchange, FakeAudioFile::packets(200, 1000));
        };
    }

    void makeController(LibraryView& view, MainWindowView& window)
    {
        library = std::make_unique<RVDataManager>(defaults, alerts, clock, view,
                                                  folder.filePath(QStringLiteral("Library.zib")));
        player = std::make_unique<RVPlayer>(
            nullptr, AudioStreamerPorts{http, parsers, outputs, alerts, defaults}, movies, desktop);
        controller = std::make_unique<RVMainController>(
            *library, *player, WebServices{urlLoader, defaults, clock}, defaults, alerts, desktop, trash,
            tags, window, QStringLiteral("file:///pages/"), SharingPorts{shareWindow, clipboard, busyPanel});
    }
    /// Nobody has anything for the automatic lists.
    void comeOnline()
    {
        controller->connectedToInternetNotification();
        for (const auto& exchange : std::exchange(urlLoader.exchanges, {}))
            exchange->fail(QStringLiteral("nothing"));
    }
    void quit()
    {
        controller.reset();
        player.reset();
        library.reset();
    }

    PlaybackQueue& queue() { return controller->playback(); }
    QString status() const { return defaults.string(settings::BriefStatusMessage); }
    template <typename Condition>
    static bool eventually(Condition condition)
    {
        return QTest::qWaitFor(condition, 30000);
    }

    /// A song number n, that is a file on disk.
    Record localSong(int n, std::initializer_list<Record::Field> more = {})
    {
        const QString path = folder.filePath(QStringLiteral("%1.mp3").arg(n));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return song(n, QUrl::fromLocalFile(path).toString(), more);
    }
    static Record webSong(int n, std::initializer_list<Record::Field> more = {})
    {
        return song(n, QStringLiteral("http://music.example/%1.mp3").arg(n), more);
    }
    static Record song(int n, const QString& location, std::initializer_list<Record::Field> more)
    {
        Record track = Record::make({{keys::Id, QStringLiteral("%1").arg(n, 16, 10, QLatin1Char('0'))},
                                     {keys::Name, QStringLiteral("Song %1").arg(n)},
                                     {keys::Artist, QStringLiteral("Artist")},
                                     {keys::Album, QStringLiteral("Album")},
                                     {keys::Duration, 100},
                                     {keys::Location, location}});
        for (const auto& [key, value] : more)
            track.set(key, value);
        return track;
    }

    /// Shows those songs as a recent search.
    void showAsSearch(const QList<Record>& songs)
    {
        library->addPlaylistWithTitle(QStringLiteral("found"), songs, RVPlaylistDownloader::Artist);
        controller->sources().insertNode(SourceType::RecentSearches, 0, QStringLiteral("found"),
                                         QStringLiteral("artist"));
    }
    /// Shows those songs as the library; there the next song follows by itself.
    void showAsLibrary(const QList<Record>& songs)
    {
        for (const Record& track : songs)
            library->library().insert(track.string(keys::Id), track);
        controller->showLibrary(FilterType::All);
    }
    void play(int row)
    {
        library->playlistsTableView().selectRows({row});
        queue().songSelected();
    }
    /// The number of the song now playing; 0 for none.
    int playing() { return queue().nowplayingTrackID().toInt(); }
    /// Moves the local song that plays to that second.
    void hear(int second) { movies.current->setCurrentTime({second, 1}); }

    QTemporaryDir folder;
    FakeUserDefaults defaults;
    FakeClock clock;
    FakeAlerts alerts;
    FakeDesktop desktop;
    FakeTrash trash;
    FakeTagAPIs tags;
    FakeShareWindow shareWindow;
    FakePasteboard clipboard;
    FakeBusyPanel busyPanel;
    FakeUrlLoader urlLoader;
    FakeMovies movies;
    FakeHttpReadStreams http;
    FakeAudioFileStreams parsers;
    FakeAudioQueues outputs;
    std::unique_ptr<RVDataManager> library;
    std::unique_ptr<RVPlayer> player;
    std::unique_ptr<RVMainController> controller;
};

/// The controller over a window and a table that only keep what they are told; it has started and is online.
class ControllerFixture : public ControllerWorld {
  protected:
    ControllerFixture()
    {
        table.rowCount = [this] { return library ? int(library->items().size()) : 0; };
        start();
    }
    ~ControllerFixture() override { quit(); }

    void start()
    {
        makeController(view, window);
        controller->windowDidLoad();
        comeOnline();
    }

    FakeLibraryView view;
    FakeTableView& table = view.songs;
    FakeMainWindow window;
};

} // namespace zib
