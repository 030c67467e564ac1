// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: artists, albums or songs that stand in the wrong place, are missing or stay when they should have
// gone, names that mean something to a pattern, and lists that are right only until a record is replaced.
#include "library/SongCells.h"
#include "records/PropertyValue.h"
#include "tests/library/BrowserFixture.h"

namespace zib {
namespace {

using TextColour = CellDecoration::TextColour;
using ButtonImage = CellDecoration::ButtonImage;

class TrackBrowserTest : public BrowserFixture {
  protected:
    [[nodiscard]] QString artists() const { return library.allArtists().join(QLatin1Char('|')); }
    [[nodiscard]] QString albums() const { return library.allAlbums().join(QLatin1Char('|')); }
};

TEST_F(TrackBrowserTest, ArtistsAndAlbumsHaveOrdersOfTheirOwn)
{
    add("1", "The Zombies", "abba");
    add("2", "abba", "Zoo");
    add("3", "Muse", "Zoo");
    add("4", "Thermals", "");
    add("5", "The", nullptr);
    add("6", "THE Ärzte", "The Best");
    add("7", nullptr, "Best");
    add("8", "Muse", "Best");
    library.setSource(SourceType::Library);
    EXPECT_EQ(artists(), text("All (6 Artists)|abba|Muse|The|Thermals|The Zombies|THE Ärzte"));
    EXPECT_EQ(albums(), text("All (5 Albums)||Best|The Best|Zoo|abba"));
    const SongCells cells(library.browser());
    EXPECT_EQ(cells.album(1), text("Unknown Album"));
    EXPECT_EQ(cells.album(2), text("Best"));
    EXPECT_EQ(view.artists.selectedRows(), QList<int>{0});
    EXPECT_EQ(view.albums.selectedRows(), QList<int>{0});
}

TEST_F(TrackBrowserTest, ChoosingNarrowsTheSongs)
{
    add("1", "A", "X");
    add("2", "A", "Y");
    add("3", "B", "X");
    add("4", "B", nullptr);
    library.setSource(SourceType::Library);
    EXPECT_EQ(shown(), text("1 2 3 4"));
    choose(view.albums, 1);
    EXPECT_EQ(shown(), text("1 3")) << "album X of all artists";
    view.songs.selectRows({1});
    choose(view.artists, 1);
    EXPECT_EQ(shown(), text("1 2"));
    EXPECT_EQ(view.albums.selectedRows(), QList<int>{0}) << "another artist has other albums";
    EXPECT_TRUE(view.songs.selectedRows().isEmpty());
    EXPECT_EQ(library.items()[1].integer(keys::Index), 1);
    choose(view.albums, 2);
    EXPECT_EQ(albums(), text("All (2 Albums)|X|Y"));
    EXPECT_EQ(shown(), text("2"));
    view.songs.selectRows({0});
    EXPECT_EQ(library.currentIndexPath(), (IndexPath{1, 2, 0}));
    choose(view.artists, 0);
    EXPECT_EQ(shown(), text("1 2 3 4"));
    EXPECT_EQ(library.currentIndexPath(), (IndexPath{0, 0, -1}));
}

TEST_F(TrackBrowserTest, NamesArePatternsWithTwoSignsOnly)
{
    const struct {
        const char* artist;
        const char* songs;
    } cases[] = {
        {"AC*", "1 2"},     // a star stands for any characters
        {"AC-DC", "2"},     //
        {"ac*", "3"},       // case counts
        {"P!nk?", "4 5"},   // a question mark for one
        {"(A.C)[b]$", "6"}, // the rest means itself
        {"\\", "7"},        //
        {"\u00e4", "8 9"},  // composed or not
    };
    add("1", "AC*", nullptr);
    add("2", "AC-DC", nullptr);
    add("3", "ac*", nullptr);
    add("4", "P!nk?", nullptr);
    add("5", "P!nks", nullptr);
    add("6", "(A.C)[b]$", nullptr);
    add("7", "\\", nullptr);
    add("8", "\u00e4", nullptr);
    add("9", "a\u0308", nullptr);
    library.setSource(SourceType::Library);
    for (const auto& test : cases) {
        choose(view.artists, int(library.allArtists().indexOf(text(test.artist))));
        EXPECT_EQ(shown(), text(test.songs)) << test.artist;
    }
}

TEST_F(TrackBrowserTest, AnAlbumOfAnArtistIsItsNameAndNoPattern)
{
    add("1", "A", "B*");
    add("2", "A", "Bee");
    add("3", "C", "Bee");
    library.setSource(SourceType::Library);
    choose(view.albums, 1);
    EXPECT_EQ(shown(), text("1 2 3"));
    choose(view.artists, 1);
    choose(view.albums, 1);
    EXPECT_EQ(shown(), text("1"));
}

TEST_F(TrackBrowserTest, FiltersReachTheBrowsersAndTheSongs)
{
    add("1", "A", "X").set(keys::Downloaded, true);
    add("2", "B", "Y").set(keys::Favorite, true);
    add("3", "C", "Z").set(keys::Location, text("file:///c.mp3"));
    const struct {
        FilterType filter;
        const char* artists;
        const char* songs;
    } cases[] = {
        {FilterType::All, "All (3 Artists)|A|B|C", "1 2 3"},
        {FilterType::Downloads, "All (1 Artists)|A", "1"},
        {FilterType::Imported, "All (1 Artists)|C", "3"},
        {FilterType::Favorites, "All (1 Artists)|B", "2"},
    };
    for (const auto& test : cases) {
        library.setCurrentFilterType(test.filter);
        library.setSource(SourceType::Library);
        EXPECT_EQ(artists(), text(test.artists));
        EXPECT_EQ(shown(), text(test.songs));
    }
}

// What the browsers remember of the records has to follow each way in which those change.
TEST_F(TrackBrowserTest, BrowsersFollowEveryChange)
{
    const Record first = add("1", "A", "X");
    add("2", "B", "Y");
    library.setSource(SourceType::Library);
    add("3", "C", "Z");
    library.reloadData();
    EXPECT_EQ(artists(), text("All (3 Artists)|A|B|C"));

    Record changedInPlace = first;
    changedInPlace.set(keys::Artist, text("Zed"));
    library.library().remove(text("2"));
    library.reloadData();
    EXPECT_EQ(artists(), text("All (2 Artists)|C|Zed"));
    EXPECT_EQ(shown(), text("1 3"));

    library.markFavoriteAtIndex(0);
    library.setCurrentFilterType(FilterType::Favorites);
    library.reloadData();
    EXPECT_EQ(shown(), text("1"));

    library.library().clear();
    add("4", "D", "Z");
    library.setCurrentFilterType(FilterType::All);
    library.reloadData();
    EXPECT_EQ(artists(), text("All (1 Artists)|D"));
    EXPECT_EQ(shown(), text("4"));
    for (int number = 0; number < 1000; ++number)
        library.library().insert(text("n%1").arg(number), song(text("n%1").arg(number)));
    for (int number = 0; number < 990; ++number)
        library.library().remove(text("n%1").arg(number));
    for (int number = 0; number < 1000; ++number) // so many that the table is packed
        library.library().insert(text("m%1").arg(number), song(text("m%1").arg(number)));
    library.reloadData();
    EXPECT_EQ(library.items().size(), 1011);
    EXPECT_EQ(library.items()[1].string(keys::Id), text("n990"));
}

TEST_F(TrackBrowserTest, EachSourceHasItsPanesAndColumns)
{
    const struct {
        SourceType source;
        bool browsers;
        const char* missing;
    } cases[] = {
        {SourceType::Library, true, "Familiarity Found Date Hotness Index"},
        {SourceType::TopHot, true, "Index Play Count Play Date"},
        {SourceType::Recommended, true, "Index Play Count Play Date"},
        {SourceType::Playlists, false, "Familiarity Found Date Hotness"},
        {SourceType::RecentSearches, false, "Play Count Play Date"},
    };
    for (const auto& test : cases) {
        library.setSource(test.source);
        EXPECT_EQ(view.browsersShown, test.browsers);
        QStringList missing(view.songs.missingColumns.begin(), view.songs.missingColumns.end());
        missing.sort();
        EXPECT_EQ(missing.join(u' '), text(test.missing));
    }
}

TEST_F(TrackBrowserTest, APlaylistIsShownInItsOrderWithoutWhatIsGone)
{
    add("a", "A", "X");
    add("b", "B", "Y");
    showPlaylist({text("b"), text("gone"), text("a"), text("b")});
    EXPECT_EQ(shown(), text("b a b"));
    EXPECT_EQ(view.songs.descriptors, (QList<SortDescriptor>{{text("Index"), true}}));
    EXPECT_EQ(view.songs.subviewRemovals, 1);
    EXPECT_EQ(view.songs.scrolledTo, 0);
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(library.items()[row].integer(keys::Index), row) << "also where a song stands twice";

    view.songs.descriptors = {{text("Name"), false}}; // what the saved layout of the next one says
    library.library().find(text("a")).set(keys::Name, text("Zoo"));
    showPlaylist({text("b"), text("a")}, 78);
    EXPECT_EQ(shown(), text("a b"));
    EXPECT_EQ(view.songs.autosaveNames.last(), text("78"));
}

TEST_F(TrackBrowserTest, CellsShowWhatPeopleRead)
{
    Record track = add("1", nullptr, "", "A name");
    const QDateTime date(QDate(2020, 2, 3), QTime(4, 5), Qt::UTC);
    track.set(keys::Duration, 3605);
    track.set(keys::Hotness, 56);
    track.set(keys::Year, 1999);
    track.set(keys::PlayDate, date);
    library.setSource(SourceType::Library);
    const SongCells cells(library.browser());
    const std::pair<SongColumn, QVariant> cases[] = {
        {SongColumn::Index, 1},
        {SongColumn::Name, text("A name")},
        {SongColumn::Artist, text("Unknown Artist")},
        {SongColumn::Album, text("Unknown Album")},
        {SongColumn::Duration, text("1:00:05")},
        {SongColumn::Hotness, text("56%")},
        {SongColumn::Familiarity, QVariant()},
        {SongColumn::Year, 1999},
        {SongColumn::PlayDate, date},
        {SongColumn::PlayCount, QVariant()},
    };
    for (const auto& [column, value] : cases)
        EXPECT_EQ(cells.objectValueForTableColumn(column, 0), value) << int(column);
    EXPECT_FALSE(cells.objectValueForTableColumn(SongColumn::Name, 1).isValid());
}

TEST_F(TrackBrowserTest, CellsShowWhatCanBeDone)
{
    const struct {
        const char* location;
        std::initializer_list<RecordKey> marks;
        bool online;
        TextColour colour;
        bool download;
        ButtonImage image;
    } cases[] = {
        {"http://h/a", {}, true, TextColour::Normal, true, ButtonImage::Download},
        {"http://h/a", {keys::CanAbort}, true, TextColour::Normal, true, ButtonImage::Stop},
        {"http://h/a", {keys::Downloaded}, true, TextColour::Normal, false, ButtonImage::Download},
        {"http://h/a", {keys::BrokenLink}, true, TextColour::Broken, false, ButtonImage::Download},
        {"http://h/a", {keys::BrokenLink}, false, TextColour::Unavailable, false, ButtonImage::Download},
        {"http://h/a", {keys::Downloaded}, false, TextColour::Normal, false, ButtonImage::Download},
        {"file:///a", {}, true, TextColour::Normal, false, ButtonImage::Download},
        {"file:///a", {keys::BrokenLink}, false, TextColour::Broken, false, ButtonImage::Download},
    };
    const SongCells cells(library.browser());
    for (const auto& test : cases) {
        Record track = add("1", "A", "X");
        track.set(keys::Location, text(test.location));
        for (const RecordKey mark : test.marks)
            track.set(mark, true);
        controller.online = test.online;
        library.setSource(SourceType::Library);
        EXPECT_EQ(cells.willDisplayCell(SongColumn::Name, 0).textColour, test.colour);
        EXPECT_EQ(cells.willDisplayCell(SongColumn::Download, 0).download,
                  (CellDecoration::DownloadButton{test.download, test.image}));
    }
    EXPECT_FALSE(cells.willDisplayCell(SongColumn::Love, 0).heartActive);
    library.markFavoriteAtIndex(0);
    EXPECT_TRUE(cells.willDisplayCell(SongColumn::Love, 0).heartActive);
}

TEST_F(TrackBrowserTest, TheSpeakerStandsAtTheSongThatPlaysAndOnlyThere)
{
    add("a", "A", "X");
    add("b", "B", "Y");
    const SongCells cells(library.browser());
    const auto speakers = [&] {
        QString marks;
        for (int row = 0; row < cells.numberOfRows(); ++row)
            marks += cells.willDisplayCell(SongColumn::Speaker, row).speaker ? u'*' : u'.';
        return marks;
    };
    showPlaylist({text("a"), text("b"), text("a")});
    EXPECT_EQ(speakers(), text("..."));
    controller.play(library.items()[2], library);
    EXPECT_EQ(speakers(), text("..*"));
    library.setSource(SourceType::Library);
    EXPECT_EQ(speakers(), text("..")) << "it plays from the playlist";
    controller.play(library.items()[1].copy(), library);
    sortBy({{text("Artist"), false}});
    EXPECT_EQ(speakers(), text("*."));
}

TEST_F(TrackBrowserTest, TypedWordsFindSongsInEveryLanguage)
{
    add("a", "Björk", "Début", "Human Behaviour");
    add("b", "Sigur Rós", "Takk...", "Hoppípolla");
    add("c", "Кино", "Группа крови", "Звезда по имени Солнце");
    add("d", "MØ", "No Mythologies", "Straße");
    add("e", "椎名林檎", "無罪モラトリアム", "丸の内サディスティック");
    Record dated = add("f", "Human Band", "Best Of", "Other");
    dated.set(keys::Year, 1993);
    library.setSource(SourceType::Library);
    struct Case {
        const char* typed;
        const char* found;
    };
    for (const Case& c :
         {Case{"", "a b c d e f"}, Case{"bjork", "a"}, Case{"HUMAN", "a f"}, Case{"human debut", "a"},
          Case{"debut  human", "a"}, Case{"hoppi ros", "b"}, Case{"кРОВИ", "c"}, Case{"mo strasse", "d"},
          Case{"林檎", "e"}, Case{"human 1993", "f"}, Case{"Hopp\u00edpolla", "b"},
          Case{"Hoppi\u0301polla", "b"}, Case{"behaviourdebut", ""}, Case{"*", ""}, Case{"takk...", "b"}}) {
        library.browser().setFilterText(text(c.typed));
        EXPECT_EQ(shown(), text(c.found)) << c.typed;
    }
}

TEST_F(TrackBrowserTest, AFilterStaysTrueWhileItsSongsChange)
{
    for (const char* id : {"1", "2", "3", "4"})
        add(id, "Artist", "Album", id[0] % 2 != 0 ? "Odd" : "Even");
    showPlaylist({text("4"), text("3"), text("2"), text("1")});
    TrackBrowser& browser = library.browser();
    browser.setFilterText(text("odd"));
    ASSERT_EQ(shown(), text("3 1"));
    library.markFavoriteAtIndex(0);
    sortBy({{text("Index"), false}});
    EXPECT_EQ(shown(), text("1 3"));
    browser.setFilterText(text("e"));
    EXPECT_EQ(shown(), text("2 4"));
    browser.setFilterText({});
    EXPECT_EQ(shown(), text("1 2 3 4"));
    EXPECT_TRUE(library.items()[2].boolean(keys::Favorite));
    browser.setFilterText(text("even"));
    library.removeItems({0});
    EXPECT_EQ(shown(), text("4"));
    library.setCurrentPlaylistIndex(0); // another source, or the same anew
    EXPECT_EQ(browser.filterText(), QString());
    EXPECT_EQ(shown(), text("1 2 3 4"));
}

} // namespace
} // namespace zib
