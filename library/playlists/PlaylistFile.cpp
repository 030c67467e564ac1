// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/playlists/PlaylistFile.h"

#include "library/playlists/PlaylistFormats.h"
#include "services/utilities/PathUtilities.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>
#include <QDir>
#include <QUrl>

#include <algorithm>

namespace zib {

std::optional<PlaylistFormat> playlistFormatOf(const QString& path)
{
    const QString extension = pathExtension(path).toLower();
    if (extension == QLatin1String("m3u8") || extension == QLatin1String("m3u"))
        return PlaylistFormat::M3u8;
    if (extension == QLatin1String("xspf"))
        return PlaylistFormat::Xspf;
    if (extension == QLatin1String("jspf"))
        return PlaylistFormat::Jspf;
    return std::nullopt;
}

tl::expected<PlaylistDocument, QString> readPlaylist(const QByteArray& bytes, PlaylistFormat format,
                                                     const PlaylistPlace& place)
{
    if (bytes.size() > largestPlaylistFile)
        return tl::unexpected(QCoreApplication::translate("PlaylistFile", "The file is too large."));
    switch (format) {
    case PlaylistFormat::Xspf:
        return playlists::readXspf(bytes, place);
    case PlaylistFormat::Jspf:
        return playlists::readJspf(bytes, place);
    case PlaylistFormat::M3u8:
        break;
    }
    return playlists::readM3u8(bytes, place);
}

QByteArray writePlaylist(const PlaylistDocument& playlist, PlaylistFormat format, const QString& folder)
{
    switch (format) {
    case PlaylistFormat::Xspf:
        return playlists::writeXspf(playlist);
    case PlaylistFormat::Jspf:
        return playlists::writeJspf(playlist);
    case PlaylistFormat::M3u8:
        break;
    }
    return playlists::writeM3u8(playlist, folder);
}

namespace playlists {
namespace {

constexpr qsizetype longestText = 4096;
constexpr qsizetype longestLocation = 8192;
constexpr qsizetype longestId = 64;
constexpr qint64 longestSongMs = qint64(1'000'000'000) * 1000;
const QLatin1String identifierPrefix("urn:zib:");

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator || character.unicode() >= 0xfffe;
}

/// What a location's scheme is, in lower case; empty for a path. One letter is a drive.
QString schemeOf(const QString& text)
{
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    const bool isScheme =
        colon > 1 && std::all_of(text.begin(), text.begin() + colon, [](QChar character) {
            const char16_t c = character.unicode();
            return c < 0x80 && (character.isLetterOrNumber() || c == '+' || c == '-' || c == '.');
        });
    return isScheme ? text.left(colon).toLower() : QString();
}

QString addressOfFile(const QString& path)
{
    return path.isEmpty() || path.contains(QChar(u'\0')) ? QString() : fileUrlString(path);
}

QString addressOfUrl(const QString& text, const QString& scheme)
{
    const QUrl url(text);
    if (scheme == QLatin1String("file")) {
        const bool isOurs =
            url.isValid() && (url.host().isEmpty() || url.host() == QLatin1String("localhost"));
        const QString path = isOurs ? pathOfFileUrl(text) : QString();
        return path.isEmpty() ? QString() : addressOfFile(QDir::cleanPath(path));
    }
    const bool isWeb = scheme == QLatin1String("http") || scheme == QLatin1String("https");
    return isWeb && url.isValid() && !url.host().isEmpty() ? QString::fromLatin1(url.toEncoded()) : QString();
}

/// Of the readings of a path the first that is there; the first of all when none is.
QString addressOfFirstThere(const QStringList& readings, const PlaylistPlace& place)
{
    QString first;
    for (const QString& reading : readings) {
        if (reading.isEmpty() || reading.contains(QChar(u'\0')))
            continue;
        // Not by the toolkit's rules, to which a name that begins with a colon is its own resource.
        const bool isAbsolute = reading.startsWith(QLatin1Char('/'));
        const QString path =
            QDir::cleanPath(isAbsolute ? reading : place.folder + QLatin1Char('/') + reading);
        if (first.isEmpty())
            first = path;
        if (place.fileExists(path))
            return addressOfFile(path);
    }
    return addressOfFile(first);
}

bool isUsable(const QString& location)
{
    return !location.isEmpty() && location.size() <= longestLocation &&
           std::none_of(location.begin(), location.end(), isControl);
}

} // namespace

QString plainText(QStringView text)
{
    QString plain = text.left(longestText).toString();
    std::replace_if(plain.begin(), plain.end(), isControl, QLatin1Char(' '));
    return plain.trimmed();
}

qint64 secondsOf(qint64 milliseconds)
{
    return milliseconds > 0 && milliseconds <= longestSongMs ? milliseconds / 1000 : 0;
}

QString addressOfUri(const QString& uri, const PlaylistPlace& place)
{
    const QString text = uri.trimmed();
    if (!isUsable(text))
        return {};
    if (const QString scheme = schemeOf(text); !scheme.isEmpty())
        return addressOfUrl(text, scheme);
    return addressOfFirstThere({URLDecodedString(text).value_or(text), text}, place);
}

QString addressOfPath(const QString& pathOrUrl, const PlaylistPlace& place)
{
    if (!isUsable(pathOrUrl))
        return {};
    // "Intro: the sea.mp3" is a file.
    const QString scheme = schemeOf(pathOrUrl);
    if (!scheme.isEmpty() && (pathOrUrl.mid(scheme.size()).startsWith(QLatin1String("://")) ||
                              pathOrUrl.startsWith(QLatin1String("file:/"), Qt::CaseInsensitive)))
        return addressOfUrl(pathOrUrl, scheme);
    QString slashes = pathOrUrl; // as other systems write them
    slashes.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return addressOfFirstThere({pathOrUrl, URLDecodedString(pathOrUrl).value_or(QString()), slashes}, place);
}

QString writtenLocation(const QString& location)
{
    return isUsable(location) ? location : QString();
}

QString identifierOf(const QString& id)
{
    return identifierPrefix + QString::fromLatin1(QUrl::toPercentEncoding(id));
}

QString idOf(const QString& identifier)
{
    if (!identifier.startsWith(identifierPrefix))
        return {};
    const QString id =
        URLDecodedString(QStringView(identifier).mid(identifierPrefix.size())).value_or(QString());
    const bool isId = id.size() <= longestId && std::none_of(id.begin(), id.end(), isControl);
    return isId ? id : QString();
}

QString tooManySongs()
{
    return QCoreApplication::translate("PlaylistFile", "It holds more than %1 songs.")
        .arg(mostPlaylistEntries);
}

} // namespace playlists
} // namespace zib
