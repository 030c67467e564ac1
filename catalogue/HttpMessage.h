// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>

#include <tl/expected.hpp>

#include <memory>
#include <optional>
#include <utility>

namespace zib {

using HttpHeaders = QList<std::pair<QByteArray, QByteArray>>;

/// A request that passed every check of its form.
struct HttpRequest {
    QByteArray method; ///< "GET", "HEAD" or "POST"
    QString path;      ///< unescaped, begins with '/', holds no dot segment and no NUL
    QList<std::pair<QString, QString>> query;
    QByteArray host; ///< the Host header as sent
    QByteArray range;
    QByteArray ifRange;
    QByteArray ifNoneMatch;
    qsizetype bodySize = 0; ///< as announced
    QByteArray body = {};   ///< of a POST, complete when it is to be answered
    QByteArray peer = {};   ///< the numeric address of who asks

    /// "http://HOST": what addresses of this server begin with, as the client sees it.
    [[nodiscard]] QString base() const;
    /// The first value of that parameter, or nothing.
    [[nodiscard]] std::optional<QString> parameter(QStringView name) const;
    /// All values of that parameter, in order.
    [[nodiscard]] QStringList parameters(QStringView name) const;
};

/// Whose names a request may use for this server.
enum class HostPolicy {
    LoopbackOnly, ///< a page of the web whose name was pointed at 127.0.0.1 must not read what is served here
    AnyHost,
};

/// The longest request target that is served, in bytes.
constexpr qsizetype longestRequestTarget = 8192;

/// The longest body that a request may have, in bytes.
constexpr qsizetype longestRequestBody = 1024 * 1024;

/// Checks a request's head. A POST must announce the length of its body, others have none.
/// @param target as it stands on the request line.
/// @return the request, or the status code of the refusal (400, 403, 405, 411, 413, 414, 421).
tl::expected<HttpRequest, int> checkedRequest(const QByteArray& method, const QByteArray& target,
                                              const HttpHeaders& headers, HostPolicy policy);

/// Who sent the request to a proxy, as the proxy nearest to us says, when that is a numeric address.
std::optional<QByteArray> forwardedClient(const HttpHeaders& headers);

/// The parts of a query in order, '+' and percent escapes undone. A part without '=' belongs to the value
/// before it, ampersand and all: clients send names such as "Simon & Garfunkel" with a bare '&'.
/// @return nothing for a bad escape, a NUL, or bytes that are no UTF-8.
std::optional<QList<std::pair<QString, QString>>> parsedQuery(QByteArrayView query);

/// A part of a file, closed when the last copy goes.
class OpenFile {
  public:
    /// Opens a regular file for reading; nothing for whatever else stands there.
    static std::shared_ptr<const OpenFile> open(const QByteArray& path);
    ~OpenFile();
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    [[nodiscard]] int descriptor() const { return descriptor_; }
    [[nodiscard]] qint64 size() const { return size_; }
    /// A strong entity tag, quotes included, that changes with the file's content.
    [[nodiscard]] const QByteArray& entityTag() const { return entityTag_; }

  private:
    OpenFile() = default;

    int descriptor_ = -1;
    qint64 size_ = 0;
    QByteArray entityTag_;
};

struct HttpReply {
    int status = 200;
    QByteArray contentType = {};
    QByteArray body = {};
    HttpHeaders headers = {};
    std::shared_ptr<const OpenFile> file = {}; ///< sent in place of the body
    qint64 offset = 0;
    qint64 length = 0;
};

/// A short text that says what the status means.
HttpReply plainReply(int status);

/// Sends the client to another address of this server for good.
HttpReply redirectReply(const QByteArray& address);

/// What the Range header asks of a resource of that size.
struct ByteRange {
    enum Kind { Whole, Part, Unsatisfiable };
    Kind kind = Whole;
    qint64 offset = 0;
    qint64 length = 0;

    friend bool operator==(const ByteRange&, const ByteRange&) = default;
};

/// One range of bytes: first-last, first-, or -length, cut at the end of the resource. Several ranges, other
/// units and malformed values ask for the whole.
ByteRange byteRange(QByteArrayView header, qint64 size);

/// The answer to a request for a file: 200, 206, 304 or 416.
HttpReply fileReply(const HttpRequest& request, std::shared_ptr<const OpenFile> file,
                    const QByteArray& contentType);

} // namespace zib
