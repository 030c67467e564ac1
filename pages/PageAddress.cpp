// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/PageAddress.h"

#include "services/utilities/PathUtilities.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>

#include <algorithm>

namespace zib {
namespace {

using Kind = PageAddress::Kind;

constexpr QLatin1String currentPrefix("zib://current/");
constexpr QLatin1String tagPrefix("zib://search/tag/");
constexpr QLatin1String artistPrefix("zib://search/artist/");
constexpr QLatin1String playlistPrefix("zib://open/playlist/");
constexpr QLatin1String similarArtists("zib://search/artist/similar");
constexpr QLatin1String allTags("zib://search/artist/alltags");
constexpr QLatin1String allTrackTags("zib://search/song/alltags");

/// The last path component of what follows the prefix; empty when nothing does.
QString component(const QString& address, QLatin1String prefix)
{
    return lastPathComponent(QStringView(address).sliced(prefix.size()));
}

/// Without its percent-escapes. The pages put names into addresses as they are, so a percent sign may stand
/// for itself.
QString unescaped(const QString& text)
{
    static const QLatin1String hexadecimal("0123456789abcdefABCDEF");
    const auto isHex = [&](qsizetype at) { return at < text.size() && hexadecimal.contains(text[at]); };
    QString escaped;
    for (qsizetype i = 0; i < text.size(); ++i) {
        escaped += text[i];
        if (text[i] == u'%' && !(isHex(i + 1) && isHex(i + 2)))
            escaped += QLatin1String("25");
    }
    return URLDecodedString(escaped).value_or(text);
}

/// A name as forms and the music-information service write it.
QString withBlanks(QString text)
{
    return text.replace(u'+', u' ');
}

/// "zib://current/NAME", with "/more" or "/less" for the artist and "/more" for the images.
std::optional<PageAddress> readCurrent(QStringView rest)
{
    if (rest == u"artist/more")
        return PageAddress{Kind::ShowMoreOfPage, Page::Artist, {}};
    if (rest == u"artist/less")
        return PageAddress{Kind::ShowPage, Page::Artist, {}};
    if (rest == u"images/more")
        return PageAddress{Kind::ShowMoreOfPage, Page::Images, {}};
    for (const auto& pages : {songPages, feedPages})
        for (const Page page : pages)
            if (rest == pageName(page))
                return PageAddress{Kind::ShowPage, page, {}};
    return std::nullopt;
}

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(RVWebViewController)
};

} // namespace

std::optional<PageAddress> readPageAddress(const QString& address)
{
    if (address.startsWith(currentPrefix))
        return readCurrent(QStringView(address).sliced(currentPrefix.size()));
    if (address.startsWith(tagPrefix))
        return PageAddress{Kind::SearchTag, {}, unescaped(component(address, tagPrefix))};
    if (address == similarArtists)
        return PageAddress{Kind::SearchSimilarArtists, {}, {}};
    if (address == allTags)
        return PageAddress{Kind::SearchAllTags, {}, {}};
    if (address.startsWith(artistPrefix))
        return PageAddress{Kind::SearchArtist, {}, withBlanks(unescaped(component(address, artistPrefix)))};
    if (address == allTrackTags)
        return PageAddress{Kind::SearchAllTrackTags, {}, {}};
    if (address.startsWith(playlistPrefix))
        return PageAddress{Kind::OpenPlaylist, {}, component(address, playlistPrefix)};
    return std::nullopt;
}

bool isZibAddress(const QString& address)
{
    return address.startsWith(QLatin1String("zib://"));
}

bool isWebAddress(const QString& address)
{
    return address.startsWith(QLatin1String("http://")) || address.startsWith(QLatin1String("https://"));
}

QString addressOfForm(const QString& address, const QByteArray& body)
{
    return address + QString::fromUtf8(body).section(u'=', 1, 1);
}

std::optional<QString> hoverHint(const QString& link, bool imagesShown)
{
    if (link.isEmpty())
        return QString();
    if (link == similarArtists)
        return Texts::tr("Search for songs by artists like these");
    if (link.endsWith(QLatin1String("/alltags")))
        return Texts::tr("Search for songs with all of these tags");
    if (link.startsWith(artistPrefix))
        return Texts::tr("Search for songs by %@")
            .replace(QLatin1String("%@"), withBlanks(unescaped(component(link, artistPrefix))));
    if (link.startsWith(tagPrefix))
        return Texts::tr("Search for songs tagged %@")
            .replace(QLatin1String("%@"), withBlanks(unescaped(component(link, tagPrefix))));
    if (isWebAddress(link))
        return imagesShown ? Texts::tr("Click to enlarge") : link;
    return std::nullopt;
}

} // namespace zib
