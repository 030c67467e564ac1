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
    QList<StartRequest> received;
    QObject::connect(&first, &SingleInstance::requested, &first,
                     [&received](const StartRequest& request) { received.append(request); });

    StartRequest request{{},
                         {QStringLiteral("zib://search/artist/M%C3%B6rk")},
                         QStringLiteral("gnome-shell/42_TIME9"),
                         Transport::Next};
    for (int number = 0; number < 20'000; ++number) // as many files as a shell's "*" can name
        request.files.append(QStringLiteral("/müsic/a \"song\"\n%1.mp3").arg(number));
    bool claimed = true;
    std::thread second([&] { claimed = SingleInstance(place).claim(request); });
    const QDeadlineTimer deadline(30'000);
    while (received.isEmpty() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    second.join();
    EXPECT_FALSE(claimed);
    ASSERT_EQ(received.size(), 1);
    EXPECT_EQ(received.first().files, request.files);
    EXPECT_EQ(received.first().addresses, request.addresses);
    EXPECT_EQ(received.first().activationToken, request.activationToken);
    EXPECT_EQ(received.first().transport, request.transport);
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
