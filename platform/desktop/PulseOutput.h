// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/SoundOutput.h"

namespace zib {

class PulseConnection;

/// The PulseAudio server of the session, which PipeWire can be too, over one connection for all streams.
class PulseOutput : public SoundOutput {
  public:
    PulseOutput();
    ~PulseOutput() override;

    void connect(Search search) override;
    Presence presence() override;
    /// A stream that is opened while the server is absent fails; one opened while it connects waits.
    std::unique_ptr<SoundStream> open(const SoundFormat& format, std::shared_ptr<WakeSignal> feeder) override;

  private:
    std::shared_ptr<PulseConnection> connection_; ///< streams hold it too
};

} // namespace zib
