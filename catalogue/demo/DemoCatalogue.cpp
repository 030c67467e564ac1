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

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <map>
#include <mutex>
#include <pthread.h>
#include <thread>

namespace zib {

using demo::TrackPlan;

namespace {

Q_LOGGING_CATEGORY(catalogueLog, "zib.catalogue")

// One more whenever a song would sound or a cover look different: the files of a version are never made
// again.
constexpr int composerVersion = 1;

// Nobody renders one song for so long: what is older was left by a process that was killed.
constexpr int abandonedAfterSeconds = 600;

/// The calling thread gets only the processor time that nobody else wants.
void becomeIdle()
{
    const sched_param parameter{};
    pthread_setschedparam(pthread_self(), SCHED_IDLE, &parameter);
}

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
    void renderAll(Progress progress);
    void stop();

  private:
    using Make = bool (Renderer::*)(const TrackPlan& plan, const QString& path, const Job& job);

    void removeAbandoned() const;
    std::optional<QString> finished(const QString& name, const TrackPlan& plan, Make make, Urgency urgency);
    bool makeWhole(const QString& path, const TrackPlan& plan, Make make, const Job& job);
    bool makeSong(const TrackPlan& plan, const QString& path, const Job& job);
    bool makeCover(const TrackPlan& plan, const QString& path, const Job& job);
    void runInBackground(const Progress& progress);
    bool mayContinue();

    QString folder_;
    std::atomic<int> temporaryNames_ = 0;
    std::mutex mutex_; // guards all that follows
    std::condition_variable changed_;
    std::map<QString, std::shared_ptr<Job>> jobs_; // by the name of the file
    bool stopped_ = false;
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

bool DemoCatalogue::Renderer::makeCover(const TrackPlan& plan, const QString& path, const Job& /*job*/)
{
    const QByteArray picture = demo::paintCover(plan.tags, plan.coverId.left(16).toULongLong(nullptr, 16));
    QFile file(path);
    return !picture.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(picture) == picture.size() &&
           file.flush();
}

/// Makes the file under another name first: under its own name it is finished or it is not there.
bool DemoCatalogue::Renderer::makeWhole(const QString& path, const TrackPlan& plan, Make make, const Job& job)
{
    const QFileInfo whole(path);
    const QString temporary = whole.dir().filePath(QStringLiteral("part-%1-%2-%3")
                                                       .arg(QCoreApplication::applicationPid())
                                                       .arg(temporaryNames_.fetch_add(1))
                                                       .arg(whole.fileName()));
    if ((this->*make)(plan, temporary, job) && !job.cancelled &&
        std::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(path).constData()) == 0)
        return true;
    QFile::remove(temporary);
    if (!job.cancelled)
        qCWarning(catalogueLog) << "cannot make" << path;
    return false;
}

std::optional<QString> DemoCatalogue::Renderer::finished(const QString& name, const TrackPlan& plan,
                                                         Make make, Urgency urgency)
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
        const bool made = makeWhole(path, plan, make, *job);
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
    return finished(trackId + QLatin1Char('.') + plan->track.extension, *plan, &Renderer::makeSong, urgency);
}

std::optional<QString> DemoCatalogue::Renderer::cover(const QString& trackId, Urgency urgency)
{
    const auto& tracks = demo::demoPlan().tracks;
    const auto plan = tracks.constFind(trackId);
    if (plan == tracks.constEnd())
        return std::nullopt;
    return finished(plan->coverId + QLatin1String(".jpg"), *plan, &Renderer::makeCover, urgency);
}

/// Waits until no listener does; false when all shall end.
bool DemoCatalogue::Renderer::mayContinue()
{
    std::unique_lock lock(mutex_);
    const auto awaited = [this] {
        return std::any_of(jobs_.begin(), jobs_.end(),
                           [](const auto& entry) { return entry.second->urgency == Urgency::Awaited; });
    };
    changed_.wait(lock, [&] { return stopped_ || !awaited(); });
    return !stopped_;
}

void DemoCatalogue::Renderer::runInBackground(const Progress& progress)
{
    becomeIdle();
    const auto& plan = demo::demoPlan();
    const int total = static_cast<int>(plan.tracks.size());
    int done = 0;
    for (const DemoArtist& artist : plan.artists)
        for (const DemoAlbum& album : artist.albums)
            for (const DemoTrack& track : album.tracks) {
                if (!mayContinue())
                    return;
                if (song(track.id, Urgency::Background) && progress)
                    progress(++done, total);
            }
}

void DemoCatalogue::Renderer::renderAll(Progress progress)
{
    const std::scoped_lock lock(mutex_);
    if (stopped_ || background_.joinable())
        return;
    background_ = std::thread([this, progress = std::move(progress)] { runInBackground(progress); });
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
    return renderer_->song(trackId, Urgency::Awaited);
}

std::optional<QString> DemoCatalogue::cover(const QString& trackId)
{
    return renderer_->cover(trackId, Urgency::Awaited);
}

void DemoCatalogue::renderAll(Progress progress)
{
    renderer_->renderAll(std::move(progress));
}

void DemoCatalogue::stop()
{
    renderer_->stop();
}

} // namespace zib
