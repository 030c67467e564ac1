// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a file that is gone and cannot be brought back, one moved while its caller is still at work, a
// failure that nobody hears of.
#include "platform/desktop/DesktopTrash.h"
#include "tests/fakes/FakeTrash.h"

#include <QCoreApplication>
#include <QDir>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

#include <algorithm>

namespace zib {
namespace {

/// Brings a file back as a file manager does, by the record that lies beside it.
bool restore(const QString& trash, const QString& path)
{
    const QDir infos(trash + QStringLiteral("/info"));
    for (const QString& name : infos.entryList({QStringLiteral("*.trashinfo")})) {
        QFile info(infos.filePath(name));
        if (!info.open(QIODevice::ReadOnly))
            continue;
        const QString file = trash + QStringLiteral("/files/") + name.chopped(10);
        for (const QByteArray& line : info.readAll().split('\n'))
            if (line.startsWith("Path=") &&
                QString::fromUtf8(QByteArray::fromPercentEncoding(line.mid(5))) == path)
                return QFile::rename(file, path);
    }
    return false;
}

struct RealTrash {
    explicit RealTrash(const QString& folder)
        : place(folder + QStringLiteral("/data/Trash"))
    {
        qputenv("XDG_DATA_HOME", (folder + QStringLiteral("/data")).toUtf8());
        QDir().mkpath(folder + QStringLiteral("/data"));
        QStandardPaths::setTestModeEnabled(false); // the folder is the test's own
    }
    ~RealTrash()
    {
        QStandardPaths::setTestModeEnabled(true);
        qunsetenv("XDG_DATA_HOME");
    }
    bool bringBack(const QString& path) const { return restore(place, path); }
    void empty() const { QDir(place).removeRecursively(); }
    bool isEmpty() const
    {
        return QDir(place + QStringLiteral("/files")).isEmpty() &&
               QDir(place + QStringLiteral("/info")).isEmpty(QDir::Files);
    }

    QString place;
    std::unique_ptr<Trash> trash = std::make_unique<DesktopTrash>();
};

struct MemoryTrash {
    explicit MemoryTrash(const QString&) {}
    bool bringBack(const QString& path)
    {
        QFile file(path);
        return files().contains(path) && file.open(QIODevice::WriteOnly) &&
               file.write(files().take(path)) >= 0;
    }
    void empty() { files().clear(); }
    bool isEmpty() { return files().isEmpty(); }
    QHash<QString, QByteArray>& files() { return static_cast<FakeTrash&>(*trash).files; }

    std::unique_ptr<Trash> trash = std::make_unique<FakeTrash>();
};

template <typename Kind>
class TrashTest : public testing::Test {
  protected:
    QString make(const QString& name, const QByteArray& bytes)
    {
        QFile file(folder_.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    void waitUntilGone(const QStringList& paths)
    {
        const auto anyIsLeft = [&paths] {
            return std::ranges::any_of(paths, [](const QString& path) { return QFile::exists(path); });
        };
        for (int turn = 0; turn < 100 && anyIsLeft(); ++turn)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        EXPECT_FALSE(anyIsLeft());
    }
    static QByteArray content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder_{QDir::homePath() + QStringLiteral("/.zib-trash-test-XXXXXX")};
    Kind kind_{folder_.path()};
};
using Kinds = testing::Types<RealTrash, MemoryTrash>;
TYPED_TEST_SUITE(TrashTest, Kinds);

TYPED_TEST(TrashTest, WhatIsMovedThereCanBeBroughtBack)
{
    const QString first = this->make(QStringLiteral("50%41 Ärger\n.mp3"), "song");
    const QString second = this->make(QStringLiteral("-rf.mp3"), "other");
    Trash& trash = *this->kind_.trash;
    trash.moveToTrash(first);
    trash.moveToTrash(second);
    EXPECT_TRUE(QFile::exists(first));
    this->waitUntilGone({first, second});
    EXPECT_TRUE(this->kind_.bringBack(first));
    EXPECT_TRUE(this->kind_.bringBack(second));
    EXPECT_EQ(this->content(first), "song");
    EXPECT_EQ(this->content(second), "other");
}

TYPED_TEST(TrashTest, ItBringsBackWhatItHasUnlessAnotherFileHasThePlace)
{
    Trash& trash = *this->kind_.trash;
    QDir(this->folder_.path()).mkdir(QStringLiteral("album"));
    const QString path = this->make(QStringLiteral("album/50%41 Ärger.mp3"), "song");
    trash.moveToTrash(path);
    EXPECT_TRUE(trash.restore(path)) << "it waits still";
    QCoreApplication::processEvents();
    EXPECT_EQ(this->content(path), "song");
    EXPECT_TRUE(this->kind_.isEmpty());

    trash.moveToTrash(path);
    this->waitUntilGone({path});
    QDir(this->folder_.path()).rmdir(QStringLiteral("album"));
    EXPECT_TRUE(trash.restore(path));
    EXPECT_EQ(this->content(path), "song");
    EXPECT_TRUE(this->kind_.isEmpty()) << "and no record of it";

    trash.moveToTrash(path);
    this->waitUntilGone({path});
    this->make(QStringLiteral("album/50%41 Ärger.mp3"), "another");
    EXPECT_FALSE(trash.restore(path));
    EXPECT_EQ(this->content(path), "another");
    EXPECT_FALSE(this->kind_.isEmpty());
    this->kind_.empty();
    QFile::remove(path);
    EXPECT_FALSE(trash.restore(path));
    EXPECT_FALSE(QFile::exists(path));
}

TYPED_TEST(TrashTest, AFailureIsTold)
{
    QSignalSpy failures(this->kind_.trash.get(), &Trash::failed);
    const QString missing = this->folder_.filePath(QStringLiteral("missing.mp3"));
    this->kind_.trash->moveToTrash(missing);
    ASSERT_TRUE(failures.wait(30000));
    EXPECT_EQ(failures.value(0).value(0).toString(), missing);
}

TEST(DesktopTrash, MovesTheRestWhenItGoes)
{
    QTemporaryDir folder(QDir::homePath() + QStringLiteral("/.zib-trash-test-XXXXXX"));
    RealTrash kind(folder.path());
    const QString path = folder.filePath(QStringLiteral("a.mp3"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    kind.trash->moveToTrash(path);
    kind.trash.reset();
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(kind.bringBack(path));
}

} // namespace
} // namespace zib
