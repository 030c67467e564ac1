// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a click that does something else than the link says, a name that is torn on its way into a search.
#include "pages/PageAddress.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

using Kind = PageAddress::Kind;

std::string described(const std::optional<PageAddress>& address)
{
    if (!address)
        return "unknown";
    const std::string page = pageName(address->page).data();
    const std::string text = address->text.toStdString();
    switch (address->kind) {
    case Kind::ShowPage:
        return "show " + page;
    case Kind::ShowMoreOfPage:
        return "more " + page;
    case Kind::SearchTag:
        return "tag " + text;
    case Kind::SearchSimilarArtists:
        return "similar";
    case Kind::SearchAllTags:
        return "tags";
    case Kind::SearchArtist:
        return "by " + text;
    case Kind::SearchAllTrackTags:
        return "tracktags";
    case Kind::OpenPlaylist:
        return "playlist " + text;
    }
    return {};
}

TEST(PageAddress, IsReadAsAWhole)
{
    const std::pair<const char*, const char*> cases[] = {
        {"zib://current/artist", "show artist"},
        {"zib://current/artist/more", "more artist"},
        {"zib://current/artist/less", "show artist"},
        {"zib://current/album", "show album"},
        {"zib://current/track", "show track"},
        {"zib://current/images", "show images"},
        {"zib://current/images/more", "more images"},
        {"zib://current/videos", "show videos"},
        {"zib://current/news", "show news"},
        {"zib://current/blogs", "show blogs"},
        {"zib://current/reviews", "show reviews"},
        {"zib://search/tag/trip%20hop", "tag trip hop"},
        {"zib://search/tag/r+b", "tag r+b"},
        {"zib://search/tag/", "tag "},
        {"zib://search/artist/similar", "similar"},
        {"zib://search/artist/alltags", "tags"},
        {"zib://search/artist/Bj%C3%B6rk+Two", "by Björk Two"},
        {"zib://search/artist/Björk", "by Björk"},
        {"zib://search/artist/AC%2FDC", "by AC/DC"},
        {"zib://search/artist/AC/DC", "by DC"},
        {"zib://search/artist/", "by "},
        {"zib://search/artist/100% Pure", "by 100% Pure"},
        {"zib://search/artist/100%%20Pure %41", "by 100% Pure A"},
        {"zib://search/artist/%FF", "by %FF"},
        {"zib://search/artist/similar/", "by similar"},
        {"zib://search/song/alltags", "tracktags"},
        {"zib://open/playlist/a%20b+c", "playlist a%20b+c"},
        {"zib://open/playlist/", "playlist "},
        {"ZIB://current/artist", "unknown"},
        {"zib://current/Artist", "unknown"},
        {"zib://current/album/more", "unknown"},
        {"zib://current/", "unknown"},
        {"zib://search/song/x", "unknown"},
        {"zib://search/tag", "unknown"},
        {"http://x.example/", "unknown"},
        {"", "unknown"},
    };
    for (const auto& [address, meaning] : cases)
        EXPECT_EQ(described(readPageAddress(QString::fromUtf8(address))), meaning) << address;
}

TEST(PageAddress, AFormAddsItsFirstValue)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Artist=Two+Words", "a/Two+Words"},
        {"Artist=a%3Db", "a/a%3Db"},
        {"Artist=a=b", "a/a"},
        {"Artist=", "a/"},
        {"Artist", "a/"},
        {"", "a/"},
    };
    for (const auto& [body, address] : cases)
        EXPECT_EQ(addressOfForm(QStringLiteral("a/"), body).toStdString(), address);
}

TEST(PageAddress, TheMouseOverALinkTellsWhatItDoes)
{
    struct Case {
        const char* link;
        bool imagesShown;
        const char* hint;
    };
    const Case cases[] = {
        {"", false, ""},
        {"zib://search/artist/similar", false, "Search for songs by artists like these"},
        {"zib://search/artist/alltags", false, "Search for songs with all of these tags"},
        {"zib://search/song/alltags", false, "Search for songs with all of these tags"},
        {"zib://search/artist/Bj%C3%B6rk+Two", false, "Search for songs by Björk Two"},
        {"zib://search/tag/trip+hop%21", false, "Search for songs tagged trip hop!"},
        {"http://x.example/a%20b", false, "http://x.example/a%20b"},
        {"http://x.example/", true, "Click to enlarge"},
        {"https://x.example/", false, "https://x.example/"},
        {"zib://current/album", false, "as before"},
        {"zib://open/playlist/x", true, "as before"},
        {"file:///x", false, "as before"},
    };
    for (const Case& entry : cases) {
        const auto hint = hoverHint(QString::fromUtf8(entry.link), entry.imagesShown);
        EXPECT_EQ(hint.value_or(QStringLiteral("as before")).toStdString(), entry.hint) << entry.link;
    }
}

} // namespace
} // namespace zib
