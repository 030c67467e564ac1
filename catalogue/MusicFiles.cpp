// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/MusicFiles.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <string>
#include <utility>

#include <sys/stat.h>

namespace zib {

namespace {

namespace fs = std::filesystem;

constexpr int deepestFolder = 64;
constexpr qint64 largestSong = qint64(4) << 30;

constexpr std::array<std::pair<QLatin1String, const char*>, 13> songTypes{{
    {QLatin1String("mp3"), "audio/mpeg"},
    {QLatin1String("wav"), "audio/wav"},
    {QLatin1String("m4a"), "audio/mp4"},
    {QLatin1String("mp4"), "audio/mp4"},
    {QLatin1String("aac"), "audio/aac"},
    {QLatin1String("aif"), "audio/aiff"},
    {QLatin1String("aiff"), "audio/aiff"},
    {QLatin1String("aifc"), "audio/aiff"},
    {QLatin1String("caf"), "audio/x-caf"},
    {QLatin1String("flac"), "audio/flac"},
    {QLatin1String("ogg"), "audio/ogg"},
    {QLatin1String("oga"), "audio/ogg"},
    {QLatin1String("opus"), "audio/ogg"},
}};

class Walk {
  public:
    explicit Walk(const std::stop_token& stop)
        : stop_(stop)
    {
    }

    void folder(const std::string& path, const QByteArray& root, int depth)
    {
        struct stat status = {};
        if (depth > deepestFolder || stop_.stop_requested() || ::stat(path.c_str(), &status) != 0 ||
            !S_ISDIR(status.st_mode) || !isNew(status))
            return;
        std::vector<std::string> names;
        std::error_code error;
        for (fs::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error)) {
            auto name = entry->path().filename().string();
            if (!name.starts_with('.'))
                names.push_back(std::move(name));
        }
        std::sort(names.begin(), names.end());
        for (const auto& name : names) {
            std::string child = path;
            child.append(1, '/').append(name);
            if (::stat(child.c_str(), &status) != 0)
                continue;
            if (S_ISDIR(status.st_mode))
                folder(child, root, depth + 1);
            else if (S_ISREG(status.st_mode))
                file(QByteArray::fromStdString(child), root, status);
        }
    }

    QList<MusicFile> files;

  private:
    void file(const QByteArray& path, const QByteArray& root, const struct stat& status)
    {
        if (songExtension(path).isEmpty() || status.st_size > largestSong || !isNew(status))
            return;
        files.append({path, root, status.st_size,
                      qint64(status.st_mtim.tv_sec) * 1000000000 + qint64(status.st_mtim.tv_nsec)});
    }

    bool isNew(const struct stat& status) { return seen_.emplace(status.st_dev, status.st_ino).second; }

    const std::stop_token& stop_;
    std::set<std::pair<dev_t, ino_t>> seen_;
};

} // namespace

QList<MusicFile> musicFiles(const QList<QByteArray>& folders, const std::stop_token& stop)
{
    Walk walk(stop);
    for (const auto& folder : folders)
        walk.folder(folder.toStdString(), folder, 0);
    return std::move(walk.files);
}

QString songExtension(const QByteArray& path)
{
    const auto dot = path.lastIndexOf('.');
    if (dot < 0)
        return {};
    const QString extension = QString::fromLatin1(path.mid(dot + 1)).toLower();
    return mediaType(extension).isEmpty() ? QString() : extension;
}

QByteArray mediaType(const QString& extension)
{
    for (const auto& [known, type] : songTypes) {
        if (extension == known)
            return type;
    }
    return {};
}

} // namespace zib
