// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/FileWalk.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace zib {
namespace {

constexpr std::size_t window = 64; // entries asked for at once

} // namespace

FileWalk::FileWalk(FileMetadata& metadata, const QStringList& paths)
    : metadata_(metadata)
{
    for (const QString& path : paths)
        entries_.push_back({path, {}});
}

QList<FileWalk::File> FileWalk::next()
{
    while (!lookAhead()) {
    }
    QList<File> files;
    while (!entries_.empty() && files.size() < qsizetype(window)) {
        files.append({entries_.front().path, std::move(*entries_.front().attributes)});
        entries_.pop_front();
    }
    return files;
}

/// Whether the first entries are known, and are files. A folder gives way to its content where it stands.
bool FileWalk::lookAhead()
{
    const auto end = [this] { return std::min(window, entries_.size()); };
    QStringList unknown;
    QList<std::size_t> places;
    for (std::size_t place = 0; place < end(); ++place) {
        if (!entries_[place].attributes) {
            unknown.append(entries_[place].path);
            places.append(place);
        }
    }
    const QList<FileAttributes> attributes = metadata_.attributes(unknown);
    for (qsizetype i = 0; i < places.size(); ++i)
        entries_[places[i]].attributes = attributes.value(i);

    bool known = true;
    for (std::size_t place = 0; place < end();) {
        const auto& entry = entries_[place];
        if (!entry.attributes || entry.attributes->kind != folderKind) {
            ++place;
            continue;
        }
        known = false;
        place += enterFolder(place);
    }
    return known;
}

/// How many entries stand in its place now.
std::size_t FileWalk::enterFolder(std::size_t place)
{
    const QString path = entries_[place].path;
    entries_.erase(entries_.begin() + qsizetype(place));
    const QString canonical = QFileInfo(path).canonicalFilePath();
    if (canonical.isEmpty() || entered_.contains(canonical))
        return 0;
    entered_.insert(canonical);
    const QDir folder(path);
    const QStringList names =
        folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    std::deque<Entry> content;
    for (const QString& name : names)
        content.push_back({folder.filePath(name), {}});
    entries_.insert(entries_.begin() + qsizetype(place), content.begin(), content.end());
    return content.size();
}

} // namespace zib
