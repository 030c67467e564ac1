// SPDX-License-Identifier: GPL-3.0-or-later
// The main() of every test of the logic: an event loop without a display, and settings that never touch a
// home.
#include <QCoreApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    return RUN_ALL_TESTS();
}
