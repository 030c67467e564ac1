// SPDX-License-Identifier: GPL-3.0-or-later
// A line a song, each a path or an address, and lines about it before it that begin with "#".
#include "library/playlists/PlaylistFormats.h"
#include "services/utilities/PathUtilities.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>
#include <QStringDecoder>

#include <algorithm>

namespace zib::playlists {
namespace {

const QLatin1String artistSeparator(" - ");

/// Older files are in the encoding of the system that wrote them, which nothing tells.
QString decoded(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8); // leaves a byte order mark out
    QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

/// Where the comma is that ends the length and its attributes, whose quoted values may hold others.
qsizetype titleComma(QStringView line)
{
    bool quoted = false;
    for (qsizetype at = 0; at < line.size(); ++at) {
        quoted = quoted != (line[at] == QLatin1Char('"'));
        if (line[at] == QLatin1Char(',') && !quoted)
            return at;
    }
    return line.indexOf(QLatin1Char(','));
}

class Reader {
  public:
    explicit Reader(const PlaylistPlace& place)
        : place_(place)
    {
    }

    /// False when no more lines are wanted.
    bool read(QStringView line)
    {
        if (line.startsWith(QLatin1Char('#')))
            readAbout(line.mid(1));
        else if (!line.isEmpty())
            readLocation(line.toString());
        return !isStream_ && document_.entries.size() <= mostPlaylistEntries;
    }

    Result result()
    {
        if (isStream_)
            return tl::unexpected(
                QCoreApplication::translate("PlaylistFile", "It is a single stream, not a list of songs."));
        if (document_.entries.size() > mostPlaylistEntries)
            return tl::unexpected(tooManySongs());
        return std::move(document_);
    }

  private:
    void readAbout(QStringView line)
    {
        const auto after = [&line](QLatin1String word) {
            const bool is = line.startsWith(word);
            if (is)
                line = line.mid(word.size());
            return is;
        };
        if (after(QLatin1String("EXTINF:"))) {
            const qsizetype comma = titleComma(line);
            entry_.durationSeconds = secondsOf(std::clamp<qint64>(integerValue(line), 0, INT32_MAX) * 1000);
            title_ = comma < 0 ? QString() : plainText(line.mid(comma + 1));
        } else if (after(QLatin1String("EXTALB:"))) {
            entry_.album = plainText(line);
        } else if (after(QLatin1String("EXTART:"))) {
            entry_.artist = plainText(line);
        } else if (after(QLatin1String("PLAYLIST:"))) {
            document_.title = plainText(line);
        } else if (line.startsWith(QLatin1String("EXT-X-TARGETDURATION")) ||
                   line.startsWith(QLatin1String("EXT-X-STREAM-INF"))) {
            isStream_ = true;
        }
    }

    void readLocation(const QString& line)
    {
        const QString artist = entry_.artist + artistSeparator;
        const qsizetype separator = title_.indexOf(artistSeparator);
        if (!entry_.artist.isEmpty() && title_.startsWith(artist)) {
            entry_.name = title_.mid(artist.size());
        } else if (entry_.artist.isEmpty() && separator > 0) {
            entry_.artist = title_.left(separator).trimmed();
            entry_.name = title_.mid(separator + artistSeparator.size()).trimmed();
        } else {
            entry_.name = title_;
        }
        entry_.location = addressOfPath(line, place_);
        if (entry_.name.isEmpty() && entry_.location.isEmpty())
            entry_.name = plainText(line); // something has to be said about it
        document_.entries.append(std::exchange(entry_, {}));
        title_.clear();
    }

    const PlaylistPlace& place_;
    PlaylistDocument document_;
    PlaylistEntry entry_; // of the next location
    QString title_;       // its artist and name
    bool isStream_ = false;
};

/// A path as it stands where every reader takes it for that, else an address.
QString lineOf(const QString& location, const QString& folder)
{
    const QString below = folder + QLatin1Char('/');
    QString path = pathOfFileUrl(location);
    if (path.startsWith(below))
        path = path.mid(below.size());
    const bool isPlain = !path.isEmpty() && path.size() == path.trimmed().size() && plainText(path) == path &&
                         !path.startsWith(QLatin1Char('#')) && !path.contains(QLatin1Char('%')) &&
                         !path.contains(QLatin1Char('\\')) && !path.contains(QLatin1Char(':'));
    return isPlain ? path : location;
}

} // namespace

Result readM3u8(const QByteArray& bytes, const PlaylistPlace& place)
{
    const QString text = decoded(bytes);
    Reader reader(place);
    qsizetype begin = 0;
    for (bool more = true; more && begin < text.size();) {
        const auto* const end = std::find_if(text.begin() + begin, text.end(), [](QChar c) {
            return c == QLatin1Char('\n') || c == QLatin1Char('\r');
        });
        const qsizetype length = end - text.begin() - begin;
        more = reader.read(QStringView(text).mid(begin, length).trimmed());
        begin += length + 1;
    }
    return reader.result();
}

QByteArray writeM3u8(const PlaylistDocument& playlist, const QString& folder)
{
    QByteArray file("#EXTM3U\n");
    const auto line = [&file](const char* word, const QString& text) {
        if (!text.isEmpty())
            file.append(word).append(text.toUtf8()).append('\n');
    };
    line("#PLAYLIST:", plainText(playlist.title));
    for (const PlaylistEntry& entry : playlist.entries) {
        const QString location = writtenLocation(entry.location);
        if (location.isEmpty())
            continue;
        const QString artist = plainText(entry.artist);
        const QString title =
            artist.isEmpty() ? plainText(entry.name) : artist + artistSeparator + plainText(entry.name);
        const qint64 seconds = entry.durationSeconds > 0 ? entry.durationSeconds : -1;
        line("#EXTINF:", QString::number(seconds) + QLatin1Char(',') + title);
        line("#EXTART:", artist);
        line("#EXTALB:", plainText(entry.album));
        line("", lineOf(location, folder));
    }
    return file;
}

} // namespace zib::playlists
