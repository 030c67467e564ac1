// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: folders that cannot be picked beside files, a panel that flashes up for what is over at once, one
// that cannot be stopped or stays when the work has ended.
#include "views/AddToLibraryPanel.h"
#include "views/TextLabel.h"
#include "views/WidgetBusyPanel.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

namespace zib {
namespace {

TEST(AddToLibraryPanel, PicksFilesAndFoldersTogether)
{
    const QTemporaryDir disk;
    QDir(disk.path()).mkdir(QStringLiteral("Album"));
    for (const char* const name : {"a.MP3", "b.wav", "letter.txt", "c.flac"}) {
        QFile file(disk.filePath(QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    AddToLibraryPanel panel(nullptr);
    panel.setDirectory(disk.path());
    panel.show();
    auto* tree = panel.findChild<QTreeView*>(QStringLiteral("treeView"));
    ASSERT_NE(tree, nullptr);
    const auto shown = [tree] {
        QStringList names;
        for (int row = 0; row < tree->model()->rowCount(tree->rootIndex()); ++row)
            names.append(tree->model()->index(row, 0, tree->rootIndex()).data().toString());
        names.sort();
        return names;
    };
    const QStringList expected{QStringLiteral("Album"), QStringLiteral("a.MP3"), QStringLiteral("b.wav")};
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == expected; }, 20'000))
        << qUtf8Printable(shown().join(u' '));

    QPushButton* add = panel.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
    for (int row = 0; row < 2; ++row)
        tree->selectionModel()->select(tree->model()->index(row, 0, tree->rootIndex()),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
    ASSERT_TRUE(QTest::qWaitFor([add] { return add->isEnabled(); }, 20'000));
    add->click();
    EXPECT_EQ(panel.result(), QDialog::Accepted);
    QStringList picked = panel.pickedPaths();
    picked.sort();
    EXPECT_EQ(picked, (QStringList{disk.filePath(expected[0]), disk.filePath(expected[1])}));
}

TEST(WidgetBusyPanel, ShowsWhatTakesLongAndStopsIt)
{
    WidgetBusyPanel panel(nullptr);
    int stops = 0;
    panel.open(QStringLiteral("Adding"), [&stops] { ++stops; });
    panel.close();
    QTest::qWait(500);
    EXPECT_FALSE(panel.isVisible()); // over before anybody could read it

    panel.open(QStringLiteral("Adding"), [&stops] { ++stops; });
    ASSERT_TRUE(QTest::qWaitFor([&panel] { return panel.isVisible(); }, 20'000));
    for (int number = 0; number <= 1000; ++number)
        panel.setInformativeText(QString::number(number));
    panel.setProgress(30, 120);
    const auto* text = panel.findChild<TextLabel*>();
    const auto* bar = panel.findChild<QProgressBar*>();
    EXPECT_TRUE(QTest::qWaitFor([text] { return text->shownText() == QLatin1String("1000"); }, 20'000));
    EXPECT_EQ(bar->maximum(), 120);
    EXPECT_EQ(bar->value(), 30);

    auto* stop = panel.findChild<QPushButton*>();
    stop->click();
    EXPECT_EQ(stops, 1);
    EXPECT_FALSE(stop->isEnabled());
    EXPECT_TRUE(panel.isVisible()); // until the work has ended
    panel.close();
    EXPECT_FALSE(panel.isVisible());
}

} // namespace
} // namespace zib
