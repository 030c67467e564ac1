// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a model that breaks the toolkit's rules, a key or a click that selects what cannot be shown, a drop
// that lands a row further, a name that is lost or emptied.
#include "tests/views/WindowFixture.h"

#include "library/SongReordering.h"
#include "views/SourceListView.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>

namespace zib {
namespace {

class SourceListViewTest : public WindowFixture {
  protected:
    SourceListView& view() { return *widget<SourceListView>(QStringLiteral("Sources")); }
    QModelIndex row(const NodePath& path)
    {
        QModelIndex index;
        for (const int place : path)
            index = view().model()->index(place, 0, index);
        return index;
    }
    QString title(const NodePath& path) { return row(path).data().toString(); }
    QString current() { return view().currentIndex().data().toString(); }
    void press(Qt::Key key)
    {
        QTest::keyClick(&view(), key);
        QCoreApplication::processEvents(); // it is reported later
    }
    void click(const NodePath& path, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(view().viewport(), Qt::LeftButton, keys, view().visualRect(row(path)).center());
        QCoreApplication::processEvents();
    }
    /// The field in which a name is edited, or none.
    QLineEdit* editor() { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
    void addPlaylists(const QStringList& names)
    {
        for (const QString& name : names) {
            clock.advance(std::chrono::seconds(1));
            library->addPlaylistWithTitle(name, {localSong(1), localSong(2)}, 0);
        }
        controller->sources().populateOutlineContents();
    }
    /// Whether the list takes that there.
    bool drop(const QMimeData& pasteboard, const QPoint& place)
    {
        QDragEnterEvent enter(place, Qt::MoveAction, &pasteboard, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view().viewport(), &enter);
        QDragMoveEvent move(place, Qt::MoveAction, &pasteboard, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view().viewport(), &move);
        if (!enter.isAccepted() || !move.isAccepted())
            return false;
        QDropEvent event(place, Qt::MoveAction, &pasteboard, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view().viewport(), &event);
        return event.isAccepted();
    }
    QPoint upper(const NodePath& path) { return view().visualRect(row(path)).topLeft() + QPoint(30, 3); }
    QPoint lower(const NodePath& path) { return view().visualRect(row(path)).bottomLeft() + QPoint(30, -3); }
};

TEST_F(SourceListViewTest, KeysAndClicksReachWhatCanBeShownAndNothingElse)
{
    showAsSearch({localSong(1)});
    addPlaylists({QStringLiteral("A")});
    EXPECT_EQ(current(), QStringLiteral("Now Playing"));
    for (const auto& [path, height] : {std::pair{NodePath{0}, 46}, {{3}, 20}, {{4}, 25}, {{4, 0}, 20}})
        EXPECT_EQ(view().visualRect(row(path)).height(), height);
    view().setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(current(), QStringLiteral("found")) << "past rows that are not there yet, and a heading";
    EXPECT_EQ(library->currentSourceType(), SourceType::RecentSearches);
    EXPECT_TRUE(table().isVisible());
    press(Qt::Key_End);
    EXPECT_EQ(library->currentName(), QStringLiteral("A"));
    press(Qt::Key_Home);
    EXPECT_FALSE(table().isVisible());
    for (const NodePath& dead : {NodePath{1}, NodePath{3}, NodePath{5}}) {
        click(dead);
        EXPECT_EQ(view().selectionModel()->selectedIndexes(), QModelIndexList{row({0})});
    }
    controller->sources().setNodeEnabled(SourceType::TopHot, true);
    click({1});
    EXPECT_EQ(library->currentSourceType(), SourceType::TopHot);
    EXPECT_EQ(alerts.shown.size(), 1);
    click({5, 3});
    EXPECT_EQ(library->currentFilterType(), FilterType::Favorites);
    click({6, 0}, Qt::ControlModifier);
    EXPECT_FALSE(table().isVisible()) << "two are selected";
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, view().visualRect(row({6, 0})).center());
    click({6, 0});
    press(Qt::Key_Return);
    EXPECT_EQ(playing(), 1);
    EXPECT_EQ(queue().nowplayingSourceType(), int(SourceType::Playlists));
}

TEST_F(SourceListViewTest, TheModelKeepsTheRulesWhateverHappensToTheRows)
{
    const QAbstractItemModelTester tester(view().model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    addPlaylists({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    showAsSearch({localSong(1)});
    click({6, 1});
    press(Qt::Key_Delete);
    EXPECT_EQ(current(), QStringLiteral("C"));
    EXPECT_EQ(library->currentName(), QStringLiteral("C"));
    QMimeData pasteboard;
    ASSERT_TRUE(controller->sources().writeItems({{6, 1}}, pasteboard));
    EXPECT_FALSE(drop(pasteboard, upper({6, 1}))) << "where it is";
    EXPECT_FALSE(drop(pasteboard, upper({4, 0}))) << "no playlist's place";
    EXPECT_TRUE(drop(pasteboard, upper({6, 0})));
    EXPECT_EQ(title({6, 0}), QStringLiteral("C"));
    EXPECT_EQ(current(), QStringLiteral("C"));
    ASSERT_TRUE(controller->sources().writeItems({{4, 0}}, pasteboard));
    EXPECT_TRUE(drop(pasteboard, lower({6, 0})));
    EXPECT_EQ(title({6, 1}), QStringLiteral("found"));
    EXPECT_EQ(current(), QStringLiteral("found"));
    ASSERT_TRUE(controller->sources().writeItems({{6, 0}}, pasteboard));
    EXPECT_TRUE(drop(pasteboard, QPoint(30, view().viewport()->height() - 5)));
    EXPECT_EQ(title({6, 2}), QStringLiteral("C"));

    pasteboard.clear();
    SongReordering::writeRowsWithIndexes({0}, pasteboard);
    EXPECT_TRUE(drop(pasteboard, lower({6, 1}))) << "onto the row, not below it";
    click({6, 1});
    EXPECT_EQ(library->items().size(), 3);
    pasteboard.clear();
    pasteboard.setUrls({QUrl::fromLocalFile(folder.path())});
    EXPECT_FALSE(drop(pasteboard, upper({6, 1}))) << "files are the window's";
}

TEST_F(SourceListViewTest, APlaylistIsRenamedInItsRow)
{
    addPlaylists({QStringLiteral("A"), QStringLiteral("B")});
    QSignalSpy played(&view(), &SourceListView::playRequested);
    click({6, 0});
    press(Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->selectedText(), QStringLiteral("A"));
    QTest::keyClicks(editor(), QStringLiteral("  "));
    QTest::keyClick(editor(), Qt::Key_Return);
    ASSERT_NE(editor(), nullptr) << "no name, no end";
    QTest::keyClicks(editor(), QStringLiteral("Rain"));
    QTest::keyClick(editor(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(title({6, 0}), QStringLiteral("  Rain"));
    EXPECT_EQ(library->playlists()[0].string(keys::Name), QStringLiteral("  Rain"));
    EXPECT_EQ(played.count(), 0) << "the key was the field's";
    press(Qt::Key_F2);
    QTest::keyClick(editor(), Qt::Key_Backspace);
    click({6, 1}); // in the midst of it, with nothing left in the field
    EXPECT_EQ(title({6, 0}), QStringLiteral("  Rain"));
    EXPECT_EQ(library->currentName(), QStringLiteral("B"));

    widget<QWidget>(QStringLiteral("New playlist"))->setFocus();
    QTest::keyClick(widget<QWidget>(QStringLiteral("New playlist")), Qt::Key_Space);
    ASSERT_NE(editor(), nullptr) << "to be named at once";
    QTest::keyClicks(editor(), QStringLiteral("New"));
    QTest::keyClick(editor(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(title({6, 2}), QStringLiteral("New"));
    EXPECT_EQ(library->currentName(), QStringLiteral("New"));
    click({4});
    click({5, 0});
    press(Qt::Key_F2);
    EXPECT_EQ(editor(), nullptr) << "no playlist";
}

} // namespace
} // namespace zib
