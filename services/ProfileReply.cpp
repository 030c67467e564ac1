// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/ProfileReply.h"

#include "services/XmlReply.h"

#include <QCoreApplication>

#include <utility>

namespace zib {
namespace {

constexpr qsizetype mostTags = 11;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(RVDataDownloader)
};

/// The calendar date of a time stamp.
QString dateIn(const QString& timeStamp)
{
    return timeStamp.left(10);
}

QString dateIn(pugi::xml_node element, const char* name, const QString& otherwise)
{
    const auto timeStamp = childText(element, name);
    return timeStamp ? dateIn(*timeStamp) : otherwise;
}

void readBlogs(const pugi::xml_document& document, ArtistProfile& profile)
{
    for (const pugi::xml_node blog : elementsAt(document, "response/artist/blogs/blog")) {
        const auto name = childText(blog, "name");
        const auto url = childText(blog, "url");
        const auto summary = childText(blog, "summary");
        const auto date = childText(blog, "date_posted");
        if (name && url && summary && date)
            profile.blogs.append({*name, *url, *summary, dateIn(*date), {}});
    }
}

/// What news and reviews have in common; nothing without an address.
std::optional<WebArticle> articleIn(pugi::xml_node element, const char* dateName)
{
    const auto url = childText(element, "url");
    if (!url)
        return std::nullopt;
    return WebArticle{childText(element, "name").value_or(Texts::tr("No title")),
                      *url,
                      childText(element, "summary").value_or(Texts::tr("No summary available")),
                      dateIn(element, dateName, Texts::tr("No date")),
                      {}};
}

void readNewsAndReviews(const pugi::xml_document& document, ArtistProfile& profile)
{
    for (const pugi::xml_node news : elementsAt(document, "response/artist/news/news"))
        if (const auto article = articleIn(news, "date_posted"))
            profile.news.append(*article);
    for (const pugi::xml_node review : elementsAt(document, "response/artist/reviews/review")) {
        if (auto article = articleIn(review, "date_found")) {
            article->release = childText(review, "release").value_or(Texts::tr("No title"));
            profile.reviews.append(*std::move(article));
        }
    }
}

void readPictures(const pugi::xml_document& document, ArtistProfile& profile)
{
    for (const pugi::xml_node image : elementsAt(document, "response/artist/images/image"))
        if (const auto url = childText(image, "url"))
            profile.images.append(*url);
    for (const pugi::xml_node video : elementsAt(document, "response/artist/video")) {
        const auto text = [video](const char* name) { return childText(video, name).value_or(QString()); };
        if (const auto url = childText(video, "url"))
            profile.videos.append(
                {text("title"), text("site"), text("image_url"), *url, dateIn(text("date_found"))});
    }
}

void readLinks(const pugi::xml_document& document, ArtistProfile& profile)
{
    static const std::pair<QString, const char*> sites[] = {
        {QStringLiteral("Official"), "official_url"}, {QStringLiteral("Last FM"), "lastfm_url"},
        {QStringLiteral("AOL"), "aolmusic_url"},      {QStringLiteral("MySpace"), "myspace_url"},
        {QStringLiteral("Amazon"), "amazon_url"},     {QStringLiteral("iTunes"), "itunes_url"},
        {QStringLiteral("Musicbrainz"), "mb_url"},
    };
    for (const pugi::xml_node urls : elementsAt(document, "response/artist/urls/urls"))
        for (const auto& [site, name] : sites)
            profile.links.append({site, childText(urls, name).value_or(QString())});
}

} // namespace

tl::expected<ArtistProfile, ServiceError> artistProfileOfReply(const QByteArray& reply)
{
    pugi::xml_document document;
    loadXmlReply(document, reply);
    const QString status = statusMessage(document);
    if (status != QLatin1String("Success"))
        return tl::unexpected(ServiceError{ServiceError::Kind::Reported, status});
    const auto artists = elementsAt(document, "response/artist");
    if (artists.empty())
        return tl::unexpected(ServiceError{ServiceError::Kind::Reported, Texts::tr("No data found")});

    ArtistProfile profile;
    for (const pugi::xml_node artist : artists) {
        profile.hotness = childText(artist, "hotttnesss").value_or(profile.hotness);
        profile.familiarity = childText(artist, "familiarity").value_or(profile.familiarity);
    }
    readBlogs(document, profile);
    readNewsAndReviews(document, profile);
    readPictures(document, profile);
    for (const pugi::xml_node term : elementsAt(document, "response/artist/terms"))
        if (const auto name = childText(term, "name"); name && profile.tags.size() < mostTags)
            profile.tags.append(*name);
    readLinks(document, profile);
    return profile;
}

} // namespace zib
