// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/DesktopFileMetadata.h"

#include "platform/desktop/metadata/SoundTags.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>
#include <array>
#include <thread>

#include <poll.h>
#include <sys/stat.h>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.platform.metadata")

using SteadyClock = std::chrono::steady_clock;

constexpr std::size_t mostAsked = 8; // of one process at a time
constexpr unsigned mostReaders = 4;

// What people's sound files are called. Others are not opened: of a picture or an archive the system knows
// that it is none by its name.
constexpr std::array extensions{"mp3",  "mp2", "mpga", "mpg",  "mpeg", "m4a",  "m4b", "m4p",  "mp4", "mp4a",
                                "aac",  "aif", "aiff", "aifc", "wav",  "wave", "caf", "flac", "ogg", "oga",
                                "opus", "spx", "ape",  "wv",   "mpc",  "tta",  "wma", "asf"};

bool isCalledSound(const QString& path)
{
    const QByteArray extension = QFileInfo(path).suffix().toLower().toUtf8();
    return std::ranges::find(extensions, std::string_view(extension)) != extensions.end();
}

} // namespace

DesktopFileMetadata::DesktopFileMetadata(const QString& program, Patience patience)
    : patience_(patience)
{
    const unsigned count = std::clamp(std::thread::hardware_concurrency(), 1U, mostReaders);
    for (unsigned number = 0; number < count; ++number)
        readers_.push_back(std::make_unique<Reader>(program));
}

QList<FileAttributes> DesktopFileMetadata::attributes(const QStringList& paths)
{
    QList<FileAttributes> result(paths.size());
    waiting_.clear();
    for (qsizetype place = 0; place < paths.size(); ++place) {
        struct stat status = {};
        if (::stat(QFile::encodeName(paths[place]).constData(), &status) != 0)
            continue;
        result[place].displayName = singleLine(QFileInfo(paths[place]).completeBaseName());
        if (S_ISDIR(status.st_mode))
            result[place].kind = folderKind;
        else if (S_ISREG(status.st_mode) && status.st_size > 0 && isCalledSound(paths[place]))
            waiting_.push_back(place); // anything else, a pipe say, could keep its reader for ever
    }
    const auto answersCome = [](const auto& reader) { return !reader->asked.empty(); };
    for (;;) {
        for (const auto& reader : readers_)
            ask(*reader, paths, result);
        if (std::ranges::none_of(readers_, answersCome))
            return result;
        waitForAnswers();
        for (const auto& reader : readers_)
            if (answersCome(reader))
                collect(*reader, paths, result);
    }
}

void DesktopFileMetadata::ask(Reader& reader, const QStringList& paths, QList<FileAttributes>& result)
{
    while (reader.asked.size() < mostAsked && !waiting_.empty()) {
        const qsizetype place = waiting_.front();
        waiting_.pop_front();
        if (!reader.process.send(QFile::encodeName(paths[place]))) {
            qCWarning(log) << "no process to read" << paths[place];
            result[place] = {};
            continue;
        }
        if (reader.asked.empty())
            reader.deadline = SteadyClock::now() + patience_;
        reader.asked.push_back(place);
    }
}

void DesktopFileMetadata::waitForAnswers()
{
    std::vector<pollfd> descriptors;
    auto deadline = SteadyClock::time_point::max();
    for (const auto& reader : readers_) {
        if (reader->asked.empty())
            continue;
        descriptors.push_back({reader->process.descriptor(), POLLIN, 0});
        deadline = std::min(deadline, reader->deadline);
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - SteadyClock::now());
    ::poll(descriptors.data(), descriptors.size(), int(std::max<std::int64_t>(0, left.count())));
}

void DesktopFileMetadata::collect(Reader& reader, const QStringList& paths, QList<FileAttributes>& result)
{
    QList<QByteArray> lines;
    const bool alive = reader.process.receive(lines);
    for (const QByteArray& line : lines) {
        if (reader.asked.empty())
            break;
        FileAttributes& attributes = result[reader.asked.front()];
        const QString displayName = attributes.displayName;
        attributes = decodedAttributes(line);
        attributes.displayName = displayName;
        if (attributes.title.isEmpty())
            attributes.title = displayName;
        reader.asked.pop_front();
        reader.deadline = SteadyClock::now() + patience_;
    }
    if (reader.asked.empty() || (alive && SteadyClock::now() < reader.deadline))
        return;
    // Lost to the first file that it owes an answer for; the others are asked of its successor.
    qCWarning(log) << "gave up on the tags of" << paths[reader.asked.front()];
    reader.asked.pop_front();
    waiting_.insert(waiting_.begin(), reader.asked.begin(), reader.asked.end());
    reader.asked.clear();
    reader.process.end();
}

void DesktopFileMetadata::release()
{
    for (const auto& reader : readers_)
        reader->process.end();
}

} // namespace zib
