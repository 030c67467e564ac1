// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/HttpServer.h"

#include <microhttpd.h>

#include <QLoggingCategory>

#include <chrono>
#include <condition_variable>
#include <cstdarg>
#include <cstdio>
#include <list>
#include <mutex>
#include <optional>
#include <thread>

#include <fcntl.h>
#include <sys/socket.h>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.catalogue.http", QtInfoMsg)

using Clock = std::chrono::steady_clock;

constexpr unsigned threadCount = 4;
constexpr size_t connectionMemory = size_t(32) * 1024;
constexpr auto lastMoment = std::chrono::milliseconds(500);

/// A connection and, while it owes us a request, since when.
struct Peer {
    int descriptor = -1;
    std::optional<Clock::time_point> owesSince;
};

/// One request on its way: made with the request line, gone with the end of the reply.
struct Exchange {
    explicit Exchange(const char* requestTarget)
        : target(requestTarget)
    {
    }

    const QByteArray target;
    std::optional<HttpRequest> request; ///< once its head is complete and sound
    bool counted = false;
    bool handed = false; ///< to the handler

    std::mutex mutex; ///< guards what follows
    MHD_Connection* suspended = nullptr;
    std::optional<HttpReply> reply;
};

using SharedExchange = std::shared_ptr<Exchange>;

MHD_Result collectHeader(void* closure, MHD_ValueKind, const char* name, const char* value)
{
    static_cast<HttpHeaders*>(closure)->append({QByteArray(name), QByteArray(value)});
    return MHD_YES;
}

MHD_Response* madeResponse(const HttpReply& reply)
{
    if (!reply.file) {
        return MHD_create_response_from_buffer(
            size_t(reply.body.size()), const_cast<char*>(reply.body.constData()), MHD_RESPMEM_MUST_COPY);
    }
    const int descriptor =
        ::fcntl(reply.file->descriptor(), F_DUPFD_CLOEXEC, 0); // the response closes its own
    if (descriptor < 0)
        return nullptr;
    return MHD_create_response_from_fd_at_offset64(uint64_t(reply.length), descriptor,
                                                   uint64_t(reply.offset));
}

MHD_Result queued(MHD_Connection* connection, const HttpReply& reply, bool last)
{
    MHD_Response* response = madeResponse(reply);
    if (!response)
        return MHD_NO;
    if (!reply.contentType.isEmpty())
        MHD_add_response_header(response, "Content-Type", reply.contentType.constData());
    MHD_add_response_header(response, "X-Content-Type-Options", "nosniff");
    for (const auto& [name, value] : reply.headers)
        MHD_add_response_header(response, name.constData(), value.constData());
    if (last)
        MHD_add_response_header(response, "Connection", "close");
    const auto result = MHD_queue_response(connection, unsigned(reply.status), response);
    MHD_destroy_response(response);
    return result;
}

void logLine(void*, const char* format, va_list arguments)
{
    char line[512];
    std::vsnprintf(line, sizeof line, format, arguments);
    qCDebug(log).noquote() << QString::fromUtf8(line).trimmed();
}

} // namespace

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

    void owesRequest(MHD_Connection* connection, bool owes);
    MHD_Result check(MHD_Connection* connection, const char* method, Exchange& exchange);
    void hand(const SharedExchange& exchange);
    MHD_Result replyOrSuspend(MHD_Connection* connection, Exchange& exchange);

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
        const auto latest = Clock::now() - std::chrono::seconds(limits.requestSeconds);
        for (auto& peer : peers) {
            if (peer.owesSince && *peer.owesSince <= latest) {
                ::shutdown(peer.descriptor, SHUT_RDWR);
                peer.owesSince.reset();
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

void HttpServer::Daemon::owesRequest(MHD_Connection* connection, bool owes)
{
    const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT);
    const std::lock_guard lock(mutex);
    static_cast<Peer*>(info->socket_context)->owesSince = owes ? std::optional(Clock::now()) : std::nullopt;
}

/// The first call for a request, its head complete. A refusal closes the connection, for where a malformed
/// request ends is anybody's guess.
MHD_Result HttpServer::Daemon::check(MHD_Connection* connection, const char* method, Exchange& exchange)
{
    owesRequest(connection, false);
    HttpHeaders headers;
    MHD_get_connection_values(connection, MHD_HEADER_KIND, collectHeader, &headers);
    auto request = checkedRequest(QByteArray(method), exchange.target, headers, policy);
    {
        const std::lock_guard lock(mutex);
        exchange.counted = true;
        ++exchanges;
        if (stopping)
            request = tl::unexpected<int>(MHD_HTTP_SERVICE_UNAVAILABLE);
        else if (request)
            ++unanswered;
    }
    if (!request)
        return queued(connection, plainReply(request.error()), true);
    exchange.request = std::move(*request);
    return MHD_YES;
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

MHD_Result HttpServer::Daemon::replyOrSuspend(MHD_Connection* connection, Exchange& exchange)
{
    const std::lock_guard lock(exchange.mutex);
    if (exchange.reply)
        return queued(connection, *exchange.reply, false);
    exchange.suspended = connection;
    MHD_suspend_connection(connection);
    return MHD_YES;
}

void* HttpServer::Daemon::begun(void*, const char* target, MHD_Connection*)
{
    return new SharedExchange(std::make_shared<Exchange>(target));
}

MHD_Result HttpServer::Daemon::accessed(void* self, MHD_Connection* connection, const char*,
                                        const char* method, const char*, const char*, size_t* uploadSize,
                                        void** context)
{
    auto& daemon = *static_cast<Daemon*>(self);
    const SharedExchange exchange = *static_cast<SharedExchange*>(*context);
    *uploadSize = 0;
    if (!exchange->request)
        return daemon.check(connection, method, *exchange);
    if (!exchange->handed)
        daemon.hand(exchange);
    return daemon.replyOrSuspend(connection, *exchange);
}

void HttpServer::Daemon::completed(void* self, MHD_Connection* connection, void** context,
                                   MHD_RequestTerminationCode)
{
    auto& daemon = *static_cast<Daemon*>(self);
    const std::unique_ptr<SharedExchange> exchange(static_cast<SharedExchange*>(*context));
    *context = nullptr;
    daemon.owesRequest(connection, true);
    if (exchange && (*exchange)->counted) {
        const std::lock_guard lock(daemon.mutex);
        --daemon.exchanges;
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
        daemon.peers.push_front({info->connect_fd, Clock::now()});
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
