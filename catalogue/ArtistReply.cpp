// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ArtistReply.h"

#include <QCryptographicHash>

namespace zib {

namespace {

QString artistId(const Artist& artist)
{
    const auto digest = QCryptographicHash::hash(artist.key.toUtf8(), QCryptographicHash::Sha256).toHex();
    return QStringLiteral("AR") + QString::fromLatin1(digest.left(16)).toUpper();
}

QString fraction(double value)
{
    return QString::number(value, 'f', 6);
}

} // namespace

std::optional<HttpReply> artistRefusal(const HttpRequest& request)
{
    if (request.parameter(u"api_key").value_or(QString()).trimmed().isEmpty())
        return artistRefusal(ServiceStatus::MissingKey, "Missing/ Invalid API Key");
    if (request.parameter(u"format").value_or(QStringLiteral("xml")) != u"xml")
        return artistRefusal(ServiceStatus::InvalidParameter, "Invalid parameter: \"format\" must be xml");
    return std::nullopt;
}

HttpReply artistRefusal(ServiceStatus status, const char* message)
{
    return XmlReply(status, QLatin1String(message)).http();
}

pugi::xml_node addArtist(pugi::xml_node parent, const Artist& artist, const QStringList& buckets)
{
    auto element = parent.append_child("artist");
    addText(element, "name", artist.name);
    addText(element, "id", artistId(artist));
    if (buckets.contains(u"hotttnesss"))
        addText(element, "hotttnesss", fraction(artist.hotness));
    if (buckets.contains(u"familiarity"))
        addText(element, "familiarity", fraction(artist.familiarity));
    return element;
}

} // namespace zib
