// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/HttpMessage.h"

#include <microhttpd.h>

#include <chrono>
#include <mutex>
#include <optional>

namespace zib {

/// One request on its way through the server's library: made with the request line, gone with the end of the
/// reply. But for what its mutex guards, it is the connection's thread's.
struct HttpExchange {
    using Clock = std::chrono::steady_clock;

    explicit HttpExchange(const char* requestTarget)
        : target(requestTarget)
    {
    }

    /// Hands the reply to the library.
    /// @param last closes the connection after it
    MHD_Result queue(MHD_Connection* connection, const HttpReply& answer, bool last);

    const QByteArray target;
    const Clock::time_point began = Clock::now();
    QByteArray method;
    QByteArray peer;
    int status = 0; ///< of the reply that was queued
    qint64 replySize = 0;
    std::optional<HttpRequest> request; ///< once its head is complete and sound
    bool counted = false;
    bool handed = false;        ///< to the handler
    qsizetype bodyReserved = 0; ///< of the bytes that all bodies may take

    std::mutex mutex; ///< guards what follows
    MHD_Connection* suspended = nullptr;
    std::optional<HttpReply> reply;
};

/// The fields of the request's head, as they came.
[[nodiscard]] HttpHeaders headersOf(MHD_Connection* connection);
/// The address at the other end as a number; empty when it cannot be told.
[[nodiscard]] QByteArray peerOf(MHD_Connection* connection);

} // namespace zib
