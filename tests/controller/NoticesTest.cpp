// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a notice that comes again after it was silenced, a question taken for answered with the wrong
// button, a first start with other settings than meant.
#include "controller/Notices.h"
#include "controller/DefaultSettings.h"
#include "library/ITunesImporter.h"
#include "platform/SettingsKeys.h"
#include "tests/controller/ControllerFixture.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QDir>

#include <gtest/gtest.h>

namespace zib {
namespace {

TEST(Notices, AreShownUntilTheBoxIsTickedWhicheverButtonIsPressed)
{
    FakeUserDefaults defaults;
    FakeAlerts alerts;
    FakeDesktop desktop;
    Notices notices(defaults, alerts, desktop);
    const QString key = settings::SupressDialogDownload;
    const QString text = QStringLiteral("Sure?");

    alerts.answers = {{.button = 1, .suppressed = false},
                      {.button = 0, .suppressed = false},
                      {.button = 1, .suppressed = true}};
    EXPECT_EQ(notices.runSuppressibleConfirmation(text, key), 1);
    EXPECT_EQ(notices.runSuppressibleConfirmation(text, key), 0);
    EXPECT_FALSE(defaults.boolean(key));
    EXPECT_EQ(notices.runSuppressibleConfirmation(text, key), 1);
    EXPECT_TRUE(defaults.boolean(key));
    EXPECT_EQ(notices.runSuppressibleConfirmation(text, key), 0) << "from now on it counts as agreed";

    ASSERT_EQ(alerts.shown.size(), 3);
    EXPECT_EQ(desktop.calls, QStringList(3, QStringLiteral("bringToFront")));
    const Alert& alert = alerts.shown.first();
    EXPECT_EQ(alert.style, Alert::Style::Warning);
    EXPECT_EQ(alert.messageText, QStringLiteral("Zib!"));
    EXPECT_EQ(alert.informativeText, text);
    EXPECT_EQ(alert.buttons, (QStringList{QStringLiteral("OK"), QStringLiteral("Cancel")}));
    EXPECT_TRUE(alert.showsSuppressionButton);
}

TEST(Notices, EachHasItsOwnKey)
{
    FakeUserDefaults defaults({{settings::SupressDialogFavorites, true}});
    FakeAlerts alerts;
    FakeDesktop desktop;
    Notices notices(defaults, alerts, desktop);
    notices.runSuppressibleNotice(QStringLiteral("a"), settings::SupressDialogFavorites);
    notices.runSuppressibleNotice(QStringLiteral("b"), settings::SupressDialogTopHot);
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.shown[0].informativeText, QStringLiteral("b"));
    EXPECT_EQ(alerts.shown[0].buttons, QStringList{QStringLiteral("OK")});
}

TEST_F(ControllerFixture, AnITunesImportBeginsOnlyWhenTheUserAgrees)
{
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", folder.path().toUtf8()); // where there is no iTunes library
    int imports = 0;
    QObject::connect(&library->iTunesImporter(), &ITunesImporter::finished, library.get(),
                     [&imports] { ++imports; });
    alerts.answers = {{.button = 1, .suppressed = false}, {.button = 0, .suppressed = true}};
    controller->importITunesLibrary();
    EXPECT_FALSE(library->iTunesImporter().isRunning());
    controller->importITunesLibrary();
    EXPECT_TRUE(eventually([&imports] { return imports == 1; }));
    EXPECT_TRUE(defaults.boolean(settings::SupressDialogITunes));
    controller->importITunesLibrary(); // no more asked
    EXPECT_TRUE(eventually([&imports] { return imports == 2; }));
    ASSERT_EQ(alerts.shown.size(), 2);
    EXPECT_TRUE(alerts.shown[0].informativeText.contains(QLatin1String("No songs will be duplicated")));
    qputenv("HOME", home);
}

TEST(DefaultSettings, HoldAtAFirstStartAndGiveWayToWhatIsSet)
{
    FakeUserDefaults defaults({{settings::CurrentSearchType, 2}});
    registerDefaultSettings(defaults);
    EXPECT_EQ(defaults.integer(settings::CurrentSearchType), 2);
    EXPECT_EQ(defaults.string(settings::MusicFolder),
              QDir::homePath() + QStringLiteral("/Music/Zib/Zib Music"));
    EXPECT_EQ(defaults.real(settings::SoundLevel), 1.0);
    EXPECT_TRUE(defaults.boolean(settings::CopyImportedFilesToLibrary));
    EXPECT_TRUE(defaults.boolean(settings::WantsPublicShare));
    EXPECT_FALSE(defaults.boolean(settings::PlayAllSourcesContinuously));
    EXPECT_FALSE(defaults.string(settings::HomePage).isEmpty());
    EXPECT_EQ(defaults.storedKeys(), QStringList{settings::CurrentSearchType});
}

} // namespace
} // namespace zib
