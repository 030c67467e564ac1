// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <memory>

namespace zib {

/// A time as value / scale seconds.
struct MovieTime {
    qint64 value = 0;
    qint32 scale = 1;
};

/// An audio file on disk, played. Main thread.
class Movie {
  public:
    virtual ~Movie() = default;
    /// Plays at rate 1 from the current time.
    virtual void play() = 0;
    virtual void stop() = 0;
    virtual void gotoBeginning() = 0;
    /// 1 while playing, 0 while stopped or at its end.
    [[nodiscard]] virtual float rate() const = 0;
    /// 0 pauses; any other rate plays at normal speed.
    virtual void setRate(float rate) = 0;
    [[nodiscard]] virtual MovieTime currentTime() const = 0;
    virtual void setCurrentTime(MovieTime time) = 0;
    /// A value of 0 when the file does not tell.
    [[nodiscard]] virtual MovieTime duration() const = 0;
    /// 0 (silent) to 1 (as recorded).
    virtual void setVolume(float volume) = 0;
};

/// Opens movies. Main thread.
class Movies : public QObject {
    Q_OBJECT

  public:
    /// Null, with a localized description of the error, when the file can't be played.
    [[nodiscard]] virtual std::unique_ptr<Movie> open(const QString& path, QString& error) = 0;

  Q_SIGNALS:
    /// Any movie made here has played to its end. A slot may destroy the movie.
    void movieDidEnd(zib::Movie* movie);
};

} // namespace zib
