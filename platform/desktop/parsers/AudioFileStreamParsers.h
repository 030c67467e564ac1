// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioFileStream.h"

namespace zib {

/// The parsers that the program plays with: MPEG audio (layers I to III), AAC in ADTS, MPEG-4, WAVE, AIFF,
/// Core Audio files, FLAC and Ogg. The bytes decide which one is used, whatever the hint says, since
/// addresses lie about their extension.
class AudioFileStreamParsers : public AudioFileStreams {
  public:
    [[nodiscard]] std::unique_ptr<AudioFileStream> open(AudioFileType hint, AudioFileStreamClient& client,
                                                        AudioStatus& status) override;
};

} // namespace zib
