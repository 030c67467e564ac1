// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/PulseOutput.h"

#include "platform/desktop/PulseConnection.h"

#include <algorithm>
#include <utility>

namespace zib {

namespace {

/// What the server holds of a song. Long enough that a busy machine does not starve it, and short enough for
/// the ring of a streamer that keeps little. A pause and a new volume do not wait for it.
constexpr pa_usec_t kBuffered = 250'000;
/// The piece it asks for at a time: each costs a wake-up of the feeder.
constexpr pa_usec_t kPiece = 50'000;
/// Frames this close to being heard are not replaced any more.
constexpr pa_usec_t kTooLate = 10'000;

class PulseStream final : public SoundStream, private PulseConnection::Waiting {
  public:
    PulseStream(std::shared_ptr<PulseConnection> connection, const SoundFormat& format,
                std::shared_ptr<WakeSignal> feeder);
    PulseStream(const PulseStream&) = delete;
    PulseStream& operator=(const PulseStream&) = delete;
    ~PulseStream() override;

    State state() override;
    std::size_t room() override;
    void write(std::span<const float> samples) override;
    std::size_t takeBack(std::size_t frames) override;
    void setRunning(bool running) override;
    void drain() override;
    bool drained() override;
    std::int64_t heard() override;
    std::optional<std::chrono::milliseconds> nextLook() override { return std::nullopt; }

  private:
    void settle() override;
    void open(pa_context* context);
    void stateChanged();
    void timeTold();
    [[nodiscard]] std::int64_t timeNow() const;
    [[nodiscard]] std::int64_t heardNow() const;

    const std::shared_ptr<PulseConnection> connection_;
    const std::shared_ptr<WakeSignal> feeder_;
    const pa_sample_spec shape_;
    const std::size_t frameSize_;
    // Guarded by the mainloop's lock.
    pa_stream* stream_ = nullptr;
    State state_ = State::Opening;
    bool running_ = false;
    bool drained_ = false;
    std::int64_t written_ = 0; ///< frames
    std::int64_t told_ = 0;    ///< the time heard in microseconds, as the server last told
    std::chrono::steady_clock::time_point toldAt_;
    bool moving_ = false;       ///< whether it went on from there
    std::size_t takenBack_ = 0; ///< frames that the next write replaces
};

PulseStream::PulseStream(std::shared_ptr<PulseConnection> connection, const SoundFormat& format,
                         std::shared_ptr<WakeSignal> feeder)
    : connection_(std::move(connection))
    , feeder_(std::move(feeder))
    , shape_{PA_SAMPLE_FLOAT32NE, static_cast<std::uint32_t>(format.rate),
             static_cast<std::uint8_t>(format.channels)}
    , frameSize_(pa_frame_size(&shape_))
{
    const PulseConnection::Guard guard(*connection_);
    if (connection_->readyContext() || connection_->absent())
        settle();
    else
        connection_->addWaiting(*this);
}

PulseStream::~PulseStream()
{
    const PulseConnection::Guard guard(*connection_);
    connection_->removeWaiting(*this);
    if (!stream_)
        return;
    pa_stream_set_state_callback(stream_, nullptr, nullptr);
    pa_stream_set_write_callback(stream_, nullptr, nullptr);
    pa_stream_set_latency_update_callback(stream_, nullptr, nullptr);
    pa_stream_disconnect(stream_); // cancels a drain too
    pa_stream_unref(stream_);
}

void PulseStream::settle()
{
    if (auto* context = connection_->readyContext())
        open(context);
    else
        state_ = State::Failed;
    feeder_->wake();
}

void PulseStream::open(pa_context* context)
{
    pa_channel_map map;
    pa_proplist* properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_MEDIA_ROLE, "music");
    if (pa_channel_map_init_extend(&map, shape_.channels, PA_CHANNEL_MAP_WAVEEX))
        stream_ = pa_stream_new_with_proplist(context, "Music", &shape_, &map, properties);
    pa_proplist_free(properties);
    if (!stream_) {
        qCWarning(lcSound) << "no stream of" << shape_.rate << "Hz and" << shape_.channels
                           << "channels:" << pa_strerror(pa_context_errno(context));
        state_ = State::Failed;
        return;
    }
    pa_stream_set_state_callback(
        stream_, [](pa_stream*, void* self) { static_cast<PulseStream*>(self)->stateChanged(); }, this);
    pa_stream_set_write_callback(
        stream_,
        [](pa_stream*, std::size_t, void* self) { static_cast<PulseStream*>(self)->feeder_->wake(); }, this);
    pa_stream_set_latency_update_callback(
        stream_, [](pa_stream*, void* self) { static_cast<PulseStream*>(self)->timeTold(); }, this);
    pa_stream_set_underflow_callback(
        stream_, [](pa_stream*, void*) { qCDebug(lcSound) << "the sound server has nothing to play"; },
        nullptr);
    constexpr auto byDefault = static_cast<std::uint32_t>(-1);
    const pa_buffer_attr buffer{
        .maxlength = byDefault,
        .tlength = static_cast<std::uint32_t>(pa_usec_to_bytes(kBuffered, &shape_)),
        .prebuf = static_cast<std::uint32_t>(frameSize_), // sounds from the first frame, and after a gap too
        .minreq = static_cast<std::uint32_t>(pa_usec_to_bytes(kPiece, &shape_)),
        .fragsize = byDefault,
    };
    const auto flags = static_cast<pa_stream_flags_t>(
        PA_STREAM_AUTO_TIMING_UPDATE | PA_STREAM_ADJUST_LATENCY | (running_ ? 0 : PA_STREAM_START_CORKED));
    if (pa_stream_connect_playback(stream_, nullptr, &buffer, flags, nullptr, nullptr) < 0)
        state_ = State::Failed;
}

void PulseStream::stateChanged()
{
    switch (pa_stream_get_state(stream_)) {
    case PA_STREAM_READY:
        state_ = State::Ready;
        break;
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
        state_ = State::Failed;
        break;
    default:
        return;
    }
    feeder_->wake();
}

SoundStream::State PulseStream::state()
{
    const PulseConnection::Guard guard(*connection_);
    return state_;
}

std::size_t PulseStream::room()
{
    const PulseConnection::Guard guard(*connection_);
    if (state_ != State::Ready)
        return 0;
    const auto bytes = pa_stream_writable_size(stream_);
    return (bytes == static_cast<std::size_t>(-1) ? 0 : bytes / frameSize_) + takenBack_;
}

void PulseStream::write(std::span<const float> samples)
{
    const PulseConnection::Guard guard(*connection_);
    if (state_ != State::Ready)
        return;
    const auto back = -static_cast<std::int64_t>(std::exchange(takenBack_, 0) * frameSize_);
    const auto bytes = samples.size_bytes();
    if (pa_stream_write(stream_, samples.data(), bytes, nullptr, back, PA_SEEK_RELATIVE) < 0)
        state_ = State::Failed;
    else
        written_ += static_cast<std::int64_t>(bytes / frameSize_);
}

std::size_t PulseStream::takeBack(std::size_t frames)
{
    const PulseConnection::Guard guard(*connection_);
    if (state_ != State::Ready || takenBack_ > 0)
        return 0;
    const auto late = static_cast<std::int64_t>(pa_usec_to_bytes(kTooLate, &shape_) / frameSize_);
    const auto unheard = std::max<std::int64_t>(0, written_ - heardNow() - (running_ ? late : 0));
    takenBack_ = std::min(frames, static_cast<std::size_t>(unheard));
    written_ -= static_cast<std::int64_t>(takenBack_);
    return takenBack_;
}

void PulseStream::setRunning(bool running)
{
    const PulseConnection::Guard guard(*connection_);
    if (running_ == running)
        return;
    told_ = timeNow();
    toldAt_ = std::chrono::steady_clock::now();
    running_ = running;
    if (!stream_)
        return;
    if (auto* operation = pa_stream_cork(stream_, running ? 0 : 1, nullptr, nullptr))
        pa_operation_unref(operation);
}

void PulseStream::drain()
{
    const PulseConnection::Guard guard(*connection_);
    if (state_ != State::Ready)
        return;
    auto* operation = pa_stream_drain(
        stream_,
        [](pa_stream*, int, void* self) {
            auto& stream = *static_cast<PulseStream*>(self);
            stream.drained_ = true;
            stream.feeder_->wake();
        },
        this);
    if (operation)
        pa_operation_unref(operation);
    else
        drained_ = true;
}

bool PulseStream::drained()
{
    const PulseConnection::Guard guard(*connection_);
    return drained_;
}

std::int64_t PulseStream::heard()
{
    const PulseConnection::Guard guard(*connection_);
    return heardNow();
}

void PulseStream::timeTold()
{
    const pa_timing_info* info = pa_stream_get_timing_info(stream_);
    if (!info || info->read_index_corrupt)
        return;
    const auto time = [this](std::int64_t bytes) {
        return static_cast<std::int64_t>(
            pa_bytes_to_usec(static_cast<std::uint64_t>(std::max<std::int64_t>(0, bytes)), &shape_));
    };
    // What the device holds is not heard yet; behind the last frame it holds silence.
    auto held = static_cast<std::int64_t>(info->sink_usec);
    if (!info->playing && info->read_index >= info->write_index)
        held = std::max<std::int64_t>(0, held - time(info->since_underrun));
    told_ = time(info->read_index) - held;
    if (info->playing)
        told_ += static_cast<std::int64_t>(info->transport_usec); // the news has been on its way
    toldAt_ = std::chrono::steady_clock::now();
    moving_ = info->playing != 0;
}

/// Not the library's own interpolation, which begins to count before the sound does.
std::int64_t PulseStream::timeNow() const
{
    if (!running_ || !moving_)
        return told_;
    using std::chrono::microseconds;
    return told_ +
           std::chrono::duration_cast<microseconds>(std::chrono::steady_clock::now() - toldAt_).count();
}

std::int64_t PulseStream::heardNow() const
{
    const auto time = static_cast<pa_usec_t>(std::max<std::int64_t>(0, timeNow()));
    return std::min(static_cast<std::int64_t>(pa_usec_to_bytes(time, &shape_) / frameSize_), written_);
}

} // namespace

PulseOutput::PulseOutput()
    : connection_(std::make_shared<PulseConnection>())
{
}

PulseOutput::~PulseOutput() = default;

void PulseOutput::connect(Search search)
{
    connection_->connect(search);
}

SoundOutput::Presence PulseOutput::presence()
{
    return connection_->presence();
}

std::unique_ptr<SoundStream> PulseOutput::open(const SoundFormat& format, std::shared_ptr<WakeSignal> feeder)
{
    return std::make_unique<PulseStream>(connection_, format, std::move(feeder));
}

} // namespace zib
