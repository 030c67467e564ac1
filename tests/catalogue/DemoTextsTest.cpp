// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts slips in the demo artists' texts: what is told of nobody, links that lead nowhere, lost lyrics, dates
// that contradict each other; and pictures that are none or all the same.
#include "catalogue/demo/Artists.h"
#include "catalogue/demo/Texts.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QRegularExpression>
#include <QSet>

namespace zib::demo {
namespace {

using namespace Qt::StringLiterals;

QSet<QString> marked(const QString& text, const QString& open, const QString& close)
{
    const QRegularExpression mark(QRegularExpression::escape(open) + u"([^\\]}]+)"_s +
                                  QRegularExpression::escape(close));
    QSet<QString> names;
    for (auto matches = mark.globalMatch(text); matches.hasNext();)
        names.insert(matches.next().captured(1));
    return names;
}

TEST(DemoTexts, EveryLinkLeadsSomewhere)
{
    QSet<QString> artists;
    QSet<QString> tags;
    QString all;
    for (const auto& artist : demoPlan().artists) {
        artists.insert(artist.name);
        tags.unite({artist.tags.begin(), artist.tags.end()});
        all += artist.biography;
        for (const auto& album : artist.albums)
            all += album.about;
        for (const auto& article : artist.articles)
            all += article.text;
    }
    EXPECT_TRUE(artists.contains(marked(all, u"[["_s, u"]]"_s)));
    EXPECT_TRUE(tags.contains(marked(all, u"{{"_s, u"}}"_s)));
    const auto told = artistTexts().keys();
    EXPECT_EQ(QSet<QString>(told.begin(), told.end()), artists);
}

TEST(DemoTexts, EverythingIsToldOfSomething)
{
    QSet<QString> ids;
    int unfolding = 0;
    int sung = 0;
    for (const auto& artist : demoPlan().artists) {
        SCOPED_TRACE(artist.name.toStdString());
        const auto& texts = artistTexts()[artist.name];
        EXPECT_GE(artist.biography.count(u'\n'), 2);
        unfolding += artist.biography.size() > 1500 ? 1 : 0;
        EXPECT_EQ(texts.albums.size(), artist.albums.size());
        EXPECT_GE(artist.pictures, 8);
        QSet<QString> titles;
        QSet<QString> albums;
        for (const auto& album : artist.albums) {
            EXPECT_EQ(album.released.year(), album.year) << album.title.toStdString();
            EXPECT_FALSE(album.about.isEmpty() || album.label.isEmpty() || album.country.size() != 2);
            EXPECT_FALSE(ids.contains(album.id));
            ids.insert(album.id);
            albums.insert(album.title);
            for (const auto& track : album.tracks) {
                titles.insert(track.title);
                sung += track.lyrics.isEmpty() ? 0 : 1;
            }
        }
        for (auto song = texts.lyrics.keyBegin(); song != texts.lyrics.keyEnd(); ++song)
            EXPECT_TRUE(titles.contains(*song)) << song->toStdString();
        QSet<int> kinds;
        QDate before(9999, 1, 1);
        for (const auto& article : artist.articles) {
            EXPECT_TRUE(article.date.isValid() && article.date <= before) << article.title.toStdString();
            before = article.date;
            EXPECT_FALSE(article.source.isEmpty() || article.text.isEmpty()) << article.title.toStdString();
            EXPECT_EQ(article.kind == DemoArticle::Review, albums.contains(article.album));
            EXPECT_FALSE(ids.contains(article.id));
            ids.insert(article.id);
            kinds.insert(article.kind);
        }
        EXPECT_EQ(kinds.size(), 3);
    }
    EXPECT_GE(unfolding, 6) << "that the page has something to unfold";
    EXPECT_GE(sung, 30);
}

TEST(DemoPictures, AreDifferentAndTheSameAgain)
{
    const Sitters sitters{{u"jazz"_s, u"piano"_s}, 3, 5};
    QSet<QByteArray> seen;
    for (int number = 1; number <= picturesOf(sitters); ++number) {
        const QByteArray picture = paintPicture(sitters, number, PictureSize::Whole);
        const QImage image = QImage::fromData(picture, "jpeg");
        EXPECT_EQ(std::max(image.width(), image.height()), 1200);
        EXPECT_FALSE(seen.contains(picture));
        seen.insert(picture);
    }
    const QByteArray tile = paintPicture(sitters, 1, PictureSize::Tile);
    EXPECT_EQ(QImage::fromData(tile).size(), QSize(300, 300));
    EXPECT_EQ(paintPicture(sitters, 1, PictureSize::Tile), tile);
    EXPECT_NE(paintPicture({sitters.tags, 3, 6}, 1, PictureSize::Tile), tile);
    EXPECT_TRUE(paintPicture(sitters, 0, PictureSize::Whole).isEmpty());
    EXPECT_TRUE(paintPicture(sitters, 99, PictureSize::Whole).isEmpty());
}

} // namespace
} // namespace zib::demo
