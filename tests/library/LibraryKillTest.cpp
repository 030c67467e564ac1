// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a library file that is cut or mixed because its writer was killed while it saved.
#include "tests/library/Library.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace std::literals;

namespace zib {
namespace {

constexpr int songs = 300;

/// A library whose every song holds that generation.
LibraryContents generation(qint64 number)
{
    LibraryContents contents;
    for (int i = 0; i < songs; ++i)
        contents.library.insert(std::to_string(i), Record::make({{keys::PlayCount, number}}));
    return contents;
}

/// The generation of all songs, or -1 when they differ.
qint64 generationOf(const LibraryContents& contents)
{
    const qint64 first = contents.library.find("0"sv).integer(keys::PlayCount);
    const QList<Record> records = contents.library.records();
    const bool whole = records.size() == songs && std::ranges::all_of(records, [first](const Record& record) {
                           return record.integer(keys::PlayCount) == first;
                       });
    return whole ? first : -1;
}

[[noreturn]] void saveForever(const LibraryFile& file, qint64 first, int readyPipe)
{
    for (qint64 number = first;; ++number) {
        LibraryContents contents = generation(number);
        if (!file.save(snapshotOf(contents)))
            ::_exit(1);
        if (number == first && ::write(readyPipe, "r", 1) != 1)
            ::_exit(1);
    }
}

TEST(LibraryKill, TheFileIsTheOldOrTheNewOneWhole)
{
    QTemporaryDir folder;
    const LibraryFile file(folder.filePath(QStringLiteral("Library.zib")));
    std::mt19937 random(11); // NOLINT(bugprone-random-generator-seed): the same delays every time
    qint64 last = 0;
    for (int round = 0; round < 200; ++round) {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t writer = ::fork();
        ASSERT_GE(writer, 0);
        if (writer == 0)
            saveForever(file, last + 1, ready[1]);
        ::close(ready[1]);
        char byte = 0;
        EXPECT_EQ(::read(ready[0], &byte, 1), 1) << "the writer has saved once";
        ::close(ready[0]);
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 4000));
        ASSERT_EQ(::kill(writer, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(::waitpid(writer, &status, 0), writer);
        EXPECT_TRUE(WIFSIGNALED(status));

        const auto loaded = file.load();
        ASSERT_TRUE(loaded) << "round " << round << ": " << qUtf8Printable(loaded.error());
        const qint64 found = generationOf(*loaded);
        ASSERT_GT(found, last) << "round " << round;
        last = found;
    }
    EXPECT_LE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 2)
        << "leftovers do not pile up";
}

} // namespace
} // namespace zib
