// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioTypes.h"
#include "platform/desktop/SoundOutput.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <vector>

struct AVCodec;
struct AVCodecContext;
struct AVCodecParameters;
struct AVFrame;
struct AVPacket;
struct SwrContext;

namespace zib {

/// Frees what the decoding library made.
struct AvFree {
    void operator()(AVCodecContext* context) const;
    void operator()(AVCodecParameters* parameters) const;
    void operator()(AVFrame* frame) const;
    void operator()(AVPacket* packet) const;
    void operator()(SwrContext* converter) const;
};

/// Keeps the decoding library from writing to the terminal about each damaged packet.
void quietenDecoders();

/// The shape in which frames of a decoder go to the sound output, or no rate when they can't.
SoundFormat soundFormatOf(const AVFrame& frame);

/// Turns decoded frames into interleaved samples of one shape, whatever the decoder changes to.
class FrameConverter {
  public:
    /// Appends to the samples. The first frame decides the format unless one was set.
    void convert(const AVFrame& frame, std::vector<float>& samples);
    [[nodiscard]] const SoundFormat& format() const { return format_; }

  private:
    bool prepare(const AVFrame& frame);

    SoundFormat format_;
    std::unique_ptr<SwrContext, AvFree> resampler_;
    SoundFormat inputFormat_; ///< what the resampler was made for
    int inputSampleFormat_ = -1;
};

/// Decodes packets of one format. One thread at a time.
class PacketDecoder {
  public:
    using Receiver = std::function<void(const AVFrame&)>;

    /// Whether there is a decoder for it and its numbers make sense.
    static bool canDecode(const AudioStreamDescription& format);
    explicit PacketDecoder(const AudioStreamDescription& format);

    /// What the decoder must know before the first packet; the next packet starts a new decoder.
    void setCookie(std::span<const std::byte> cookie);
    /// Gives the receiver what the packet holds. A packet that does not decode gives nothing.
    void decode(std::span<const std::byte> packet, const Receiver& receiver);
    /// Gives what the decoder holds back.
    void finish(const Receiver& receiver);
    /// The next packet does not follow the last.
    void reset();

  private:
    bool open();
    void receive(const Receiver& receiver);

    AudioStreamDescription format_;
    std::vector<std::byte> cookie_;
    std::unique_ptr<AVCodecContext, AvFree> context_;
    std::unique_ptr<AVPacket, AvFree> packet_;
    std::unique_ptr<AVFrame, AvFree> frame_;
};

} // namespace zib
