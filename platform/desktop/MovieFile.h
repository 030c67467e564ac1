// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/AudioDecoder.h"

#include <QString>

#include <atomic>
#include <optional>

struct AVFormatContext;
struct AVStream;

namespace zib {

/// An audio file on disk, decoded from any place. One thread at a time, but for interrupt().
class MovieFile {
  public:
    /// Reads no more than the head of the file. Null, with a localized description, when it can't be played.
    static std::unique_ptr<MovieFile> open(const QString& path, QString& error);
    MovieFile(const MovieFile&) = delete;
    MovieFile& operator=(const MovieFile&) = delete;
    ~MovieFile();

    [[nodiscard]] const SoundFormat& format() const { return format_; }
    /// Seconds, 0 when the file does not tell.
    [[nodiscard]] double duration() const { return duration_; }

    /// Replaces the samples by the next ones. @return false at the end
    bool read(std::vector<float>& samples);
    /// The next read begins at that time, to the frame, or at the end if that comes first.
    void seek(double seconds);
    /// Ends a read that waits for the disk. Any thread; for good.
    void interrupt() { interrupted_ = true; }

  private:
    MovieFile() = default;
    QString openFile(const QString& path);
    bool openDecoder();
    void receive(std::vector<float>& samples);
    void skipToTarget(const AVFrame& frame, std::vector<float>& samples);

    AVFormatContext* container_ = nullptr;
    AVStream* stream_ = nullptr;
    std::unique_ptr<AVCodecContext, AvFree> decoder_;
    std::unique_ptr<AVPacket, AvFree> packet_;
    std::unique_ptr<AVFrame, AvFree> frame_;
    FrameConverter converter_;
    SoundFormat format_;
    double duration_ = 0;
    double start_ = 0;             ///< the time stamp of the first frame, seconds
    std::optional<double> target_; ///< frames before it are dropped
    bool drained_ = false;
    std::atomic<bool> interrupted_ = false;
};

} // namespace zib
