// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/MovieFile.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace zib {

namespace {

/// Decoders that borrow from the packets before need a run-up to the place that was asked for.
constexpr double kRunUp = 0.25;                  // seconds
constexpr const char* kMostProbed = "2000000";   // bytes
constexpr const char* kMostAnalysed = "2000000"; // microseconds
/// Containers of sound. A list of songs or a slide show is none, and could name other files.
constexpr const char* kContainers =
    "aac,ac3,aiff,amr,ape,asf,au,avi,caf,dsf,dts,eac3,flac,iff,loas,"
    "matroska,webm,mov,mp4,m4a,3gp,3g2,mj2,mp3,mpc,mpc8,mpeg,mpegts,nut,ogg,oma,"
    "rm,sox,tak,tta,voc,w64,wav,wv,xwma";

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(MovieFile)
};

int interruptedBy(void* flag)
{
    return *static_cast<std::atomic<bool>*>(flag) ? 1 : 0;
}

} // namespace

std::unique_ptr<MovieFile> MovieFile::open(const QString& path, QString& error)
{
    auto file = std::unique_ptr<MovieFile>(new MovieFile);
    error = file->openFile(path);
    if (!error.isEmpty())
        return nullptr;
    return file;
}

MovieFile::~MovieFile()
{
    avformat_close_input(&container_);
}

QString MovieFile::openFile(const QString& path)
{
    const QFileInfo info(path);
    const QString name = info.fileName();
    if (!info.isFile()) // a pipe would never answer
        return Texts::tr("“%1” is not a file.").arg(name);
    QFile readable(path);
    if (!readable.open(QIODevice::ReadOnly))
        return Texts::tr("“%1” could not be opened: %2").arg(name, readable.errorString());
    readable.close();

    container_ = avformat_alloc_context();
    container_->interrupt_callback = {interruptedBy, &interrupted_};
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", "file", 0);
    av_dict_set(&options, "format_whitelist", kContainers, 0);
    av_dict_set(&options, "probesize", kMostProbed, 0);
    av_dict_set(&options, "analyzeduration", kMostAnalysed, 0);
    const QByteArray url = "file:" + QFile::encodeName(info.absoluteFilePath());
    const int status = avformat_open_input(&container_, url.constData(), nullptr, &options);
    av_dict_free(&options);
    QString notSound = Texts::tr("“%1” holds no sound that can be played.").arg(name);
    if (status < 0 || avformat_find_stream_info(container_, nullptr) < 0)
        return notSound;
    const int best = av_find_best_stream(container_, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
    if (best < 0)
        return notSound;
    for (unsigned i = 0; i < container_->nb_streams; ++i)
        container_->streams[i]->discard = static_cast<int>(i) == best ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    stream_ = container_->streams[best];
    return openDecoder() ? QString() : notSound;
}

bool MovieFile::openDecoder()
{
    const AVCodec* codec = avcodec_find_decoder(stream_->codecpar->codec_id);
    decoder_.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
    packet_.reset(av_packet_alloc());
    frame_.reset(av_frame_alloc());
    if (!decoder_ || avcodec_parameters_to_context(decoder_.get(), stream_->codecpar) < 0)
        return false;
    decoder_->pkt_timebase = stream_->time_base;
    decoder_->thread_count = 1;
    if (avcodec_open2(decoder_.get(), codec, nullptr) < 0)
        return false;

    const double unit = av_q2d(stream_->time_base);
    if (stream_->start_time != AV_NOPTS_VALUE)
        start_ = static_cast<double>(stream_->start_time) * unit;
    if (stream_->duration > 0)
        duration_ = static_cast<double>(stream_->duration) * unit;
    else if (container_->duration > 0)
        duration_ = static_cast<double>(container_->duration) / AV_TIME_BASE;

    // The first frame tells the shape, which the file's head may tell wrongly.
    std::vector<float> first;
    if (!read(first))
        return false;
    format_ = converter_.format();
    seek(0);
    return true;
}

bool MovieFile::read(std::vector<float>& samples)
{
    samples.clear();
    while (samples.empty() && !drained_ && !interrupted_) {
        const int status = av_read_frame(container_, packet_.get());
        if (status >= 0 && packet_->stream_index != stream_->index) {
            av_packet_unref(packet_.get());
            continue;
        }
        // Whatever ends the file, what the decoder holds back is heard.
        drained_ = status < 0;
        avcodec_send_packet(decoder_.get(), drained_ ? nullptr : packet_.get());
        av_packet_unref(packet_.get());
        receive(samples);
    }
    return !samples.empty();
}

void MovieFile::receive(std::vector<float>& samples)
{
    while (avcodec_receive_frame(decoder_.get(), frame_.get()) >= 0) {
        skipToTarget(*frame_, samples);
        av_frame_unref(frame_.get());
    }
}

void MovieFile::skipToTarget(const AVFrame& frame, std::vector<float>& samples)
{
    const auto before = samples.size();
    converter_.convert(frame, samples);
    if (!target_ || samples.size() == before)
        return;
    if (frame.best_effort_timestamp == AV_NOPTS_VALUE) {
        target_.reset(); // no way to know better
        return;
    }
    const double time =
        static_cast<double>(frame.best_effort_timestamp) * av_q2d(stream_->time_base) - start_;
    const auto& format = converter_.format();
    const auto frames =
        static_cast<std::int64_t>((samples.size() - before) / static_cast<std::size_t>(format.channels));
    const auto early = std::clamp<std::int64_t>(std::llround((*target_ - time) * format.rate), 0, frames);
    const auto from = samples.begin() + static_cast<std::ptrdiff_t>(before);
    samples.erase(from, from + static_cast<std::ptrdiff_t>(early) * format.channels);
    if (early < frames)
        target_.reset();
}

void MovieFile::seek(double seconds)
{
    const auto unit = av_q2d(stream_->time_base);
    const auto wanted = static_cast<std::int64_t>((std::max(0.0, seconds - kRunUp) + start_) / unit);
    if (av_seek_frame(container_, stream_->index, wanted, AVSEEK_FLAG_BACKWARD) < 0)
        av_seek_frame(container_, stream_->index, 0, AVSEEK_FLAG_BYTE);
    avcodec_flush_buffers(decoder_.get());
    drained_ = false;
    target_ = std::max(0.0, seconds);
}

} // namespace zib
