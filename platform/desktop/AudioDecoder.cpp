// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/AudioDecoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/channel_layout.h>
#include <libavutil/log.h>
#include <libswresample/swresample.h>
}

#include <algorithm>
#include <cstring>
#include <iterator>

namespace zib {

namespace {

constexpr int kLowestRate = 1000;
constexpr int kHighestRate = 384000;
constexpr int kMostChannels = 8;
/// A packet that yields more than this is not music: about 24 s at 44,100 frames a second.
constexpr int kMostFrames = 1 << 20;
/// No format has larger packets of a constant size: part of one may have to be kept.
constexpr std::uint32_t kMostConstantBytes = 4096;

enum class PcmKind { Unsigned, Signed, Float };

struct PcmCodec {
    PcmKind kind;
    std::uint32_t bytesPerSample;
    AVCodecID littleEndian;
    AVCodecID bigEndian;
};

constexpr PcmCodec kPcmCodecs[] = {
    {PcmKind::Unsigned, 1, AV_CODEC_ID_PCM_U8, AV_CODEC_ID_PCM_U8},
    {PcmKind::Unsigned, 2, AV_CODEC_ID_PCM_U16LE, AV_CODEC_ID_PCM_U16BE},
    {PcmKind::Unsigned, 3, AV_CODEC_ID_PCM_U24LE, AV_CODEC_ID_PCM_U24BE},
    {PcmKind::Unsigned, 4, AV_CODEC_ID_PCM_U32LE, AV_CODEC_ID_PCM_U32BE},
    {PcmKind::Signed, 1, AV_CODEC_ID_PCM_S8, AV_CODEC_ID_PCM_S8},
    {PcmKind::Signed, 2, AV_CODEC_ID_PCM_S16LE, AV_CODEC_ID_PCM_S16BE},
    {PcmKind::Signed, 3, AV_CODEC_ID_PCM_S24LE, AV_CODEC_ID_PCM_S24BE},
    {PcmKind::Signed, 4, AV_CODEC_ID_PCM_S32LE, AV_CODEC_ID_PCM_S32BE},
    {PcmKind::Float, 4, AV_CODEC_ID_PCM_F32LE, AV_CODEC_ID_PCM_F32BE},
    {PcmKind::Float, 8, AV_CODEC_ID_PCM_F64LE, AV_CODEC_ID_PCM_F64BE},
};

AVCodecID pcmCodec(const AudioStreamDescription& format)
{
    if (format.channelsPerFrame == 0 || format.bytesPerFrame % format.channelsPerFrame != 0)
        return AV_CODEC_ID_NONE;
    // The container's bytes count: 20 bits in 3 bytes stand in their upper part.
    const auto bytes = format.bytesPerFrame > 0 ? format.bytesPerFrame / format.channelsPerFrame
                                                : (format.bitsPerChannel + 7) / 8;
    const PcmKind kind = format.formatFlags & audioformat::IsFloat           ? PcmKind::Float
                         : format.formatFlags & audioformat::IsSignedInteger ? PcmKind::Signed
                                                                             : PcmKind::Unsigned;
    const auto* const codec = std::ranges::find_if(kPcmCodecs, [&](const PcmCodec& known) {
        return known.kind == kind && known.bytesPerSample == bytes;
    });
    if (codec == std::end(kPcmCodecs))
        return AV_CODEC_ID_NONE;
    return format.formatFlags & audioformat::IsBigEndian ? codec->bigEndian : codec->littleEndian;
}

AVCodecID codecOf(const AudioStreamDescription& format)
{
    switch (format.formatId) {
    case audioformat::LinearPcm:
        return pcmCodec(format);
    case audioformat::MpegLayer1:
        return AV_CODEC_ID_MP1;
    case audioformat::MpegLayer2:
        return AV_CODEC_ID_MP2;
    case audioformat::MpegLayer3:
        return AV_CODEC_ID_MP3;
    case audioformat::Aac:
    case audioformat::HeAac:
        return AV_CODEC_ID_AAC;
    case audioformat::AppleLossless:
        return AV_CODEC_ID_ALAC;
    case audioformat::MuLaw:
        return AV_CODEC_ID_PCM_MULAW;
    case audioformat::ALaw:
        return AV_CODEC_ID_PCM_ALAW;
    case audioformat::Ima4:
        return AV_CODEC_ID_ADPCM_IMA_QT;
    case audioformat::Flac:
        return AV_CODEC_ID_FLAC;
    case audioformat::Vorbis:
        return AV_CODEC_ID_VORBIS;
    case audioformat::Opus:
        return AV_CODEC_ID_OPUS;
    default:
        return AV_CODEC_ID_NONE;
    }
}

/// The cookie in the shape that the decoding library wants.
std::vector<std::uint8_t> extraData(std::uint32_t formatId, std::span<const std::byte> cookie)
{
    std::vector<std::uint8_t> data;
    constexpr std::size_t losslessConfiguration = 24;
    if (formatId == audioformat::AppleLossless) {
        // The box that holds the configuration in a file: its size, its name and its version before it.
        cookie = cookie.first(std::min(cookie.size(), losslessConfiguration));
        data = {0, 0, 0, 12 + losslessConfiguration, 'a', 'l', 'a', 'c', 0, 0, 0, 0};
    } else if (formatId == audioformat::Vorbis) {
        data = {2}; // the number of sizes that follow
    }
    std::ranges::transform(cookie, std::back_inserter(data), std::to_integer<std::uint8_t>);
    return data;
}

} // namespace

void AvFree::operator()(AVCodecContext* context) const
{
    avcodec_free_context(&context);
}

void AvFree::operator()(AVCodecParameters* parameters) const
{
    avcodec_parameters_free(&parameters);
}

void AvFree::operator()(AVFrame* frame) const
{
    av_frame_free(&frame);
}

void AvFree::operator()(AVPacket* packet) const
{
    av_packet_free(&packet);
}

void AvFree::operator()(SwrContext* converter) const
{
    swr_free(&converter);
}

void quietenDecoders()
{
    av_log_set_level(AV_LOG_QUIET);
}

SoundFormat soundFormatOf(const AVFrame& frame)
{
    const int channels = frame.ch_layout.nb_channels;
    if (frame.sample_rate < kLowestRate || frame.sample_rate > kHighestRate || channels < 1)
        return {};
    return {frame.sample_rate, channels <= kMostChannels ? channels : 2};
}

bool FrameConverter::prepare(const AVFrame& frame)
{
    const SoundFormat input{frame.sample_rate, frame.ch_layout.nb_channels};
    const SoundFormat wanted = soundFormatOf(frame);
    if (wanted.rate == 0)
        return false;
    if (format_.rate == 0)
        format_ = wanted;
    if (resampler_ && input == inputFormat_ && frame.format == inputSampleFormat_)
        return true;

    resampler_.reset();
    AVChannelLayout from{};
    if (frame.ch_layout.order == AV_CHANNEL_ORDER_UNSPEC)
        av_channel_layout_default(&from, input.channels);
    else if (av_channel_layout_copy(&from, &frame.ch_layout) < 0)
        return false;
    AVChannelLayout to{};
    if (input.channels == format_.channels)
        av_channel_layout_copy(&to, &from); // as it is, never a mix
    else
        av_channel_layout_default(&to, format_.channels);
    SwrContext* made = nullptr;
    const int status = swr_alloc_set_opts2(&made, &to, AV_SAMPLE_FMT_FLT, format_.rate, &from,
                                           static_cast<AVSampleFormat>(frame.format), input.rate, 0, nullptr);
    av_channel_layout_uninit(&from);
    av_channel_layout_uninit(&to);
    resampler_.reset(made);
    if (status < 0 || swr_init(made) < 0) {
        resampler_.reset();
        return false;
    }
    inputFormat_ = input;
    inputSampleFormat_ = frame.format;
    return true;
}

void FrameConverter::convert(const AVFrame& frame, std::vector<float>& samples)
{
    if (frame.nb_samples <= 0 || frame.nb_samples > kMostFrames || !prepare(frame))
        return;
    const int most = swr_get_out_samples(resampler_.get(), frame.nb_samples);
    if (most <= 0)
        return;
    const auto channels = static_cast<std::size_t>(format_.channels);
    const auto before = samples.size();
    samples.resize(before + static_cast<std::size_t>(most) * channels);
    auto* out = reinterpret_cast<std::uint8_t*>(samples.data() + before);
    const int made = swr_convert(resampler_.get(), &out, most,
                                 const_cast<const std::uint8_t**>(frame.extended_data), frame.nb_samples);
    samples.resize(before + static_cast<std::size_t>(std::max(0, made)) * channels);
}

bool PacketDecoder::canDecode(const AudioStreamDescription& format)
{
    const auto codec = codecOf(format);
    return codec != AV_CODEC_ID_NONE && avcodec_find_decoder(codec) && format.sampleRate >= kLowestRate &&
           format.sampleRate <= kHighestRate && format.channelsPerFrame >= 1 &&
           format.channelsPerFrame <= 64 && format.bytesPerPacket <= kMostConstantBytes;
}

PacketDecoder::PacketDecoder(const AudioStreamDescription& format)
    : format_(format)
    , packet_(av_packet_alloc())
    , frame_(av_frame_alloc())
{
}

void PacketDecoder::setCookie(std::span<const std::byte> cookie)
{
    cookie_.assign(cookie.begin(), cookie.end());
    context_.reset();
}

bool PacketDecoder::open()
{
    if (context_)
        return true;
    const AVCodec* codec = avcodec_find_decoder(codecOf(format_));
    std::unique_ptr<AVCodecContext, AvFree> context(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!context)
        return false;
    context->sample_rate = static_cast<int>(format_.sampleRate);
    av_channel_layout_default(&context->ch_layout, static_cast<int>(format_.channelsPerFrame));
    context->block_align = static_cast<int>(format_.bytesPerPacket);
    context->thread_count = 1;
    context->flags2 |= AV_CODEC_FLAG2_SKIP_MANUAL; // whole packets, so that the time counts them all
    if (!cookie_.empty()) {
        const auto data = extraData(format_.formatId, cookie_);
        context->extradata =
            static_cast<std::uint8_t*>(av_mallocz(data.size() + AV_INPUT_BUFFER_PADDING_SIZE));
        if (!context->extradata)
            return false;
        std::memcpy(context->extradata, data.data(), data.size());
        context->extradata_size = static_cast<int>(data.size());
    }
    if (avcodec_open2(context.get(), codec, nullptr) < 0)
        return false;
    context_ = std::move(context);
    return true;
}

void PacketDecoder::decode(std::span<const std::byte> packet, const Receiver& receiver)
{
    // The copy gives the decoder the zeros that it reads past the end.
    if (packet.empty() || !open() || av_new_packet(packet_.get(), static_cast<int>(packet.size())) < 0)
        return;
    std::memcpy(packet_->data, packet.data(), packet.size());
    const int status = avcodec_send_packet(context_.get(), packet_.get());
    av_packet_unref(packet_.get());
    if (status >= 0)
        receive(receiver);
}

void PacketDecoder::finish(const Receiver& receiver)
{
    if (!context_)
        return;
    if (avcodec_send_packet(context_.get(), nullptr) >= 0)
        receive(receiver);
    avcodec_flush_buffers(context_.get());
}

void PacketDecoder::reset()
{
    if (context_)
        avcodec_flush_buffers(context_.get());
}

void PacketDecoder::receive(const Receiver& receiver)
{
    while (avcodec_receive_frame(context_.get(), frame_.get()) >= 0) {
        receiver(*frame_);
        av_frame_unref(frame_.get());
    }
}

} // namespace zib
