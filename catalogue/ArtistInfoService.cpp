// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ArtistInfoService.h"

#include "catalogue/ArtistRanking.h"
#include "catalogue/InfoText.h"

namespace zib {

namespace {

constexpr qsizetype mostSimilar = 12;
constexpr qsizetype mostAlbumsNamed = 12;
constexpr qsizetype mostTagsNamed = 5;

/// "A (1998)"
QString named(const CatalogueAlbum& album)
{
    const QString year = album.date.left(4);
    const QString title = QStringLiteral("<i>%1</i>").arg(album.title.toHtmlEscaped());
    return year.isEmpty() ? title : QStringLiteral("%1 (%2)").arg(title, year);
}

} // namespace

HttpReply ArtistInfoService::answer(const HttpRequest& request) const
{
    if (auto refusal = InfoReply::refusal(request))
        return *refusal;
    const bool corrects = request.parameter(u"autocorrect") == QStringLiteral("1");
    const auto artist = catalogue_.artistNamed(request.parameter(u"artist").value_or(QString()), corrects);
    if (!artist)
        return InfoReply::notFound("The artist you supplied could not be found");

    const QString base = request.base();
    const InfoReply reply;
    auto element = reply.root().append_child("artist");
    addText(element, "name", artist->name);
    addText(element, "url", artistAddress(base, artist->name));
    addImages(element, pictures_.one(artist->key, base));
    auto list = element.append_child("similar");
    for (const auto& other : artistsSimilar(*catalogue_.artists(), {{artist->name}}).mid(0, mostSimilar)) {
        auto similar = list.append_child("artist");
        addText(similar, "name", other.name);
        addText(similar, "url", artistAddress(base, other.name));
        addImages(similar, pictures_.one(other.key, base));
    }
    addTags(element, "tags", artist->tags, base);
    addContent(element, "bio", biography(*artist, base));
    return reply.http();
}

QString ArtistInfoService::biography(const Artist& artist, const QString& base) const
{
    const auto* demo = catalogue_.demoArtist(artist.key);
    return demo != nullptr ? linkedHtml(demo->biography, base) : knownFacts(artist, base);
}

QString ArtistInfoService::knownFacts(const Artist& artist, const QString& base) const
{
    const auto albums = albums_.albums(artist.key);
    QStringList sentences;
    if (!albums.isEmpty()) {
        QStringList names;
        for (const auto& album : albums.mid(0, mostAlbumsNamed))
            names.append(named(album));
        if (albums.size() > mostAlbumsNamed)
            names.append(QStringLiteral("%1 more").arg(albums.size() - mostAlbumsNamed));
        sentences.append(QStringLiteral("In your music: %1.").arg(enumeration(names)));
    }
    QStringList tags;
    for (const auto& tag : artist.tags.mid(0, mostTagsNamed))
        tags.append(tagLink(base, tag));
    if (!tags.isEmpty())
        sentences.append(QStringLiteral("Filed under %1.").arg(enumeration(tags)));
    return sentences.join(u' ');
}

} // namespace zib
