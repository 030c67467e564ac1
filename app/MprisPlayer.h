// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/PlaybackQueue.h"

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QVariantMap>

#include <functional>

namespace zib {

class RVDataManager;
class UserDefaults;

/// The transport on the session bus, as the desktop's media keys and remote controls use it. Each call does
/// what the button of the window does, a little later, so that a message for the user keeps no caller
/// waiting.
///
/// A member with a property's name is documented by the interface's own standard. Times are
/// microseconds.
class MprisPlayer : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(double MinimumRate READ rate)
    Q_PROPERTY(double MaximumRate READ rate)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(bool CanGoNext READ canGoNext)
    Q_PROPERTY(bool CanGoPrevious READ hasSong)
    Q_PROPERTY(bool CanPlay READ canPlay)
    Q_PROPERTY(bool CanPause READ hasSong)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ canControl)

  public:
    /// @param openUri opens an address for the user.
    MprisPlayer(QObject* parent, PlaybackQueue& playback, UserDefaults& defaults,
                const RVDataManager& library, std::function<void(const QString&)> openUri);

    [[nodiscard]] QString playbackStatus() const;
    [[nodiscard]] double rate() const { return 1; }
    /// There is one speed; to ask for none is to pause.
    void setRate(double rate);
    [[nodiscard]] QVariantMap metadata() const;
    [[nodiscard]] double volume() const;
    void setVolume(double level);
    [[nodiscard]] qlonglong position() const;
    [[nodiscard]] bool canGoNext() const { return hasNext_; }
    [[nodiscard]] bool hasSong() const { return playback_.state() != PlaybackQueue::State::Stopped; }
    [[nodiscard]] bool canPlay() const;
    [[nodiscard]] bool canSeek() const { return playback_.canSeek(); }
    [[nodiscard]] bool canControl() const { return true; }

  public Q_SLOTS:
    // The names, and those of the arguments, are the interface's.
    void Next();
    void Previous();
    void Pause();
    void PlayPause();
    void Stop();
    void Play();
    void Seek(qlonglong Offset);
    void SetPosition(const QDBusObjectPath& TrackId, qlonglong Position);
    void OpenUri(const QString& Uri);

  Q_SIGNALS:
    void Seeked(qlonglong Position);

  private:
    void soon(std::function<void()> action);
    void pause();
    void pauseIfWanted();

    PlaybackQueue& playback_;
    UserDefaults& defaults_;
    const RVDataManager& library_;
    const std::function<void(const QString&)> openUri_;
    bool hasNext_ = false;     // found once for each change, since it is looked for in the whole list
    bool acting_ = false;      // an action that shows a message runs the event loop meanwhile
    bool pauseWanted_ = false; // of a song that is still on its way to be heard
};

} // namespace zib
