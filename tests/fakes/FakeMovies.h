// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Movie.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

namespace zib {

class FakeMovies;

/// A movie whose time the test moves.
class FakeMovie final : public Movie {
  public:
    FakeMovie(FakeMovies& movies, MovieTime duration)
        : movies_(movies)
        , duration_(duration)
    {
    }
    ~FakeMovie() override;

    void play() override { rate_ = 1; }
    void stop() override { rate_ = 0; }
    void gotoBeginning() override { time_ = {0, duration_.scale}; }
    float rate() const override { return rate_; }
    void setRate(float rate) override { rate_ = rate == 0 ? 0.0F : 1.0F; }
    MovieTime currentTime() const override { return time_; }
    void setCurrentTime(MovieTime time) override { time_ = time; }
    MovieTime duration() const override { return duration_; }
    void setVolume(float volume) override { volume_ = std::clamp(volume, 0.0F, 1.0F); }

    [[nodiscard]] float volume() const { return volume_; }
    /// Plays to the end and says so.
    void reachEnd();

  private:
    FakeMovies& movies_;
    const MovieTime duration_;
    MovieTime time_;
    float rate_ = 0;
    float volume_ = 1;
};

/// Opens any path as a movie, unless the test gives it an error.
class FakeMovies final : public Movies {
  public:
    std::unique_ptr<Movie> open(const QString& path, QString& error) override
    {
        opened.append(path);
        if (errors.contains(path)) {
            error = errors.value(path);
            return nullptr;
        }
        auto movie = std::make_unique<FakeMovie>(*this, duration);
        current = movie.get();
        return movie;
    }

    QStringList opened;              ///< every path, in order
    QHash<QString, QString> errors;  ///< by path: what opening it fails with
    MovieTime duration = {6000, 60}; ///< of the movies opened from now on
    FakeMovie* current = nullptr;    ///< the last one opened, for as long as it lives
};

inline FakeMovie::~FakeMovie()
{
    if (movies_.current == this)
        movies_.current = nullptr;
}

inline void FakeMovie::reachEnd()
{
    time_ = duration_;
    rate_ = 0;
    Q_EMIT movies_.movieDidEnd(this); // last: a slot may destroy this movie
}

} // namespace zib
