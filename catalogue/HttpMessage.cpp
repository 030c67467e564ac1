// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/HttpMessage.h"

#include <microhttpd.h>

#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>
#include <limits>

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zib {

namespace {

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = char(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Percent escapes undone; nothing for a bad escape, a control character or bytes that are no UTF-8.
std::optional<QString> unescaped(QByteArrayView text, bool plusIsSpace)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '%') {
            const int high = i + 2 < text.size() ? hexDigit(text[i + 1]) : -1;
            const int low = i + 2 < text.size() ? hexDigit(text[i + 2]) : -1;
            if (high < 0 || low < 0)
                return std::nullopt;
            c = char(high << 4 | low);
            i += 2;
        } else if (c == '+' && plusIsSpace) {
            c = ' ';
        }
        if (c == '\0')
            return std::nullopt;
        bytes.append(c);
    }
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    QString decoded = decoder(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return decoded;
}

std::optional<QString> parsedPath(QByteArrayView path)
{
    auto decoded = unescaped(path, false);
    if (!decoded || !decoded->startsWith(u'/') || decoded->contains(u'\\'))
        return std::nullopt;
    for (const auto segment : QStringView(*decoded).split(u'/')) {
        if (segment == u"." || segment == u"..")
            return std::nullopt;
    }
    return decoded;
}

/// The only value of a header, or empty when it is missing; nothing when it stands there twice.
std::optional<QByteArray> singleHeader(const HttpHeaders& headers, QByteArrayView name)
{
    std::optional<QByteArray> found;
    for (const auto& [key, value] : headers) {
        if (key.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        if (found)
            return std::nullopt;
        found = value.trimmed();
    }
    return found.value_or(QByteArray());
}

std::optional<qint64> number(QByteArrayView text)
{
    if (text.isEmpty() || !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    bool fits = false;
    const qint64 value = text.toByteArray().toLongLong(&fits);
    return fits ? value : std::numeric_limits<qint64>::max();
}

/// The length of the body that the headers announce, or the status that refuses it.
tl::expected<qsizetype, int> announcedBody(const HttpHeaders& headers, bool isPost)
{
    const auto refused = [](int status) { return tl::unexpected<int>(status); };
    const auto length = singleHeader(headers, "Content-Length");
    const auto encoding = singleHeader(headers, "Transfer-Encoding");
    if (!length || !encoding || (!length->isEmpty() && !encoding->isEmpty()))
        return refused(MHD_HTTP_BAD_REQUEST); // two ideas of where the request ends
    if (!encoding->isEmpty())
        return refused(isPost ? MHD_HTTP_LENGTH_REQUIRED : MHD_HTTP_CONTENT_TOO_LARGE);
    if (length->isEmpty())
        return isPost ? refused(MHD_HTTP_LENGTH_REQUIRED) : tl::expected<qsizetype, int>(0);
    const auto size = number(*length);
    if (!size)
        return refused(MHD_HTTP_BAD_REQUEST);
    if (*size > (isPost ? longestRequestBody : 0))
        return refused(MHD_HTTP_CONTENT_TOO_LARGE);
    return qsizetype(*size);
}

/// Whether a page of another server sends this request in a browser that visits it. Other clients do not say
/// where they come from, and no page of this server posts anything.
bool comesFromForeignPage(const HttpHeaders& headers)
{
    const auto origin = singleHeader(headers, "Origin");
    return !origin || !origin->isEmpty();
}

int hostRefusal(const QByteArray& host, HostPolicy policy)
{
    static const QRegularExpression anyHost(
        QStringLiteral(R"(\A(?:[A-Za-z0-9._-]+|\[[0-9A-Fa-f:.]+\])(?::[0-9]{1,5})?\z)"));
    static const QRegularExpression loopback(
        QStringLiteral(R"(\A(?:127\.0\.0\.1|localhost|\[::1\])(?::[0-9]{1,5})?\z)"),
        QRegularExpression::CaseInsensitiveOption);
    const auto text = QString::fromLatin1(host);
    if (!anyHost.match(text).hasMatch())
        return MHD_HTTP_BAD_REQUEST;
    return policy == HostPolicy::AnyHost || loopback.match(text).hasMatch() ? 0
                                                                            : MHD_HTTP_MISDIRECTED_REQUEST;
}

/// Whether a list of entity tags names that one, strength aside.
bool listsTag(const QByteArray& list, const QByteArray& tag)
{
    for (const auto& entry : list.split(',')) {
        auto candidate = entry.trimmed();
        if (candidate.startsWith("W/"))
            candidate.remove(0, 2);
        if (candidate == "*" || candidate == tag)
            return true;
    }
    return false;
}

} // namespace

QString HttpRequest::base() const
{
    return QStringLiteral("http://") + QString::fromLatin1(host);
}

std::optional<QString> HttpRequest::parameter(QStringView name) const
{
    for (const auto& [key, value] : query) {
        if (key == name)
            return value;
    }
    return std::nullopt;
}

QStringList HttpRequest::parameters(QStringView name) const
{
    QStringList values;
    for (const auto& [key, value] : query) {
        if (key == name)
            values.append(value);
    }
    return values;
}

std::optional<QList<std::pair<QString, QString>>> parsedQuery(QByteArrayView query)
{
    QList<std::pair<QString, QString>> parameters;
    for (const auto& part : query.toByteArray().split('&')) {
        if (part.isEmpty())
            continue;
        const auto equals = part.indexOf('=');
        const auto key = unescaped(part.left(equals < 0 ? part.size() : equals), true);
        const auto value = unescaped(equals < 0 ? QByteArray() : part.mid(equals + 1), true);
        if (!key || !value)
            return std::nullopt;
        if (equals < 0 && !parameters.isEmpty())
            parameters.last().second += u'&' + *key;
        else
            parameters.emplaceBack(*key, *value);
    }
    return parameters;
}

tl::expected<HttpRequest, int> checkedRequest(const QByteArray& method, const QByteArray& target,
                                              const HttpHeaders& headers, HostPolicy policy)
{
    const auto refused = [](int status) { return tl::unexpected<int>(status); };
    if (target.size() > longestRequestTarget)
        return refused(MHD_HTTP_URI_TOO_LONG);
    const auto host = singleHeader(headers, "Host");
    if (!host)
        return refused(MHD_HTTP_BAD_REQUEST);
    if (const int status = hostRefusal(*host, policy))
        return refused(status);
    const bool isPost = method == "POST";
    if (method != "GET" && method != "HEAD" && !isPost)
        return refused(MHD_HTTP_METHOD_NOT_ALLOWED);
    if (isPost && comesFromForeignPage(headers))
        return refused(MHD_HTTP_FORBIDDEN);
    const auto bodySize = announcedBody(headers, isPost);
    if (!bodySize)
        return refused(bodySize.error());

    const auto mark = target.indexOf('?');
    const auto path = parsedPath(target.left(mark < 0 ? target.size() : mark));
    const auto query = parsedQuery(mark < 0 ? QByteArray() : target.mid(mark + 1));
    const auto range = singleHeader(headers, "Range");
    const auto ifRange = singleHeader(headers, "If-Range");
    const auto ifNoneMatch = singleHeader(headers, "If-None-Match");
    if (!path || !query || !range || !ifRange || !ifNoneMatch)
        return refused(MHD_HTTP_BAD_REQUEST);
    return HttpRequest{method, *path, *query, *host, *range, *ifRange, *ifNoneMatch, *bodySize};
}

std::optional<QByteArray> forwardedClient(const HttpHeaders& headers)
{
    QByteArray client;
    for (const auto& [key, value] : headers) {
        if (key.compare("X-Forwarded-For", Qt::CaseInsensitive) == 0)
            client = value.mid(value.lastIndexOf(',') + 1).trimmed();
    }
    in6_addr parsed = {};
    const bool numeric = ::inet_pton(AF_INET, client.constData(), &parsed) == 1 ||
                         ::inet_pton(AF_INET6, client.constData(), &parsed) == 1;
    return numeric ? std::optional(client) : std::nullopt;
}

std::shared_ptr<const OpenFile> OpenFile::open(const QByteArray& path)
{
    const std::shared_ptr<OpenFile> file(new OpenFile);
    // A named pipe must not hold the caller until somebody writes.
    file->descriptor_ = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    struct stat status = {};
    if (file->descriptor_ < 0 || ::fstat(file->descriptor_, &status) != 0 || !S_ISREG(status.st_mode))
        return nullptr;
    file->size_ = status.st_size;
    file->entityTag_ =
        '"' + QByteArray::number(qint64(status.st_ino), 16) + '-' +
        QByteArray::number(qint64(status.st_size), 16) + '-' +
        QByteArray::number(qint64(status.st_mtim.tv_sec) * 1000000000 + status.st_mtim.tv_nsec, 16) + '"';
    return file;
}

OpenFile::~OpenFile()
{
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

HttpReply plainReply(int status)
{
    const QByteArray text =
        QByteArray::number(status) + ' ' + MHD_get_reason_phrase_for(unsigned(status)) + '\n';
    HttpReply reply{.status = status, .contentType = "text/plain; charset=utf-8", .body = text};
    if (status == MHD_HTTP_METHOD_NOT_ALLOWED)
        reply.headers.emplaceBack("Allow", "GET, HEAD");
    return reply;
}

HttpReply redirectReply(const QByteArray& address)
{
    HttpReply reply = plainReply(MHD_HTTP_MOVED_PERMANENTLY);
    reply.headers = {{"Location", address}, {"Cache-Control", "no-store"}};
    return reply;
}

ByteRange byteRange(QByteArrayView header, qint64 size)
{
    const ByteRange whole{ByteRange::Whole, 0, size};
    constexpr QByteArrayView unit("bytes=");
    if (header.size() <= unit.size() || header.first(unit.size()).compare(unit, Qt::CaseInsensitive) != 0)
        return whole;
    const auto range = header.sliced(unit.size()).trimmed();
    const auto dash = range.indexOf('-');
    if (dash < 0)
        return whole;
    const auto first = number(range.first(dash).trimmed());
    const auto last = number(range.sliced(dash + 1).trimmed());
    const bool openEnd = range.sliced(dash + 1).trimmed().isEmpty();
    if (dash == 0) {
        if (!last)
            return whole;
        const qint64 length = std::min(*last, size);
        return length == 0 ? ByteRange{ByteRange::Unsatisfiable}
                           : ByteRange{ByteRange::Part, size - length, length};
    }
    if (!first || (!last && !openEnd) || (last && *last < *first))
        return whole;
    if (*first >= size)
        return {ByteRange::Unsatisfiable};
    const qint64 end = openEnd ? size : std::min(*last, size - 1) + 1;
    return {ByteRange::Part, *first, end - *first};
}

HttpReply fileReply(const HttpRequest& request, std::shared_ptr<const OpenFile> file,
                    const QByteArray& contentType)
{
    const auto tag = file->entityTag();
    const qint64 size = file->size();
    HttpReply reply{.contentType = contentType,
                    .headers = {{"Accept-Ranges", "bytes"}, {"ETag", tag}, {"Cache-Control", "no-cache"}}};
    if (listsTag(request.ifNoneMatch, tag)) {
        reply.status = MHD_HTTP_NOT_MODIFIED;
        reply.contentType.clear();
        return reply;
    }
    // A range of an older file is worth nothing, so the whole new one is sent; dates are not compared.
    const bool rangeHolds = request.ifRange.isEmpty() || request.ifRange == tag;
    const auto range = byteRange(rangeHolds ? QByteArrayView(request.range) : QByteArrayView(), size);
    if (range.kind == ByteRange::Unsatisfiable) {
        reply = plainReply(MHD_HTTP_RANGE_NOT_SATISFIABLE);
        reply.headers = {{"Content-Range", "bytes */" + QByteArray::number(size)},
                         {"Accept-Ranges", "bytes"}};
        return reply;
    }
    if (range.kind == ByteRange::Part) {
        reply.status = MHD_HTTP_PARTIAL_CONTENT;
        reply.headers.emplaceBack("Content-Range", "bytes " + QByteArray::number(range.offset) + '-' +
                                                       QByteArray::number(range.offset + range.length - 1) +
                                                       '/' + QByteArray::number(size));
    }
    reply.file = std::move(file);
    reply.offset = range.offset;
    reply.length = range.length;
    return reply;
}

} // namespace zib
