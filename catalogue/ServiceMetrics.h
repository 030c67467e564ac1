// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <array>
#include <atomic>
#include <chrono>

namespace zib {

/// What a monitoring program reads of the service. Any thread.
class ServiceMetrics {
  public:
    void countRequest(int status, qint64 replySize, std::chrono::microseconds duration);
    void countPublication(bool accepted) { ++(accepted ? published_ : refused_); }

    /// In the text format of Prometheus.
    [[nodiscard]] QByteArray text() const;

  private:
    using Counter = std::atomic<quint64>;
    static constexpr std::array<int, 6> bucketMilliseconds{1, 5, 25, 100, 500, 2500};

    std::array<Counter, 6> statusClasses_{}; ///< by the first digit; 0 for requests without a reply
    std::array<Counter, bucketMilliseconds.size() + 1> durations_{};
    Counter microseconds_ = 0;
    Counter replyBytes_ = 0;
    Counter published_ = 0;
    Counter refused_ = 0;
};

} // namespace zib
