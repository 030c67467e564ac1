// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace zib {

/// The loop of one thread that delivers its read stream's events. Made and run on that thread; wake() on any.
class RunLoop {
  public:
    virtual ~RunLoop() = default;
    /// Delivers the events that are due on the streams scheduled here. When none is, waits for one, that long
    /// at most or until wake() is called, and leaves it to the next run, so that the caller sees how things
    /// stood until it came.
    /// @return false when the loop could not run, because no stream is scheduled on it. A stream that has
    /// ended or failed counts as scheduled until it is closed.
    virtual bool runFor(std::chrono::milliseconds time) = 0;
    /// Ends a running runFor early, or the next one. Any thread.
    virtual void wake() = 0;
};

/// What to ask for. The address goes out byte for byte.
struct HttpReadRequest {
    QByteArray url;
    /// A field "Range: bytes=FROM-TO" is kept through redirects. The stream begins at FROM even where the
    /// server ignores the field and sends the whole: what comes before is dropped.
    QList<std::pair<QByteArray, QByteArray>> headers;
    bool followRedirects = false;
    /// Any certificate is accepted, and no host name is compared.
    bool acceptAnyCertificate = false;
};

/// The bytes of one HTTP GET, pulled by its reader with bounded read-ahead: when the reader stops reading,
/// the server is made to wait. All calls on the thread of its run loop, in the order open, setClient,
/// scheduleOn.
class HttpReadStream {
  public:
    enum class Event { HasBytesAvailable, ErrorOccurred, EndEncountered };
    using Client = std::function<void(HttpReadStream&, Event)>;

    /// Closes.
    virtual ~HttpReadStream() = default;
    /// Begins the request without waiting for it.
    /// @return false when it cannot even begin (an address that is none, no resources); nothing follows then.
    virtual bool open() = 0;
    virtual void setClient(Client client) = 0;
    /// From here on the loop delivers the events. HasBytesAvailable comes again after each read for as long
    /// as bytes are there, and the end only after the last of them was read. An HTTP error status is an
    /// error. The client may close the stream, but not destroy it, from within an event.
    virtual void scheduleOn(RunLoop& loop) = 0;
    [[nodiscard]] virtual bool hasBytesAvailable() const = 0;
    /// Reads what is there, at most maximum bytes, without waiting.
    /// @return the count, 0 for none now or at the end, negative for an error.
    virtual qint64 read(char* bytes, qint64 maximum) = 0;
    /// The fields of the final response, names as the server wrote them; empty before it came.
    [[nodiscard]] virtual QHash<QByteArray, QByteArray> responseHeaders() const = 0;
    /// Ends the request and unschedules; no event follows. Twice is harmless.
    virtual void close() = 0;
};

/// Makes read streams and their run loops. Any thread.
class HttpReadStreams {
  public:
    virtual ~HttpReadStreams() = default;
    [[nodiscard]] virtual std::unique_ptr<RunLoop> makeRunLoop() = 0;
    /// Null when no stream can be made for such a request.
    [[nodiscard]] virtual std::unique_ptr<HttpReadStream> makeReadStream(const HttpReadRequest& request) = 0;
};

} // namespace zib
