// SPDX-License-Identifier: GPL-3.0-or-later
// The main() of the tests of widgets: as the program begins, with the look applied.
#include "tests/fakes/FakeUserDefaults.h"
#include "views/AccessibleText.h"
#include "views/Theme.h"

#include <QApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    zib::FakeUserDefaults look;
    zib::applyTheme(application, look);
    zib::installAccessibleTexts();
    return RUN_ALL_TESTS();
}
