// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/playlists/PlaylistForm.h"

#include "catalogue/TextMatching.h"

#include <QRegularExpression>
#include <QStringDecoder>

#include <limits>

namespace zib {

namespace {

const QLatin1String ampersand("^AMP;");
const QLatin1String artistMarker("^1;");
const QLatin1String descriptionField("&description=");
constexpr qsizetype longestTag = 60;
constexpr qsizetype longestArtists = 1000;
constexpr qsizetype longestAddressName = 60;

/// The parts of the form behind the raw texts. No value there holds an '&', so they are found from the end.
struct Tail {
    QString hidden;
    QString data;
    std::optional<QString> id;
    QString tags;
    QString description;
};

/// Takes the last field off the text when it has that name.
std::optional<QString> takenField(QStringView& text, QLatin1String name)
{
    const auto start = text.lastIndexOf(u'&');
    if (start < 0 || !text.sliced(start + 1).startsWith(name))
        return std::nullopt;
    const QString value = text.sliced(start + 1 + name.size()).toString();
    text.truncate(start);
    return value;
}

std::optional<Tail> takenTail(QStringView& text)
{
    Tail tail;
    const auto description = takenField(text, QLatin1String("description="));
    tail.tags = takenField(text, QLatin1String("tags=")).value_or(QString());
    tail.id = takenField(text, QLatin1String("id="));
    const auto data = takenField(text, QLatin1String("data="));
    const auto hidden = takenField(text, QLatin1String("hidden="));
    if (!description || !data || !hidden)
        return std::nullopt;
    tail.description = *description;
    tail.data = *data;
    tail.hidden = *hidden;
    return tail;
}

/// Blanks and line ends stay, other control characters go: a database and a page can do without.
QString printable(QString text)
{
    text.remove(QLatin1Char('\r'));
    text.removeIf([](QChar c) { return c.category() == QChar::Other_Control && c != u'\n' && c != u'\t'; });
    return text.trimmed();
}

QString unmarked(QString text)
{
    return text.replace(ampersand, QLatin1String("&"));
}

/// The name that stands between "name=" and the raw description. Both may hold the word that separates them,
/// but the description is known from its second field.
QString nameBefore(QStringView text, const QString& description)
{
    const QString end = descriptionField + description;
    if (text.endsWith(end))
        return text.chopped(end.size()).toString();
    const auto separator = text.indexOf(descriptionField);
    return text.first(separator < 0 ? text.size() : separator).toString();
}

QStringList separatedTags(const QString& text)
{
    QStringList tags;
    for (const auto& part : text.split(u',')) {
        const QString tag = part.simplified().left(longestTag);
        if (!tag.isEmpty() && !tags.contains(tag, Qt::CaseInsensitive) && tags.size() < mostPlaylistTags)
            tags.append(tag);
    }
    return tags;
}

std::optional<QByteArray> decodedData(const QString& text)
{
    QByteArray base64 = QByteArray::fromPercentEncoding(text.toUtf8());
    base64.replace(' ', '+');
    auto decoded = QByteArray::fromBase64Encoding(std::move(base64), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded || decoded.decoded.isEmpty())
        return std::nullopt;
    return std::move(decoded.decoded);
}

std::optional<int> publicationId(const QString& text)
{
    bool valid = false;
    const int id = text.toInt(&valid);
    return valid && id > 0 ? std::optional(id) : std::nullopt;
}

tl::unexpected<QString> refused(const char* reason)
{
    return tl::unexpected(QString::fromLatin1(reason));
}

} // namespace

tl::expected<PlaylistForm, QString> parsedPlaylistForm(QByteArrayView body)
{
    static const QRegularExpression head(QStringLiteral("\\Auser=(.*?-[0-9A-Fa-f]{32})&name="),
                                         QRegularExpression::DotMatchesEverythingOption);
    constexpr auto notUnderstood = "The playlist service did not understand this playlist.";

    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder(body);
    if (decoder.hasError())
        return refused(notUnderstood);
    QStringView rest(text);
    const auto tail = takenTail(rest);
    const auto start = head.match(rest);
    if (!tail || !start.hasMatch() || (tail->hidden != u"0" && tail->hidden != u"1"))
        return refused(notUnderstood);

    const auto marker = tail->description.lastIndexOf(artistMarker);
    const QString description = unmarked(marker < 0 ? tail->description : tail->description.left(marker));
    PlaylistForm form;
    form.user = start.captured(1);
    form.name = printable(nameBefore(rest.sliced(start.capturedEnd()), description)).simplified();
    form.description = printable(description);
    if (marker >= 0)
        form.artists =
            printable(unmarked(tail->description.sliced(marker + artistMarker.size()))).simplified();
    form.tags = separatedTags(printable(unmarked(tail->tags)));
    form.hidden = tail->hidden == u"1";
    if (form.name.isEmpty())
        return refused("A shared playlist needs a name.");
    if (form.name.size() > longestPlaylistName)
        return refused("The name of this playlist is too long to be shared.");
    if (form.description.size() > longestPlaylistDescription || form.artists.size() > longestArtists)
        return refused("The description of this playlist is too long to be shared.");
    if (tail->id) {
        form.id = publicationId(*tail->id);
        if (!form.id)
            return refused(notUnderstood);
    }
    auto archive = decodedData(tail->data);
    if (!archive)
        return refused(notUnderstood);
    form.archive = std::move(*archive);
    return form;
}

QString shownUserName(const QString& user)
{
    QString name = user.left(user.lastIndexOf(u'-')).replace(u'_', u' ');
    name = printable(std::move(name)).simplified().left(longestPlaylistName);
    return name.isEmpty() ? QStringLiteral("Somebody") : name;
}

QString addressName(const QString& name)
{
    QString result;
    bool separated = false;
    for (const QChar c : folded(name)) {
        if (c.unicode() >= 0x80 || !c.isLetterOrNumber()) {
            separated = true;
            continue;
        }
        if (result.size() >= longestAddressName)
            break;
        if (separated && !result.isEmpty())
            result += u'-';
        separated = false;
        result += c;
    }
    return result.isEmpty() ? QStringLiteral("playlist") : result;
}

} // namespace zib
