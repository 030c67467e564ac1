// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MprisPlayer.h"

#include "app/SongMetadata.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"

#include <QScopedValueRollback>

#include <cmath>
#include <utility>

namespace zib {
namespace {

constexpr double microsecondsPerSecond = 1e6;

} // namespace

MprisPlayer::MprisPlayer(QObject* parent, PlaybackQueue& playback, UserDefaults& defaults,
                         const RVDataManager& library, std::function<void(const QString&)> openUri)
    : QDBusAbstractAdaptor(parent)
    , playback_(playback)
    , defaults_(defaults)
    , library_(library)
    , openUri_(std::move(openUri))
{
    connect(&playback_, &PlaybackQueue::seeked, this,
            [this](double seconds) { Q_EMIT Seeked(std::llround(seconds * microsecondsPerSecond)); });
    connect(&playback_, &PlaybackQueue::trackChanged, this, [this] { hasNext_ = playback_.hasNextTrack(); });
    connect(&playback_, &PlaybackQueue::stateChanged, this, &MprisPlayer::pauseIfWanted);
}

// What is the case

QString MprisPlayer::playbackStatus() const
{
    switch (playback_.state()) {
    case PlaybackQueue::State::Playing:
        return QStringLiteral("Playing");
    case PlaybackQueue::State::Paused:
        return QStringLiteral("Paused");
    case PlaybackQueue::State::Stopped:
        break;
    }
    return QStringLiteral("Stopped");
}

QVariantMap MprisPlayer::metadata() const
{
    if (!hasSong())
        return {};
    const RVSongInfoDownloader* information = playback_.songInformation();
    return songMetadata(playback_.nowplayingTrack(), playback_.duration(),
                        information ? information->artwork() : QString());
}

double MprisPlayer::volume() const
{
    // The steps of the keyboard can leave the range a little.
    return qBound(0.0, defaults_.real(settings::SoundLevel), 1.0);
}

qlonglong MprisPlayer::position() const
{
    return std::llround(playback_.position() * microsecondsPerSecond);
}

bool MprisPlayer::canPlay() const
{
    return hasSong() || !library_.items().isEmpty();
}

// What is asked for

void MprisPlayer::soon(std::function<void()> action)
{
    QMetaObject::invokeMethod(
        this,
        [this, action = std::move(action)] {
            if (acting_) // the user has a message to answer first
                return;
            const QScopedValueRollback running(acting_, true);
            action();
        },
        Qt::QueuedConnection);
}

void MprisPlayer::setRate(double rate)
{
    if (rate == 0)
        Pause();
}

void MprisPlayer::setVolume(double level)
{
    if (!std::isnan(level))
        playback_.soundLevel().set(qBound(0.0, level, 1.0));
}

void MprisPlayer::Next()
{
    soon([this] {
        if (playback_.hasNextTrack())
            playback_.nextTrack();
    });
}

void MprisPlayer::Previous()
{
    soon([this] { playback_.backTrack(); });
}

void MprisPlayer::Pause()
{
    soon([this] { pause(); });
}

void MprisPlayer::PlayPause()
{
    soon([this] {
        if (playback_.state() == PlaybackQueue::State::Playing && !pauseWanted_)
            pause();
        else if (!std::exchange(pauseWanted_, false))
            playback_.playPause();
    });
}

void MprisPlayer::Stop()
{
    soon([this] {
        if (hasSong())
            playback_.stop();
    });
}

void MprisPlayer::Play()
{
    soon([this] {
        pauseWanted_ = false;
        if (playback_.state() != PlaybackQueue::State::Playing)
            playback_.playPause();
    });
}

void MprisPlayer::Seek(qlonglong Offset)
{
    soon([this, Offset] {
        const double target = playback_.position() + double(Offset) / microsecondsPerSecond;
        if (canSeek() && target > playback_.duration())
            Next();
        else
            playback_.seek(qMax(target, 0.0));
    });
}

void MprisPlayer::SetPosition(const QDBusObjectPath& TrackId, qlonglong Position)
{
    soon([this, TrackId, Position] {
        const QVariantMap song = metadata();
        // Meant for a song that is over, or for no place of this one.
        if (TrackId != trackIdOf(song) || Position < 0 || Position > lengthOf(song))
            return;
        playback_.seek(double(Position) / microsecondsPerSecond);
    });
}

void MprisPlayer::OpenUri(const QString& Uri)
{
    soon([this, Uri] { openUri_(Uri); });
}

void MprisPlayer::pause()
{
    pauseWanted_ = playback_.state() == PlaybackQueue::State::Playing;
    pauseIfWanted();
}

void MprisPlayer::pauseIfWanted()
{
    if (playback_.state() != PlaybackQueue::State::Playing)
        pauseWanted_ = false;
    else if (playback_.isPlaying() && std::exchange(pauseWanted_, false))
        playback_.pause();
}

} // namespace zib
