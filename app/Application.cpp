// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Application.h"

#include "app/AppDelegate.h"
#include "app/CatalogueProcess.h"
#include "app/ListExchange.h"
#include "app/Mpris.h"
#include "controller/DefaultSettings.h"
#include "controller/PlayingOnDesktop.h"
#include "controller/RVMainController.h"
#include "library/FileImporter.h"
#include "library/LibraryFile.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "platform/desktop/CurlReadStreams.h"
#include "platform/desktop/CurlUrlLoader.h"
#include "platform/desktop/DesktopAudioQueue.h"
#include "platform/desktop/DesktopFileMetadata.h"
#include "platform/desktop/DesktopMovie.h"
#include "platform/desktop/DesktopNotifications.h"
#include "platform/desktop/DesktopSound.h"
#include "platform/desktop/DesktopTagApi.h"
#include "platform/desktop/DesktopTrash.h"
#include "platform/desktop/LoginPowerEvents.h"
#include "platform/desktop/NetworkReachability.h"
#include "platform/desktop/SessionSleepInhibitor.h"
#include "platform/desktop/SettingsFile.h"
#include "platform/desktop/SystemClock.h"
#include "platform/desktop/parsers/AudioFileStreamParsers.h"
#include "platform/desktop/parsers/FittedFileStreams.h"
#include "platform/desktop/webview/WebPane.h"
#include "playback/RVPlayer.h"
#include "services/PKNetwork.h"
#include "services/ServiceHosts.h"
#include "services/WebServiceClient.h"
#include "services/utilities/StringUtilities.h"
#include "views/AccessibleText.h"
#include "views/MainWindow.h"
#include "views/ShareDialog.h"
#include "views/Theme.h"
#include "views/WidgetAlerts.h"
#include "views/WidgetBusyPanel.h"
#include "views/WidgetDesktop.h"
#include "views/WidgetPasteboard.h"

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace zib {
namespace {

QString below(QStandardPaths::StandardLocation location, const QString& name)
{
    return QDir(QStandardPaths::writableLocation(location)).filePath(name);
}

bool everyHostIsConfigured(const UserDefaults& defaults)
{
    return std::ranges::all_of(serviceHostKeys(),
                               [&defaults](const QString& key) { return !defaults.string(key).isEmpty(); });
}

struct MenuTexts {
    Q_DECLARE_TR_FUNCTIONS(ApplicationMenu)
};

QString loopbackBase(int port)
{
    return QStringLiteral("http://127.0.0.1:%1").arg(port);
}

} // namespace

Places Places::standard()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    Places places;
    places.library = LibraryFile::standardPath();
    places.settings = SettingsFile::defaultPath();
    places.cache = below(QStandardPaths::GenericCacheLocation, QStringLiteral("zib"));
    places.catalogueData = below(QStandardPaths::GenericDataLocation, QStringLiteral("zib/catalogue"));
    places.music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    places.readMe = programs.filePath(QStringLiteral("../share/zib/ReadMe.txt"));
    places.metadata = QDir::cleanPath(programs.filePath(QStringLiteral("../lib/zib/zib-metadata")));
    places.catalogue = programs.filePath(QStringLiteral("zib-catalogue"));
    places.pages = QDir::cleanPath(programs.filePath(QStringLiteral("../share/zib/pages")));
    places.webEngine = QDir::cleanPath(programs.filePath(QStringLiteral("../lib/zib/zib-webengine.so")));
    places.meetingPlace =
        below(QStandardPaths::RuntimeLocation, QStringLiteral("zib-") + md5HexDigest(places.library).left(8));
    return places;
}

// Destroyed in the reverse order: first what calls others, then what they call.
struct Application::Parts {
    Parts(Places where, LibraryLoading loading, const QVariantMap& overrides)
        : places(std::move(where))
        , library(std::move(loading))
        , defaults(places.settings, overrides)
        , loader(places.cache)
        , queues(sound)
        , movies(sound)
        , window((prepare(), defaults), makePages())
        , sharedPanel(&window)
        , dataManager(defaults, alerts, clock, window.libraryView(), loadedLibrary())
        , player(nullptr, {readStreams, fileStreams, queues, alerts, defaults}, movies, desktop)
        , controller(dataManager, player, {loader, defaults, clock}, defaults, alerts, desktop, trash, tags,
                     window, QUrl::fromLocalFile(places.pages + QLatin1Char('/')).toString(),
                     {shareWindow, pasteboard, sharedPanel})
        , network(reachability, powerEvents, defaults, &controller)
        , metadata(places.metadata)
        , importer(dataManager, metadata, defaults)
        , lists({dataManager, importer, sharedPanel, defaults, alerts, places.library})
        , delegate({window,
                    dataManager,
                    importer,
                    lists,
                    controller.webController(),
                    sharedPanel,
                    defaults,
                    alerts,
                    desktop,
                    {loader, defaults, clock},
                    places.readMe})
        , playingOnDesktop(controller.playback(), defaults, desktop, notifications, sleepInhibitor)
        , mpris({controller.playback(), defaults, dataManager, [this] { desktop.bringToFront(); },
                 [] { QCoreApplication::quit(); }, [this](const QString& uri) { delegate.openUri(uri); }})
    {
    }

    /// What must be so before the first widget and before anything reads a setting.
    void prepare();
    PagePane makePages();
    /// The bundled service gets its address, unless every service has a host of its own.
    void prepareCatalogue();
    /// The songs of the bundled service name its port, which may be another one than last time.
    void followCataloguePort();
    /// A service's host was taken back while the program runs, so the bundled service is needed after all.
    void startCatalogueLate();
    /// Shows the window meanwhile, without songs: its first picture takes as long as a large library.
    LibraryLoading loadedLibrary();
    void fillApplicationMenu();
    void nameUndo(QAction& undo, QAction& redo);
    void open(const StartRequest& request);

    Places places;
    LibraryLoading library; // whatever does not need it is made meanwhile
    SystemClock clock;
    SettingsFile defaults;
    std::unique_ptr<CatalogueProcess> catalogue;
    CurlUrlLoader loader;
    CurlReadStreams readStreams;
    AudioFileStreamParsers parsers;
    FittedFileStreams fileStreams{parsers};
    DesktopSound sound;
    DesktopAudioQueues queues;
    DesktopMovies movies;
    NetworkReachability reachability;
    LoginPowerEvents powerEvents;
    WidgetAlerts alerts;
    WidgetDesktop desktop;
    DesktopNotifications notifications;
    SessionSleepInhibitor sleepInhibitor;
    DesktopTrash trash;
    DesktopTagAPIs tags;
    MainWindow window;
    WidgetBusyPanel sharedPanel;
    WidgetShareWindow shareWindow;
    WidgetPasteboard pasteboard;
    RVDataManager dataManager;
    RVPlayer player;
    RVMainController controller;
    PKNetwork network;
    DesktopFileMetadata metadata;
    FileImporter importer;
    ListExchange lists;
    AppDelegate delegate;
    PlayingOnDesktop playingOnDesktop;
    Mpris mpris;
};

void Application::Parts::prepare()
{
    registerDefaultSettings(defaults);
    installAccessibleTexts();
    applyTheme(*qApp, defaults);
    prepareCatalogue();
}

LibraryLoading Application::Parts::loadedLibrary()
{
    window.show();
    while (!library.isReadyWithin(2ms))
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return std::move(library);
}

PagePane Application::Parts::makePages()
{
    WebPane::Options options;
    options.engine = places.webEngine;
    options.videoSite = defaults.string(settings::VideoSite);
    options.motionReduced = motionReduced(QWidget());
    auto* pane = new WebPane(options);
    return {pane, pane};
}

void Application::Parts::followCataloguePort()
{
    if (!catalogue || catalogue->port() == 0)
        return;
    const int before = defaults.integer(settings::CataloguePort);
    const int now = catalogue->port();
    if (before != 0 && before != now)
        dataManager.relocate(loopbackBase(before) + QLatin1Char('/'), loopbackBase(now) + QLatin1Char('/'));
    defaults.setValue(settings::CataloguePort, now);
}

void Application::Parts::startCatalogueLate()
{
    prepareCatalogue();
    followCataloguePort();
    if (catalogue && catalogue->port() != 0)
        catalogue->start();
}

void Application::Parts::prepareCatalogue()
{
    if (everyHostIsConfigured(defaults))
        return;
    CatalogueProcess::Options options;
    options.program = places.catalogue;
    options.dataFolder = places.catalogueData;
    options.musicFolders = {places.music};
    QDir().mkpath(places.music); // a new user has none yet, and the service wants one
    options.preferredPort = quint16(defaults.integer(settings::CataloguePort));
    catalogue = std::make_unique<CatalogueProcess>(options);
    if (!catalogue->listen())
        return;
    QObject::connect(catalogue.get(), &CatalogueProcess::failed, &defaults, [this](const QString& message) {
        defaults.setValue(settings::BriefStatusMessage, message);
    });
    defaults.registerDefaults(*hostsAtBase(loopbackBase(catalogue->port())));
}

Application::Application(Places places, LibraryLoading library, const QVariantMap& overrides)
    : parts_(std::make_unique<Parts>(std::move(places), std::move(library), overrides))
{
    Parts& parts = *parts_;
    parts.followCataloguePort();
    QObject::connect(&parts.defaults, &UserDefaults::changed, &parts.delegate, [&parts](const QString& key) {
        if (!parts.catalogue && serviceHostKeys().contains(key))
            parts.startCatalogueLate();
    });
    QObject::connect(
        &parts.sound, &DesktopSound::noSoundServer, &parts.defaults,
        [&parts](const QString& line) { parts.defaults.setValue(settings::BriefStatusMessage, line); });
    QObject::connect(qApp, &QApplication::aboutToQuit, &parts.delegate,
                     &AppDelegate::applicationWillTerminate);
    QObject::connect(&parts.window, &MainWindow::filesGiven, &parts.delegate, &AppDelegate::openFiles);
    QObject::connect(&parts.window, &MainWindow::libraryGiven, &parts.lists, &ListExchange::importLibrary);
    QObject::connect(&parts.window, &MainWindow::libraryWanted, &parts.lists, &ListExchange::exportLibrary);
    SourceList& sources = parts.controller.sources();
    QObject::connect(&parts.lists, &ListExchange::playlistRead, &parts.lists,
                     [&sources](const QString& title, const QList<Record>& tracks) {
                         sources.addPlaylist(title, tracks);
                     });
    QObject::connect(
        &parts.lists, &ListExchange::playlistAdded, &parts.lists, [&sources, &parts](const QString& name) {
            sources.insertNode(SourceType::Playlists, int(parts.dataManager.playlists().size()) - 1, name,
                               QStringLiteral("playlist"));
        });
    QObject::connect(&parts.notifications, &Notifications::activated, &parts.delegate,
                     [&parts](const QString& token) { parts.desktop.bringToFront(token); });
    parts.desktop.setMainWindow(&parts.window);
    parts.fillApplicationMenu();
    parts.window.attach(parts.controller);
}

Application::~Application() = default;

void Application::start(const StartRequest& request)
{
    parts_->delegate.applicationDidFinishLaunching();
    parts_->sound.warmUp();
    parts_->open(request);
    // Once the library is painted, which the service's own start would hold up; requests wait for it
    // meanwhile.
    if (parts_->catalogue && parts_->catalogue->port() != 0)
        QTimer::singleShot(0, parts_->catalogue.get(), &CatalogueProcess::start);
}

void Application::reopen(const StartRequest& request)
{
    // A visible window is brought to the front by the one thing that a second start without wishes can want.
    if (request.transport == Transport::None &&
        !parts_->delegate.applicationShouldHandleReopen(parts_->window.isVisible()))
        parts_->desktop.bringToFront(request.activationToken);
    parts_->open(request);
}

void Application::Parts::open(const StartRequest& request)
{
    delegate.openFiles(request.files);
    for (const QString& address : request.addresses)
        delegate.openAddress(address);
    mpris.apply(request.transport);
}

/// The two say what they would undo and do again.
void Application::Parts::nameUndo(QAction& undo, QAction& redo)
{
    const auto name = [](QAction& action, const QString& text, const QString& none) {
        action.setText(text.isEmpty() ? none : text);
        action.setEnabled(!text.isEmpty());
    };
    const auto nameBoth = [this, name, &undo, &redo] {
        name(undo, controller.undo().undoText(), MenuTexts::tr("Undo"));
        name(redo, controller.undo().redoText(), MenuTexts::tr("Redo"));
    };
    QObject::connect(&controller.undo(), &UndoStack::changed, &undo, nameBoth);
    nameBoth();
}

void Application::Parts::fillApplicationMenu()
{
    QMenu& menu = window.applicationMenu();
    const auto add = [&menu](const QString& text, const QKeySequence& keys, auto action) {
        QAction* item = menu.addAction(text, action);
        item->setShortcut(keys);
        return item;
    };
    QAction* undo =
        add(MenuTexts::tr("Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z), [this] { controller.undo().undo(); });
    QAction* redo = add(MenuTexts::tr("Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
                        [this] { controller.undo().redo(); });
    nameUndo(*undo, *redo);
    menu.addSeparator();
    add(MenuTexts::tr("Add to library…"), QKeySequence(QKeySequence::Open),
        [this] { window.addToLibrary(); });
    add(MenuTexts::tr("Import iTunes library…"), {}, [this] { controller.importITunesLibrary(); });
    add(MenuTexts::tr("Remove iTunes items"), {}, [this] { controller.removeITunesItems(); });
    menu.addSeparator();
    add(MenuTexts::tr("Import playlist…"), {}, [this] { window.importPlaylist(); });
    add(MenuTexts::tr("Import library…"), {}, [this] { window.importLibrary(); });
    add(MenuTexts::tr("Export library…"), {}, [this] { window.exportLibrary(); });
    menu.addSeparator();
    add(MenuTexts::tr("Clean up broken links…"), {}, [this] { controller.cleanUpBrokenLinks(); });
    menu.addSeparator();
    add(MenuTexts::tr("Preferences…"), QKeySequence(Qt::CTRL | Qt::Key_Comma),
        [this] { delegate.openPreferences(); });
    menu.addSeparator();
    add(MenuTexts::tr("Welcome"), {}, [this] { delegate.openWelcome(); });
    add(MenuTexts::tr("Read me"), QKeySequence(QKeySequence::HelpContents),
        [this] { delegate.openReadMe(); });
    add(MenuTexts::tr("Website"), {}, [this] { delegate.goToWebsite(0); });
    add(MenuTexts::tr("Support"), {}, [this] { delegate.goToWebsite(AppDelegate::Support); });
    add(MenuTexts::tr("Shared playlists"), {},
        [this] { delegate.goToWebsite(AppDelegate::SharedPlaylists); });
    add(MenuTexts::tr("About Zib"), {}, [this] { delegate.openAboutWindow(); });
    menu.addSeparator();
    add(MenuTexts::tr("Close window"), QKeySequence(QKeySequence::Close),
        [this] { delegate.openCloseMainWindow(); });
    add(MenuTexts::tr("Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), [] { QCoreApplication::quit(); });
}

} // namespace zib
