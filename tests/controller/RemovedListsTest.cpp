// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a removed list that does not come back to its place, another one that goes in its stead, a row that
// stays selected without its list.
#include "tests/controller/SourceListFixture.h"

namespace zib {
namespace {

using RemovedListsTest = SourceListFixture;

TEST_F(RemovedListsTest, RemovingSelectsWhatMovedIntoThePlace)
{
    addSearch(QStringLiteral("S"), {localSong(3)});
    addPlaylistsABC();
    click({{playlistsAt, 1}});
    alerts.answers = {{.button = 1, .suppressed = false}};
    list().removePlaylistAction();
    EXPECT_EQ(titles({playlistsAt}), QStringLiteral("A,B,C")) << "cancelled";
    EXPECT_EQ(alerts.shown[0].messageText,
              QStringLiteral("Are you sure you want to remove the selected playlist?"));
    EXPECT_EQ(desktop.calls, (QStringList{QStringLiteral("bringToFront"), QStringLiteral("beep")}));

    const QString layout = settings::SongTableLayout + QString::number(library->currentUID());
    defaults.setValue(layout, QStringLiteral("columns"));
    play(0);
    alerts.answers = {{.button = 0, .suppressed = true}};
    list().removePlaylistAction();
    EXPECT_EQ(titles({playlistsAt}), QStringLiteral("A,C"));
    EXPECT_EQ(selected(), (NodePath{playlistsAt, 1}));
    EXPECT_FALSE(defaults.value(layout).isValid());
    EXPECT_FALSE(queue().snapshot()) << "it played";

    list().removePlaylistAction(); // without a question from now on
    EXPECT_EQ(selected(), (NodePath{playlistsAt, 0})) << "the last is gone, so the one before";
    list().removePlaylistAction();
    EXPECT_EQ(selected(), NodePath{0}) << "none is left";
    list().removePlaylistAction();
    click({{searchesAt, 0}});
    list().removePlaylistAction();
    EXPECT_EQ(titles({searchesAt}), QString());
    EXPECT_EQ(alerts.shown.size(), 2);

    addSearch(QStringLiteral("S"));
    addPlaylistsABC();
    click({{searchesAt, 0}, {playlistsAt, 0}, {playlistsAt, 2}});
    list().removePlaylistAction();
    EXPECT_EQ(titles({playlistsAt}), QStringLiteral("B"));
    EXPECT_EQ(titles({searchesAt}), QString());
}

TEST_F(RemovedListsTest, RemovedListsComeBackToTheirPlaces)
{
    addSearch(QStringLiteral("S"), {localSong(3), localSong(4)});
    addSearch(QStringLiteral("T"), {localSong(4)});
    addPlaylistsABC();
    const QList<Record> playlists = library->playlists();
    const QString layout = settings::SongTableLayout + playlists[2].string(keys::Id);
    struct Case {
        QList<NodePath> rows;
        const char* playlists;
        const char* searches;
        const char* undo;
    };
    const Case cases[] = {
        {{{playlistsAt, 2}}, "A,B", "T,S", "Undo remove 1 playlist"},
        {{{playlistsAt, 0}, {playlistsAt, 2}}, "B", "T,S", "Undo remove 2 playlists"},
        {{{searchesAt, 1}}, "A,B,C", "T", "Undo remove 1 search"},
        {{{searchesAt, 0}, {playlistsAt, 0}, {playlistsAt, 1}}, "C", "S", "Undo remove 3 playlists"},
        {{{playlistsAt, 0}, {playlistsAt, 1}, {playlistsAt, 2}}, "", "T,S", "Undo remove 3 playlists"},
    };
    for (const Case& test : cases) {
        defaults.setValue(layout, QStringLiteral("columns"));
        click(test.rows);
        list().removePlaylistAction();
        EXPECT_EQ(controller->undo().undoText(), QString::fromUtf8(test.undo));
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(titles({playlistsAt}), QString::fromUtf8(test.playlists));
            EXPECT_EQ(titles({searchesAt}), QString::fromUtf8(test.searches));
            controller->undo().undo();
            EXPECT_EQ(titles({playlistsAt}), QStringLiteral("A,B,C"));
            EXPECT_EQ(titles({searchesAt}), QStringLiteral("T,S"));
            EXPECT_EQ(library->playlists(), playlists);
            EXPECT_EQ(selected(), test.rows.first()) << test.undo;
            EXPECT_EQ(defaults.string(layout), QStringLiteral("columns"));
            controller->undo().redo();
        }
        controller->undo().undo();
    }

    // One that plays on without being shown is found again.
    click({{playlistsAt, 1}});
    play(0);
    click({{playlistsAt, 0}, {playlistsAt, 1}});
    library->setCurrentUID(0);
    list().removePlaylistAction();
    EXPECT_EQ(queue().snapshot()->playlistIndex, RVDataManager::NotFound);
    controller->undo().undo();
    EXPECT_EQ(queue().snapshot()->playlistIndex, 1);
}

TEST_F(RemovedListsTest, AQuestionStaysAboutTheListsItWasAskedFor)
{
    addPlaylistsABC();
    click({{playlistsAt, 1}});
    alerts.whileShown = [this](const Alert&) { // a search comes in, and is selected
        alerts.whileShown = nullptr;
        showAsSearch({localSong(9)});
    };
    list().removePlaylistAction();
    EXPECT_EQ(titles({playlistsAt}), QStringLiteral("A,C"));
    EXPECT_EQ(library->searches().size(), 1);
}

} // namespace
} // namespace zib
