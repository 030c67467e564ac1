// SPDX-License-Identifier: GPL-3.0-or-later
// The main() of every test of the logic: an event loop without a display, settings that never touch a home,
// and English texts, with their singulars.
#include "translations/Translations.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

#ifdef __SANITIZE_THREAD__
// The event queue's own lock is in the Qt library, where the sanitizer does not see it: what a thread wrote
// when it queued an action and the main thread reads when it runs it is no race.
extern "C" const char* __tsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "race:queueOnThreadOf\n";
}
#endif

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    zib::installTranslations({});
    return RUN_ALL_TESTS();
}
