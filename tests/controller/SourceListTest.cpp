// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: rows that name another list than the library has there, a list that is shown while another is
// selected, a playing list that is lost when it moves.
#include "library/SongReordering.h"
#include "tests/controller/SourceListFixture.h"

namespace zib {
namespace {

using SourceListTest = SourceListFixture;

TEST_F(SourceListTest, TheRowsStandWhereTheLibraryHasTheirSources)
{
    addSearch(QStringLiteral("near"));
    addPlaylist(QStringLiteral("Playlists")); // called like its group, and yet a playlist
    list().populateOutlineContents();
    EXPECT_EQ(selected(), NodePath{0});
    EXPECT_EQ(window.shownView, MainView::NowPlaying);
    EXPECT_EQ(titles({}),
              QStringLiteral("Now Playing,What's Hot?,Recommended,,Recent Searches,Library,Playlists"));
    EXPECT_EQ(titles({libraryAt}), QStringLiteral("Music,Downloads,Imported,Favorites"));
    struct Case {
        NodePath path;
        const char* kind;
        int height;
        bool selectable;
        bool group;
        bool editable;
    };
    for (const Case& c :
         {Case{{0}, "nowplaying", 46, true, false, false}, Case{{1}, "tophot", 46, false, false, false},
          Case{{2}, "recommended", 46, false, false, false}, Case{{3}, "", 20, false, false, false},
          Case{{searchesAt}, "", 25, false, true, false},
          Case{{searchesAt, 0}, "artistradio", 20, true, false, false},
          Case{{libraryAt}, "", 25, false, true, false},
          Case{{libraryAt, 3}, "favorites", 20, true, false, false},
          Case{{playlistsAt}, "", 25, false, true, false},
          Case{{playlistsAt, 0}, "playlist", 20, true, false, true}}) {
        SCOPED_TRACE(titles(c.path.first(c.path.size() - 1)).toStdString() + std::to_string(c.path.last()));
        EXPECT_EQ(node(c.path).urlString(), QLatin1String(c.kind));
        EXPECT_EQ(list().heightOfRowByItem(c.path), c.height);
        EXPECT_EQ(list().shouldSelectItem(c.path), c.selectable);
        EXPECT_EQ(list().isGroupItem(c.path), c.group);
        EXPECT_EQ(list().shouldEditItem(c.path), c.editable);
    }
    EXPECT_FALSE(list().shouldSelectItem({playlistsAt, 1})) << "there is none";
    list().setNodeEnabled(SourceType::TopHot, true);
    EXPECT_TRUE(list().shouldSelectItem({1}));
    EXPECT_EQ(window.outline.reloaded.last(), NodePath{1});
}

TEST_F(SourceListTest, ARowShowsItsSourceAndSaysWhatCanBeDoneWithIt)
{
    addSearch(QStringLiteral("S"));
    addPlaylistsABC();
    for (const SourceType fixed : {SourceType::TopHot, SourceType::Recommended})
        list().setNodeEnabled(fixed, true);
    struct Case {
        NodePath path;
        bool remove;
        bool action;
    };
    for (const Case& c :
         {Case{{libraryAt, 2}, false, false}, Case{{searchesAt, 0}, true, false},
          Case{{playlistsAt, 1}, true, true}, Case{{1}, false, false}, Case{{2}, false, false}}) {
        click({c.path});
        EXPECT_EQ(selected(), c.path);
        EXPECT_EQ(window.shownView, MainView::Songs);
        EXPECT_EQ(int(library->currentSourceType()), c.path[0]);
        EXPECT_EQ(library->currentFilterType(),
                  c.path[0] == libraryAt || c.path[0] == searchesAt || c.path[0] == playlistsAt
                      ? FilterType::Imported
                      : FilterType::All);
        EXPECT_EQ(list().removeEnabled(), c.remove);
        EXPECT_EQ(list().actionEnabled(), c.action);
        EXPECT_TRUE(window.urlField.startsWith(QStringLiteral("%1 songs").arg(library->items().size())));
    }
    click({{0}});
    EXPECT_EQ(window.urlField, QString()) << "no songs are shown";
    controller->updateURLField();
    EXPECT_EQ(window.urlField, QString());
    ASSERT_EQ(alerts.shown.size(), 2) << "a word about What's Hot? and about Recommended";
    EXPECT_TRUE(alerts.shown[0].informativeText.contains(QLatin1String("hyped")));
    EXPECT_TRUE(alerts.shown[1].informativeText.contains(QLatin1String("recommendations")));
    click({{playlistsAt, 0}, {playlistsAt, 2}}); // several are for removing only
    EXPECT_EQ(window.shownView, MainView::None);
    EXPECT_TRUE(list().removeEnabled());
    click({});
    EXPECT_EQ(window.shownView, MainView::None);
    EXPECT_FALSE(list().removeEnabled());
    EXPECT_EQ(list().categoryOfSelectedNode(), std::numeric_limits<int>::max());
}

TEST_F(SourceListTest, PlaylistsAreMadeNamedAndRenamed)
{
    list().addPlaylistAction();
    EXPECT_EQ(selected(), (NodePath{playlistsAt, 0}));
    EXPECT_EQ(library->currentName(), QStringLiteral("Untitled playlist"));
    const Record other = localSong(3, {{keys::Artist, QStringLiteral("Other")}});
    showAsSearch({localSong(1), localSong(2), other});
    list().addPlaylistFromSelectionAction();
    EXPECT_EQ(library->playlists().size(), 1) << "nothing is selected";
    for (const auto& [rows, name] : {std::pair{QList<int>{0, 1}, "Artist"}, {{1, 2}, "Untitled playlist"}}) {
        controller->showSearch(0);
        table.selectRows(rows);
        list().addPlaylistFromSelectionAction();
        EXPECT_EQ(library->currentName(), QLatin1String(name));
        EXPECT_EQ(library->items().size(), 2);
        EXPECT_EQ(selected(), (NodePath{playlistsAt, int(library->playlists().size()) - 1}));
    }
    list().editPlaylistAction();
    EXPECT_EQ(window.outline.edited, (NodePath{playlistsAt, 2}));
    for (const char* refused : {"", "  "}) {
        EXPECT_FALSE(SourceList::textShouldEndEditing(QLatin1String(refused)));
        list().controlTextDidEndEditing({playlistsAt, 2}, QLatin1String(refused));
        EXPECT_EQ(library->currentName(), QStringLiteral("Untitled playlist"));
    }
    list().controlTextDidEndEditing({playlistsAt, 2}, QStringLiteral("Both"));
    EXPECT_EQ(selected(), (NodePath{playlistsAt, 2}));
    EXPECT_EQ(library->currentName(), QStringLiteral("Both"));
    quit();
    start();
    EXPECT_EQ(titles({playlistsAt}), QStringLiteral("Untitled playlist,Artist,Both"));
}

TEST_F(SourceListTest, DraggedRows)
{
    struct Case {
        QList<NodePath> rows;
        int above;
        const char* playlists; ///< nothing when the drop is refused
        QList<NodePath> selection;
    };
    const NodePath a{playlistsAt, 0};
    const NodePath b{playlistsAt, 1};
    const NodePath c{playlistsAt, 2};
    const NodePath search{searchesAt, 0};
    addSearch(QStringLiteral("S"), {webSong(5)});
    addPlaylistsABC();
    for (const Case& one : {Case{{a}, 0, "", {}}, Case{{a}, 1, "", {}}, Case{{a}, 2, "B,A,C", {b}},
                            Case{{a}, 3, "B,C,A", {c}}, Case{{c}, 0, "C,A,B", {a}}, Case{{c}, 3, "", {}},
                            Case{{c}, 4, "", {}}, Case{{a, b}, 3, "C,A,B", {b, c}},
                            Case{{c, a}, 1, "A,C,B", {a, b}}, Case{{{libraryAt, 0}}, 0, "", {}},
                            Case{{a, {libraryAt, 0}}, 2, "", {}}, Case{{{playlistsAt}}, 0, "", {}},
                            Case{{search}, 1, "A,S,B,C", {b}}, Case{{search, c}, 0, "S,C,A,B", {a, b}}}) {
        library->playlists().clear();
        library->searches().clear();
        addSearch(QStringLiteral("S"), {webSong(5)});
        addPlaylistsABC();
        EXPECT_EQ(drag(one.rows, one.above), *one.playlists != 0);
        EXPECT_EQ(titles({playlistsAt}), QLatin1String(*one.playlists != 0 ? one.playlists : "A,B,C"));
        selected();
        if (*one.playlists != 0) {
            EXPECT_EQ(list().tree().selectedPaths(), one.selection);
        }
    }
    for (int index = 0; index < 4; ++index)
        EXPECT_EQ(node({playlistsAt, index}).urlString(), QStringLiteral("playlist"));
    EXPECT_TRUE(library->library().contains(webSong(5).string(keys::Id)));
    QMimeData pasteboard;
    ASSERT_TRUE(list().writeItems({a}, pasteboard));
    EXPECT_FALSE(list().validateDrop(pasteboard, c, OutlineDrop::OnItem)) << "onto a playlist";
    EXPECT_FALSE(list().validateDrop(pasteboard, {searchesAt}, 0));
    pasteboard.clear();
    pasteboard.setText(QStringLiteral("words"));
    EXPECT_FALSE(list().validateDrop(pasteboard, c, OutlineDrop::OnItem));
}

TEST_F(SourceListTest, ThePlayingListIsFollowedWhereverItMoves)
{
    const auto playingName = [this] {
        const NowPlayingSnapshot& snapshot = *queue().snapshot();
        const QList<Record>& lists =
            snapshot.sourceType == SourceType::Playlists ? library->playlists() : library->searches();
        const Record playing = lists.value(snapshot.playlistIndex);
        EXPECT_EQ(playing.integer(keys::Id), snapshot.playlistUid);
        return playing.string(keys::Name);
    };
    addSearch(QStringLiteral("S"), {localSong(3), localSong(4)});
    addPlaylistsABC();
    click({{playlistsAt, 0}});
    play(1);
    ASSERT_TRUE(drag({{playlistsAt, 0}}, 3)); // itself
    EXPECT_EQ(playingName(), QStringLiteral("A"));
    click({{playlistsAt, 0}});
    ASSERT_TRUE(drag({{playlistsAt, 0}}, 3)); // another, past it
    EXPECT_EQ(playingName(), QStringLiteral("A"));
    ASSERT_TRUE(drag({{searchesAt, 0}}, 0)); // a new one, before it
    EXPECT_EQ(playingName(), QStringLiteral("A"));
    click({{playlistsAt, 1}});
    list().removePlaylistAction();
    EXPECT_EQ(playingName(), QStringLiteral("A"));

    click({{libraryAt, 0}});
    list().revealCurrentTrack();
    EXPECT_EQ(library->currentName(), QStringLiteral("A"));
    EXPECT_EQ(table.selectedRows(), QList<int>{1});
    EXPECT_EQ(table.scrolledTo, 1);

    showAsSearch({localSong(3), localSong(4)});
    play(0);
    ASSERT_TRUE(drag({{searchesAt, 0}}, 0));
    EXPECT_EQ(playingName(), QStringLiteral("found"));
    EXPECT_EQ(queue().nowplayingSourceType(), playlistsAt);
    EXPECT_EQ(queue().nowplayingPlaylistUID(), library->currentUID()) << "the row that plays is marked";
}

TEST_F(SourceListTest, SongsGoOntoAPlaylistAndNowhereElse)
{
    addPlaylistsABC();
    showAsSearch({webSong(7), webSong(8), webSong(9)});
    QMimeData pasteboard;
    SongReordering::writeRowsWithIndexes({0, 2}, pasteboard);
    const NodePath b{playlistsAt, 1};
    const OutlineDrop ontoB{b, OutlineDrop::OnItem};
    EXPECT_FALSE(list().validateDrop(pasteboard, {playlistsAt}, 1));
    EXPECT_FALSE(list().validateDrop(pasteboard, {searchesAt, 0}, OutlineDrop::OnItem));
    EXPECT_FALSE(list().validateDrop(pasteboard, {libraryAt, 0}, OutlineDrop::OnItem));
    EXPECT_EQ(list().validateDrop(pasteboard, b, 0), ontoB);
    EXPECT_TRUE(list().acceptDrop(pasteboard, ontoB));
    EXPECT_EQ(selected(), (NodePath{searchesAt, 0}));
    click({b});
    ASSERT_EQ(library->items().size(), 4);
    EXPECT_EQ(library->items()[3].string(keys::Id), webSong(9).string(keys::Id));
    EXPECT_TRUE(library->library().contains(webSong(7).string(keys::Id)));
    SongReordering::writeRowsWithIndexes({1}, pasteboard);
    EXPECT_TRUE(list().acceptDrop(pasteboard, ontoB)); // onto itself, while it is shown
    EXPECT_EQ(library->items().size(), 5);
}

TEST_F(SourceListTest, WhatPlaysIsShownInTheBrowsersItWasChosenIn)
{
    showAsLibrary({localSong(1), localSong(2, {{keys::Artist, QStringLiteral("Other")}}), localSong(3)});
    view.artists.selectRows({1});
    library->updateAlbumsBrowser();
    view.albums.selectRows({1});
    library->updateTracksBrowser();
    play(1);
    const QString id = queue().nowplayingTrackID();
    addPlaylistsABC();
    view.artists.selectRows({0});
    view.albums.selectRows({0});
    list().revealCurrentTrack();
    EXPECT_EQ(selected(), (NodePath{libraryAt, 0}));
    EXPECT_EQ(view.artists.selectedRows(), QList<int>{1});
    EXPECT_EQ(view.albums.selectedRows(), QList<int>{1});
    ASSERT_EQ(table.selectedRows().size(), 1);
    EXPECT_EQ(library->items()[table.selectedRows()[0]].string(keys::Id), id);
    list().revealSource(SourceType::Playlists);
    EXPECT_EQ(selected(), (NodePath{playlistsAt, 0}));
    list().revealSource(SourceType::TopHot);
    EXPECT_EQ(selected(), (NodePath{playlistsAt, 0})) << "not there yet";
}

} // namespace
} // namespace zib
