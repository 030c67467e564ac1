// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a place, a choice or a width that a restart forgets, or a crash.
#include "tests/views/WindowFixture.h"

#include <QScreen>
#include <QScrollBar>
#include <QSplitter>

namespace zib {
namespace {

using WindowSessionTest = WindowFixture;

TEST_F(WindowSessionTest, ItsPlaceIsRemembered)
{
    const QSize room = window->screen()->availableSize() - QSize(0, 40);
    EXPECT_EQ(window->size(), QSize(1280, 800).boundedTo(room).expandedTo(window->minimumSize()));
    EXPECT_EQ(window->minimumSize(), QSize(960, 600));
    window->resize(1000, 640);
    close();
    open();
    EXPECT_EQ(window->size(), QSize(1000, 640));
}

TEST_F(WindowSessionTest, AStartShowsWhatWasShownLast)
{
    QList<Record> songs;
    for (int n = 1; n <= 60; ++n)
        songs.append(localSong(n, {{keys::Artist, n > 5 ? QStringLiteral("Z") : QStringLiteral("Artist")}}));
    showAsLibrary(songs);
    library->browser().selectArtist(QStringLiteral("Z"));
    library->browser().selectAlbum(QStringLiteral("Album"));
    table().selectRows({40});
    const QString song = library->items()[40].string(keys::Id);
    table().verticalScrollBar()->setValue(333);
    ASSERT_EQ(table().verticalScrollBar()->value(), 333);
    auto* panes = window->findChild<QSplitter*>();
    panes->setSizes({260, panes->width() - 260});
    Q_EMIT panes->splitterMoved(260, 1);
    library->saveLibrary();
    // Without any leave: as after a crash, what is in the settings by now is all there is.
    ASSERT_TRUE(eventually([&] {
        return defaults.string(settings::SelectedSong) == song &&
               defaults.integer(settings::SourceListWidth) == 260;
    }));
    QVariantMap kept;
    for (const QString& key : defaults.storedKeys())
        kept.insert(key, defaults.value(key));
    close();
    for (auto setting = kept.constBegin(); setting != kept.constEnd(); ++setting)
        defaults.setValue(setting.key(), *setting);
    open();
    ASSERT_TRUE(eventually([&] { return library->currentIndexPath().song >= 0; }));
    EXPECT_EQ(library->currentSourceType(), SourceType::Library);
    EXPECT_EQ(library->allArtists().value(library->currentIndexPath().artist), QStringLiteral("Z"));
    EXPECT_EQ(library->allAlbums().value(library->currentIndexPath().album), QStringLiteral("Album"));
    EXPECT_EQ(library->items().value(table().selectedRow()).string(keys::Id), song);
    EXPECT_TRUE(eventually([&] { return table().verticalScrollBar()->value() == 333; }));
    EXPECT_EQ(window->findChild<QSplitter*>()->sizes().value(0), 260);
}

TEST_F(WindowSessionTest, AStartWithoutTheListShownLastShowsNowPlaying)
{
    showAsSearch({localSong(1)});
    ASSERT_TRUE(eventually(
        [&] { return defaults.string(settings::SelectedSource).startsWith(QLatin1String("search ")); }));
    close();
    defaults.setValue(settings::SelectedSource, QStringLiteral("search 1"));
    open();
    QCoreApplication::processEvents();
    EXPECT_EQ(controller->sources().categoryOfSelectedNode(), int(SourceType::NowPlaying));
}

} // namespace
} // namespace zib
