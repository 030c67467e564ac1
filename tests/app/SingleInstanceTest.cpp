// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: two programs writing one library, a start that is refused because a killed program left its socket.
#include "app/SingleInstance.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QLocalServer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>

namespace zib {
namespace {

TEST(SingleInstance, TheSecondTellsTheFirstAndIsRefused)
{
    const QTemporaryDir folder;
    const QString place = folder.filePath(QStringLiteral("meeting"));
    SingleInstance first(place);
    ASSERT_TRUE(first.claim());
    int asked = 0;
    QObject::connect(&first, &SingleInstance::reopenRequested, &first, [&asked] { ++asked; });
    QStringList received;
    QObject::connect(&first, &SingleInstance::openRequested, &first,
                     [&received](const QStringList& files) { received = files; });

    QStringList files; // as many as a shell's "*" can name
    for (int number = 0; number < 20'000; ++number)
        files.append(QStringLiteral("/müsic/a \"song\"\n%1.mp3").arg(number));
    bool claimed = true;
    std::thread second([&] { claimed = SingleInstance(place).claim(files); });
    const QDeadlineTimer deadline(30'000);
    while (received.isEmpty() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    second.join();
    EXPECT_FALSE(claimed);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(received, files);
}

TEST(SingleInstance, WhatAKilledProgramLeftBehindIsTakenOver)
{
    const QTemporaryDir folder;
    const QString place = folder.filePath(QStringLiteral("meeting"));
    QFile left(place);
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.close();
    SingleInstance first(place);
    EXPECT_TRUE(first.claim());
    std::thread second([&place] { EXPECT_FALSE(SingleInstance(place).claim()); });
    second.join();
}

} // namespace
} // namespace zib
