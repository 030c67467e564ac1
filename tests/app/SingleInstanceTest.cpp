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

    bool claimed = true;
    std::thread second([&] { claimed = SingleInstance(place).claim(); });
    const QDeadlineTimer deadline(30'000);
    while (asked == 0 && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    second.join();
    EXPECT_FALSE(claimed);
    EXPECT_EQ(asked, 1);
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
