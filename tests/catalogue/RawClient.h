// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <utility>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zib {

struct RawReply {
    int status = 0; ///< 0 when the connection closed without a reply
    QByteArray head;
    QByteArray body;

    [[nodiscard]] QByteArray header(const QByteArray& name) const
    {
        for (const auto& line : head.split('\n')) {
            const auto colon = line.indexOf(':');
            if (colon > 0 && line.left(colon).compare(name, Qt::CaseInsensitive) == 0)
                return line.mid(colon + 1).trimmed();
        }
        return {};
    }
};

/// A TCP connection to loopback that sends exactly the bytes it is told to. Gives up after half a minute.
class RawClient {
  public:
    explicit RawClient(quint16 port)
        : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const timeval patience{30, 0};
        ::setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        ::setsockopt(socket_, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
        connected_ = ::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }
    RawClient(RawClient&& other) noexcept
        : socket_(std::exchange(other.socket_, -1))
        , connected_(other.connected_)
    {
    }
    RawClient& operator=(RawClient&&) = delete;
    ~RawClient()
    {
        if (socket_ >= 0)
            ::close(socket_);
    }

    [[nodiscard]] bool isConnected() const { return connected_; }

    bool send(const QByteArray& bytes)
    {
        qsizetype sent = 0;
        while (sent < bytes.size()) {
            const auto count =
                ::send(socket_, bytes.constData() + sent, size_t(bytes.size() - sent), MSG_NOSIGNAL);
            if (count <= 0)
                return false;
            sent += count;
        }
        return true;
    }

    /// Up to that many bytes more; fewer at the end of the connection.
    QByteArray read(qsizetype size)
    {
        QByteArray bytes;
        while (bytes.size() < size) {
            QByteArray part(std::min<qsizetype>(size - bytes.size(), 65536), Qt::Uninitialized);
            const auto count = ::recv(socket_, part.data(), size_t(part.size()), 0);
            if (count <= 0)
                break;
            bytes += part.left(count);
        }
        return bytes;
    }

    /// One reply with the body that its head announces.
    RawReply reply(bool hasBody = true)
    {
        RawReply reply;
        while (!reply.head.endsWith("\r\n\r\n")) {
            const auto byte = read(1);
            if (byte.isEmpty())
                return reply;
            reply.head += byte;
        }
        reply.status = reply.head.mid(9, 3).toInt();
        if (hasBody)
            reply.body = read(reply.header("Content-Length").toLongLong());
        return reply;
    }

    /// Whether the other side ends the connection, whatever it says before that.
    bool closes()
    {
        while (true) {
            char ignored[4096];
            const auto count = ::recv(socket_, ignored, sizeof ignored, 0);
            if (count <= 0)
                return count == 0 || errno == ECONNRESET;
        }
    }

  private:
    int socket_;
    bool connected_ = false;
};

} // namespace zib
