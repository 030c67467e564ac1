// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a control that does nothing, does it twice or can't be found; a row that shows the wrong state; a
// layout that is forgotten.
#include "tests/views/WindowFixture.h"
#include "views/ControlBar.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTimer>

namespace zib {
namespace {

using MainWindowTest = WindowFixture;

TEST_F(MainWindowTest, EveryControlHasItsNameAndRole)
{
    const std::pair<const char*, QAccessible::Role> controls[] = {
        {"Back", QAccessible::Button},
        {"Play or pause", QAccessible::CheckBox},
        {"Next", QAccessible::Button},
        {"Love", QAccessible::CheckBox},
        {"Download", QAccessible::CheckBox},
        {"Volume", QAccessible::Slider},
        {"Artist", QAccessible::RadioButton},
        {"Tags", QAccessible::RadioButton},
        {"Similar", QAccessible::RadioButton},
        {"Search", QAccessible::EditableText},
        {"Songs", QAccessible::Table},
        {"Sources", QAccessible::Tree},
        {"Song progress", QAccessible::Slider},
        {"Elapsed time", QAccessible::StaticText},
        {"Remaining time", QAccessible::StaticText},
        {"Now playing", QAccessible::StaticText},
        {"Status", QAccessible::StaticText},
        {"About the shown songs or link", QAccessible::StaticText}};
    for (const auto& [name, role] : controls) {
        QAccessibleInterface* found = control(QString::fromLatin1(name));
        ASSERT_NE(found, nullptr) << name;
        EXPECT_EQ(found->role(), role) << name;
    }
    QAccessibleInterface* type = control(QStringLiteral("Search type"));
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->childCount(), 3);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Zib"));
}

TEST_F(MainWindowTest, TheTabKeyReachesEveryControl)
{
    showAsSearch({localSong(1)});
    play(0);
    queue().updateProgress();
    QSet<QString> reached;
    auto* first = widget<QWidget>(QStringLiteral("Search"));
    first->setFocus();
    QWidget* at = first;
    do {
        reached.insert(at->accessibleName());
        QTest::keyClick(at, Qt::Key_Tab);
        at = QApplication::focusWidget();
        ASSERT_NE(at, nullptr);
    } while (at != first && reached.size() < 40);
    for (const char* name : {"Back", "Play or pause", "Next", "Song progress", "Love", "Volume", "Search",
                             "Sources", "Songs", "Menu"})
        EXPECT_TRUE(reached.contains(QString::fromLatin1(name))) << name;
}

TEST_F(MainWindowTest, ADoubleClickOnTheBarsEmptyPartsMakesTheWindowAsLargeAsTheScreen)
{
    auto* bar = window->findChild<ControlBar*>();
    const auto clickAt = [&](const QPoint& place) {
        QTest::mouseDClick(window->childAt(bar->mapTo(window.get(), place)), Qt::LeftButton);
        return window->isMaximized();
    };
    const auto middleOf = [&](const char* name) {
        auto* control = widget<QWidget>(QString::fromLatin1(name));
        return control->mapTo(bar, control->rect().center());
    };
    EXPECT_FALSE(clickAt(middleOf("Next")));
    EXPECT_FALSE(clickAt(middleOf("Love"))) << "no song: it can't be pressed, but is no handle either";
    EXPECT_TRUE(clickAt(middleOf("Now playing")));
    EXPECT_FALSE(clickAt({bar->width() - 2, 2}));
}

TEST_F(MainWindowTest, TypingASearchListsItsSongs)
{
    auto* field = widget<QLineEdit>(QStringLiteral("Search"));
    EXPECT_EQ(QApplication::focusWidget(), field) << "a newcomer can type at once";
    EXPECT_EQ(field->placeholderText(), QStringLiteral("Artist"));
    QTest::mouseClick(widget<QAbstractButton>(QStringLiteral("Tags")), Qt::LeftButton);
    EXPECT_EQ(field->placeholderText(), QStringLiteral("Tag(s)"));
    EXPECT_EQ(defaults.integer(settings::CurrentSearchType), 1);
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("jazz"));
    QTest::keyClick(field, Qt::Key_Return);
    ASSERT_EQ(urlLoader.exchanges.size(), 1U);
    EXPECT_FALSE(table().isVisible()) << "an empty place says what to do";
    urlLoader.last().reply(
        "<response><status><message>Success</message></status><artists><artist><name>A</name>"
        "<audio><audio><url>http://h/1.mp3</url><id>1</id></audio></audio></artist></artists>"
        "</response>");
    EXPECT_TRUE(table().isVisible());
    EXPECT_EQ(table().model()->rowCount(), 1);
}

TEST_F(MainWindowTest, DoubleClickReturnAndSpacePlay)
{
    showAsSearch({localSong(1), localSong(2), localSong(3)});
    click(1, SongColumn::Name, true);
    EXPECT_EQ(playing(), 2);
    EXPECT_EQ(textOf(QStringLiteral("Now playing")), QStringLiteral("Artist - Song 2"));
    EXPECT_EQ(textOf(QStringLiteral("Status")), QStringLiteral("Playing from disk"));

    table().setFocus();
    QTest::keyClick(&table(), Qt::Key_Down);
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(playing(), 3);

    auto* button = widget<QAbstractButton>(QStringLiteral("Play or pause"));
    EXPECT_TRUE(button->isChecked());
    QTest::keyClick(&table(), Qt::Key_Space);
    EXPECT_FALSE(player->isPlaying());
    EXPECT_FALSE(button->isChecked());
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(player->isPlaying());
    EXPECT_TRUE(button->isChecked());

    auto* field = widget<QLineEdit>(QStringLiteral("Search"));
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("a b"));
    EXPECT_TRUE(player->isPlaying()) << "a space in the search field is a space";
    EXPECT_EQ(field->text(), QStringLiteral("a b"));
}

TEST_F(MainWindowTest, HeartsToggleByClickAndByKey)
{
    defaults.setValue(settings::SupressDialogFavorites, true);
    showAsSearch({localSong(1), localSong(2)});
    click(1, SongColumn::Love);
    EXPECT_TRUE(decoration(1, SongColumn::Love).heartActive);
    EXPECT_FALSE(decoration(0, SongColumn::Love).heartActive);
    EXPECT_EQ(cell(1, SongColumn::Love).data(Qt::AccessibleTextRole).toString(), QStringLiteral("Loved"));
    EXPECT_EQ(playing(), 0);

    table().setFocus();
    table().selectRows({0});
    QTest::keyClick(window.get(), Qt::Key_L, Qt::ControlModifier);
    EXPECT_TRUE(decoration(0, SongColumn::Love).heartActive);

    play(0);
    auto* love = widget<QAbstractButton>(QStringLiteral("Love"));
    EXPECT_TRUE(love->isChecked());
    QTest::mouseClick(love, Qt::LeftButton);
    EXPECT_FALSE(love->isChecked());
    EXPECT_FALSE(decoration(0, SongColumn::Love).heartActive);
}

TEST_F(MainWindowTest, RowsShowWhatPlaysWhatIsBrokenAndWhatCanNotPlayNow)
{
    showAsSearch({webSong(1), localSong(2, {{keys::BrokenLink, true}}), localSong(3),
                  webSong(4, {{keys::Downloaded, true}})});
    play(2);
    using Colour = CellDecoration::TextColour;
    const auto playing = [this] {
        QList<bool> rows;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            rows.append(decoration(row, SongColumn::Speaker).speaker);
        return rows;
    };
    const auto colour = [this](int row) { return decoration(row, SongColumn::Name).textColour; };
    EXPECT_EQ(playing(), (QList<bool>{false, false, true, false}));
    EXPECT_EQ(colour(0), Colour::Normal);
    EXPECT_EQ(colour(1), Colour::Broken);
    EXPECT_FALSE(cell(1, SongColumn::Name).data(Qt::ToolTipRole).toString().isEmpty());
    controller->disconnectedFromInternetNotification();
    EXPECT_EQ(colour(0), Colour::Unavailable);
    EXPECT_EQ(colour(3), Colour::Normal);

    clock.advance(std::chrono::seconds(1));
    showAsSearch({localSong(3), localSong(4)});
    EXPECT_EQ(playing(), (QList<bool>{false, false})) << "another search";
    controller->showSearch(1);
    EXPECT_EQ(playing(), (QList<bool>{false, false, true, false}));
}

TEST_F(MainWindowTest, ColumnsFollowTheSource)
{
    const auto shown = [this] {
        QStringList columns;
        for (int column = 0; column < songColumnCount; ++column)
            if (!table().isColumnHidden(column))
                columns.append(identifierOf(SongColumn(column)));
        return columns.join(QLatin1Char(' '));
    };
    window->resize(1280, 800);
    showAsSearch({localSong(1, {{keys::Hotness, 56}, {keys::Album, QString()}})});
    EXPECT_EQ(shown(), QStringLiteral("Speaker Index Favorite DL Name Artist Album Duration Hotness "
                                      "Familiarity Found Date"));
    EXPECT_EQ(cell(0, SongColumn::Index).data().toString(), QStringLiteral("1"));
    EXPECT_EQ(cell(0, SongColumn::Hotness).data().toString(), QStringLiteral("56%"));
    EXPECT_EQ(cell(0, SongColumn::Album).data().toString(), QStringLiteral("Unknown Album"));
    EXPECT_EQ(cell(0, SongColumn::Duration).data().toString(), QStringLiteral("01:40"));
    showAsLibrary({localSong(1)});
    EXPECT_EQ(shown(), QStringLiteral("Speaker Favorite DL Name Artist Album Duration Play Count Play Date"));
}

TEST_F(MainWindowTest, EachSourceKeepsItsColumnsOverARestart)
{
    showAsLibrary({localSong(1)});
    const int width = table().columnWidth(int(SongColumn::Duration));
    table().setColumnWidth(int(SongColumn::Duration), width + 33);
    showAsSearch({localSong(1)});
    EXPECT_EQ(table().columnWidth(int(SongColumn::Duration)), width);
    close();
    open();
    controller->showLibrary(FilterType::All);
    EXPECT_EQ(table().columnWidth(int(SongColumn::Duration)), width + 33);
}

TEST_F(MainWindowTest, VolumeIsKeptAndHeard)
{
    showAsSearch({localSong(1)});
    play(0);
    auto* volume = widget<QSlider>(QStringLiteral("Volume"));
    EXPECT_EQ(volume->value(), 100);
    volume->setValue(30);
    EXPECT_NEAR(defaults.real(settings::SoundLevel), 0.3, 1e-6);
    EXPECT_NEAR(movies.current->volume(), 0.3, 1e-6);
    QTest::keyClick(window.get(), Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(volume->value(), 40);
}

TEST_F(MainWindowTest, TheProgressSeeks)
{
    movies.duration = {200, 1};
    showAsSearch({localSong(1)});
    play(0);
    hear(20);
    queue().updateProgress();
    auto* progress = widget<QSlider>(QStringLiteral("Song progress"));
    EXPECT_EQ(progress->value(), 10);
    EXPECT_EQ(textOf(QStringLiteral("Elapsed time")), QStringLiteral("00:20"));
    EXPECT_EQ(textOf(QStringLiteral("Remaining time")), QStringLiteral("-03:00"));
    QTest::mouseClick(progress, Qt::LeftButton, {}, progress->rect().center());
    const double secondsPerPixel = 200.0 / progress->width();
    EXPECT_NEAR(player->currentTime(), 100, 1 + secondsPerPixel);
}

TEST_F(MainWindowTest, TheCoverOfTheSongIsShownWhateverItsFileHolds)
{
    const auto colour = [this] {
        const QPixmap shown = window->findChild<QLabel*>(QStringLiteral("artwork"))->pixmap();
        return shown.toImage().pixelColor(shown.width() / 2, shown.height() / 2);
    };
    const auto png = [](QSize size, const QColor& ground) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(ground);
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        image.save(&file, "PNG");
        return file.data();
    };
    window->setArtworkPicture(png({300, 100}, Qt::red));
    EXPECT_TRUE(eventually([&] { return colour() == QColor(Qt::red); }));
    window->setArtworkPicture(png({2, 2}, Qt::blue));
    window->setArtworkPicture(png({64, 64}, Qt::green)); // overtakes the one before
    EXPECT_TRUE(eventually([&] { return colour() == QColor(Qt::green); }));
    for (const QByteArray& file : {QByteArray("no picture"), png({64, 64}, Qt::red).chopped(30)}) {
        window->setArtworkPicture(png({8, 8}, Qt::green));
        EXPECT_TRUE(eventually([&] { return colour() == QColor(Qt::green); }));
        window->setArtworkPicture(file);
        EXPECT_TRUE(eventually([&] { return colour() != QColor(Qt::green); })) << file.left(2).constData();
    }
    window->setArtworkPicture(png({64, 64}, Qt::red));
    window->setArtwork(Artwork::Standard); // before the picture is read
    QTest::qWait(50);
    EXPECT_NE(colour(), QColor(Qt::red));
}

TEST_F(MainWindowTest, WhatIsKnownOfSongsIsEditedInAWindow)
{
    showAsLibrary({localSong(1, {{keys::Year, 1999}}), localSong(2)});
    int shown = 0;
    const auto answer = [this, &shown](const QStringList& names, const QString& artist, bool save) {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        table().setFocus();
        QTimer::singleShot(0, window.get(), [=, &shown] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            ++shown;
            QStringList found;
            for (QLineEdit* field : dialog->findChildren<QLineEdit*>()) {
                found.append(field->accessibleName());
                if (field->accessibleName() == QStringLiteral("Artist"))
                    field->setText(artist);
            }
            EXPECT_EQ(found, names);
            const auto button = save ? QDialogButtonBox::Save : QDialogButtonBox::Cancel;
            dialog->findChild<QDialogButtonBox*>()->button(button)->click();
        });
        QTest::keyClick(&table(), Qt::Key_I, Qt::ControlModifier);
    };
    const auto artists = [this] {
        QStringList all;
        for (const Record& track : library->items())
            all.append(track.string(keys::Artist));
        return all.join(QLatin1Char(','));
    };
    const auto names = [](const char* list) { return QString::fromLatin1(list).split(QLatin1Char(',')); };
    const QStringList ofOne = names(
        "Name,Artist,Album,Genre,Composer,Year,Track number,Tracks in total,Disc number,Discs in total");
    table().selectRows({0});
    answer(ofOne, QStringLiteral("Bob"), false);
    EXPECT_EQ(artists(), QStringLiteral("Artist,Artist"));
    table().selectRows({0});
    answer(ofOne, QStringLiteral("Bob"), true);
    EXPECT_EQ(artists(), QStringLiteral("Bob,Artist"));
    EXPECT_EQ(library->items()[0].integer(keys::Year), 1999);

    table().selectRows({0, 1});
    answer(names("Artist,Album,Genre,Composer,Year"), QStringLiteral("Carl"), true);
    EXPECT_EQ(artists(), QStringLiteral("Carl,Carl"));
    EXPECT_EQ(shown, 3);
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.shown[0].messageText,
              QStringLiteral("Are you sure you want to edit information for multiple items?"));
}

TEST_F(MainWindowTest, AnEmptyPlaceOffersTagsThatSearch)
{
    controller->showLibrary(FilterType::All);
    auto* folk = widget<QAbstractButton>(QStringLiteral("Find songs tagged folk"));
    ASSERT_NE(folk, nullptr);
    ASSERT_TRUE(folk->isVisible());
    folk->click();
    EXPECT_TRUE(urlLoader.exchanges.back()->request.url.contains("&description=folk"));
}

} // namespace
} // namespace zib
