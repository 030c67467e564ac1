// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/HttpMessage.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace zib {

/// Answers requests. Called on the server's threads, several at once, and must return soon: it may give the
/// reply later, from any thread.
class HttpHandler {
  public:
    /// To be called exactly once for each request.
    using Respond = std::function<void(HttpReply)>;

    virtual ~HttpHandler() = default;
    /// Asked once the head of a request is complete, before its body is read.
    /// @return what refuses the request, or nothing when it is to be answered
    virtual std::optional<HttpReply> refusal(const HttpRequest& head);
    virtual void answer(const HttpRequest& request, Respond respond) = 0;

    /// A request whose reply was sent, or whose client went before.
    struct Served {
        QByteArray method;
        QByteArray path; ///< as sent, without the query, which may hold keys
        QByteArray peer;
        int status = 0; ///< 0 when the client went before there was a reply
        qint64 replySize = 0;
        std::chrono::microseconds duration{0}; ///< from the request line to the end of the reply
    };
    virtual void served(const Served& request) { Q_UNUSED(request) }
};

/// A listening TCP socket, closed when it goes.
class ListeningSocket {
  public:
    /// Listens on a numeric IPv4 or IPv6 address.
    /// @param port 0 takes a free one.
    static tl::expected<ListeningSocket, QString> open(const QString& address, quint16 port);
    /// Takes over a descriptor that already listens.
    static tl::expected<ListeningSocket, QString> adopt(int descriptor);

    ListeningSocket(ListeningSocket&& other) noexcept;
    ListeningSocket& operator=(ListeningSocket&&) = delete;
    ~ListeningSocket();

    [[nodiscard]] int descriptor() const { return descriptor_; }
    [[nodiscard]] quint16 port() const { return port_; }
    /// Whether only programs of this machine can reach it.
    [[nodiscard]] bool isLoopback() const { return loopback_; }
    /// The address that clients use, "http://HOST:PORT".
    [[nodiscard]] QString url() const;

  private:
    explicit ListeningSocket(int descriptor)
        : descriptor_(descriptor)
    {
    }

    int descriptor_ = -1;
    quint16 port_ = 0;
    bool loopback_ = false;
    QString host_;
};

/// An HTTP/1.1 server: a few threads carry all connections, so that idle ones and slow readers cost memory
/// only. Connections are bounded in number, in number for each address, in memory, and in the time that they
/// may take to send a request.
class HttpServer {
  public:
    struct Limits {
        unsigned connections = 1024;
        unsigned connectionsOfAddress = 768;
        unsigned requestSeconds =
            15; ///< from the connection or the reply before to the end of the request's head
        bool behindProxy = false;    ///< whether who connects from this machine speaks for others
        unsigned bodySeconds = 60;   ///< more for a request's body
        unsigned replySeconds = 600; ///< without a byte taken: a paused player keeps its connection that long
    };

    /// Answers at once. The handler must outlive the server.
    /// @return nothing when the threads cannot be started; the reason is in the log.
    static std::unique_ptr<HttpServer> start(ListeningSocket socket, HttpHandler& handler,
                                             const Limits& limits);

    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;
    /// Lets the replies that are being worked out be given and small ones be sent, for a moment, then closes
    /// all connections. Waits for the handler to respond to every request that it was given.
    ~HttpServer();

    /// Takes no new connection from now on and refuses new requests on those that are open.
    void quiesce();

  private:
    struct Daemon;
    explicit HttpServer(std::unique_ptr<Daemon> daemon);

    std::unique_ptr<Daemon> daemon_;
};

} // namespace zib
