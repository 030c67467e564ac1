// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/HttpReadStream.h"
#include "platform/desktop/CurlHandles.h"

#include <atomic>
#include <vector>

namespace zib {

class CurlReadStream;

/// Runs the transfers of its streams while nothing is to be delivered; between two runs the network waits in
/// the kernel's buffers.
class CurlRunLoop : public RunLoop {
  public:
    CurlRunLoop();
    /// Closes the streams that are still scheduled.
    ~CurlRunLoop() override;

    bool runFor(std::chrono::milliseconds time) override;
    void wake() override;

    void add(CurlReadStream& stream);
    void remove(CurlReadStream& stream);

  private:
    [[nodiscard]] bool isScheduled(const CurlReadStream* stream) const;
    [[nodiscard]] bool isEventDue() const;
    bool deliverEvents();
    void transfer();
    /// Waits for the network, and has the streams count the time that they waited.
    void wait(std::chrono::milliseconds time);

    CurlMulti multi_;
    std::vector<CurlReadStream*> streams_;
    std::atomic<bool> woken_ = false;
};

} // namespace zib
