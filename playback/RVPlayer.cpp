// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/RVPlayer.h"

#include "platform/Alerts.h"
#include "platform/Desktop.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "playback/detail/AudioStreamerInternals.h"
#include "services/utilities/DownloadedCopy.h"
#include "services/utilities/PathUtilities.h"
#include "services/utilities/SongPaths.h"

#include <QFileInfo>

#include <chrono>
#include <limits>

namespace zib {

namespace {

constexpr std::chrono::milliseconds progressInterval{100};

int wholeSeconds(double seconds)
{
    return static_cast<int>(std::clamp<qint64>(truncated(seconds), std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

int wholeSeconds(MovieTime time)
{
    return time.scale == 0 ? 0 : static_cast<int>(time.value / time.scale);
}

double seconds(MovieTime time)
{
    return time.scale == 0 ? 0 : static_cast<double>(time.value) / time.scale;
}

} // namespace

RVPlayer::RVPlayer(RVPlayerDelegate* delegate, const AudioStreamerPorts& ports, Movies& movies,
                   Desktop& desktop)
    : ports_(ports)
    , movies_(movies)
    , desktop_(desktop)
    , delegate_(delegate)
{
    connect(&movies_, &Movies::movieDidEnd, this, [this](Movie* movie) {
        if (delegate_ != nullptr)
            delegate_->movieDidEnd(*movie);
    });
}

RVPlayer::~RVPlayer()
{
    stop();
}

void RVPlayer::playTrack(const Record& track)
{
    stop();
    QString path;
    const QString location = track.string(keys::Location);
    if (location.startsWith(QLatin1String("file://"))) {
        path = pathOfFileUrl(location);
    } else {
        const SongPaths paths(ports_.defaults);
        if (paths.musicFolder().isEmpty()) {
            qCWarning(playbackLog).noquote()
                << QStringLiteral("Nil dirpath for %1!?").arg(track.string(keys::Name));
            stop();
            return;
        }
        path = downloadedCopy(paths, track);
    }
    if (path.isEmpty() ? playStream(track) : playFile(track, path))
        scheduleProgressUpdates();
}

bool RVPlayer::playFile(const Record& track, const QString& path)
{
    if (!QFileInfo::exists(path)) {
        if (AudioStreamerDelegate* const manager = dataManager())
            manager->fileNotFound(track);
        runAlert(tr("File not found"), tr("The file at path %1 could not be located.").arg(path));
        return false;
    }
    QString error;
    setQtMovie(movies_.open(path, error));
    if (!qtMovie_) {
        runAlert(error, {});
        return false;
    }
    qtMovie_->setVolume(static_cast<float>(ports_.defaults.real(settings::SoundLevel)));
    qtMovie_->play();
    return true;
}

bool RVPlayer::playStream(const Record& track)
{
    setStreamer(AudioStreamer::initWithDict(track, dataManager(), ports_));
    if (!streamer_)
        return false;
    streamer_->start();
    connect(streamer_.get(), &AudioStreamer::ASStatusChangedNotification, this,
            [this](AudioStreamer* streamer) {
                if (delegate_ != nullptr)
                    delegate_->playbackStateChanged(*streamer);
            });
    return true;
}

void RVPlayer::scheduleProgressUpdates()
{
    auto timer = std::make_unique<QTimer>();
    timer->setInterval(progressInterval);
    connect(timer.get(), &QTimer::timeout, this, [this] {
        if (delegate_ != nullptr)
            delegate_->updateProgress();
    });
    timer->start();
    setProgressUpdateTimer(std::move(timer));
}

void RVPlayer::runAlert(const QString& message, const QString& informativeText)
{
    desktop_.bringToFront();
    desktop_.beep();
    Alert alert;
    alert.style = Alert::Style::Warning;
    alert.messageText = message;
    alert.informativeText = informativeText;
    alert.buttons = {tr("OK")};
    ports_.alerts.runModal(alert);
}

AudioStreamerDelegate* RVPlayer::dataManager() const
{
    return delegate_ == nullptr ? nullptr : delegate_->dataManager();
}

void RVPlayer::playPause()
{
    if (streamer_) {
        if (streamer_->isPlaying())
            streamer_->pause();
        else
            streamer_->start();
    } else if (qtMovie_) {
        qtMovie_->setRate(qtMovie_->rate() == 1.0F ? 0.0F : 1.0F);
    }
}

void RVPlayer::stop()
{
    if (const auto streamer = std::move(streamer_)) {
        disconnect(streamer.get(), nullptr, this, nullptr);
        streamer->stop();
    }
    if (const auto movie = std::move(qtMovie_))
        movie->stop();
    setProgressUpdateTimer(nullptr);
}

void RVPlayer::backTrack()
{
    if (qtMovie_) {
        qtMovie_->stop();
        qtMovie_->gotoBeginning();
        qtMovie_->play();
    } else if (streamer_) {
        streamer_->seekToTime(0);
    }
}

void RVPlayer::seekToTime(double percent)
{
    if (!isPlaying())
        return;
    if (streamer_) {
        if (length() != 0)
            streamer_->seekToTime(percent / 100 * length());
    } else {
        constexpr qint32 scale = 1000;
        qtMovie_->setCurrentTime({truncated(length() * percent / 100 * scale), scale});
    }
}

void RVPlayer::setVolume(float volume)
{
    if (qtMovie_)
        qtMovie_->setVolume(volume);
    else if (streamer_)
        streamer_->setVolume(volume);
}

bool RVPlayer::isPlaying() const
{
    if (streamer_)
        return streamer_->isPlaying();
    return qtMovie_ && qtMovie_->rate() == 1.0F;
}

bool RVPlayer::isPaused() const
{
    if (streamer_)
        return streamer_->isPaused();
    return qtMovie_ && qtMovie_->rate() != 1.0F;
}

bool RVPlayer::hasMedia() const
{
    return qtMovie_ || streamer_;
}

bool RVPlayer::isStreaming() const
{
    return streamer_ != nullptr;
}

int RVPlayer::currentTime() const
{
    if (streamer_)
        return wholeSeconds(streamer_->progress());
    return qtMovie_ ? wholeSeconds(qtMovie_->currentTime()) : 0;
}

int RVPlayer::duration() const
{
    if (streamer_)
        return wholeSeconds(streamer_->duration());
    return qtMovie_ ? wholeSeconds(qtMovie_->duration()) : 0;
}

double RVPlayer::position() const
{
    if (streamer_)
        return streamer_->progress();
    return qtMovie_ ? seconds(qtMovie_->currentTime()) : 0;
}

double RVPlayer::length() const
{
    return streamer_ ? streamer_->duration() : duration();
}

int RVPlayer::remainingTime()
{
    if (streamer_) {
        if (streamer_->bitRate() == 0)
            return -1;
        const int whole = duration();
        return wholeSeconds(whole - streamer_->progress());
    }
    if (!qtMovie_)
        return -1;
    if (qtMovie_->duration().value == 0) {
        qCWarning(playbackLog) << "div by zero crash ahead! cancelling...";
        stop();
        return 0;
    }
    return wholeSeconds(qtMovie_->duration()) - wholeSeconds(qtMovie_->currentTime());
}

void RVPlayer::setStreamer(std::unique_ptr<AudioStreamer> streamer)
{
    streamer_ = std::move(streamer);
}

void RVPlayer::setQtMovie(std::unique_ptr<Movie> movie)
{
    qtMovie_ = std::move(movie);
}

void RVPlayer::setDelegate(RVPlayerDelegate* delegate)
{
    delegate_ = delegate;
}

void RVPlayer::setProgressUpdateTimer(std::unique_ptr<QTimer> timer)
{
    progressUpdateTimer_ = std::move(timer);
}

} // namespace zib
