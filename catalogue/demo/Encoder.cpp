// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Encoder.h"

#include "catalogue/demo/Wavetables.h"

#include <QFile>
#include <QLoggingCategory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
}

#include <algorithm>
#include <cstring>
#include <memory>

namespace zib::demo {
namespace {

Q_LOGGING_CATEGORY(catalogueLog, "zib.catalogue")

struct Settings {
    const char* container;
    const char* codec;
    int bitRate;
    int quality; ///< variable rate: 0 best to 9; -1 for a constant rate
};

Settings settingsOf(Encoding encoding)
{
    switch (encoding) {
    case Encoding::Mp3Variable:
        return {"mp3", "libmp3lame", 0, 3};
    case Encoding::M4a:
        return {"ipod", "aac", 144000, -1};
    case Encoding::Adts:
        return {"adts", "aac", 128000, -1};
    case Encoding::Wav:
        return {"wav", "pcm_s16le", 0, -1};
    default:
        return {"mp3", "libmp3lame", 160000, -1};
    }
}

struct Free {
    void operator()(AVFormatContext* context) const
    {
        if (context->pb != nullptr)
            avio_closep(&context->pb);
        avformat_free_context(context);
    }
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

/// One file being written. Each step tells whether it went well.
class Writer {
  public:
    bool open(const TrackPlan& plan, const QString& path);
    bool addPicture(int size);
    bool begin(const QByteArray& cover);
    bool write(const std::vector<std::int16_t>& samples, const std::atomic<bool>& stop);

  private:
    bool openCodec(const Settings& settings);
    bool drain();
    void fill(const std::int16_t* samples, int count);

    std::unique_ptr<AVFormatContext, Free> container_;
    std::unique_ptr<AVCodecContext, Free> codec_;
    std::unique_ptr<AVFrame, Free> frame_;
    std::unique_ptr<AVPacket, Free> packet_{av_packet_alloc()};
    AVStream* sound_ = nullptr;
    AVStream* picture_ = nullptr;
};

bool Writer::openCodec(const Settings& settings)
{
    const AVCodec* codec = avcodec_find_encoder_by_name(settings.codec);
    if (codec == nullptr)
        return false;
    codec_.reset(avcodec_alloc_context3(codec));
    codec_->sample_rate = sampleRate;
    codec_->sample_fmt = codec->sample_fmts[0];
    if (std::strcmp(settings.codec, "libmp3lame") == 0)
        codec_->sample_fmt = AV_SAMPLE_FMT_S16P;
    codec_->time_base = {1, sampleRate};
    codec_->flags |= AV_CODEC_FLAG_BITEXACT;
    av_channel_layout_default(&codec_->ch_layout, 2);
    if (settings.quality >= 0) {
        codec_->flags |= AV_CODEC_FLAG_QSCALE;
        codec_->global_quality = settings.quality * FF_QP2LAMBDA;
    } else {
        codec_->bit_rate = settings.bitRate;
    }
    if ((container_->oformat->flags & AVFMT_GLOBALHEADER) != 0)
        codec_->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    // A listener waits: the quick searches of both encoders sound as good at these rates.
    AVDictionary* options = nullptr;
    av_dict_set(&options, "aac_coder", "fast", 0);
    av_dict_set(&options, "compression_level", "7", 0);
    const int result = avcodec_open2(codec_.get(), codec, &options);
    av_dict_free(&options);
    return result >= 0;
}

void setTags(AVDictionary** tags, const TrackPlan& plan)
{
    const auto set = [&](const char* key, const QString& value) {
        av_dict_set(tags, key, value.toUtf8().constData(), 0);
    };
    set("title", plan.track.title);
    set("artist", plan.artist);
    set("album_artist", plan.artist);
    set("album", plan.album);
    set("genre", plan.genre);
    set("track", QString::number(plan.number));
    set("date", QString::number(plan.year));
}

bool Writer::open(const TrackPlan& plan, const QString& path)
{
    const Settings settings = settingsOf(plan.encoding);
    AVFormatContext* container = nullptr;
    const QByteArray name = QFile::encodeName(path);
    if (avformat_alloc_output_context2(&container, nullptr, settings.container, name.constData()) < 0)
        return false;
    container_.reset(container);
    container_->flags |= AVFMT_FLAG_BITEXACT;
    if (!openCodec(settings))
        return false;
    sound_ = avformat_new_stream(container_.get(), nullptr);
    if (sound_ == nullptr || avcodec_parameters_from_context(sound_->codecpar, codec_.get()) < 0)
        return false;
    sound_->time_base = codec_->time_base;
    setTags(&container_->metadata, plan);
    return avio_open(&container_->pb, name.constData(), AVIO_FLAG_WRITE) >= 0;
}

bool Writer::addPicture(int size)
{
    picture_ = avformat_new_stream(container_.get(), nullptr);
    if (picture_ == nullptr)
        return false;
    picture_->codecpar->codec_type = AVMEDIA_TYPE_VIDEO;
    picture_->codecpar->codec_id = AV_CODEC_ID_MJPEG;
    picture_->codecpar->width = size;
    picture_->codecpar->height = size;
    picture_->codecpar->format = AV_PIX_FMT_YUVJ420P;
    picture_->disposition = AV_DISPOSITION_ATTACHED_PIC;
    picture_->time_base = {1, 90000};
    av_dict_set(&picture_->metadata, "comment", "Cover (front)", 0);
    return true;
}

bool Writer::begin(const QByteArray& cover)
{
    AVDictionary* options = nullptr;
    av_dict_set(&options, "movflags", "+faststart", 0); // playable while it is being fetched
    av_dict_set(&options, "id3v2_version", "3", 0);
    const int result = avformat_write_header(container_.get(), &options);
    av_dict_free(&options);
    if (result < 0 || picture_ == nullptr)
        return result >= 0;
    if (av_new_packet(packet_.get(), static_cast<int>(cover.size())) < 0)
        return false;
    std::memcpy(packet_->data, cover.constData(), static_cast<std::size_t>(cover.size()));
    packet_->stream_index = picture_->index;
    packet_->flags |= AV_PKT_FLAG_KEY;
    packet_->pts = packet_->dts = 0;
    return av_interleaved_write_frame(container_.get(), packet_.get()) >= 0;
}

void Writer::fill(const std::int16_t* samples, int count)
{
    frame_->nb_samples = count;
    switch (codec_->sample_fmt) {
    case AV_SAMPLE_FMT_FLTP:
        for (int channel = 0; channel < 2; ++channel) {
            auto* out = reinterpret_cast<float*>(frame_->data[channel]);
            for (int i = 0; i < count; ++i)
                out[i] = static_cast<float>(samples[2 * i + channel]) / 32768.0F;
        }
        break;
    case AV_SAMPLE_FMT_S16P:
        for (int channel = 0; channel < 2; ++channel) {
            auto* out = reinterpret_cast<std::int16_t*>(frame_->data[channel]);
            for (int i = 0; i < count; ++i)
                out[i] = samples[2 * i + channel];
        }
        break;
    default: // interleaved
        std::memcpy(frame_->data[0], samples, static_cast<std::size_t>(count) * 4);
        break;
    }
}

bool Writer::drain()
{
    for (;;) {
        const int result = avcodec_receive_packet(codec_.get(), packet_.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            return true;
        if (result < 0)
            return false;
        packet_->stream_index = sound_->index;
        av_packet_rescale_ts(packet_.get(), codec_->time_base, sound_->time_base);
        if (av_interleaved_write_frame(container_.get(), packet_.get()) < 0)
            return false;
    }
}

bool Writer::write(const std::vector<std::int16_t>& samples, const std::atomic<bool>& stop)
{
    const int step = codec_->frame_size > 0 ? codec_->frame_size : 4096;
    const auto frames = static_cast<std::int64_t>(samples.size() / 2);
    frame_.reset(av_frame_alloc());
    frame_->format = codec_->sample_fmt;
    frame_->sample_rate = sampleRate;
    frame_->nb_samples = step;
    if (av_channel_layout_copy(&frame_->ch_layout, &codec_->ch_layout) < 0 ||
        av_frame_get_buffer(frame_.get(), 0) < 0)
        return false;
    for (std::int64_t at = 0; at < frames; at += step) {
        if (stop || av_frame_make_writable(frame_.get()) < 0)
            return false;
        fill(samples.data() + 2 * at, static_cast<int>(std::min<std::int64_t>(step, frames - at)));
        frame_->pts = at;
        if (avcodec_send_frame(codec_.get(), frame_.get()) < 0 || !drain())
            return false;
    }
    return avcodec_send_frame(codec_.get(), nullptr) >= 0 && drain() &&
           av_write_trailer(container_.get()) >= 0 && avio_closep(&container_->pb) >= 0;
}

} // namespace

bool encode(const TrackPlan& plan, const std::vector<std::int16_t>& samples, const QByteArray& cover,
            int coverSize, const QString& path, const std::atomic<bool>& stop)
{
    // The encoders' remarks on files that are well are not for our log.
    av_log_set_level(AV_LOG_ERROR);
    Writer writer;
    const bool hasPlace =
        plan.encoding != Encoding::Adts && plan.encoding != Encoding::Wav && !cover.isEmpty();
    const bool done = writer.open(plan, path) && (!hasPlace || writer.addPicture(coverSize)) &&
                      writer.begin(hasPlace ? cover : QByteArray()) && writer.write(samples, stop);
    if (!done && !stop)
        qCWarning(catalogueLog) << "cannot encode" << path;
    return done;
}

} // namespace zib::demo
