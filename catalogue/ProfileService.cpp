// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ProfileService.h"

#include "catalogue/ArtistReply.h"
#include "catalogue/InfoText.h"
#include "catalogue/Pages.h"
#include "catalogue/TextMatching.h"

namespace zib {

namespace {

constexpr qsizetype longestSummary = 280;

/// The start of a text, ended at a word.
QString summary(const MarkedText& text)
{
    const QString plain = plainText(text).section(u'\n', 0, 0);
    if (plain.size() <= longestSummary)
        return plain;
    return plain.left(std::max<qsizetype>(plain.lastIndexOf(u' ', longestSummary), 1)) + u'…';
}

struct FeedForm {
    DemoArticle::Kind kind;
    const char* bucket; ///< the list's element too
    const char* entry;
    const char* date;
};

constexpr FeedForm feedForms[] = {
    {DemoArticle::Blog, "blogs", "blog", "date_posted"},
    {DemoArticle::News, "news", "news", "date_posted"},
    {DemoArticle::Review, "reviews", "review", "date_found"},
};

/// Titles and summaries are HTML, as everywhere in feeds.
void addArticle(pugi::xml_node list, const FeedForm& form, const DemoArticle& article, const QString& base)
{
    auto entry = list.append_child(form.entry);
    addText(entry, "name", article.title.toHtmlEscaped());
    if (!article.album.isEmpty())
        addText(entry, "release", article.album.toHtmlEscaped());
    addText(entry, "url", articleAddress(base, article));
    addText(entry, "summary", summary(article.text).toHtmlEscaped());
    addText(entry, form.date, article.date.toString(Qt::ISODate) + QStringLiteral("T00:00:00"));
    addText(entry, "id", article.id);
}

} // namespace

HttpReply ProfileService::answer(const HttpRequest& request) const
{
    if (auto refusal = artistRefusal(request))
        return *refusal;
    const QString name = request.parameter(u"name").value_or(QString()).trimmed();
    if (name.isEmpty())
        return artistRefusal(ServiceStatus::MissingParameter, "Missing parameter: \"name\"");
    XmlReply reply;
    const auto artist = catalogue_.artistNamed(name, false);
    if (!artist) {
        addText(reply.response().append_child("artist"), "name", name);
        return reply.http();
    }
    const QString base = request.base();
    const auto buckets = request.parameters(u"bucket");
    auto element = addArtist(reply.response(), *artist, buckets);
    const auto* demo = catalogue_.demoArtist(artist->key);
    for (const auto& form : feedForms) {
        if (!buckets.contains(QLatin1String(form.bucket)))
            continue;
        auto list = element.append_child(form.bucket);
        for (const auto& article : demo != nullptr ? demo->articles : QList<DemoArticle>())
            if (article.kind == form.kind)
                addArticle(list, form, article, base);
    }
    if (buckets.contains(u"images")) {
        auto images = element.append_child("images");
        for (const auto& address : pictures_.all(artist->key, base))
            addText(images.append_child("image"), "url", address);
    }
    if (buckets.contains(u"terms")) {
        for (const auto& tag : artist->tags)
            addText(element.append_child("terms"), "name", tag);
    }
    if (buckets.contains(u"urls") && demo != nullptr)
        addText(element.append_child("urls").append_child("urls"), "official_url",
                artistAddress(base, artist->name));
    return reply.http();
}

} // namespace zib
