// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

#include <atomic>
#include <chrono>
#include <map>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace zib {

using TestHeaders = QList<std::pair<QByteArray, QByteArray>>;

/// What a TestHttpServer answers, and how badly.
struct TestReply {
    static constexpr qint64 kNoLength = -1;
    static constexpr std::chrono::milliseconds kForever = std::chrono::hours(1);

    QByteArray body = {};
    int status = 200;
    TestHeaders headers = {};
    /// In place of the body's own length; kNoLength for none, so that closing ends the body.
    std::optional<qint64> announcedLength = {};
    /// Sent instead of a status line and fields unless it is null; the body follows.
    QByteArray rawHead = {};
    /// Answers "Range: bytes=FROM-TO" with 206 and the bytes from there on.
    bool honoursRanges = false;

    bool neverAnswers = false;
    /// The body goes out in pieces of that size, one each time the pause has passed; 0 for all at once.
    qint64 pieceBytes = 0;
    std::chrono::milliseconds piecePause{0};
    /// After that many bytes of the body nothing is sent for so long.
    qint64 stallAt = -1;
    std::chrono::milliseconds stall = kForever;
    /// After that many bytes of the body the connection is closed.
    qint64 closeAt = -1;

    static TestReply redirect(const QByteArray& location)
    {
        return {.status = 302, .headers = {{"Location", location}}};
    }
    /// Evenly limited to that rate.
    void limit(qint64 bytesPerSecond)
    {
        constexpr int kPiecesPerSecond = 50;
        pieceBytes = bytesPerSecond / kPiecesPerSecond;
        piecePause = std::chrono::milliseconds(1000 / kPiecesPerSecond);
    }
};

/// A request as it came in.
struct TestRequest {
    QByteArray method;
    QByteArray target;
    TestHeaders headers;
    QByteArray body = {};

    /// Null when there is none of that name.
    [[nodiscard]] QByteArray header(const QByteArray& name) const;
};

/// An HTTP server on a loopback port that misbehaves as told. It closes the connection after each reply.
/// Everything may be called on any thread.
class TestHttpServer {
  public:
    TestHttpServer();
    ~TestHttpServer();
    TestHttpServer(const TestHttpServer&) = delete;
    TestHttpServer& operator=(const TestHttpServer&) = delete;

    /// Replies so to every request for that path; other paths are not found.
    /// @return the address to ask for.
    QByteArray serve(const QByteArray& path, TestReply reply);
    [[nodiscard]] QByteArray url(const QByteArray& path) const;
    [[nodiscard]] std::vector<TestRequest> requests() const;
    /// Bytes that the system took from the server, all replies together.
    [[nodiscard]] qint64 bytesSent() const { return bytesSent_; }

  private:
    void acceptConnections();
    void handle(int socket);
    [[nodiscard]] std::optional<TestRequest> readRequest(int socket) const;
    void sendReply(int socket, const TestRequest& request, TestReply reply);
    void sendBody(int socket, const TestReply& reply);
    bool sendAll(int socket, QByteArrayView bytes);
    /// @return whether the socket became ready before the server was stopped.
    [[nodiscard]] bool waitFor(int socket, short events) const;
    /// @return false when the server was stopped meanwhile.
    [[nodiscard]] bool pauseUntil(std::chrono::steady_clock::time_point time) const;

    int listener_ = -1;
    int stopped_ = -1; ///< an event that stays set
    quint16 port_ = 0;
    std::atomic<qint64> bytesSent_ = 0;
    mutable std::mutex mutex_; // guards the next three
    std::map<QByteArray, TestReply> replies_;
    std::vector<TestRequest> requests_;
    std::vector<std::thread> connections_;
    std::thread acceptor_;
};

} // namespace zib
