// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/DemoCatalogue.h"

#include <QFile>
#include <QHash>

#include <condition_variable>
#include <mutex>

namespace zib {

/// A few artists whose files hold whatever the test says. A file that the test has not rendered yet keeps its
/// asker waiting, as a real one does.
class FakeDemoSongs final : public DemoSongs {
  public:
    explicit FakeDemoSongs(QString folder)
        : folder_(std::move(folder))
    {
    }

    void addArtist(const QString& name, const QStringList& tags, double hotness,
                   const QList<DemoTrack>& tracks = {})
    {
        artists_.append({name, tags, hotness, hotness / 2, {{QStringLiteral("First Album"), 2009, tracks}}});
    }

    void addArtist(const DemoArtist& artist) { artists_.append(artist); }

    void render(const QString& trackId, const QByteArray& bytes)
    {
        const QString path = folder_ + u'/' + trackId;
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write a test file");
        file.close();
        const std::lock_guard lock(mutex_);
        files_.insert(trackId, path);
        changed_.notify_all();
    }

    void stop()
    {
        const std::lock_guard lock(mutex_);
        stopped_ = true;
        changed_.notify_all();
    }

    [[nodiscard]] int waitsBegun()
    {
        const std::lock_guard lock(mutex_);
        return waitsBegun_;
    }

    [[nodiscard]] const QList<DemoArtist>& artists() const override { return artists_; }

    std::optional<QString> file(const QString& trackId) override
    {
        std::unique_lock lock(mutex_);
        ++waitsBegun_;
        changed_.wait(lock, [&] { return stopped_ || files_.contains(trackId); });
        return files_.contains(trackId) ? std::optional(files_.value(trackId)) : std::nullopt;
    }

    std::optional<QString> cover(const QString& trackId) override { return file(trackId); }

    std::optional<QString> picture(const QString& pictureId, int number, PictureSize /*size*/) override
    {
        return file(pictureId + QString::number(number));
    }

  private:
    const QString folder_;
    QList<DemoArtist> artists_;
    std::mutex mutex_;
    std::condition_variable changed_;
    QHash<QString, QString> files_;
    int waitsBegun_ = 0;
    bool stopped_ = false;
};

} // namespace zib
