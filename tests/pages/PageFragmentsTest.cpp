// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a link torn apart where a biography is cut, a row of tags that breaks, the video of another song.
#include "pages/PageFragments.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

QString x(qsizetype count)
{
    return QString(count, u'x');
}

TEST(PageFragments, ABiographyIsCutBesideItsLinks)
{
    const QString more = QStringLiteral("...<div class=\"readmore\">\n\t\t<a "
                                        "href=\"zib://current/artist/more\">Read more...</a>\n\t\t</div>");
    const QString link = QStringLiteral("<a href=\"u\">");
    struct Case {
        QString bio;
        QString shown;
    };
    const Case cases[] = {
        {QString(), QString()},
        {x(1500), x(1500)},
        {x(1501), x(1500) + more},
        {x(1480) + link + QStringLiteral("abcdefghijkl</a> rest"),
         x(1480) + link + QStringLiteral("abcdefgh") + QStringLiteral("ijkl</a>") + more},
        {x(1495) + link + QStringLiteral("name</a> rest"),
         x(1495) + link + QStringLiteral("name</a>") + more}, // within the tag itself
        {x(1490) + link + QStringLiteral("n</a>xxx") + link + QStringLiteral("m</a>"),
         x(1490) + link.first(10) + link.sliced(10) + QStringLiteral("n</a>") + more},
        {x(1500) + link + QStringLiteral("name</a>"), x(1500) + more}, // before a link
        {x(1499) + QStringLiteral("\U0001F3B5x"), x(1499) + more},     // within a character of two
    };
    for (const Case& entry : cases)
        EXPECT_EQ(shortBio(entry.bio).toStdString(), entry.shown.toStdString());
    EXPECT_EQ(fullBio(x(2000)),
              x(2000) + QStringLiteral("<div class=\"readmore\">\n\t\t<a href=\"zib://current/"
                                       "artist/less\">Read less...</a>\n\t\t</div>"));
}

TEST(PageFragments, AsManyTagsAsFitInTheRow)
{
    const auto tags = [](qsizetype count, qsizetype length) { return QStringList(count, x(length)); };
    const std::pair<QStringList, int> cases[] = {
        {{}, 0},
        {tags(12, 5), 10 + 1},
        {tags(10, 1), 10 + 1},
        {{QStringLiteral("abcdefghijklmnopqrstuvwxyz0123456789"), x(30)}, 1 + 1},
        {{x(36), x(29)}, 2 + 1}, // 65
        {{x(66), x(1)}, 0},
    };
    for (const auto& [list, pills] : cases)
        EXPECT_EQ(tagPills(list, songComboPill()).count(QLatin1String("class=\"tag\"")), pills)
            << list.join(u',').toStdString();
}

TEST(PageFragments, AtMostEightSimilarArtists)
{
    for (const auto& [known, shown] : {std::pair(3, 3), std::pair(20, 8)}) {
        const QList<SimilarArtist> similar(known, {QStringLiteral("name"), QStringLiteral("u")});
        EXPECT_EQ(similarArtistTiles(similar).count(QLatin1String("class=\"similarart\"")), shown);
    }
}

TEST(PageFragments, TheVideoIsOfTheSong)
{
    const auto video = [](const char* title, const char* site) {
        return WebVideo{QString::fromUtf8(title), QString::fromUtf8(site), {}, QString::fromUtf8(title), {}};
    };
    struct Case {
        QList<WebVideo> videos;
        const char* track;
        const char* chosen;
    };
    const Case cases[] = {
        {{}, "Song", nullptr},
        {{video("other", "youtube"), video("A SONG", "youtube"), video("song", "youtube")}, "Song", "A SONG"},
        {{video("Song", "dailies"), video("Song", "YouTube")}, "Song", nullptr},
        {{video("anything", "youtube")}, "", nullptr},
    };
    for (const Case& entry : cases) {
        const QString player = embeddedVideo(entry.videos, QString::fromUtf8(entry.track));
        if (entry.chosen == nullptr)
            EXPECT_EQ(player.toStdString(), "");
        else
            EXPECT_TRUE(player.contains(QStringLiteral("src=\"%1\"").arg(QLatin1String(entry.chosen))));
    }
}

} // namespace
} // namespace zib
