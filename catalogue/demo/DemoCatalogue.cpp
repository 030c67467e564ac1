// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DemoCatalogue.h"

#include "catalogue/demo/Artists.h"
#include "catalogue/demo/Composer.h"
#include "catalogue/demo/CoverPainter.h"
#include "catalogue/demo/Encoder.h"
#include "catalogue/demo/Performer.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSet>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <ctime>
#include <deque>
#include <map>
#include <mutex>
#include <pthread.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace zib {

using demo::TrackPlan;

namespace {

Q_LOGGING_CATEGORY(catalogueLog, "zib.catalogue")

// One more whenever a song would sound or a picture look different: the files of a version are never made
// again.
constexpr int composerVersion = 1;

// Nobody renders one song for so long: what is older was left by a process that was killed.
constexpr int abandonedAfterSeconds = 600;

/// The calling thread gets only the processor and disk time that nobody else wants.
void becomeIdle()
{
    const sched_param parameter{};
    pthread_setschedparam(pthread_self(), SCHED_IDLE, &parameter);
    constexpr int thisThread = 1;
    constexpr int idleClass = 3 << 13;
    syscall(SYS_ioprio_set, thisThread, 0, idleClass);
}

std::chrono::nanoseconds processorTimeOfThread()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

bool written(const QString& path, const QByteArray& picture)
{
    QFile file(path);
    return !picture.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(picture) == picture.size() &&
           file.flush();
}

constexpr int songsAhead = 3; // of a song that was asked for: some four minutes

enum class Urgency { Background, Awaited };

/// One file being made.
struct Job {
    explicit Job(Urgency wanted)
        : urgency(wanted)
    {
    }

    Urgency urgency;
    std::atomic<bool> cancelled = false;
};

} // namespace

struct DemoCatalogue::Renderer {
    explicit Renderer(const QString& folder);

    std::optional<QString> song(const QString& trackId, Urgency urgency);
    std::optional<QString> cover(const QString& trackId, Urgency urgency);
    std::optional<QString> picture(const QString& pictureId, int number, PictureSize size, Urgency urgency);
    void expectNext(const QString& trackId);
    void renderAll(Progress progress, Pace pace);
    void stop();

  private:
    using Make = std::function<bool(const QString& path, const Job& job)>;

    void removeAbandoned() const;
    std::optional<QString> finished(const QString& name, const Make& make, Urgency urgency);
    bool makeWhole(const QString& path, const Make& make, const Job& job);
    bool makeSong(const TrackPlan& plan, const QString& path, const Job& job);
    void runInBackground(const Progress& progress, Pace pace);
    std::optional<QString> nextInBackground(std::chrono::steady_clock::time_point restsUntil);

    QString folder_;
    std::atomic<int> temporaryNames_ = 0;
    std::mutex mutex_; // guards all that follows
    std::condition_variable changed_;
    std::map<QString, std::shared_ptr<Job>> jobs_; // by the name of the file
    bool stopped_ = false;
    std::deque<QString> ahead_; // what is likely to be asked for next
    std::deque<QString> rest_;  // what the background has not come to
    std::thread background_;
};

DemoCatalogue::Renderer::Renderer(const QString& folder)
    : folder_(QDir(folder).filePath(QStringLiteral("songs-%1").arg(composerVersion)))
{
    if (!QDir().mkpath(folder_))
        qCWarning(catalogueLog) << "cannot make the folder" << folder_;
    removeAbandoned();
}

void DemoCatalogue::Renderer::removeAbandoned() const
{
    const QDateTime limit = QDateTime::currentDateTime().addSecs(-abandonedAfterSeconds);
    const auto left = QDir(folder_).entryInfoList({QStringLiteral("part-*")}, QDir::Files);
    for (const QFileInfo& info : left)
        if (info.lastModified() < limit)
            QFile::remove(info.filePath());
}

bool DemoCatalogue::Renderer::makeSong(const TrackPlan& plan, const QString& path, const Job& job)
{
    const std::vector<std::int16_t> samples = demo::perform(demo::compose(plan.commission), job.cancelled);
    if (samples.empty())
        return false;
    QByteArray picture;
    if (const auto coverPath = cover(plan.track.id, job.urgency)) {
        QFile file(*coverPath);
        if (file.open(QIODevice::ReadOnly))
            picture = file.readAll();
    }
    return demo::encode(plan, samples, picture, demo::coverSize, path, job.cancelled);
}

/// Makes the file under another name first: under its own name it is finished or it is not there.
bool DemoCatalogue::Renderer::makeWhole(const QString& path, const Make& make, const Job& job)
{
    const QFileInfo whole(path);
    const QString temporary = whole.dir().filePath(QStringLiteral("part-%1-%2-%3")
                                                       .arg(QCoreApplication::applicationPid())
                                                       .arg(temporaryNames_.fetch_add(1))
                                                       .arg(whole.fileName()));
    if (make(temporary, job) && !job.cancelled &&
        std::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(path).constData()) == 0)
        return true;
    QFile::remove(temporary);
    if (!job.cancelled)
        qCWarning(catalogueLog) << "cannot make" << path;
    return false;
}

std::optional<QString> DemoCatalogue::Renderer::finished(const QString& name, const Make& make,
                                                         Urgency urgency)
{
    const QString path = QDir(folder_).filePath(name);
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [&] {
            const auto current = jobs_.find(name);
            return stopped_ || current == jobs_.end() || current->second->urgency < urgency;
        });
        if (QFile::exists(path))
            return path;
        if (stopped_)
            return std::nullopt;
        // The background may get no processor time for long, so a listener does its work anew.
        if (const auto current = jobs_.find(name); current != jobs_.end())
            current->second->cancelled = true;
        const auto job = std::make_shared<Job>(urgency);
        jobs_[name] = job;
        lock.unlock();
        const bool made = makeWhole(path, make, *job);
        lock.lock();
        if (const auto current = jobs_.find(name); current != jobs_.end() && current->second == job)
            jobs_.erase(current);
        changed_.notify_all();
        if (made)
            return path;
        if (!job->cancelled)
            return std::nullopt;
    }
}

std::optional<QString> DemoCatalogue::Renderer::song(const QString& trackId, Urgency urgency)
{
    const auto& tracks = demo::demoPlan().tracks;
    const auto plan = tracks.constFind(trackId);
    if (plan == tracks.constEnd())
        return std::nullopt;
    return finished(
        trackId + QLatin1Char('.') + plan->track.extension,
        [this, &plan = *plan](const QString& path, const Job& job) { return makeSong(plan, path, job); },
        urgency);
}

std::optional<QString> DemoCatalogue::Renderer::cover(const QString& trackId, Urgency urgency)
{
    const auto& tracks = demo::demoPlan().tracks;
    const auto plan = tracks.constFind(trackId);
    if (plan == tracks.constEnd())
        return std::nullopt;
    return finished(
        plan->coverId + QLatin1String(".jpg"),
        [&plan = *plan](const QString& path, const Job&) {
            return written(path, demo::paintCover(plan.tags, plan.coverId.left(16).toULongLong(nullptr, 16)));
        },
        urgency);
}

std::optional<QString> DemoCatalogue::Renderer::picture(const QString& pictureId, int number,
                                                        PictureSize size, Urgency urgency)
{
    const auto& all = demo::demoPlan().sitters;
    const auto sitters = all.constFind(pictureId);
    if (sitters == all.constEnd() || number < 1 || number > demo::picturesOf(*sitters))
        return std::nullopt;
    const QLatin1String form(size == PictureSize::Tile ? "-tile.jpg" : ".jpg");
    return finished(
        pictureId + QLatin1Char('-') + QString::number(number) + form,
        [&sitters = *sitters, number, size](const QString& path, const Job&) {
            return written(path, demo::paintPicture(sitters, number, size));
        },
        urgency);
}

/// The next song, when no listener waits and the rest is over or somebody may soon listen; nothing when all
/// are done or shall end.
std::optional<QString>
DemoCatalogue::Renderer::nextInBackground(std::chrono::steady_clock::time_point restsUntil)
{
    const auto awaited = [this] {
        return std::any_of(jobs_.begin(), jobs_.end(),
                           [](const auto& entry) { return entry.second->urgency == Urgency::Awaited; });
    };
    std::unique_lock lock(mutex_);
    const auto hurries = [&] { return stopped_ || (!ahead_.empty() && !awaited()); };
    if (!changed_.wait_until(lock, restsUntil, hurries))
        changed_.wait(lock, [&] { return stopped_ || !awaited(); });
    auto& songs = ahead_.empty() ? rest_ : ahead_;
    if (stopped_ || songs.empty())
        return std::nullopt;
    const QString trackId = songs.front();
    songs.pop_front();
    return trackId;
}

/// What follows the song in its artist's albums.
void DemoCatalogue::Renderer::expectNext(const QString& trackId)
{
    std::deque<QString> next;
    for (const DemoArtist& artist : demo::demoPlan().artists) {
        bool follows = false;
        for (const DemoAlbum& album : artist.albums)
            for (const DemoTrack& track : album.tracks) {
                if (follows && next.size() < songsAhead)
                    next.push_back(track.id);
                follows = follows || track.id == trackId;
            }
    }
    const std::scoped_lock lock(mutex_);
    ahead_ = std::move(next);
    changed_.notify_all();
}

void DemoCatalogue::Renderer::runInBackground(const Progress& progress, Pace pace)
{
    becomeIdle();
    const int total = static_cast<int>(demo::demoPlan().tracks.size());
    QSet<QString> done;
    auto restsUntil = std::chrono::steady_clock::now() + pace.first;
    while (const auto trackId = nextInBackground(restsUntil)) {
        const auto before = processorTimeOfThread();
        if (song(*trackId, Urgency::Background) && !done.contains(*trackId)) {
            done.insert(*trackId);
            if (progress)
                progress(static_cast<int>(done.size()), total);
        }
        restsUntil = std::chrono::steady_clock::now() + pace.rest * (processorTimeOfThread() - before);
    }
}

void DemoCatalogue::Renderer::renderAll(Progress progress, Pace pace)
{
    const std::scoped_lock lock(mutex_);
    if (stopped_ || background_.joinable())
        return;
    for (const DemoArtist& artist : demo::demoPlan().artists)
        for (const DemoAlbum& album : artist.albums)
            for (const DemoTrack& track : album.tracks)
                rest_.push_back(track.id);
    background_ =
        std::thread([this, progress = std::move(progress), pace] { runInBackground(progress, pace); });
}

void DemoCatalogue::Renderer::stop()
{
    std::thread background;
    {
        std::unique_lock lock(mutex_);
        stopped_ = true;
        for (const auto& [name, job] : jobs_)
            job->cancelled = true;
        changed_.notify_all();
        background.swap(background_);
    }
    if (background.joinable())
        background.join();
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return jobs_.empty(); });
}

DemoCatalogue::DemoCatalogue(const QString& folder)
    : renderer_(std::make_unique<Renderer>(folder))
{
}

DemoCatalogue::~DemoCatalogue()
{
    stop();
}

const QList<DemoArtist>& DemoCatalogue::artists() const
{
    return demo::demoPlan().artists;
}

std::optional<QString> DemoCatalogue::file(const QString& trackId)
{
    const auto path = renderer_->song(trackId, Urgency::Awaited);
    renderer_->expectNext(trackId);
    return path;
}

std::optional<QString> DemoCatalogue::cover(const QString& trackId)
{
    return renderer_->cover(trackId, Urgency::Awaited);
}

std::optional<QString> DemoCatalogue::picture(const QString& pictureId, int number, PictureSize size)
{
    return renderer_->picture(pictureId, number, size, Urgency::Awaited);
}

void DemoCatalogue::renderAll(Progress progress, Pace pace)
{
    renderer_->renderAll(std::move(progress), pace);
}

void DemoCatalogue::stop()
{
    renderer_->stop();
}

} // namespace zib
