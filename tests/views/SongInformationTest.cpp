// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a cover that is shown but not saved, a file that is no picture in the tags, Ctrl+Return that does
// nothing.
#include "tests/fakes/FakeTagApi.h"
#include "tests/views/WindowFixture.h"
#include "views/CoverField.h"
#include "views/SongInformationWindow.h"

#include <QBuffer>
#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include <algorithm>

namespace zib {
namespace {

class SongInformationTest : public WindowFixture {
  protected:
    QString file(const char* name, const QByteArray& bytes)
    {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
};

TEST_F(SongInformationTest, ACoverIsReplacedAndRemoved)
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray png;
    QBuffer buffer(&png);
    ASSERT_TRUE(image.save(&buffer, "PNG"));
    const Record track = song(1, QStringLiteral("http://h/1.mp3"), {});
    const QString path = SongPaths(defaults).filePath(track);
    FileViewController songs(*library, tags, defaults);

    songs.open({track});
    EXPECT_FALSE(songs.canChangeCover()) << "there is no file to keep it";
    tags.files.insert(path, {});
    {
        SongInformationWindow information(songs, window.get());
        information.show();
        QApplication::setActiveWindow(&information);
        auto* cover = information.findChild<CoverField*>();
        cover->take(file("text.png", "no picture"));
        cover->take(file("large.png", png + QByteArray(TagAPI::maximumCoverBytes, 'x')));
        EXPECT_FALSE(information.information().cover.has_value());
        cover->take(file("cover.png", png));
        QTest::keyClick(&information, Qt::Key_Return, Qt::ControlModifier);
        EXPECT_EQ(information.result(), QDialog::Accepted);
        EXPECT_EQ(songs.save(information.information()), QStringList());
    }
    EXPECT_EQ(songs.cover(), png);
    SongInformationWindow again(songs, window.get());
    for (QPushButton* button : again.findChildren<QPushButton*>())
        if (button->accessibleName() == QLatin1String("Remove the cover"))
            button->click();
    songs.save(again.information());
    EXPECT_EQ(songs.cover(), QByteArray());
}

TEST_F(SongInformationTest, SpeaksOfACoverForSeveralSongsOnlyWhereOneCanBeGiven)
{
    const QList<Record> tracks{song(1, QStringLiteral("http://h/1.mp3"), {}),
                               song(2, QStringLiteral("http://h/2.mp3"), {})};
    FileViewController songs(*library, tags, defaults);
    const auto speaksOfCover = [&] {
        songs.open(tracks);
        const SongInformationWindow information(songs, window.get());
        const auto hints = information.findChildren<QLabel*>(QStringLiteral("hint"));
        return std::any_of(hints.cbegin(), hints.cend(), [](const QLabel* hint) {
            return hint->text().contains(QLatin1String("new cover"));
        });
    };
    EXPECT_FALSE(speaksOfCover());
    for (const Record& track : tracks)
        tags.files.insert(SongPaths(defaults).filePath(track), {});
    EXPECT_TRUE(speaksOfCover());
}

} // namespace
} // namespace zib
