// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/HttpReadStream.h"

namespace zib {

class CurlShare;

/// HTTP read streams by libcurl, driven by the thread that runs their loop and by no other.
class CurlReadStreams : public HttpReadStreams {
  public:
    /// @param patience how long a stream whose reader wants bytes may go without any progress, connecting
    /// included, before it fails. Time during which the reader is not waiting never counts.
    explicit CurlReadStreams(std::chrono::milliseconds patience = std::chrono::seconds(10));
    ~CurlReadStreams() override;

    [[nodiscard]] std::unique_ptr<RunLoop> makeRunLoop() override;
    [[nodiscard]] std::unique_ptr<HttpReadStream> makeReadStream(const HttpReadRequest& request) override;

  private:
    std::chrono::milliseconds patience_;
    std::shared_ptr<CurlShare> share_; ///< outlives the streams made here
};

} // namespace zib
