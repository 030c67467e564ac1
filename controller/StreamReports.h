// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "playback/AudioStreamer.h"

namespace zib {

struct ControllerContext;

/// What the streamer has to say about a song goes to the library.
class StreamReports : public AudioStreamerDelegate {
  public:
    explicit StreamReports(ControllerContext& context)
        : context_(context)
    {
    }
    void fileNotFound(const Record& track) override;
    void exportedFile(const Record& track) override;

  private:
    ControllerContext& context_;
};

} // namespace zib
