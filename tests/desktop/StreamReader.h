// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/HttpReadStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <optional>

namespace zib::test {

inline HttpReadRequest get(const QByteArray& url,
                           const QList<std::pair<QByteArray, QByteArray>>& headers = {})
{
    return {.url = url, .headers = headers, .followRedirects = true};
}

/// A reader as the streamer is one, in pieces of 2 KB.
struct StreamReader {
    using Event = HttpReadStream::Event;

    explicit StreamReader(HttpReadStreams& streams)
        : loop(streams.makeRunLoop())
        , streams_(streams)
    {
    }

    /// @return whether the request began.
    bool open(const HttpReadRequest& request)
    {
        stream = streams_.makeReadStream(request);
        if (!stream || !stream->open())
            return false;
        stream->setClient([this](HttpReadStream&, Event event) { take(event); });
        stream->scheduleOn(*loop);
        return true;
    }
    void take(Event event)
    {
        if (event != Event::HasBytesAvailable) {
            last = event;
            ++lastEvents;
            return;
        }
        EXPECT_TRUE(stream->hasBytesAvailable());
        EXPECT_FALSE(last.has_value()) << "bytes after the end";
        if (closesAtBytes)
            stream->close();
        if (!reads)
            return;
        std::array<char, 2048> piece{};
        const qint64 count = stream->read(piece.data(), piece.size());
        received.append(piece.data(), std::max<qint64>(count, 0));
    }
    /// Runs until the end or an error; a minute is for machines under load.
    void run()
    {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::minutes(1);
        while (!last && std::chrono::steady_clock::now() < limit &&
               loop->runFor(std::chrono::milliseconds(50))) {
        }
    }

    std::unique_ptr<RunLoop> loop;
    std::unique_ptr<HttpReadStream> stream;
    bool reads = true;
    bool closesAtBytes = false;
    QByteArray received;
    std::optional<Event> last;
    int lastEvents = 0;

  private:
    HttpReadStreams& streams_;
};

} // namespace zib::test
