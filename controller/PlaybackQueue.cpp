// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/PlaybackQueue.h"

#include "controller/ControllerContext.h"
#include "controller/MainWindowView.h"
#include "controller/Notices.h"
#include "controller/SongPlaces.h"
#include "library/RVDataManager.h"
#include "library/SongDownloads.h"
#include "platform/Clock.h"
#include "platform/SettingsKeys.h"
#include "platform/TableView.h"
#include "platform/UserDefaults.h"
#include "records/PropertyValue.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>
#include <QLoggingCategory>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.controller")

constexpr int secondsThatGoBack = 4;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(PlaybackQueue)
};

} // namespace

PlaybackQueue::PlaybackQueue(ControllerContext& context, RVPlayer& player, const WebServices& services)
    : context_(context)
    , player_(player)
    , clock_(services.clock)
    , soundLevel_(player, context.defaults)
    , streamReports_(context)
    , display_(context, services)
{
    connect(&display_, &NowPlayingDisplay::completed, this, [this] {
        if (player_.hasMedia())
            setArtworkForCurrentTrack();
        Q_EMIT songInformationCompleted();
    });
}

// Choosing and starting

void PlaybackQueue::songSelected()
{
    const QList<Record>& items = context_.dataManager.items();
    if (items.isEmpty())
        return;
    const QList<int> rows = context_.dataManager.playlistsTableView().selectedRows();
    const Record track = items.value(rows.isEmpty() ? 0 : rows.first());
    if (!track)
        return;
    if (!context_.connectedToInternet && !isLocalFile(track) && !track.boolean(keys::Downloaded)) {
        context_.notices.runErrorAlert(
            Texts::tr("You are not connected to the Internet"),
            Texts::tr("This computer’s Internet connection appears to be offline."));
        return;
    }
    updateSnapshot();
    playTrack(snapshot_->playlistItems[rows.value(0)]);
}

/// A playlist shows the library's own records, and the next playlist that shows the same songs numbers them
/// anew; what plays next must not follow that.
QList<Record> PlaybackQueue::frozenItems(const QList<Record>& items) const
{
    if (context_.dataManager.currentSourceType() != SourceType::Playlists)
        return items;
    QList<Record> frozen;
    frozen.reserve(items.size());
    for (const Record& item : items)
        frozen.append(item.copy());
    return frozen;
}

void PlaybackQueue::updateSnapshot()
{
    const RVDataManager& library = context_.dataManager;
    snapshot_ = NowPlayingSnapshot{
        .playlistIndex = library.currentPlaylistIndex(),
        .sourceType = library.currentSourceType(),
        .playlistItems = frozenItems(library.items()),
        .indexPath = library.currentIndexPath(),
        .playlistUid = library.currentUID(),
        .filterType = library.currentFilterType(),
        .track = {},
    };
}

void PlaybackQueue::playTrack(const Record& chosen)
{
    Record track = chosen;
    player_.stop();
    context_.window.setLoaderAnimating(false);
    context_.window.setStreamingMarkVisible(false);
    context_.window.setRemainingText(QStringLiteral("-0:00"));

    player_.playTrack(track);
    context_.window.setPlaying(player_.isPlaying());
    context_.window.setFavorite(track.boolean(keys::Favorite));
    context_.window.setFavoriteEnabled(true);

    const bool playsFile = player_.isPlaying() && !player_.isStreaming();
    if (playsFile)
        adoptLocalFile(track);
    if (snapshot_)
        snapshot_->track = track;
    showDownloaded();
    reloadTracks();

    if (player_.hasMedia())
        showTrack();
    Q_EMIT trackChanged();
    Q_EMIT stateChanged();
}

void PlaybackQueue::showTrack()
{
    if (context_.connectedToInternet)
        display_.request(nowplayingTrack());
    else
        display_.drop(); // what it says is of another song
    setArtworkForCurrentTrack();
}

/// A song that plays from disk is not broken, and one from the web that does has been downloaded.
void PlaybackQueue::adoptLocalFile(Record& track)
{
    if (track.boolean(keys::BrokenLink))
        track = withIndex(context_.dataManager.fileRefound(track), track);
    if (!isLocalFile(track))
        track.set(keys::Downloaded, true);
}

void PlaybackQueue::playPause()
{
    if (player_.hasMedia())
        player_.playPause();
    else
        songSelected();
    context_.window.setPlaying(player_.isPlaying());
    Q_EMIT stateChanged();
}

void PlaybackQueue::pause()
{
    if (player_.isPlaying())
        playPause();
}

void PlaybackQueue::stop()
{
    player_.stop();
    context_.window.setLoaderAnimating(false);
    context_.window.setStreamingMarkVisible(false);
    context_.window.setPlaying(player_.isPlaying());
    context_.window.setProgress(0);
    context_.window.setProgressEnabled(false);
    snapshot_.reset();
    display_.drop();
    reloadTracks();
    context_.window.setRemainingText({});
    context_.window.setElapsedText({});
    display_.showIdleBanner();
    context_.window.setFavorite(false);
    context_.window.setFavoriteEnabled(false);
    showDownloaded();
    Q_EMIT stopped();
    Q_EMIT trackChanged();
    Q_EMIT stateChanged();
}

PlaybackQueue::State PlaybackQueue::state() const
{
    if (!player_.hasMedia())
        return State::Stopped;
    return player_.isPaused() ? State::Paused : State::Playing;
}

void PlaybackQueue::showDownloaded()
{
    const Record track = nowplayingTrack();
    const bool onDisk = isLocalFile(track) || track.boolean(keys::Downloaded);
    context_.window.setDownloaded(onDisk || context_.downloads.isRunning(track.string(keys::Id)));
    context_.window.setDownloadEnabled(track && !onDisk);
}

// Next and back

void PlaybackQueue::nextTrack()
{
    if (!player_.hasMedia())
        return;
    if (player_.currentTime() >= player_.duration() / 2)
        countPlay();
    const int index = indexOfCurrentItem();
    if (index < 0) {
        qCWarning(log).noquote() << QStringLiteral("current track not found! %1\n%2")
                                        .arg(nowplayingTrackIndex())
                                        .arg(snapshot_ ? snapshot_->itemNames() : QString());
        return;
    }
    playFrom(index + 1, 1);
}

void PlaybackQueue::backTrack()
{
    if (!player_.hasMedia())
        return;
    if (player_.currentTime() < secondsThatGoBack) {
        const int index = indexOfCurrentItem();
        if (index < 0) {
            qCWarning(log, "current track not found!");
            return;
        }
        if (index > 0) {
            playFrom(index - 1, -1);
            return;
        }
    }
    player_.backTrack();
    Q_EMIT seeked(0);
}

bool PlaybackQueue::hasNextTrack() const
{
    const int index = indexOfCurrentItem();
    return index >= 0 && player_.hasMedia() &&
           snapshot_->playableFrom(index + 1, 1, context_.connectedToInternet);
}

void PlaybackQueue::playFrom(int index, int step)
{
    if (const Record track = snapshot_->playableFrom(index, step, context_.connectedToInternet))
        playTrack(track);
    else
        stop();
}

void PlaybackQueue::countPlay()
{
    const Record track = nowplayingTrack();
    if (!track)
        return;
    const PropertyValue count(track.integer(keys::PlayCount) + 1);
    const PropertyValue date(clock_.now());
    // The same song can be several objects: what is shown are copies of what is kept.
    for (Record& holder : context_.dataManager.holdersOf(track)) {
        holder.set(keys::PlayCount, count);
        holder.set(keys::PlayDate, date);
    }
    reloadTracks();
    context_.dataManager.saveLibrary();
}

// Position

void PlaybackQueue::scanTrack(double percent)
{
    if (!canSeek())
        return;
    player_.seekToTime(percent);
    Q_EMIT seeked(player_.length() * percent / 100);
}

void PlaybackQueue::seek(double seconds)
{
    if (canSeek())
        scanTrack(seconds / player_.length() * 100);
}

// What the player reports

void PlaybackQueue::updateProgress()
{
    const int current = player_.currentTime();
    const int duration = player_.duration();
    const int remaining = duration - current;
    context_.window.setElapsedText(timeString(current));
    if (remaining < 1) {
        context_.window.setRemainingText({});
        context_.window.setProgressEnabled(false);
    } else {
        context_.window.setRemainingText(QLatin1Char('-') + timeString(remaining));
        context_.window.setProgress(int(qint64(current) * 100 / duration));
        context_.window.setProgressEnabled(true);
    }
    Q_EMIT progressUpdated();
}

void PlaybackQueue::playbackStateChanged(AudioStreamer& streamer)
{
    MainWindowView& window = context_.window;
    if (streamer.isWaiting()) {
        window.setStreamingMarkVisible(false);
        window.setLoaderAnimating(context_.connectedToInternet);
        if (context_.connectedToInternet)
            setStatus(Texts::tr("Buffering..."));
        else
            endOfSong();
    } else if (streamer.isPlaying()) {
        window.setLoaderAnimating(false);
        soundLevel_.restore();
        window.setStreamingMarkVisible(true);
        setArtworkForCurrentTrack();
        window.setPlaying(true);
        if (snapshot_ && snapshot_->track.boolean(keys::BrokenLink)) {
            setNowplayingTrack(context_.dataManager.fileRefound(snapshot_->track));
            reloadTracks();
        }
    } else if (streamer.isIdle()) {
        setStatus(Texts::tr("Idle"));
        window.setStreamingMarkVisible(false);
        window.setLoaderAnimating(false);
        endOfSong();
    }
    Q_EMIT stateChanged();
}

void PlaybackQueue::movieDidEnd(Movie&)
{
    endOfSong();
}

void PlaybackQueue::endOfSong()
{
    const bool goesOn = (snapshot_ && RVDataManager::sourceIsContinuos(snapshot_->sourceType)) ||
                        context_.defaults.boolean(settings::PlayAllSourcesContinuously);
    if (goesOn)
        nextTrack();
    else
        stop();
}

// What the window shows of it

void PlaybackQueue::setArtworkForCurrentTrack()
{
    display_.showSong(nowplayingTrack());
    if (!player_.isStreaming())
        setStatus(Texts::tr("Playing from disk"));
    else if (player_.isPlaying()) // and not while it waits for the web
        setStatus(Texts::tr("Streaming..."));
}

void PlaybackQueue::setNowplayingTrack(const Record& track)
{
    if (!snapshot_)
        return;
    snapshot_->track = withIndex(track, snapshot_->track);
    Q_EMIT trackChanged();
}

void PlaybackQueue::updateNowplayingTrack(const Record& track)
{
    if (!snapshot_)
        return;
    setNowplayingTrack(track);
    context_.window.setTickerText(artistAndName(track));
    if (context_.connectedToInternet)
        display_.request(track);
}

void PlaybackQueue::nowplayingPlaylistReordered(const Record& track)
{
    updateSnapshot();
    snapshot_->track = track.copy();
}

void PlaybackQueue::setNowplayingSource(SourceType type, int playlistIndex, qint64 playlistUid)
{
    if (!snapshot_)
        return;
    snapshot_->sourceType = type;
    snapshot_->playlistIndex = playlistIndex;
    snapshot_->playlistUid = playlistUid;
    snapshot_->indexPath = context_.dataManager.currentIndexPath();
}

void PlaybackQueue::reloadTracks()
{
    context_.dataManager.playlistsTableView().reloadData();
}

void PlaybackQueue::setStatus(const QString& text)
{
    context_.defaults.setValue(settings::BriefStatusMessage, text);
}

} // namespace zib
