// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioQueue.h"

namespace zib {

class DesktopSound;

/// Queues that decode MPEG audio, AAC, Apple Lossless and linear PCM and play through the desktop's sound.
/// isRunningChanged(true) comes from within start(), isRunningChanged(false) of a stop that is not immediate
/// from the queue's own thread. A stop that is not immediate ends a pause, since what is enqueued is to be
/// heard.
class DesktopAudioQueues : public AudioQueues {
  public:
    /// The sound outlives the queues.
    explicit DesktopAudioQueues(DesktopSound& sound);

    std::unique_ptr<AudioQueue> newOutput(const AudioStreamDescription& format,
                                          std::weak_ptr<AudioQueueClient> client,
                                          AudioStatus& status) override;

  private:
    DesktopSound& sound_;
};

/// What DesktopAudioQueues answers beside kAudioOk and kAudioQueueStopped.
inline constexpr auto kAudioBadFormat = static_cast<AudioStatus>(fourCharacters("fmt?"));
inline constexpr auto kAudioBadParameter = static_cast<AudioStatus>(fourCharacters("parm"));
inline constexpr auto kAudioDisposed = static_cast<AudioStatus>(fourCharacters("gone"));

} // namespace zib
