// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/PageFragments.h"

#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>

#include <algorithm>

// White space in the fragments is that of the templates they stand in.
namespace zib {

namespace {

constexpr qsizetype shortBioLength = 1500; // characters
constexpr qsizetype mostPills = 10;
constexpr qsizetype mostPillCharacters = 65;
constexpr qsizetype mostSimilarArtists = 8;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(RVWebViewController)
};

QString comboPill(const char* kind, int iconMargin)
{
    return QStringLiteral(
               "<a href=\"zib://search/%1/alltags\" class=\"tag\" style=\"background-color:#7e8d95;\">"
               "<img src=\"w_loupe.png\" align=\"middle\" style=\"margin-top:%2px;padding-right:5px;\">"
               "</img>%3</a>")
        .arg(QLatin1String(kind), QString::number(iconMargin), Texts::tr("combo search"));
}

/// Where the text has that first, or its end.
qsizetype placeOf(QLatin1String wanted, QStringView text)
{
    const qsizetype found = text.indexOf(wanted);
    return found < 0 ? text.size() : found;
}

} // namespace

QString sorryBlock(const QString& message)
{
    return QStringLiteral(
               "\n\t\t\t\t<div id=\"feed\">\n\t\t\t\t<p>\n\t\t\t\t<div class=\"title\">\n\t\t\t\t\t%1\n"
               "\t\t\t\t</div>\n\t\t\t\t<div class=\"summary\">\n\t\t\t\t\t%2\n\t\t\t\t</div>\n"
               "\t\t\t\t<p>\n\t\t\t\t</div>")
        .arg(Texts::tr("Sorry!"), message);
}

QString artistComboPill()
{
    return comboPill("artist", -7);
}

QString songComboPill()
{
    return comboPill("song", -5);
}

QString tagPills(const QStringList& tags, const QString& comboPill)
{
    QString pills;
    qsizetype characters = 0;
    for (const QString& tag : tags.first(std::min(tags.size(), mostPills))) {
        characters += tag.size();
        if (characters > mostPillCharacters)
            break;
        pills += QStringLiteral("<a href=\"zib://search/tag/%1\" class=\"tag\">%2</a>").arg(tag, tag);
    }
    return pills.isEmpty() ? pills : pills + comboPill;
}

QString fullBio(const QString& bio)
{
    return bio + QLatin1String("<div class=\"readmore\">\n\t\t<a href=\"zib://current/artist/less\">") +
           Texts::tr("Read less...") + QLatin1String("</a>\n\t\t</div>");
}

QString shortBio(const QString& bio)
{
    if (bio.size() <= shortBioLength)
        return bio;
    // One character beyond may be the second half of one.
    const qsizetype cut = shortBioLength - (bio[shortBioLength - 1].isHighSurrogate() ? 1 : 0);
    QString head = bio.first(cut);
    const QStringView rest = QStringView(bio).sliced(cut);
    const qsizetype closing = placeOf(QLatin1String("</"), rest);
    if (closing < placeOf(QLatin1String("<a "), rest)) { // the cut is within a link
        head += rest.first(closing);
        head += QLatin1String("</a>");
    }
    return head + QLatin1String("...<div class=\"readmore\">\n\t\t<a href=\"zib://current/artist/more\">") +
           Texts::tr("Read more...") + QLatin1String("</a>\n\t\t</div>");
}

QString artistLinks(const QList<ArtistLink>& links)
{
    QString result;
    for (const ArtistLink& link : links)
        if (!link.url.isEmpty())
            result += QStringLiteral("<a href=\"%1\" style=\"margin-right:15px;\">%2</a> ")
                          .arg(link.url, link.site);
    return result.isEmpty() ? result : QLatin1String("<p>") + result + QLatin1String("</p>");
}

QString similarArtistTiles(const QList<SimilarArtist>& similar)
{
    QString tiles;
    for (const SimilarArtist& artist : similar.first(std::min(similar.size(), mostSimilarArtists))) {
        tiles += QStringLiteral(
                     "<a href=\"%1\">\n\t<div class=\"similarart\" style=\"background: url(%2) center;\">\n"
                     "\t<div class=\"similarartglow\"></div>\n\t<div class=\"similarartshadow\"></div>\n"
                     "\t<div class=\"similarname\">%3</div>\n\t</div>\n\t</a>")
                     .arg(QLatin1String("zib://search/artist/") + artist.artist, artist.url, artist.artist);
    }
    return tiles;
}

QString trackRows(const QList<ReleaseTrack>& tracklist)
{
    QString rows;
    for (qsizetype i = 0; i < tracklist.size(); ++i)
        rows +=
            QStringLiteral("\n\t\t\t<div id=\"track-row\">\n\t\t\t\t<div class=\"index\">%1</div>\n"
                           "\t\t\t\t<div class=\"title\">%2</div>\n\t\t\t\t<div class=\"duration\">%3</div>\n"
                           "\t\t\t</div>")
                .arg(QString::number(i + 1), tracklist[i].name,
                     timeString(integerValue(tracklist[i].duration) / 1000));
    return rows;
}

QString embeddedVideo(const QList<WebVideo>& videos, const QString& track)
{
    if (track.isEmpty())
        return {}; // every title has that
    const QString wanted = track.toLower();
    const auto found = std::ranges::find_if(videos, [&](const WebVideo& video) {
        return video.site == QLatin1String("youtube") && video.title.toLower().contains(wanted);
    });
    if (found == videos.end())
        return {};
    return QStringLiteral("<div id=\"feed\">\n\t\t\t\t\t<center>\n\t\t\t\t\t<iframe title=\"\" width=\"814\" "
                          "height=\"490\" src=\"%1\" frameborder=\"0\" allowfullscreen></iframe>\n"
                          "\t\t\t\t\t</center>\n\t\t\t\t\t</div>")
        .arg(QString(found->url).replace(QLatin1String("/watch?v="), QLatin1String("/embed/")));
}

QString lyricsBlock(const QString& track, const QString& lyrics)
{
    return QStringLiteral("<h2 style=\"text-align:center;\">\"%1\"</h2><div id=\"lyrics\">%2</div>")
        .arg(track, lyrics);
}

QString imageTiles(const QStringList& images, qsizetype count)
{
    QString tiles;
    for (const QString& image : images.first(std::min(images.size(), count)))
        tiles += QStringLiteral("<a href=\"%1\" rel=\"thumbnail\"><img src=\"%2\" style=\"max-width:250px;"
                                "max-height:250px;border-style:none;padding:5px;\"/></a>")
                     .arg(image, image);
    if (images.size() > count)
        tiles += QLatin1String("<div id=\"images-readmore\">\n\t\t\t<a href=\"zib://current/images/more\">") +
                 Texts::tr("Show more...") + QLatin1String("</a>\n\t\t\t</div>");
    return tiles;
}

QString articleItems(const QList<WebArticle>& articles)
{
    QString items;
    for (const WebArticle& article : articles)
        items +=
            QStringLiteral("\n\t\t\t\t<div id=\"feed\">\n\t\t\t\t<div class=\"date\">\n\t\t\t\t\t\t%1\n"
                           "\t\t\t\t\t</div>\n\t\t\t\t<div class=\"title\">\n\t\t\t\t\t%2\n\t\t\t\t</div>\n"
                           "\t\t\t\t<div class=\"summary\">\n\t\t\t\t\t%3\n\t\t\t\t</div>\n"
                           "\t\t\t\t<div class=\"readmore\">\n\t\t\t\t\t<a href=\"%4\">\n"
                           "\t\t\t\t\t\t%5\n\t\t\t\t\t</a>\n\t\t\t\t</div>\n\t\t\t\t</div>")
                .arg(article.date, article.title, article.summary, article.url, Texts::tr("Read more..."));
    return items;
}

QString videoItems(const QList<WebVideo>& videos)
{
    QString items;
    for (const WebVideo& video : videos) {
        const QString image = video.image.isEmpty() ? QStringLiteral("no-video-thumbnail.png") : video.image;
        items += QStringLiteral(
                     "\n\t<div id=\"feed\">\n\t\t<div class=\"video\" style=\"background: url(%1) center "
                     "left no-repeat;\">\n            <div class=\"video-text\">\n"
                     "                <div class=\"date\">\n                    %2\n"
                     "                </div>\n\t\t\t\t<div class=\"title\">\n\t\t\t\t\t%3\n"
                     "\t\t\t\t</div>\n\t\t\t\t%4\n"
                     "\t\t\t\t<div class=\"readmore\" style=\"text-align:left;\">\n"
                     "\t\t\t\t\t<a href=\"%5\">\n\t\t\t\t\t\t%6\n\t\t\t\t\t</a>\n"
                     "\t\t\t\t</div>\n            </div>\n        </div>\n    </div>")
                     .arg(image, video.date, video.title,
                          Texts::tr("Found on %1").arg(capitalizedString(video.site)), video.url,
                          Texts::tr("Watch video..."));
    }
    return items;
}

QString footer(const QList<std::pair<QString, QString>>& sources)
{
    QStringList links;
    for (const auto& [label, address] : sources)
        links += QStringLiteral("<a href=\"%1\">%2</a>").arg(address, label);
    return Texts::tr("Source: %1").arg(links.join(QLatin1String(", ")));
}

} // namespace zib
