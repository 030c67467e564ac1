// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a change that reaches some holders of a song and not others, a list that shows what is not there, a
// state that is not on disk in the end, and a save that disturbs or is disturbed by changes made meanwhile.
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeLibraryView.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/library/Library.h"
#include "tests/support/LogCapture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

using namespace std::literals;

namespace zib {
namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class Controller : public RVDataManagerDelegate {
  public:
    [[nodiscard]] Record nowplayingTrack() const override { return playing; }
    void setNowplayingTrack(const Record& track) override { playing = track; }
    [[nodiscard]] bool connectedToInternet() const override { return online; }
    void updateURLField() override { ++urlFieldUpdates; }

    Record playing;
    bool online = true;
    int urlFieldUpdates = 0;
};

class RVDataManagerTest : public testing::Test {
  protected:
    RVDataManagerTest() { open(); }

    void open()
    {
        manager_.reset();
        manager_ = std::make_unique<RVDataManager>(defaults_, alerts_, clock_, view_, path());
        manager_->setDelegate(&controller_);
    }
    [[nodiscard]] QString path() const { return folder_.filePath(QStringLiteral("Zib/Library.zib")); }
    RVDataManager& manager() { return *manager_; }
    LibraryContents onDisk()
    {
        manager_->waitForSaves();
        auto loaded = LibraryFile(path()).load();
        EXPECT_TRUE(loaded);
        return loaded ? std::move(*loaded) : LibraryContents();
    }
    void addToLibrary(const QList<Record>& songs)
    {
        for (const Record& track : songs)
            manager().library().insert(track.string(keys::Id), track);
    }
    QStringList shownIds()
    {
        QStringList ids;
        for (const Record& item : manager().items())
            ids.append(item.string(keys::Id));
        return ids;
    }

    QTemporaryDir folder_;
    FakeUserDefaults defaults_;
    FakeAlerts alerts_;
    FakeClock clock_;
    FakeLibraryView view_;
    Controller controller_;
    std::unique_ptr<RVDataManager> manager_;
};

TEST_F(RVDataManagerTest, AMissingFileIsMadeAndACorruptOneToldAndReplaced)
{
    EXPECT_TRUE(onDisk().library.isEmpty());
    EXPECT_TRUE(alerts_.shown.isEmpty());
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(4096, 'x'));
    file.close();
    const LogCapture log;
    open();
    const QStringList logged = log.lines();
    ASSERT_EQ(alerts_.shown.size(), 1);
    EXPECT_EQ(alerts_.shown[0].messageText, text("Your music library has been corrupted."));
    ASSERT_EQ(logged.size(), 1);
    EXPECT_TRUE(logged[0].startsWith(QLatin1String("Error: Failed deserializing data. ")))
        << qUtf8Printable(logged[0]);
    EXPECT_TRUE(onDisk().library.isEmpty());
}

TEST_F(RVDataManagerTest, PlaylistsAndSearchesAreKept)
{
    clock_.set(QDateTime(QDate(2001, 1, 2), QTime(0, 0, 0, 999), Qt::UTC));
    const Record a = song(text("a"));
    const Record b = song(text("b"));
    addToLibrary({a});
    manager().addPlaylistWithTitle(text("One"), {a, b, a}, 0);
    manager().insertPlaylistAtIndex(0, text("Two"), {}, 0);
    manager().addPlaylistWithTitle(text("Old search"), {b}, 1);
    manager().insertPlaylistAtIndex(1, text("Search"), {a}, 5);
    manager().addObjects({b, song(text("c"))}, 1);
    manager().addObjects({b}, 7); // there is none
    manager().setUserName(text("Ann"));
    open();

    ASSERT_EQ(manager().playlists().size(), 2);
    const Record two = manager().playlists()[0];
    const Record one = manager().playlists()[1];
    EXPECT_EQ(
        two,
        Record::make(
            {{keys::Id, 86400}, {keys::Kind, 0}, {keys::Name, text("Two")}, {keys::Tracks, QStringList()}}));
    EXPECT_EQ(one.integer(keys::Id), two.integer(keys::Id)) << "made in the same second";
    EXPECT_EQ(one.strings(keys::Tracks).join(u' '), text("a b a b c"));
    EXPECT_EQ(manager().library().size(), 3);
    EXPECT_TRUE(manager().library().contains("c"sv));
    ASSERT_EQ(manager().searches().size(), 2);
    EXPECT_EQ(manager().searches()[0], Record::make({{keys::Id, 86400},
                                                     {keys::Kind, 5},
                                                     {keys::Name, text("Search")},
                                                     {keys::Tracks, QList<Record>{a}}}));
    EXPECT_EQ(manager().userName(), text("Ann"));
}

TEST_F(RVDataManagerTest, OnlyFiveSearchesAndTheirLayoutsStay)
{
    for (int number = 1; number <= 7; ++number) {
        clock_.set(QDateTime(QDate(2001, 1, 1), QTime(0, 0, 10 + number), Qt::UTC));
        defaults_.setValue(text("layout of %1").arg(10 + number), 1);
        manager().searches().prepend(
            Record::make({{keys::Id, 10 + number}, {keys::Kind, 1}, {keys::Tracks, QList<Record>()}}));
    }
    defaults_.setValue(text("unrelated 111"), 1);
    defaults_.setValue(text("unrelated 112 "), 1);
    manager().saveLibrary();
    const LibraryContents stored = onDisk();
    ASSERT_EQ(stored.searches.size(), 5);
    EXPECT_EQ(stored.searches.first().integer(keys::Id), 17);
    EXPECT_EQ(stored.searches.last().integer(keys::Id), 13);
    QStringList left = defaults_.storedKeys();
    left.sort();
    EXPECT_EQ(left.join(u','),
              text("layout of 13,layout of 14,layout of 15,layout of 16,layout of 17,unrelated 112 "))
        << "every key that ends with the number goes";
}

TEST_F(RVDataManagerTest, LovingChangesEveryHolder)
{
    const Record a = song(text("a"));
    const Record b = song(text("b"));
    addToLibrary({a, b});
    manager().tophot().insert("a"sv, a);
    manager().recommended().insert("a"sv, a);
    manager().addPlaylistWithTitle(text("S"), {b, a}, 1);
    manager().setSource(SourceType::Library);
    controller_.playing = manager().items()[0].copy();

    manager().markFavoriteAtIndex(0);
    const auto lovedEverywhere = [this](bool loved) {
        const Record searched = manager().searches()[0].records(keys::Tracks)[1];
        for (const Record& holder : {manager().library().find("a"sv), manager().tophot().find("a"sv),
                                     manager().recommended().find("a"sv), searched, controller_.playing,
                                     manager().items()[0], onDisk().library.find("a"sv)}) {
            EXPECT_EQ(holder.contains(keys::Favorite), loved);
            EXPECT_EQ(holder.string(keys::Id), text("a"));
        }
        EXPECT_FALSE(searched.contains(keys::Index));
        EXPECT_FALSE(manager().library().find("a"sv).contains(keys::Index));
        EXPECT_TRUE(manager().items()[0].contains(keys::Index)) << "the row keeps its number";
    };
    lovedEverywhere(true);
    EXPECT_FALSE(a.contains(keys::Favorite)) << "the old record is replaced, not changed";
    EXPECT_EQ(manager().favorites(), QList<Record>{manager().library().find("a"sv)});
    EXPECT_EQ(manager().items().size(), 2);
    manager().markFavoriteAtIndex(0);
    lovedEverywhere(false);
    manager().markFavoriteAtIndex(2);
    manager().markFavoriteAtIndex(-1);
    EXPECT_TRUE(manager().favorites().isEmpty());
}

TEST_F(RVDataManagerTest, LovingTheSongNowPlayingSparesRecommendedAndTheSnapshot)
{
    const Record web = song(text("w"), {{keys::Location, text("http://host/w.mp3")}});
    for (RecordTable* table : {&manager().tophot(), &manager().recommended()})
        table->insert("w"sv, web);
    manager().addPlaylistWithTitle(text("S"), {web}, 1);
    controller_.playing = web.copy();
    controller_.playing.set(keys::Index, 3);
    manager().addFavorite(controller_.playing);
    EXPECT_TRUE(manager().library().find("w"sv).boolean(keys::Favorite)) << "a loved web song is kept";
    EXPECT_TRUE(manager().tophot().find("w"sv).boolean(keys::Favorite));
    EXPECT_TRUE(manager().searches()[0].records(keys::Tracks)[0].boolean(keys::Favorite));
    EXPECT_FALSE(manager().recommended().find("w"sv).contains(keys::Favorite));
    EXPECT_FALSE(controller_.playing.contains(keys::Favorite));
}

TEST_F(RVDataManagerTest, UnlovingEmptiesTheShownFavorites)
{
    addToLibrary({song(text("a"), {{keys::Favorite, true}}), song(text("b")),
                  song(text("c"), {{keys::Favorite, true}})});
    manager().setCurrentFilterType(FilterType::Favorites);
    manager().setSource(SourceType::Library);
    EXPECT_EQ(shownIds().join(u' '), text("a c"));
    manager().markFavoriteAtIndex(0);
    EXPECT_EQ(shownIds().join(u' '), text("c"));
    EXPECT_EQ(manager().items()[0].integer(keys::Index), 0) << "numbered anew";
}

TEST_F(RVDataManagerTest, BrokenLinks)
{
    const struct {
        const char* location;
        bool downloaded;
        bool online;
        bool marked;
    } cases[] = {
        {"http://host/a", false, true, true},
        {"http://host/a", false, false, false},
        {"http://host/a", true, false, true},
        {"file:///a.mp3", false, false, true},
    };
    for (const auto& test : cases) {
        const Record a =
            song(text("a"), {{keys::Location, text(test.location)}, {keys::Downloaded, test.downloaded}});
        addToLibrary({a});
        manager().setSource(SourceType::Library);
        controller_.online = test.online;
        manager().fileNotFound(manager().items()[0]);
        EXPECT_EQ(manager().library().find("a"sv).contains(keys::BrokenLink), test.marked) << test.location;
        EXPECT_EQ(manager().items()[0].contains(keys::BrokenLink), test.marked) << test.location;
        const Record found = manager().fileRefound(manager().items()[0]);
        EXPECT_FALSE(found.contains(keys::BrokenLink));
        EXPECT_EQ(manager().library().find("a"sv), a);
    }
    controller_.online = true;
    const Record unknown = song(text("u"));
    manager().fileNotFound(unknown);
    EXPECT_FALSE(manager().library().contains("u"sv)) << "only what is held is replaced";
}

TEST_F(RVDataManagerTest, AChangeToAnOldRecordKeepsWhatHappenedSince)
{
    const Record playing = song(text("a"));
    addToLibrary({playing});
    manager().setSource(SourceType::Library);
    manager().markFavoriteAtIndex(0);
    manager().fileNotFound(playing);
    EXPECT_TRUE(manager().library().find("a"sv).boolean(keys::Favorite));
    EXPECT_TRUE(manager().items()[0].boolean(keys::BrokenLink));
}

TEST_F(RVDataManagerTest, ADownloadIsKept)
{
    const Record web = song(text("w"), {{keys::Location, text("http://host/w.mp3")}});
    manager().tophot().insert("w"sv, web);
    manager().addPlaylistWithTitle(text("S"), {web}, 1);
    manager().setSource(SourceType::RecentSearches);
    manager().setCurrentPlaylistIndex(0);
    const Record item = manager().items()[0];
    controller_.playing = item.copy();
    manager().exportedFile(item);
    EXPECT_TRUE(item.boolean(keys::Downloaded)) << "also for those who hold the record itself";
    for (const Record& holder : {manager().library().find("w"sv), manager().tophot().find("w"sv),
                                 manager().items()[0], manager().searches()[0].records(keys::Tracks)[0],
                                 controller_.playing, onDisk().library.find("w"sv)})
        EXPECT_TRUE(holder.boolean(keys::Downloaded));
    EXPECT_EQ(defaults_.string(settings::BriefStatusMessage), text("Exported to disk"));

    defaults_.remove(settings::BriefStatusMessage);
    manager().exportedFile(song(text("other")));
    EXPECT_TRUE(manager().library().contains("other"sv));
    EXPECT_TRUE(defaults_.string(settings::BriefStatusMessage).isEmpty()) << "not the song now playing";
}

TEST_F(RVDataManagerTest, SourcesShowTheirSongs)
{
    addToLibrary({song(text("a"), {{keys::Location, text("file:///a")}}),
                  song(text("b"), {{keys::Downloaded, true}}),
                  song(text("c"), {{keys::Favorite, true}, {keys::Location, text("http://file://")}})});
    manager().tophot().insert("t"sv, song(text("t")));
    manager().recommended().insert("r"sv, song(text("r")));
    manager().playlists().append(
        Record::make({{keys::Id, 99},
                      {keys::Name, text("P")},
                      {keys::Tracks, QStringList{text("c"), text("gone"), text("a"), text("c")}}}));
    manager().searches().append(Record::make(
        {{keys::Id, 98}, {keys::Name, text("S")}, {keys::Tracks, QList<Record>{song(text("x"))}}}));
    const struct {
        SourceType source;
        FilterType filter;
        const char* ids;
        bool browser;
        bool continuous;
    } cases[] = {
        {SourceType::TopHot, FilterType::All, "t", true, false},
        {SourceType::Recommended, FilterType::All, "r", true, false},
        {SourceType::Library, FilterType::All, "a b c", true, true},
        {SourceType::Library, FilterType::Imported, "a", true, true},
        {SourceType::Library, FilterType::Downloads, "b", true, true},
        {SourceType::Library, FilterType::Favorites, "c", true, true},
        {SourceType::Playlists, FilterType::All, "c a c", false, true},
        {SourceType::RecentSearches, FilterType::All, "x", false, false},
    };
    for (const auto& test : cases) {
        manager().setCurrentFilterType(test.filter);
        manager().setSource(test.source);
        if (!test.browser)
            manager().setCurrentPlaylistIndex(0);
        EXPECT_EQ(shownIds().join(u' '), text(test.ids));
        EXPECT_EQ(manager().sourceHasBrowser(), test.browser);
        EXPECT_EQ(RVDataManager::sourceIsContinuos(test.source), test.continuous);
        EXPECT_EQ(manager().currentSourceType(), test.source);
        const qint64 uid = test.browser                           ? qint64(test.source)
                           : test.source == SourceType::Playlists ? 99
                                                                  : 98;
        EXPECT_EQ(manager().currentUID(), uid);
        EXPECT_EQ(view_.songs.autosaveNames.last(), QString::number(uid));
    }
    EXPECT_EQ(manager().currentPlaylist(), manager().searches()[0]);
    EXPECT_EQ(manager().currentName(), text("S"));
    const int updates = controller_.urlFieldUpdates;
    manager().setCurrentPlaylistIndex(RVDataManager::NotFound);
    EXPECT_EQ(shownIds().join(u' '), text("x")) << "nothing is shown for no index";
    EXPECT_EQ(controller_.urlFieldUpdates, updates);
    EXPECT_TRUE(manager().currentPlaylist().isNull());
}

TEST_F(RVDataManagerTest, AddressesFollowTheBundledService)
{
    const auto at = [](const char* id, const char* base) {
        return song(text(id),
                    {{keys::Location, QString(text(base) + text("audio/x"))}, {keys::Info, text(base)}});
    };
    addToLibrary({at("a", "http://127.0.0.1:1/"), at("b", "http://127.0.0.1:11/")});
    manager().addPlaylistWithTitle(text("S"), {at("c", "http://127.0.0.1:1/")}, 1);
    manager().relocate(text("http://127.0.0.1:1/"), text("http://127.0.0.1:22/"));
    const LibraryContents stored = onDisk();
    EXPECT_EQ(stored.library.find("a"sv), at("a", "http://127.0.0.1:22/"));
    EXPECT_EQ(stored.library.find("b"sv), at("b", "http://127.0.0.1:11/"));
    EXPECT_EQ(stored.searches[0].records(keys::Tracks)[0], at("c", "http://127.0.0.1:22/"));
}

// The save thread works while this one goes on: the last state is on disk in the end, and every state on the
// way can be read.
TEST_F(RVDataManagerTest, ChangesWhileSavesRun)
{
    QList<Record> songs;
    for (int number = 0; number < 2000; ++number)
        songs.append(song(QString::number(number), {{keys::Location, text("http://host/")}}));
    addToLibrary(songs);
    manager().addPlaylistWithTitle(text("S"), songs.mid(0, 20), 1);
    manager().addPlaylistWithTitle(text("P"), songs.mid(0, 20), 0);
    manager().setSource(SourceType::Library);
    manager().waitForSaves(); // there is a file from now on
    for (int round = 0; round < 300; ++round) {
        manager().markFavoriteAtIndex(round * 7 % 2000);
        Record shared = manager().library().find(QString::number(round));
        shared.set(keys::PlayCount, round);
        Record playlist = manager().playlists()[0];
        playlist.set(keys::Name, QString::number(round));
        manager().searches()[0].set(keys::Name, QString::number(round));
        manager().library().insert(text("new %1").arg(round), song(text("new %1").arg(round)));
        manager().saveLibrary();
        if (round % 50 == 0) {
            const auto loaded = LibraryFile(path()).load();
            EXPECT_TRUE(loaded) << qUtf8Printable(loaded.error());
        }
    }
    const LibraryContents stored = onDisk();
    EXPECT_EQ(stored.library.records(), manager().library().records());
    EXPECT_EQ(stored.playlists, manager().playlists());
    EXPECT_EQ(stored.searches, manager().searches());
}

TEST_F(RVDataManagerTest, QuittingWaitsForTheLastSave)
{
    for (int round = 0; round < 20; ++round) {
        manager().setUserName(QString::number(round));
        manager_.reset();
        EXPECT_EQ(LibraryFile(path()).load()->userInfo.string(keys::Username), QString::number(round));
        open();
    }
}

} // namespace
} // namespace zib
