// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a window that cannot be found again, a status line that outlives its run, songs that stay behind
// when their folder moves.
#include "app/AppDelegate.h"
#include "app/ListExchange.h"
#include "controller/DefaultSettings.h"
#include "library/FileImporter.h"
#include "library/ITunesImporter.h"
#include "library/RVDataManager.h"
#include "pages/RVWebViewController.h"
#include "platform/SettingsKeys.h"
#include "records/PropertyValue.h"
#include "services/ShareUserName.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeBusyPanel.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeFileMetadata.h"
#include "tests/fakes/FakeLibraryView.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/fakes/FakeWebView.h"
#include "translations/Translations.h"
#include "views/MainWindow.h"
#include "views/PreferencesWindow.h"
#include "views/WelcomePlace.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

namespace zib {
namespace {

class AppDelegateTest : public testing::Test {
  protected:
    AppDelegateTest()
        : home_(qgetenv("HOME"))
    {
        qputenv("HOME", disk_.path().toUtf8());
        registerDefaultSettings(defaults_);
        window_ = std::make_unique<MainWindow>(defaults_, PagePane{new QWidget, &web_});
        manager_ = std::make_unique<RVDataManager>(defaults_, alerts_, clock_, view_,
                                                   disk_.filePath(QStringLiteral("l.zib")));
        importer_ = std::make_unique<FileImporter>(*manager_, metadata_, defaults_);
        lists_ = std::make_unique<ListExchange>(ListExchange::Parts{*manager_, *importer_, sharedPanel_,
                                                                    defaults_, alerts_,
                                                                    disk_.filePath(QStringLiteral("l.zib"))});
        delegate_ = std::make_unique<AppDelegate>(
            AppDelegate::Parts{*window_, *manager_, *importer_, *lists_, pages_, sharedPanel_, defaults_,
                               alerts_, desktop_, services_, QStringLiteral("/doc/ReadMe.txt")});
    }
    ~AppDelegateTest() override { qputenv("HOME", home_); }

    template <typename Window>
    static Window* shown()
    {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<Window*>(widget); found && found->isVisible())
                return found;
        return nullptr;
    }

    QByteArray home_;
    QTemporaryDir disk_;
    FakeUserDefaults defaults_;
    FakeAlerts alerts_;
    FakeClock clock_;
    FakeDesktop desktop_;
    FakeLibraryView view_;
    FakeWebView web_;
    FakeUrlLoader loader_;
    const WebServices services_{loader_, defaults_, clock_};
    RVWebViewController pages_{web_, services_, defaults_, desktop_, QStringLiteral("file:///pages/")};
    std::unique_ptr<MainWindow> window_;
    FakeBusyPanel sharedPanel_;
    FakeFileMetadata metadata_;
    std::unique_ptr<RVDataManager> manager_;
    std::unique_ptr<FileImporter> importer_;
    std::unique_ptr<ListExchange> lists_;
    std::unique_ptr<AppDelegate> delegate_;
};

TEST_F(AppDelegateTest, TheClosedWindowComesBackWhenAskedFor)
{
    delegate_->applicationDidFinishLaunching();
    ASSERT_TRUE(window_->isVisible());
    window_->close();
    EXPECT_FALSE(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());
    EXPECT_FALSE(delegate_->applicationShouldHandleReopen(true)); // another window shows: nothing to do
    EXPECT_FALSE(window_->isVisible());
    EXPECT_FALSE(delegate_->applicationShouldHandleReopen(false));
    EXPECT_TRUE(window_->isVisible());

    delegate_->openCloseMainWindow();
    EXPECT_FALSE(window_->isVisible());
    delegate_->openCloseMainWindow();
    EXPECT_TRUE(window_->isVisible());
}

TEST_F(AppDelegateTest, ANewcomerIsWelcomedOnceAndWheneverAsked)
{
    delegate_->applicationDidFinishLaunching();
    const auto isShown = [this] {
        const auto* welcome = window_->findChild<WelcomePlace*>();
        return welcome != nullptr && welcome->isVisible();
    };
    EXPECT_TRUE(isShown());
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    QTest::keyClick(window_.get(), Qt::Key_Escape);
    EXPECT_FALSE(isShown());
    delegate_->applicationDidFinishLaunching();
    EXPECT_FALSE(isShown());
    delegate_->openWelcome();
    EXPECT_TRUE(isShown());
    window_->setCurrentView(MainView::NowPlaying); // as it was below, when the program comes online
    EXPECT_TRUE(isShown());
    window_->setCurrentView(MainView::Songs); // whatever is chosen takes its place
    EXPECT_FALSE(isShown());
}

TEST_F(AppDelegateTest, AFirstStartHasItsDefaultsAndQuittingLeavesNoStatusLine)
{
    EXPECT_EQ(defaults_.integer(settings::CurrentSearchType), 0);
    EXPECT_EQ(defaults_.real(settings::SoundLevel), 1.0);
    EXPECT_EQ(defaults_.string(settings::MusicFolder), disk_.filePath(QStringLiteral("Music/Zib/Zib Music")));
    EXPECT_TRUE(defaults_.boolean(settings::CopyImportedFilesToLibrary));
    EXPECT_TRUE(defaults_.boolean(settings::WantsPublicShare));
    for (const QString& notice : {settings::SupressDialogFavorites, settings::SupressDialogDownload})
        EXPECT_FALSE(defaults_.boolean(notice));

    defaults_.setValue(settings::BriefStatusMessage, QStringLiteral("Buffering..."));
    delegate_->applicationWillTerminate();
    EXPECT_FALSE(defaults_.storedKeys().contains(settings::BriefStatusMessage));
}

TEST_F(AppDelegateTest, TheTagChoosesTheWebPage)
{
    defaults_.setValue(settings::SupportPage, QStringLiteral("https://a.example/support"));
    defaults_.setValue(settings::SharedPlaylistsPage, QStringLiteral("https://a.example/lists"));
    defaults_.setValue(settings::HomePage, QStringLiteral("https://a.example/"));
    for (const int tag : {7, 8, 0, 99})
        delegate_->goToWebsite(tag);
    delegate_->openReadMe();
    const QList<QUrl> expected{
        QUrl(QStringLiteral("https://a.example/support")), QUrl(QStringLiteral("https://a.example/lists")),
        QUrl(QStringLiteral("https://a.example/")), QUrl(QStringLiteral("https://a.example/")),
        QUrl(QStringLiteral("file:///doc/ReadMe.txt"))};
    EXPECT_EQ(desktop_.opened, expected);
}

TEST_F(AppDelegateTest, PreferencesMoveTheMusicAndTheSongsFollow)
{
    const QString elsewhere = disk_.filePath(QStringLiteral("elsewhere"));
    QDir().mkpath(elsewhere + QStringLiteral("/Ann"));
    defaults_.setValue(settings::MusicFolder, elsewhere);
    const QString location =
        QUrl::fromLocalFile(elsewhere + QStringLiteral("/Ann/So ng.mp3")).toString(QUrl::FullyEncoded);
    manager_->addPlaylistWithTitle(
        QStringLiteral("P"),
        {Record::make({{keys::Id, QStringLiteral("0123456789abcdef")}, {keys::Location, location}})}, 0);

    delegate_->openPreferences();
    auto* preferences = shown<PreferencesWindow>();
    ASSERT_NE(preferences, nullptr);
    delegate_->openPreferences(); // once made it is kept
    EXPECT_EQ(shown<PreferencesWindow>(), preferences);
    for (QPushButton* button : preferences->findChildren<QPushButton*>())
        if (button->text() == QLatin1String("Reset"))
            button->click();

    for (QCheckBox* box : preferences->findChildren<QCheckBox*>())
        if (box->text().startsWith(QLatin1String("Copy files")))
            box->click();
    EXPECT_FALSE(defaults_.boolean(settings::CopyImportedFilesToLibrary));

    const QString before = makeShareUserName(QStringLiteral("Ann"));
    manager_->setUserName(before);
    for (QLineEdit* field : preferences->findChildren<QLineEdit*>()) {
        if (field->accessibleName() != QLatin1String("Your name"))
            continue;
        field->setText(QStringLiteral("Ann B."));
        Q_EMIT field->editingFinished();
        EXPECT_EQ(field->text(), QStringLiteral("Ann B")); // what the service takes of it
    }
    EXPECT_EQ(manager_->userName(), QString(before).replace(QStringLiteral("Ann-"), QStringLiteral("Ann_B-")))
        << "the secret must stay: by it the service knows its user";

    EXPECT_TRUE(QFile::exists(disk_.filePath(QStringLiteral("Music/Zib/Zib Music/Ann"))));
    const Record moved = manager_->library().find(QStringLiteral("0123456789abcdef"));
    EXPECT_EQ(QUrl(moved.string(keys::Location)).toLocalFile(),
              disk_.filePath(QStringLiteral("Music/Zib/Zib Music/Ann/So ng.mp3")));
}

TEST_F(AppDelegateTest, OpenedFilesComeInWhileThePanelTells)
{
    defaults_.setValue(settings::CopyImportedFilesToLibrary, false);
    metadata_.addSound(QStringLiteral("a.mp3"), QStringLiteral("A"));
    const QString song = disk_.filePath(QStringLiteral("a.mp3"));
    const QString library = disk_.filePath(QStringLiteral("L.zib"));

    delegate_->openFiles({library, song}); // the first alone decides
    EXPECT_FALSE(importer_->isRunning());
    EXPECT_EQ(desktop_.calls, QStringList(QStringLiteral("bringToFront")));

    for (const char* nothing : {"http://a.example/a.mp3", "file:///nowhere.mp3", "zib://", ""})
        delegate_->openUri(QLatin1String(nothing));
    EXPECT_FALSE(importer_->isRunning());
    EXPECT_EQ(desktop_.calls.count(QStringLiteral("bringToFront")), 2); // by the address

    ASSERT_TRUE(QFile(song).open(QIODevice::WriteOnly));
    manager_->setSource(SourceType::Library);
    delegate_->openUri(QUrl::fromLocalFile(song).toString());
    EXPECT_TRUE(sharedPanel_.isOpen);
    while (sharedPanel_.isOpen)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(sharedPanel_.texts, QStringList(QStringLiteral("Adding ") + song));
    EXPECT_EQ(manager_->items().size(), 1);
    EXPECT_EQ(defaults_.string(settings::BriefStatusMessage), QStringLiteral("1 song added"));
    manager_->waitForSaves();
    EXPECT_EQ(LibraryFile(disk_.filePath(QStringLiteral("l.zib"))).load()->library.size(), 1);
}

TEST_F(AppDelegateTest, AnOpenedPlaylistBringsItsSongsAndTellsWhatIsMissing)
{
    defaults_.setValue(settings::CopyImportedFilesToLibrary, false);
    metadata_.addSound(QStringLiteral("a.mp3"), QStringLiteral("A"));
    QFile song(disk_.filePath(QStringLiteral("a.mp3")));
    QFile list(disk_.filePath(QStringLiteral("Mine.m3u8")));
    ASSERT_TRUE(song.open(QIODevice::WriteOnly) && list.open(QIODevice::WriteOnly));
    QByteArray lines("a.mp3\n");
    for (int number = 0; number < 12; ++number)
        lines += "gone" + QByteArray::number(number) + ".mp3\n";
    list.write(lines);
    list.close();
    QStringList read;
    QObject::connect(lists_.get(), &ListExchange::playlistRead, lists_.get(),
                     [&read](const QString& title, const QList<Record>& tracks) {
                         read.append(title + QString::number(tracks.size()));
                     });
    delegate_->openFiles({list.fileName()});
    while (alerts_.shown.isEmpty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(read, QStringList(QStringLiteral("Mine1")));
    EXPECT_TRUE(alerts_.shown[0].messageText.startsWith(QLatin1String("12 songs")));
    EXPECT_TRUE(alerts_.shown[0].informativeText.endsWith(QLatin1String("\nand 2 more")));
    EXPECT_FALSE(sharedPanel_.isOpen);
}

TEST_F(AppDelegateTest, FilesDroppedOnTheWindowAreHandedOn)
{
    QStringList given;
    QObject::connect(window_.get(), &MainWindow::filesGiven, window_.get(),
                     [&given](const QStringList& paths) { given = paths; });
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("file:///a%20b.mp3")), QUrl(QStringLiteral("http://a.example/c.mp3"))});
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(9, 9), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    QCoreApplication::processEvents();
    EXPECT_EQ(given, QStringList(QStringLiteral("/a b.mp3")));
}

} // namespace
} // namespace zib

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    zib::installTranslations({}); // English, with its singulars
    return RUN_ALL_TESTS();
}
