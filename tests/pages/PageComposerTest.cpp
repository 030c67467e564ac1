// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a page that differs by a character from what it was designed to be; a value that reaches into the
// page's own scripts. The pages in expected/ can be opened in a browser; they take the style sheet from its
// own file.
#include "pages/PageComposer.h"

#include "pages/WebSnippets.h"

#include <QFile>

#include <functional>
#include <gtest/gtest.h>

namespace zib {
namespace {

const PageSurroundings surroundings{.resourceFolder = QStringLiteral("../../../resources/pages/"),
                                    .musicInfoHome = QStringLiteral("http://info.example/"),
                                    .artistProfileHome = QStringLiteral("http://profile.example/"),
                                    .releaseHome = QStringLiteral("http://release.example/"),
                                    .lyricsHome = QStringLiteral("http://lyrics.example/")};

PageFields exampleSong()
{
    PageFields song;
    song.setArtist(QStringLiteral("Bj\u00f6rk & Friends"));
    song.setAlbum(QStringLiteral("Album"));
    song.setTrack(QStringLiteral("Song"));
    song.setBio(QStringLiteral("A <a href=\"zib://search/tag/jazz\">jazz</a> singer."));
    song.setFamiliarity(QStringLiteral("0.715"));
    song.setHotness(QStringLiteral("0.004"));
    song.setTags({QStringLiteral("jazz"), QStringLiteral("trip hop")});
    song.setSimilar({{QStringLiteral("AC/DC"), QStringLiteral("http://p.example/1.jpg")},
                     {QStringLiteral("Amber"), QString()}});
    song.setImages(QStringList{QStringLiteral("http://p.example/a.jpg")} +
                   QStringList(5, QStringLiteral("http://p.example/b.jpg")));
    song.setLinks({{QStringLiteral("Official"), QStringLiteral("http://a.example/")},
                   {QStringLiteral("AOL"), QString()},
                   {QStringLiteral("MySpace"), QStringLiteral("http://b.example/")}});
    song.setAlbum_wiki(QStringLiteral("An album.<br>Recorded at home."));
    song.setArtwork(QStringLiteral("http://p.example/cover.jpg"));
    song.setLabel(QStringLiteral("Our Label"));
    song.setDate(QStringLiteral("2001-08-27"));
    song.setTracklist({{QStringLiteral("First"), QStringLiteral("65999")},
                       {QStringLiteral("Second"), QStringLiteral("3605000")},
                       {QString(), QString()}});
    song.setVideos({{QStringLiteral("Something else"), QStringLiteral("youtube"), QString(),
                     QStringLiteral("http://v.example/watch?v=1"), QStringLiteral("2010-01-01")},
                    {QStringLiteral("My SONG (live)"), QStringLiteral("video site"),
                     QStringLiteral("http://p.example/v.jpg"), QStringLiteral("http://v.example/2"),
                     QStringLiteral("2010-01-02")},
                    {QStringLiteral("A song of ours"), QStringLiteral("youtube"), QString(),
                     QStringLiteral("http://v.example/watch?v=3"), QString()}});
    song.setBlogs({{QStringLiteral("Good news"),
                    QStringLiteral("http://blog.example/1"),
                    QStringLiteral("They <b>play</b>."),
                    QStringLiteral("2010-02-03"),
                    {}},
                   {QStringLiteral("Bad news"),
                    QStringLiteral("http://blog.example/2"),
                    QStringLiteral("They rest."),
                    QStringLiteral("2010-02-02"),
                    {}}});
    return song;
}

std::string expectedPage(const QString& name)
{
    QFile file(QStringLiteral(ZIB_EXPECTED_PAGES) + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string("no such file");
}

std::string withStyleFromFile(QString page)
{
    return page
        .replace(WebSnippets::grayStyle(), QStringLiteral("@import url(../../../pages/styles/gray.css);\n"))
        .replace(WebSnippets::blueStyle(), QStringLiteral("@import url(../../../pages/styles/blue.css);\n"))
        .toStdString();
}

TEST(PageComposer, MakesThePagesAsDesigned)
{
    using Change = std::function<void(PageFields&)>;
    using Compose = std::function<QString(const PageComposer&)>;
    const Change asItIs = [](PageFields&) {};
    const Change nothingKnown = [](PageFields& song) {
        song.reset();
        song.setArtist(QStringLiteral("Nobody"));
    };
    const Compose artist = [](const PageComposer& page) { return page.artistPage(false, true); };
    const Compose track = [](const PageComposer& page) { return page.trackPage(); };
    struct Case {
        const char* file;
        Change change;
        Compose compose;
    };
    const Case cases[] = {
        {"artist.html", asItIs, artist},
        {"artist-full.html", asItIs, [](const PageComposer& page) { return page.artistPage(true, false); }},
        {"artist-unknown.html", nothingKnown, artist},
        {"album.html", asItIs, [](const PageComposer& page) { return page.albumPage(); }},
        {"album-without-cover.html",
         [&](PageFields& song) {
             nothingKnown(song);
             song.setArtwork(QStringLiteral(":/zib/no-cover-big.png"));
         },
         [](const PageComposer& page) { return page.albumPage(); }},
        {"track-lyrics.html",
         [](PageFields& song) {
             song.setLyrics(QStringLiteral("La la<br>la"));
             song.setTrack_wiki(QStringLiteral("About a song."));
             song.setTrack_tags({QStringLiteral("calm")});
         },
         track},
        {"track-wiki.html",
         [](PageFields& song) {
             song.setTrack_wiki(QStringLiteral("About a song."));
             song.setVideos({});
         },
         track},
        {"track-unknown.html", nothingKnown, track},
        {"images.html", asItIs, [](const PageComposer& page) { return page.imagesPage(); }},
        {"images-none.html", nothingKnown, [](const PageComposer& page) { return page.imagesPage(); }},
        {"videos.html", asItIs, [](const PageComposer& page) { return page.feedPage(Page::Videos); }},
        {"blogs.html", asItIs, [](const PageComposer& page) { return page.feedPage(Page::Blogs); }},
        {"news-none.html", asItIs, [](const PageComposer& page) { return page.feedPage(Page::News); }},
        {"start.html", asItIs, [](const PageComposer& page) { return page.startPage(); }},
        {"busy.html", asItIs, [](const PageComposer& page) { return page.busyPage(); }},
        {"error.html", asItIs,
         [](const PageComposer& page) { return page.errorPage(QStringLiteral("No <b>line</b>")); }},
    };
    for (const Case& entry : cases) {
        PageFields song = exampleSong();
        entry.change(song);
        const std::string page = withStyleFromFile(entry.compose(PageComposer(song, surroundings, "MARK")));
        EXPECT_EQ(page, expectedPage(QString::fromLatin1(entry.file))) << entry.file;
    }
}

TEST(PageComposer, FeedsAreTakenFromTheirOwnLists)
{
    PageFields song;
    song.setNews({{QStringLiteral("from the news"), {}, {}, {}, {}}});
    song.setReviews({{QStringLiteral("from the reviews"), {}, {}, {}, {}}});
    const PageComposer composer(song, surroundings, "MARK");
    EXPECT_TRUE(composer.feedPage(Page::News).contains(QLatin1String("from the news")));
    EXPECT_TRUE(composer.feedPage(Page::Reviews).contains(QLatin1String("from the reviews")));
}

TEST(PageComposer, ImagesComeFiveByFive)
{
    PageFields song;
    for (int i = 0; i < 12; ++i)
        song.setImages(song.images() + QStringList{QStringLiteral("i")});
    const std::tuple<int, int, bool> cases[] = {{0, 5, true}, {5, 10, true}, {10, 12, false}, {7, 12, false}};
    for (const auto& [before, shown, more] : cases) {
        song.setImageIndex(before);
        const QString page = PageComposer(song, surroundings, "MARK").imagesPage();
        EXPECT_EQ(page.count(QLatin1String("rel=\"thumbnail\"")), shown);
        EXPECT_EQ(page.contains(QLatin1String("Show more...")), more) << before;
        EXPECT_TRUE(page.contains(QStringLiteral("Showing 1 - %1 of 12 images").arg(shown))) << before;
    }
}

TEST(PageComposer, NoValueGetsTheMarkOfTheScripts)
{
    PageFields song = exampleSong();
    const QString hostile = QStringLiteral("<script nonce=\"%mark\">steal()</script>");
    song.setArtist(hostile);
    song.setBio(hostile);
    const QString page = PageComposer(song, surroundings, "SECRET").artistPage(false, true);
    EXPECT_EQ(page.count(QLatin1String("SECRET")), WebSnippets::artistPage().count(QLatin1String("%mark")));
    EXPECT_TRUE(page.contains(hostile));
}

TEST(PageComposer, ValuesThatMultiplyEachOtherEndSomewhere)
{
    PageFields song;
    song.setTrack(QStringLiteral("%artist").repeated(2'000));
    song.setArtist(QStringLiteral("%bio").repeated(2'000));
    song.setBio(QStringLiteral("b").repeated(1'000));
    EXPECT_LT(PageComposer(song, surroundings, "MARK").artistPage(false, true).size(),
              PageText::maximumLength);
}

} // namespace
} // namespace zib
