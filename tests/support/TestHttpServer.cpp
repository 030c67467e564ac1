// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestHttpServer.h"

#include <QtGlobal>

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zib {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

QByteArray TestRequest::header(const QByteArray& name) const
{
    for (const auto& [field, value] : headers) {
        if (field.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

TestHttpServer::TestHttpServer()
    : listener_(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
    , stopped_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const general = reinterpret_cast<sockaddr*>(&address);
    if (::bind(listener_, general, length) != 0 || ::listen(listener_, 64) != 0 ||
        ::getsockname(listener_, general, &length) != 0)
        qFatal("no loopback port for the test server");
    port_ = ntohs(address.sin_port);
    acceptor_ = std::thread([this] { acceptConnections(); });
}

TestHttpServer::~TestHttpServer()
{
    ::eventfd_write(stopped_, 1);
    acceptor_.join();
    for (std::thread& connection : connections_)
        connection.join();
    ::close(listener_);
    ::close(stopped_);
}

QByteArray TestHttpServer::serve(const QByteArray& path, TestReply reply)
{
    const std::scoped_lock lock(mutex_);
    replies_[path] = std::move(reply);
    return url(path);
}

QByteArray TestHttpServer::url(const QByteArray& path) const
{
    return "http://127.0.0.1:" + QByteArray::number(port_) + path;
}

std::vector<TestRequest> TestHttpServer::requests() const
{
    const std::scoped_lock lock(mutex_);
    return requests_;
}

void TestHttpServer::acceptConnections()
{
    while (waitFor(listener_, POLLIN)) {
        const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
        if (socket < 0)
            continue;
        const std::scoped_lock lock(mutex_);
        connections_.emplace_back([this, socket] {
            handle(socket);
            ::close(socket);
        });
    }
}

bool TestHttpServer::waitFor(int socket, short events) const
{
    std::array<pollfd, 2> waited{{{socket, events, 0}, {stopped_, POLLIN, 0}}};
    while (::poll(waited.data(), waited.size(), -1) < 0 && errno == EINTR) {
    }
    return waited[1].revents == 0;
}

bool TestHttpServer::pauseUntil(steady_clock::time_point time) const
{
    pollfd waited{stopped_, POLLIN, 0};
    while (true) {
        const auto left = std::chrono::ceil<milliseconds>(time - steady_clock::now());
        if (left <= milliseconds::zero())
            return true;
        if (::poll(&waited, 1, static_cast<int>(left.count())) > 0)
            return false;
    }
}

std::optional<TestRequest> TestHttpServer::readRequest(int socket) const
{
    QByteArray bytes;
    const auto readMore = [&] {
        std::array<char, 4096> piece{};
        const ssize_t count =
            waitFor(socket, POLLIN) ? ::recv(socket, piece.data(), piece.size(), 0) : ssize_t{0};
        if (count > 0)
            bytes.append(piece.data(), count);
        return count > 0;
    };
    while (!bytes.contains("\r\n\r\n"))
        if (!readMore())
            return std::nullopt;
    const qsizetype headSize = bytes.indexOf("\r\n\r\n");
    const QList<QByteArray> lines = bytes.left(headSize).split('\n');
    TestRequest request;
    request.method = lines.first().split(' ').value(0);
    request.target = lines.first().split(' ').value(1);
    for (const QByteArray& line : lines.sliced(1)) {
        const qsizetype colon = line.indexOf(':');
        request.headers.append({line.left(colon).trimmed(), line.mid(colon + 1).trimmed()});
    }
    const qsizetype whole = headSize + 4 + request.header("Content-Length").toLongLong();
    while (bytes.size() < whole)
        if (!readMore())
            return std::nullopt;
    request.body = bytes.mid(headSize + 4);
    return request;
}

void TestHttpServer::handle(int socket)
{
    const auto request = readRequest(socket);
    if (!request)
        return;
    TestReply reply{.body = "<html><body>Not found</body></html>", .status = 404};
    {
        const std::scoped_lock lock(mutex_);
        requests_.push_back(*request);
        const auto served = replies_.find(request->target);
        if (served != replies_.end())
            reply = served->second;
    }
    if (reply.neverAnswers)
        static_cast<void>(pauseUntil(steady_clock::now() + TestReply::kForever));
    else
        sendReply(socket, *request, std::move(reply));
}

void TestHttpServer::sendReply(int socket, const TestRequest& request, TestReply reply)
{
    const QByteArray range = request.header("Range");
    if (reply.honoursRanges && range.startsWith("bytes=")) {
        const qint64 from = range.mid(6).split('-').first().toLongLong();
        const QByteArray total = QByteArray::number(reply.body.size());
        reply.headers.append({"Content-Range", "bytes " + QByteArray::number(from) + '-' +
                                                   QByteArray::number(reply.body.size() - 1) + '/' + total});
        reply.body = reply.body.mid(from);
        reply.status = 206;
    }
    QByteArray head = "HTTP/1.1 " + QByteArray::number(reply.status) + " Status\r\nConnection: close\r\n";
    const qint64 length = reply.announcedLength.value_or(reply.body.size());
    if (length != TestReply::kNoLength)
        head += "Content-Length: " + QByteArray::number(length) + "\r\n";
    for (const auto& [name, value] : reply.headers)
        head += name + ": " + value + "\r\n";
    if (sendAll(socket, reply.rawHead.isNull() ? head + "\r\n" : reply.rawHead))
        sendBody(socket, reply);
    ::shutdown(socket, SHUT_WR);
}

void TestHttpServer::sendBody(int socket, const TestReply& reply)
{
    auto next = steady_clock::now();
    qint64 sent = 0;
    const qint64 end =
        reply.closeAt < 0 ? reply.body.size() : std::min(reply.closeAt, qint64{reply.body.size()});
    while (sent < end) {
        qint64 piece = reply.pieceBytes > 0 ? std::min(reply.pieceBytes, end - sent) : end - sent;
        if (sent < reply.stallAt)
            piece = std::min(piece, reply.stallAt - sent);
        if (sent == reply.stallAt && !pauseUntil(next = steady_clock::now() + reply.stall))
            return;
        if (!sendAll(socket, QByteArrayView(reply.body).sliced(sent, piece)))
            return;
        sent += piece;
        next += reply.piecePause;
        if (!pauseUntil(next))
            return;
    }
}

bool TestHttpServer::sendAll(int socket, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t count = ::send(socket, bytes.data(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL);
        if (count > 0) {
            bytes = bytes.sliced(count);
            bytesSent_ += count;
        } else if (count < 0 && errno != EAGAIN && errno != EINTR) {
            return false;
        } else if (!waitFor(socket, POLLOUT)) {
            return false;
        }
    }
    return true;
}

} // namespace zib
