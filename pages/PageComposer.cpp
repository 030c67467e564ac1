// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/PageComposer.h"

#include "pages/PageFragments.h"
#include "pages/SuggestedTags.h"
#include "pages/WebSnippets.h"
#include "services/utilities/PathUtilities.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace zib {
namespace {

constexpr QLatin1String musicInfoLabel("Last FM");
constexpr QLatin1String artistProfileLabel("The Echo Nest");
constexpr QLatin1String releaseLabel("MusicBrainz");
constexpr QLatin1String lyricsLabel("Chart Lyrics");

constexpr QLatin1String placeholderInTexts("%@");

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(RVWebViewController)
};

/// A score from 0 to 1 as a whole percentage.
QString percentage(const QString& score)
{
    return QString::number(std::lround(std::clamp(doubleValue(score), 0.0, 1.0) * 100));
}

/// A feed's title, and what is said when it is empty. Both hold the place of the artist.
std::pair<QString, QString> feedTexts(Page page)
{
    switch (page) {
    case Page::Videos:
        return {Texts::tr("Videos for %@"), Texts::tr("We couldn't find any Videos for %@.")};
    case Page::Blogs:
        return {Texts::tr("Blogs for %@"), Texts::tr("We couldn't find any Blogs for %@.")};
    case Page::News:
        return {Texts::tr("News for %@"), Texts::tr("We couldn't find any News for %@.")};
    default:
        return {Texts::tr("Reviews for %@"), Texts::tr("We couldn't find any Reviews for %@.")};
    }
}

QString feedItems(const PageFields& fields, Page page)
{
    switch (page) {
    case Page::Videos:
        return videoItems(fields.videos());
    case Page::Blogs:
        return articleItems(fields.blogs());
    case Page::News:
        return articleItems(fields.news());
    default:
        return articleItems(fields.reviews());
    }
}

/// Links to searches for newcomers.
QString suggestions()
{
    QString pills = Texts::tr("Or try a tag:");
    for (const char* const tag : suggestedTags)
        pills += QStringLiteral(" <a href=\"zib://search/tag/%1\">%1</a>").arg(QLatin1String(tag));
    return pills;
}

} // namespace

PageComposer::PageComposer(const PageFields& fields, const PageSurroundings& surroundings,
                           QByteArray scriptMark)
    : fields_(fields)
    , surroundings_(surroundings)
    , scriptMark_(std::move(scriptMark))
{
}

QString PageComposer::artistPage(bool wantsFullBio, bool animate) const
{
    const QString image = fields_.images().isEmpty()
                              ? surroundings_.resourceFolder + QLatin1String("no-photo.png")
                              : fields_.images().constFirst();
    return gray(WebSnippets::artistPage())
        .replace(QLatin1String("%track"), fields_.track())
        .replace(QLatin1String("%artist"), fields_.artist())
        .replace(QLatin1String("%bio"), wantsFullBio ? fullBio(fields_.bio()) : shortBio(fields_.bio()))
        .replace(QLatin1String("%image"), image)
        .replace(QLatin1String("%footer"), footer({{musicInfoLabel, surroundings_.musicInfoHome},
                                                   {artistProfileLabel, surroundings_.artistProfileHome}}))
        .replace(QLatin1String("%links"), artistLinks(fields_.links()))
        .replace(QLatin1String("%familiarity"), percentage(fields_.familiarity()))
        .replace(QLatin1String("%hotness"), percentage(fields_.hotness()))
        .replace(QLatin1String("%animate"), animate ? QStringLiteral("true") : QStringLiteral("false"))
        .replace(QLatin1String("%tags"), tagPills(fields_.tags(), artistComboPill()))
        .replace(QLatin1String("%similar"), similarArtistTiles(fields_.similar()))
        .text();
}

QString PageComposer::albumPage() const
{
    return gray(WebSnippets::albumPage())
        .replace(QLatin1String("%title"), fields_.album())
        .replace(QLatin1String("%artist"), fields_.artist())
        .replace(QLatin1String("%content"), fields_.album_wiki())
        .replace(QLatin1String("%image"), artworkAddress())
        .replace(QLatin1String("%label"), fields_.label())
        .replace(QLatin1String("%date"), fields_.date())
        .replace(QLatin1String("%type"), fields_.type())
        .replace(QLatin1String("%tracklist"), trackRows(fields_.tracklist()))
        .replace(QLatin1String("%footer"), footer({{musicInfoLabel, surroundings_.musicInfoHome},
                                                   {releaseLabel, surroundings_.releaseHome}}))
        .text();
}

QString PageComposer::trackPage() const
{
    QString content = fields_.track_wiki();
    QString lyrics;
    if (!fields_.lyrics().isEmpty())
        lyrics = lyricsBlock(fields_.track(), fields_.lyrics());
    else if (content.isEmpty())
        content = sorryBlock(Texts::tr("We couldn't find any wiki, video or lyrics for this song."));
    else // the tag ends with that of the empty element that follows in the template
        content = QLatin1String("<div id=\"album-content\">") + content + QLatin1String("</div");
    return gray(WebSnippets::trackPage())
        .replace(QLatin1String("%video"), embeddedVideo(fields_.videos(), fields_.track()))
        .replace(QLatin1String("%title"), fields_.track())
        .replace(QLatin1String("%artist"), fields_.artist())
        .replace(QLatin1String("%content"), content)
        .replace(QLatin1String("%lyrics"), lyrics)
        .replace(QLatin1String("%footer"), footer({{musicInfoLabel, surroundings_.musicInfoHome},
                                                   {lyricsLabel, surroundings_.lyricsHome}}))
        .replace(
            QLatin1String("%tags"),
            tagPills(fields_.track_tags().isEmpty() ? fields_.tags() : fields_.track_tags(), songComboPill()))
        .text();
}

QString PageComposer::imagesPage() const
{
    const QStringList& images = fields_.images();
    const qsizetype shown = std::min<qsizetype>(images.size(), fields_.imageIndex() + imagesPerStep);
    QString subtitle;
    QString content;
    if (images.isEmpty()) {
        content = sorryBlock(
            Texts::tr("We couldn't find any images for %@.").replace(placeholderInTexts, fields_.artist()));
    } else {
        subtitle = Texts::tr("Showing 1 - %1 of %n images", nullptr, int(images.size())).arg(shown);
        content = imageTiles(images, shown);
    }
    return gray(WebSnippets::imagesPage())
        .replace(QLatin1String("%title"), fields_.artist())
        .replace(QLatin1String("%subtitle"), subtitle)
        .replace(QLatin1String("%content"), content)
        .replace(QLatin1String("%footer"), profileFooter())
        .text();
}

QString PageComposer::feedPage(Page page) const
{
    auto [header, sorry] = feedTexts(page);
    header.replace(placeholderInTexts, fields_.artist());
    QString content = feedItems(fields_, page);
    if (content.isEmpty())
        content = sorryBlock(sorry.replace(placeholderInTexts, fields_.artist()));
    QStringList menu;
    for (const Page entry : feedPages)
        menu += entry == page ? selectedMenuCell(entry) : emptyMenuLink(entry);
    return gray(WebSnippets::feedPage())
        .replace(QLatin1String("%menu"), menu.join(u'\n'))
        .replace(QLatin1String("%header"), header)
        .replace(QLatin1String("%content"), content)
        .replace(QLatin1String("%footer"), profileFooter())
        .text();
}

QString PageComposer::startPage() const
{
    return blue(WebSnippets::startPage())
        .replace(QLatin1String("%notice"), QStringLiteral("<br>"))
        .replace(QLatin1String("%input"), Texts::tr("What artist do you want to play next?"))
        .replace(QLatin1String("%suggestions"), suggestions())
        .text();
}

QString PageComposer::busyPage() const
{
    return gray(WebSnippets::busyPage()).text();
}

QString PageComposer::errorPage(const QString& message) const
{
    return blue(WebSnippets::errorPage()).replace(QLatin1String("%error"), message).text();
}

PageText PageComposer::gray(const QString& pageTemplate) const
{
    return {pageTemplate, WebSnippets::grayStyle(), scriptMark_};
}

PageText PageComposer::blue(const QString& pageTemplate) const
{
    return {pageTemplate, WebSnippets::blueStyle(), scriptMark_};
}

QString PageComposer::profileFooter() const
{
    return footer({{artistProfileLabel, surroundings_.artistProfileHome}});
}

/// The picture of no cover is named by its path within the program, where a page cannot reach it.
QString PageComposer::artworkAddress() const
{
    const QString& artwork = fields_.artwork();
    return artwork.startsWith(u':') ? surroundings_.resourceFolder + lastPathComponent(artwork) : artwork;
}

} // namespace zib
