// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/DesktopMovie.h"

#include "platform/desktop/DesktopSound.h"
#include "platform/desktop/MovieFile.h"
#include "platform/desktop/SoundPlayer.h"

#include <algorithm>
#include <cmath>
#include <mutex>
#include <utility>

namespace zib {

namespace {

constexpr qint32 kTimeScale = 1000;

/// What a movie and its feeder share.
class MovieCore {
  public:
    MovieCore(DesktopSound& sound, std::unique_ptr<MovieFile> file, std::function<void(quint64)> ended)
        : duration_(file->duration())
        , format_(file->format())
        , player_(sound, wake_)
        , file_(std::move(file))
        , ended_(std::move(ended))
    {
        player_.open(format_); // gets ready before it is to play
    }

    // The main thread.
    void play();
    void pause();
    [[nodiscard]] bool isPlaying();
    [[nodiscard]] double time();
    void setTime(double seconds);
    [[nodiscard]] double duration() const { return duration_; }
    void setVolume(float volume);
    /// Whether that run is the present one and has come to its end.
    [[nodiscard]] bool isAtEndOf(quint64 run);
    void quit();

    /// The feeder's thread.
    void feed();

  private:
    using Lock = std::unique_lock<std::mutex>;

    void goTo(double seconds);
    bool step();
    bool sleep(Lock lock);
    bool readMore(Lock lock);
    bool writeDecoded();

    const double duration_;
    const SoundFormat format_;
    const std::shared_ptr<WakeSignal> wake_ = std::make_shared<WakeSignal>();

    std::mutex lock_; ///< guards what follows
    SoundPlayer player_;
    double from_ = 0; ///< where the player's run begins, seconds
    bool playing_ = false;
    bool atEnd_ = false;
    bool quit_ = false;
    quint64 run_ = 0; ///< counts the jumps

    const std::unique_ptr<MovieFile> file_;    ///< the feeder's, but for interrupt()
    const std::function<void(quint64)> ended_; ///< told the run
    // The feeder's own.
    quint64 feederRun_ = 0;
    std::vector<float> decoded_;
    std::size_t decodedUsed_ = 0;
    bool allRead_ = false;
    bool finishing_ = false;
};

void MovieCore::goTo(double seconds)
{
    from_ = std::max(0.0, duration_ > 0 ? std::min(seconds, duration_) : seconds);
    atEnd_ = false;
    ++run_;
    player_.open(format_);
    player_.setRunning(playing_);
    wake_->wake();
}

void MovieCore::play()
{
    const Lock lock(lock_);
    playing_ = true;
    if (atEnd_)
        goTo(0);
    player_.setRunning(true);
    wake_->wake();
}

void MovieCore::pause()
{
    const Lock lock(lock_);
    playing_ = false;
    player_.setRunning(false);
}

bool MovieCore::isPlaying()
{
    const Lock lock(lock_);
    return playing_;
}

double MovieCore::time()
{
    const Lock lock(lock_);
    return from_ + static_cast<double>(player_.heard()) / format_.rate;
}

void MovieCore::setTime(double seconds)
{
    const Lock lock(lock_);
    goTo(seconds);
}

void MovieCore::setVolume(float volume)
{
    const Lock lock(lock_);
    player_.setVolume(volume > 0 ? std::min(volume, 1.0F) : 0.0F);
}

bool MovieCore::isAtEndOf(quint64 run)
{
    const Lock lock(lock_);
    return atEnd_ && run_ == run;
}

void MovieCore::quit()
{
    file_->interrupt();
    const Lock lock(lock_);
    quit_ = true;
    player_.close();
    wake_->wake();
}

void MovieCore::feed()
{
    while (step()) {
    }
}

bool MovieCore::step()
{
    Lock lock(lock_);
    if (quit_)
        return false;
    player_.tend();
    if (std::exchange(feederRun_, run_) != run_) {
        const double from = from_;
        lock.unlock();
        file_->seek(from);
        decoded_.clear();
        decodedUsed_ = 0;
        allRead_ = finishing_ = false;
        return true;
    }
    if (!playing_)
        return sleep(std::move(lock));
    if (decodedUsed_ < decoded_.size())
        return writeDecoded() || sleep(std::move(lock));
    if (!allRead_)
        return readMore(std::move(lock));
    if (!std::exchange(finishing_, true))
        player_.finish();
    if (!player_.finished())
        return sleep(std::move(lock));
    playing_ = false;
    atEnd_ = true;
    player_.setRunning(false);
    ended_(run_); // under the lock, so that none comes after quit()
    return true;
}

bool MovieCore::sleep(Lock lock)
{
    const auto look = player_.rest();
    lock.unlock();
    wake_->wait(look);
    return true;
}

bool MovieCore::readMore(Lock lock)
{
    lock.unlock();
    decodedUsed_ = 0;
    allRead_ = !file_->read(decoded_);
    return true;
}

bool MovieCore::writeDecoded()
{
    const auto room = player_.room() * static_cast<std::size_t>(format_.channels);
    const auto samples = std::span(decoded_).subspan(decodedUsed_);
    const auto now = samples.first(std::min(room, samples.size()));
    player_.write(now);
    decodedUsed_ += now.size();
    return !now.empty();
}

} // namespace

class DesktopMovie : public Movie {
  public:
    DesktopMovie(DesktopMovies& movies, std::unique_ptr<MovieFile> file)
        : movies_(movies)
        , id_(++movies.lastId_)
        , core_(std::make_shared<MovieCore>(movies.sound_, std::move(file), [&movies, id = id_](quint64 run) {
            QMetaObject::invokeMethod(
                &movies, [&movies, id, run] { movies.ended(id, run); }, Qt::QueuedConnection);
        }))
    {
        movies.open_[id_] = this;
        movies.sound_.threads().start("zib-movie", [core = core_] { core->feed(); });
    }
    DesktopMovie(const DesktopMovie&) = delete;
    DesktopMovie& operator=(const DesktopMovie&) = delete;
    ~DesktopMovie() override
    {
        core_->quit();
        movies_.open_.erase(id_);
    }

    void play() override { core_->play(); }
    void stop() override { core_->pause(); }
    void gotoBeginning() override { core_->setTime(0); }
    float rate() const override { return core_->isPlaying() ? 1.0F : 0.0F; }
    void setRate(float rate) override
    {
        if (rate == 0)
            core_->pause();
        else
            core_->play();
    }
    MovieTime currentTime() const override { return timeOf(core_->time()); }
    void setCurrentTime(MovieTime time) override
    {
        core_->setTime(static_cast<double>(time.value) / std::max<qint32>(1, time.scale));
    }
    MovieTime duration() const override { return timeOf(core_->duration()); }
    void setVolume(float volume) override { core_->setVolume(volume); }

    [[nodiscard]] bool isAtEndOf(quint64 run) { return core_->isAtEndOf(run); }

  private:
    static MovieTime timeOf(double seconds)
    {
        return {static_cast<qint64>(std::floor(seconds * kTimeScale)), kTimeScale};
    }

    DesktopMovies& movies_;
    const quint64 id_;
    const std::shared_ptr<MovieCore> core_;
};

DesktopMovies::DesktopMovies(DesktopSound& sound)
    : sound_(sound)
{
    quietenDecoders();
}

std::unique_ptr<Movie> DesktopMovies::open(const QString& path, QString& error)
{
    auto file = MovieFile::open(path, error);
    if (!file)
        return nullptr;
    return std::make_unique<DesktopMovie>(*this, std::move(file));
}

void DesktopMovies::ended(quint64 id, quint64 run)
{
    const auto movie = open_.find(id);
    if (movie != open_.end() && movie->second->isAtEndOf(run))
        Q_EMIT movieDidEnd(movie->second);
}

} // namespace zib
