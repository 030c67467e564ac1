// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: something shown of an artist, an album or a release that the reply does not say, an entry lost that
// it has, a reply from hell taken at its word.
#include "services/AlbumInfoReply.h"
#include "services/ArtistInfoReply.h"
#include "services/ProfileReply.h"
#include "services/ReleaseReply.h"
#include "services/WikiText.h"
#include "services/XmlReply.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

/// Replies that say nothing of what was asked.
const QByteArray idleReplies[] = {"",
                                  "no xml",
                                  "\xff\xfe<",
                                  "<lfm status=\"failed\"><error code=\"6\">Not found</error></lfm>",
                                  "<lfm><artist><name>cut",
                                  "<lfm><album><name>cut",
                                  "<metadata><release type=\"cut\">",
                                  QByteArray("<a>").repeated(1'000'000),
                                  "<artist><name>elsewhere</name></artist>"};

/// The fields in one line.
std::string line(const QStringList& fields)
{
    return fields.join(u'|').toStdString();
}
std::string orNone(const std::optional<QString>& text)
{
    return text ? text->toStdString() : "none";
}

TEST(ArtistInfoReply, IsTakenAsFarAsItGoes)
{
    const auto known = [](const QByteArray& reply) {
        ArtistInfo info{QStringLiteral("asked"), {}, {}};
        readArtistInfoReply(reply, info);
        QStringList fields{info.name, info.bio};
        for (const SimilarArtist& artist : info.similar)
            fields += artist.artist + u'=' + artist.url;
        return line(fields);
    };
    const std::pair<QByteArray, std::string> cases[] = {
        {"<name>Artist</name><bio><summary>S</summary><content><![CDATA[<a href=\"u\">B</a>\n]]></content>"
         "</bio><similar><artist><name>One</name><image>s</image><image>m</image><image>l</image></artist>"
         "<artist><name>No large picture</name><image>s</image><image>m</image></artist>"
         "<artist><image>s</image><image>m</image><image>nameless</image></artist>"
         "<artist><image>s</image><name>Two</name><image>m</image><image/><image>x</image></artist></"
         "similar>",
         "Artist|<a href=\"u\">B</a>\n|One=l|Two="},
        {"", "asked|"},
        {"<name/><bio/><similar/>", "|"},
        {"<bio><content>B</content></bio>", "asked|B"},
    };
    for (const auto& [artist, fields] : cases)
        EXPECT_EQ(known("<lfm status=\"ok\"><artist>" + artist + "</artist></lfm>"), fields);
    for (const QByteArray& reply : idleReplies)
        EXPECT_EQ(known(reply), "asked|") << reply.left(40).toStdString();
}

TEST(AlbumInfoReply, IsTakenAsFarAsItGoes)
{
    const auto known = [](const QByteArray& reply) {
        AlbumInfo info{QStringLiteral("asked"), {}, {}};
        readAlbumInfoReply(reply, info);
        return line({info.name, info.url.toString(), info.wiki});
    };
    const std::pair<QByteArray, std::string> cases[] = {
        {"<name>Album</name><image>http://c/s</image><image>http://c/m</image><image>http://c/l</image>"
         "<image>http://c/x</image><wiki><content>W &lt;b&gt;</content></wiki>",
         "Album|http://c/l|W <b>"},
        {"<image>http://c/s</image><image>http://c/m</image>", "asked|http://c/m|"},
        {"<image>http://c/s</image>", "asked|http://c/s|"},
        {"<image>http://c/s</image><image>http://c/m</image><image/>", "asked||"},
        {"<name/><wiki><content/></wiki>", "||"},
        {"", "asked||"},
    };
    for (const auto& [album, fields] : cases)
        EXPECT_EQ(known("<lfm status=\"ok\"><album>" + album + "</album></lfm>"), fields);
    for (const QByteArray& reply : idleReplies)
        EXPECT_EQ(known(reply), "asked||") << reply.left(40).toStdString();
}

TEST(ReleaseReply, IsTakenAsFarAsItGoes)
{
    const auto known = [](const QByteArray& reply) {
        const ReleaseInfo info = releaseInfoOfReply(reply);
        std::string fields = info.type.toStdString();
        for (const ReleaseEvent& event : info.releases)
            fields.append("|")
                .append(orNone(event.date) + "," + orNone(event.country) + ",")
                .append(event.label.toStdString());
        for (const ReleaseTrack& track : info.tracks)
            fields.append("|").append(track.name.toStdString() + "=").append(track.duration.toStdString());
        return fields;
    };
    const std::pair<QByteArray, std::string> cases[] = {
        {"<release type=\"Album Official\"><title>T</title><release-event-list>"
         "<event date=\"1999-05\" country=\"IS\"><label><name>One</name><name>Two</name></label></event>"
         "<event country=\"\"><label><name>L</name></label><label/></event><event date=\"2001\"/>"
         "</release-event-list><track-list><track><title>S</title><duration>215000</duration></track>"
         "<track><title>No time</title></track><track/></track-list></release>",
         "Album Official|1999-05,IS,Two|none,,L|2001,none,|S=215000|No time=|="},
        {"<release type=\"Single\"/><release type=\"EP\"/>", "EP"},
        {"<release type=\"Single\"/><release/>", ""},
        {"<release type=\"EP\"><release-event-list/></release>", "EP"},
        {"<release-list><release type=\"elsewhere\"/></release-list>", ""},
    };
    for (const auto& [metadata, fields] : cases)
        EXPECT_EQ(known("<metadata xmlns=\"x\">" + metadata + "</metadata>"), fields);
    for (const QByteArray& reply : idleReplies)
        EXPECT_EQ(known(reply), "") << reply.left(40).toStdString();
}

QByteArray profileReply(const QByteArray& artists, const QByteArray& message = "Success")
{
    return "<response><status><code>0</code><message>" + message + "</message></status>" + artists +
           "</response>";
}

/// The field of the profile, its entries parted by "|".
std::string articles(const QList<WebArticle>& list)
{
    QStringList fields;
    for (const WebArticle& article : list)
        fields +=
            QStringList{article.title, article.url, article.summary, article.date, article.release}.join(
                u',');
    return line(fields);
}
std::string articlesAndVideos(const ArtistProfile& profile)
{
    QStringList videos;
    for (const WebVideo& video : profile.videos)
        videos += QStringList{video.title, video.site, video.image, video.url, video.date}.join(u',');
    return "blogs " + articles(profile.blogs) + " news " + articles(profile.news) + " reviews " +
           articles(profile.reviews) + " videos " + line(videos);
}

TEST(ProfileReply, ListsWhatTheWebHas)
{
    const std::pair<QByteArray, std::string> cases[] = {
        {"", "blogs  news  reviews  videos "},
        {"<blogs><blog><name>N</name><url>U</url><summary>S</summary>"
         "<date_posted>2010-03-04T05:06:07</date_posted></blog>"
         "<blog><name/><url/><summary/><date_posted>2010</date_posted></blog>"
         "<blog><url>U</url><summary>S</summary><date_posted>D</date_posted></blog>"
         "<blog><name>N</name><summary>S</summary><date_posted>D</date_posted></blog>"
         "<blog><name>N</name><url>U</url><date_posted>D</date_posted></blog>"
         "<blog><name>N</name><url>U</url><summary>S</summary></blog></blogs>",
         "blogs N,U,S,2010-03-04,|,,,2010, news  reviews  videos "},
        {"<news><news><name>N</name><url>U</url><summary>S</summary>"
         "<date_posted>2010-03-04T05:06:07</date_posted><date_found>D</date_found></news>"
         "<news><url>U</url></news><news><name>N</name></news></news>",
         "blogs  news N,U,S,2010-03-04,|No title,U,No summary available,No date, reviews  videos "},
        {"<reviews><review><name>N</name><release>R</release><url>U</url><summary>S</summary>"
         "<date_found>2010-03-04T05:06:07</date_found></review>"
         "<review><url>U</url><date_posted>D</date_posted></review><review><name>N</name></review></reviews>",
         "blogs  news  reviews N,U,S,2010-03-04,R|No title,U,No summary available,No date,No title videos "},
        {"<video><title>T</title><site>youtube</site><image_url>I</image_url><url>U</url>"
         "<date_found>2010-03-04T05:06:07</date_found></video><video><url>V</url></video><video/>",
         "blogs  news  reviews  videos T,youtube,I,U,2010-03-04|,,,V,"},
    };
    for (const auto& [artist, fields] : cases) {
        const auto profile = artistProfileOfReply(profileReply("<artist>" + artist + "</artist>"));
        ASSERT_TRUE(profile);
        EXPECT_EQ(articlesAndVideos(*profile), fields);
    }
}

TEST(ProfileReply, TellsOfTheArtist)
{
    QByteArray terms = "<terms><frequency>1</frequency></terms>";
    for (int i = 1; i <= 15; ++i)
        terms += "<terms><name>t" + QByteArray::number(i) + "</name></terms>";
    const auto profile = artistProfileOfReply(profileReply(
        "<artist><hotttnesss>0.5</hotttnesss><familiarity>0.25</familiarity></artist>"
        "<artist><hotttnesss>0.75</hotttnesss>" +
        terms +
        "<images><image><url>I</url></image><image/><image><url>J</url></image></images>"
        "<urls><urls><mb_url>M</mb_url><lastfm_url>F</lastfm_url><itunes_url>T</itunes_url></urls></urls>"
        "</artist>"));
    ASSERT_TRUE(profile);
    EXPECT_EQ(line({profile->hotness, profile->familiarity}), "0.75|0.25");
    EXPECT_EQ(line(profile->tags), "t1|t2|t3|t4|t5|t6|t7|t8|t9|t10|t11");
    EXPECT_EQ(line(profile->images), "I|J");
    QStringList links;
    for (const ArtistLink& link : profile->links)
        links += link.site + u'=' + link.url;
    EXPECT_EQ(line(links), "Official=|Last FM=F|AOL=|MySpace=|Amazon=|iTunes=T|Musicbrainz=M");
}

TEST(ProfileReply, FailsInTheServicesWords)
{
    const std::pair<QByteArray, std::string> cases[] = {
        {"", "No server response"},
        {"no xml", "No server response"},
        {"<response><artist/></response>", "No server response"},
        {"<response><status><message>Success</message></status><artist>", "No server response"},
        {profileReply("<artist/>", "Missing Key"), "Missing Key"},
        {profileReply("<artist/>", "success"), "success"},
        {profileReply(""), "No data found"},
        {profileReply("<artists><artist/></artists>"), "No data found"},
    };
    for (const auto& [reply, text] : cases) {
        const auto profile = artistProfileOfReply(reply);
        ASSERT_FALSE(profile) << reply.toStdString();
        EXPECT_EQ(profile.error().text.toStdString(), text);
    }
}

TEST(ProfileReply, ManyTinyEntriesDoNotBecomeAMemoryFull)
{
    const auto profile = artistProfileOfReply(
        profileReply("<artist><urls>" + QByteArray("<urls/>").repeated(500'000) + "</urls></artist>"));
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->links.size(), qsizetype(7 * maximumEntries));
}

TEST(WikiText, LinksToTheServicesPagesLeadIntoTheProgram)
{
    const QString html = QStringLiteral("<b>By</b> <a href=\"http://h/music/A\">A</a>, "
                                        "<a href=\"http://h/tag/jazz\">jazz</a>.\nEnd");
    EXPECT_EQ(wikiText(html, QStringLiteral("h"), WikiLinks::ToArtistsAndTags).toStdString(),
              "By<a href=\"zib://search/artist/A\">A</a>, <a href=\"zib://search/tag/jazz\">jazz</a>.");
    EXPECT_EQ(wikiText(html, QStringLiteral("h"), WikiLinks::ToArtists).toStdString(),
              "By<a href=\"zib://search/artist/A\">A</a>, jazz.");
}

} // namespace
} // namespace zib
