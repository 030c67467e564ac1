// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/SoundOutput.h"

#include <functional>

namespace zib {

/// Plays into nothing, by the clock, so that a song takes its time where there is no sound server.
class NullOutput : public SoundOutput {
  public:
    /// Is given each stretch of samples as it is "heard". On whichever thread uses the stream.
    using Ear = std::function<void(const SoundFormat&, std::span<const float>)>;

    /// @param speed how much faster than the clock it plays
    explicit NullOutput(double speed = 1, Ear ear = {});

    void connect(Search search) override;
    Presence presence() override;
    std::unique_ptr<SoundStream> open(const SoundFormat& format, std::shared_ptr<WakeSignal> feeder) override;

  private:
    double speed_;
    Ear ear_;
};

} // namespace zib
