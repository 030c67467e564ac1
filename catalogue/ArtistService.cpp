// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ArtistService.h"

#include "catalogue/ArtistRanking.h"
#include "catalogue/ArtistReply.h"

#include <algorithm>

namespace zib {

namespace {

constexpr int usualResults = 15;
constexpr int mostResults = 100;
constexpr int mostNames = 20;
constexpr int mostSongs = 5000; ///< in one reply, so that a large library cannot make one without end

struct Question {
    QStringList names;
    QStringList descriptions;
    bool fuzzy = false;
    TagOrder order = TagOrder::BestMatch;
    int results = usualResults;
};

/// The values that say something; clients put an empty one first.
QStringList filled(QStringList values)
{
    values.removeIf([](const QString& value) { return value.trimmed().isEmpty(); });
    return values.mid(0, mostNames);
}

tl::expected<Question, HttpReply> asked(const HttpRequest& request)
{
    if (auto refusal = artistRefusal(request))
        return tl::unexpected(std::move(*refusal));
    Question question;
    question.names = filled(request.parameters(u"name"));
    question.descriptions = filled(request.parameters(u"description"));
    question.fuzzy = request.parameter(u"fuzzy_match") == QStringLiteral("true");
    if (request.parameter(u"sort") == QStringLiteral("hotttnesss-desc"))
        question.order = TagOrder::Hotness;
    if (const auto results = request.parameter(u"results")) {
        bool isNumber = false;
        question.results = std::clamp(results->toInt(&isNumber), 1, mostResults);
        if (!isNumber)
            return tl::unexpected(artistRefusal(ServiceStatus::InvalidParameter,
                                                "Invalid parameter: \"results\" must be a number"));
    }
    return question;
}

bool asksForNames(const HttpRequest& request)
{
    return request.parameter(u"name").has_value();
}

} // namespace

ArtistService::ArtistService(const MusicCatalogue& catalogue)
    : catalogue_(catalogue)
{
}

std::optional<HttpReply> ArtistService::answer(const QString& method, const HttpRequest& request) const
{
    const bool search = method == u"search";
    const bool similar = method == u"similar";
    if (!search && !similar && method != u"top_hottt")
        return std::nullopt;
    const auto question = asked(request);
    if (!question)
        return question.error();
    if (similar && !asksForNames(request))
        return artistRefusal(ServiceStatus::MissingParameter, "Missing parameter: \"name\"");
    if (search && !asksForNames(request) && !request.parameter(u"description"))
        return artistRefusal(ServiceStatus::MissingParameter,
                             "Missing parameter: \"name\" or \"description\"");

    const auto all = catalogue_.artists();
    QList<Artist> found;
    if (similar) {
        QList<BoostedName> names;
        for (const auto& name : question->names)
            names.append(BoostedName::parsed(name));
        found = artistsSimilar(*all, names);
    } else if (!search) {
        found = artistsByHotness(*all);
    } else if (asksForNames(request)) {
        found = artistsNamed(*all, question->names, question->fuzzy);
    } else {
        found = artistsTagged(*all, question->descriptions, question->fuzzy, question->order);
    }
    return listed(found.mid(0, question->results), request);
}

HttpReply ArtistService::listed(const QList<Artist>& artists, const HttpRequest& request) const
{
    const auto buckets = request.parameters(u"bucket");
    XmlReply reply;
    auto list = reply.response().append_child("artists");
    for (const auto& artist : artists) {
        auto element = addArtist(list, artist, buckets);
        if (buckets.contains(u"audio"))
            addSongs(element.append_child("audio"), artist, mostSongs / int(artists.size()), request);
    }
    return reply.http();
}

// Every field is always there: a client may take a missing one for that of the song before.
void ArtistService::addSongs(pugi::xml_node list, const Artist& artist, int most,
                             const HttpRequest& request) const
{
    const QString base = request.base();
    for (const auto& song : catalogue_.songs(artist.key, most)) {
        auto element = list.append_child("audio");
        addText(element, "url", QStringLiteral("%1/audio/%2.%3").arg(base, song.id, song.extension));
        addText(element, "title", song.title);
        addText(element, "release", song.album);
        addText(element, "length", QString::number(song.seconds));
        addText(element, "link", QStringLiteral("%1/song/%2").arg(base, song.id));
        addText(element, "date", song.date.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")));
        addText(element, "id", song.id);
    }
}

} // namespace zib
