// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a setting that waits for something before it acts, a box that shows what is no longer so, a silenced
// message that cannot be had back, a service said to answer that does not, a host that cannot be one.
#include "views/PreferencesWindow.h"

#include "platform/SettingsKeys.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "views/preferences/PreferencesActions.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTest>

#include <gtest/gtest.h>

namespace zib {
namespace {

class Actions : public PreferencesActions {
  public:
    QString changeMusicFolder(const QString& /*pickedFolder*/) override { return {}; }
    void resetMusicFolder() override {}
    [[nodiscard]] QString shareName() const override { return name; }
    void setShareName(const QString& newName) override { name = newName; }
    QString name = QStringLiteral("Ann");
};

class PreferencesTest : public testing::Test {
  protected:
    PreferencesTest()
    {
        defaults.registerDefaults({{settings::LyricsHost, QStringLiteral("127.0.0.1:7")},
                                   {settings::CataloguePort, 7},
                                   {settings::NotifiesOfSongs, true}});
        window.show();
    }

    void choose(const char* section)
    {
        auto* sections = window.findChild<QListWidget*>();
        sections->setCurrentItem(sections->findItems(QString::fromUtf8(section), Qt::MatchExactly).value(0));
    }
    template <typename Button>
    Button* button(const char* text)
    {
        for (Button* found : window.findChildren<Button*>())
            if (found->text() == QString::fromUtf8(text) ||
                found->accessibleName() == QString::fromUtf8(text))
                return found;
        return nullptr;
    }
    template <typename Widget>
    Widget* named(const char* accessibleName)
    {
        for (Widget* found : window.findChildren<Widget*>())
            if (found->accessibleName() == QString::fromUtf8(accessibleName))
                return found;
        return nullptr;
    }
    bool says(const char* words) { return named<QLabel>(words) != nullptr; }
    void type(QLineEdit* field, const char* text)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, QString::fromUtf8(text));
        QTest::keyClick(field, Qt::Key_Return);
    }
    /// The latest request to that address.
    FakeUrlExchange* asked(const char* url)
    {
        for (auto exchange = loader.exchanges.rbegin(); exchange != loader.exchanges.rend(); ++exchange)
            if ((*exchange)->request.url == url)
                return exchange->get();
        return nullptr;
    }

    FakeUserDefaults defaults;
    FakeUrlLoader loader;
    FakeClock clock;
    FakeAlerts alerts;
    Actions actions;
    PreferencesWindow window{defaults, actions, alerts, WebServices{loader, defaults, clock}};
};

TEST_F(PreferencesTest, EveryBoxActsAtOnceAndFollowsItsSetting)
{
    QString changed;
    QObject::connect(&defaults, &UserDefaults::changed, &window,
                     [&changed](const QString& key) { changed = key; });
    QSet<QString> keys;
    for (QCheckBox* box : window.findChildren<QCheckBox*>()) {
        changed.clear();
        const bool before = box->isChecked();
        box->click();
        ASSERT_FALSE(changed.isEmpty()) << qUtf8Printable(box->text());
        EXPECT_NE(box->isChecked(), before);
        keys.insert(changed);
        defaults.remove(changed);
        EXPECT_EQ(box->isChecked(), before) << qUtf8Printable(changed);
    }
    EXPECT_EQ(keys.size(), window.findChildren<QCheckBox*>().size()) << "two boxes for one setting";

    button<QRadioButton>("Dark")->click();
    EXPECT_EQ(defaults.string(settings::Appearance), QStringLiteral("dark"));
    button<QRadioButton>("As the desktop")->click();
    EXPECT_FALSE(defaults.storedKeys().contains(settings::Appearance));
}

TEST_F(PreferencesTest, SilencedMessagesComeBack)
{
    auto* all = button<QPushButton>("Show all again");
    EXPECT_FALSE(all->isEnabled());
    for (const QString& key : {settings::SupressDialogFavorites, settings::SupressDialogITunes})
        defaults.setValue(key, true);
    EXPECT_FALSE(button<QCheckBox>("When a song is loved")->isChecked());
    all->click();
    EXPECT_TRUE(button<QCheckBox>("When a song is loved")->isChecked());
    EXPECT_FALSE(defaults.boolean(settings::SupressDialogFavorites));
    EXPECT_FALSE(defaults.boolean(settings::SupressDialogITunes));
    EXPECT_FALSE(all->isEnabled());
}

TEST_F(PreferencesTest, AServiceIsAskedWhenItIsSeenAndWhenItsHostChanges)
{
    EXPECT_TRUE(loader.exchanges.empty());
    choose("Services");
    EXPECT_EQ(loader.exchanges.size(), 1U) << "those without a host cannot be asked";
    EXPECT_TRUE(says("Song search: Does not answer"));
    EXPECT_TRUE(says("Lyrics: Asking…"));
    asked("http://127.0.0.1:7/")->respond();
    EXPECT_TRUE(says("Lyrics: Answers"));

    auto* host = named<QLineEdit>("Host of Lyrics");
    EXPECT_EQ(host->text(), QString()) << "the bundled service needs no name";
    type(host, "https://elsewhere.example");
    EXPECT_FALSE(defaults.storedKeys().contains(settings::LyricsHost));
    type(host, "http://elsewhere.example:8080/");
    EXPECT_EQ(defaults.string(settings::LyricsHost), QStringLiteral("elsewhere.example:8080"));
    asked("http://elsewhere.example:8080/")->fail(QStringLiteral("No such host."));
    EXPECT_TRUE(says("Lyrics: Does not answer"));

    button<QPushButton>("Reset the host of Lyrics")->click();
    EXPECT_FALSE(defaults.storedKeys().contains(settings::LyricsHost));
    EXPECT_EQ(host->text(), QString());
    asked("http://127.0.0.1:7/")->respond({503, -1, {}});
    EXPECT_TRUE(says("Lyrics: Has an error of its own"));
}

} // namespace
} // namespace zib
