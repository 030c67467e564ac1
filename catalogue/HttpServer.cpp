// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/HttpServer.h"

#include "catalogue/HttpExchange.h"
#include "catalogue/RateLimit.h"

#include <QLoggingCategory>

#include <chrono>
#include <condition_variable>
#include <cstdarg>
#include <cstdio>
#include <list>
#include <mutex>
#include <optional>
#include <thread>

#include <sys/socket.h>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.catalogue.http", QtInfoMsg)

using Clock = HttpExchange::Clock;

constexpr unsigned threadCount = 4;
constexpr size_t connectionMemory = size_t(32) * 1024;
constexpr auto lastMoment = std::chrono::milliseconds(500);
/// Bodies that are being received or answered at the same time, together.
constexpr qsizetype mostBodyBytes = 64 * longestRequestBody;

/// A connection and, while it owes us a request or its body, until when.
struct Peer {
    int descriptor = -1;
    std::optional<Clock::time_point> owesUntil;
};

using SharedExchange = std::shared_ptr<HttpExchange>;

void logLine(void*, const char* format, va_list arguments)
{
    char line[512];
    std::vsnprintf(line, sizeof line, format, arguments);
    qCDebug(log).noquote() << QString::fromUtf8(line).trimmed();
}

} // namespace

std::optional<HttpReply> HttpHandler::refusal(const HttpRequest& head)
{
    return head.method == "POST" ? std::optional(plainReply(MHD_HTTP_METHOD_NOT_ALLOWED)) : std::nullopt;
}

struct HttpServer::Daemon {
    Daemon(ListeningSocket listening, HttpHandler& requestHandler, const Limits& itsLimits)
        : socket(std::move(listening))
        , handler(requestHandler)
        , limits(itsLimits)
        , policy(socket.isLoopback() ? HostPolicy::LoopbackOnly : HostPolicy::AnyHost)
    {
    }

    bool start();
    void stop();
    void closeLatePeers(const std::stop_token& token);

    void owes(MHD_Connection* connection, std::optional<unsigned> seconds);
    MHD_Result check(MHD_Connection* connection, const char* method, HttpExchange& exchange);
    std::optional<HttpReply> admit(HttpExchange& exchange, const tl::expected<HttpRequest, int>& request);
    void receive(HttpExchange& exchange, QByteArrayView part);
    void hand(const SharedExchange& exchange);
    MHD_Result replyOrSuspend(MHD_Connection* connection, HttpExchange& exchange);
    void tell(const HttpExchange& exchange);

    static void* begun(void*, const char* target, MHD_Connection*);
    static MHD_Result accessed(void* self, MHD_Connection* connection, const char* url, const char* method,
                               const char* version, const char* upload, size_t* uploadSize, void** context);
    static void completed(void* self, MHD_Connection* connection, void** context, MHD_RequestTerminationCode);
    static void connectionChanged(void* self, MHD_Connection* connection, void** context,
                                  MHD_ConnectionNotificationCode code);

    ListeningSocket socket; ///< closed by us: the library gives it back when it quiesces
    HttpHandler& handler;
    const Limits limits;
    const HostPolicy policy;
    MHD_Daemon* daemon = nullptr;
    bool quiesced = false;

    std::mutex mutex; ///< guards what follows
    std::condition_variable changed;
    std::condition_variable_any watchWake;
    std::list<Peer> peers;
    int unanswered = 0; ///< requests that the handler has, or is about to get, and has not answered
    int exchanges = 0;  ///< requests whose reply has not been sent to its end
    qsizetype bodyBytes = 0;
    bool stopping = false;

    std::jthread watch; // last: it uses all of the above
};

bool HttpServer::Daemon::start()
{
    daemon = MHD_start_daemon(
        MHD_USE_EPOLL_INTERNAL_THREAD | MHD_ALLOW_SUSPEND_RESUME | MHD_USE_ERROR_LOG, 0, nullptr, nullptr,
        accessed, this, MHD_OPTION_EXTERNAL_LOGGER, logLine, nullptr, MHD_OPTION_LISTEN_SOCKET,
        socket.descriptor(), MHD_OPTION_THREAD_POOL_SIZE, threadCount, MHD_OPTION_CONNECTION_LIMIT,
        limits.connections, MHD_OPTION_PER_IP_CONNECTION_LIMIT, limits.connectionsOfAddress,
        MHD_OPTION_CONNECTION_MEMORY_LIMIT, connectionMemory, MHD_OPTION_CONNECTION_TIMEOUT,
        limits.replySeconds, MHD_OPTION_STRICT_FOR_CLIENT, 1, MHD_OPTION_URI_LOG_CALLBACK, begun, nullptr,
        MHD_OPTION_NOTIFY_COMPLETED, completed, this, MHD_OPTION_NOTIFY_CONNECTION, connectionChanged, this,
        MHD_OPTION_END);
    if (!daemon)
        return false;
    watch = std::jthread([this](const std::stop_token& token) { closeLatePeers(token); });
    return true;
}

// A request that arrives a byte at a time is never idle, so the library's own time-out does not end it.
void HttpServer::Daemon::closeLatePeers(const std::stop_token& token)
{
    std::unique_lock lock(mutex);
    while (!token.stop_requested()) {
        const auto now = Clock::now();
        for (auto& peer : peers) {
            if (peer.owesUntil && *peer.owesUntil <= now) {
                ::shutdown(peer.descriptor, SHUT_RDWR);
                peer.owesUntil.reset();
            }
        }
        watchWake.wait_for(lock, token, std::chrono::milliseconds(250), [] { return false; });
    }
}

void HttpServer::Daemon::stop()
{
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return unanswered == 0; });
        changed.wait_for(lock, lastMoment, [this] { return exchanges == 0; });
    }
    watch.request_stop();
    watch.join();
    MHD_stop_daemon(daemon);
}

void HttpServer::Daemon::owes(MHD_Connection* connection, std::optional<unsigned> seconds)
{
    std::optional<Clock::time_point> until;
    if (seconds)
        until = Clock::now() + std::chrono::seconds(*seconds);
    const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT);
    const std::lock_guard lock(mutex);
    static_cast<Peer*>(info->socket_context)->owesUntil = until;
}

/// Counts the request, and its body against what all bodies may take.
/// @return what refuses it
std::optional<HttpReply> HttpServer::Daemon::admit(HttpExchange& exchange,
                                                   const tl::expected<HttpRequest, int>& request)
{
    auto refusal = request ? handler.refusal(*request) : plainReply(request.error());
    const std::lock_guard lock(mutex);
    exchange.counted = true;
    ++exchanges;
    if (refusal)
        return refusal;
    if (stopping || bodyBytes + request->bodySize > mostBodyBytes)
        return plainReply(MHD_HTTP_SERVICE_UNAVAILABLE);
    ++unanswered;
    exchange.bodyReserved = request->bodySize;
    bodyBytes += exchange.bodyReserved;
    return std::nullopt;
}

/// The first call for a request, its head complete. A refusal closes the connection, for where a malformed
/// request ends is anybody's guess.
MHD_Result HttpServer::Daemon::check(MHD_Connection* connection, const char* method, HttpExchange& exchange)
{
    const HttpHeaders headers = headersOf(connection);
    exchange.method = method;
    exchange.peer = peerOf(connection);
    if (limits.behindProxy && isLoopback(exchange.peer))
        exchange.peer = forwardedClient(headers).value_or(exchange.peer);
    auto request = checkedRequest(exchange.method, exchange.target, headers, policy);
    if (request)
        request->peer = exchange.peer;
    const auto refusal = admit(exchange, request);
    const bool hasBody = !refusal && request->bodySize > 0;
    owes(connection, hasBody ? std::optional(limits.bodySeconds) : std::nullopt);
    if (refusal)
        return exchange.queue(connection, *refusal, true);
    exchange.request = std::move(*request);
    return MHD_YES;
}

void HttpServer::Daemon::receive(HttpExchange& exchange, QByteArrayView part)
{
    auto& body = exchange.request->body;
    body.append(part.first(std::min(part.size(), exchange.request->bodySize - body.size())));
}

void HttpServer::Daemon::hand(const SharedExchange& exchange)
{
    exchange->handed = true;
    handler.answer(*exchange->request, [this, exchange](HttpReply reply) {
        {
            const std::lock_guard lock(exchange->mutex);
            exchange->reply = std::move(reply);
            if (exchange->suspended)
                MHD_resume_connection(exchange->suspended);
        }
        const std::lock_guard lock(mutex);
        --unanswered;
        changed.notify_all();
    });
}

MHD_Result HttpServer::Daemon::replyOrSuspend(MHD_Connection* connection, HttpExchange& exchange)
{
    const std::lock_guard lock(exchange.mutex);
    if (exchange.reply)
        return exchange.queue(connection, *exchange.reply, false);
    exchange.suspended = connection;
    MHD_suspend_connection(connection);
    return MHD_YES;
}

void HttpServer::Daemon::tell(const HttpExchange& exchange)
{
    const auto mark = exchange.target.indexOf('?');
    handler.served(
        {.method = exchange.method,
         .path = exchange.target.left(mark < 0 ? exchange.target.size() : mark),
         .peer = exchange.peer,
         .status = exchange.status,
         .replySize = exchange.replySize,
         .duration = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - exchange.began)});
}

void* HttpServer::Daemon::begun(void*, const char* target, MHD_Connection*)
{
    return new SharedExchange(std::make_shared<HttpExchange>(target));
}

MHD_Result HttpServer::Daemon::accessed(void* self, MHD_Connection* connection, const char*,
                                        const char* method, const char*, const char* upload,
                                        size_t* uploadSize, void** context)
{
    auto& daemon = *static_cast<Daemon*>(self);
    const SharedExchange exchange = *static_cast<SharedExchange*>(*context);
    if (!exchange->request) {
        *uploadSize = 0;
        return daemon.check(connection, method, *exchange);
    }
    if (*uploadSize > 0) {
        daemon.receive(*exchange, QByteArrayView(upload, qsizetype(*uploadSize)));
        *uploadSize = 0;
        return MHD_YES;
    }
    if (!exchange->handed) {
        daemon.owes(connection, std::nullopt);
        daemon.hand(exchange);
    }
    return daemon.replyOrSuspend(connection, *exchange);
}

void HttpServer::Daemon::completed(void* self, MHD_Connection* connection, void** context,
                                   MHD_RequestTerminationCode)
{
    auto& daemon = *static_cast<Daemon*>(self);
    const std::unique_ptr<SharedExchange> exchange(static_cast<SharedExchange*>(*context));
    *context = nullptr;
    daemon.owes(connection, daemon.limits.requestSeconds);
    if (exchange && (*exchange)->counted) {
        daemon.tell(**exchange);
        const std::lock_guard lock(daemon.mutex);
        --daemon.exchanges;
        daemon.bodyBytes -= (*exchange)->bodyReserved;
        if ((*exchange)->request && !(*exchange)->handed)
            --daemon.unanswered; // it went before it was handed on
        daemon.changed.notify_all();
    }
}

void HttpServer::Daemon::connectionChanged(void* self, MHD_Connection* connection, void** context,
                                           MHD_ConnectionNotificationCode code)
{
    auto& daemon = *static_cast<Daemon*>(self);
    const std::lock_guard lock(daemon.mutex);
    if (code == MHD_CONNECTION_NOTIFY_STARTED) {
        const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
        daemon.peers.push_front(
            {info->connect_fd, Clock::now() + std::chrono::seconds(daemon.limits.requestSeconds)});
        *context = &daemon.peers.front();
    } else {
        // Told before the descriptor is closed, so that it is never another connection's that is shut down.
        daemon.peers.remove_if([context](const Peer& peer) { return &peer == *context; });
    }
}

HttpServer::HttpServer(std::unique_ptr<Daemon> daemon)
    : daemon_(std::move(daemon))
{
}

HttpServer::~HttpServer()
{
    quiesce();
    daemon_->stop();
}

std::unique_ptr<HttpServer> HttpServer::start(ListeningSocket socket, HttpHandler& handler,
                                              const Limits& limits)
{
    auto daemon = std::make_unique<Daemon>(std::move(socket), handler, limits);
    if (!daemon->start())
        return nullptr;
    return std::unique_ptr<HttpServer>(new HttpServer(std::move(daemon)));
}

void HttpServer::quiesce()
{
    if (!daemon_->quiesced)
        MHD_quiesce_daemon(daemon_->daemon);
    daemon_->quiesced = true;
    const std::lock_guard lock(daemon_->mutex);
    daemon_->stopping = true;
}

} // namespace zib
