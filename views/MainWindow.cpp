// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/MainWindow.h"

#include "controller/RVMainController.h"
#include "library/RVDataManager.h"
#include "views/AddToLibraryPanel.h"
#include "views/ControlBar.h"
#include "views/FilterField.h"
#include "views/LibraryPlace.h"
#include "views/ListPanels.h"
#include "views/NowPlayingPanel.h"
#include "views/SearchBar.h"
#include "views/SongInformationWindow.h"
#include "views/SourceListView.h"
#include "views/SourcePane.h"
#include "views/StatusLine.h"
#include "views/WelcomePlace.h"
#include "views/WindowSession.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBoxLayout>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>

namespace zib {

namespace {

constexpr QSize smallestWindow(960, 600);
constexpr QSize comfortableWindow(1280, 800);
constexpr int sourceListWidth = 200;
constexpr int titleBarHeight = 40; // no desktop's is higher

/// The files on this computer among what is dragged.
QStringList draggedFiles(const QMimeData& data)
{
    QStringList paths;
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls)
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    return paths;
}

} // namespace

MainWindow::MainWindow(UserDefaults& defaults, PagePane pages)
    : defaults_(defaults)
    , pages_(pages)
    , bar_(new ControlBar(defaults, this))
    , statusLine_(new StatusLine(defaults, this))
{
    setWindowTitle(QStringLiteral("Zib"));
    setMinimumSize(smallestWindow);
    setAcceptDrops(true);
    auto* content = new QWidget(this);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar_);
    QSplitter* panes = makeMainArea();
    layout->addWidget(panes, 1);
    layout->addWidget(statusLine_);
    setCentralWidget(content);
    session_ = std::make_unique<WindowSession>(
        defaults_, WindowSession::Parts{*this, *panes, sources_->list(), place_->panes()});
    restorePlace();
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow() = default;

LibraryView& MainWindow::libraryView()
{
    return place_->libraryView();
}

// The parts

QSplitter* MainWindow::makeMainArea()
{
    auto* splitter = new QSplitter(this);
    splitter->setHandleWidth(1);
    splitter->setChildrenCollapsible(false);
    sources_ = new SourcePane(splitter);
    sources_->setMinimumWidth(140);

    views_ = new QStackedWidget(splitter);
    nothing_ = new QWidget(views_);
    place_ = new LibraryPlace(defaults_, views_);
    for (QWidget* view : {nothing_, pages_.widget, static_cast<QWidget*>(place_)})
        views_->addWidget(view);
    showView();
    splitter->addWidget(sources_);
    splitter->addWidget(views_);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({sourceListWidth, comfortableWindow.width() - sourceListWidth});
    return splitter;
}

void MainWindow::restorePlace()
{
    if (session_->restoreGeometry())
        return;
    // The frame that the desktop draws around the window has to find room too.
    const QSize room = screen()->availableSize() - QSize(0, titleBarHeight);
    resize(comfortableWindow.boundedTo(room));
}

// What the user does

void MainWindow::attach(RVMainController& controller)
{
    controller_ = &controller;
    place_->attach(controller);
    sources_->attach(controller);
    bar_->attach(controller);
    statusLine_->filter().attach(controller);
    connect(&statusLine_->filter(), &FilterField::left, this, [this] { place_->focusSongs(); });
    makeShortcuts();
    controller.windowDidLoad();
    session_->attach(controller);
    bar_->search().focusField();
}

PlaybackQueue& MainWindow::playback()
{
    return controller_->playback();
}

void MainWindow::makeShortcuts()
{
    const auto add = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(Qt::CTRL | Qt::Key_F, [this] { bar_->search().focusField(); });
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_F, [this] {
        statusLine_->filter().setFocus(Qt::ShortcutFocusReason);
        statusLine_->filter().selectAll();
    });
    add(Qt::CTRL | Qt::Key_Left, [this] { playback().backTrack(); });
    add(Qt::CTRL | Qt::Key_Right, [this] { playback().nextTrack(); });
    add(Qt::CTRL | Qt::Key_Up, [this] { playback().soundLevel().volumeUp(); });
    add(Qt::CTRL | Qt::Key_Down, [this] { playback().soundLevel().volumeDown(); });
    add(Qt::CTRL | Qt::Key_I, [this] { controller_->editInformation(); });
    // The song selected in a table that has the keyboard, else the one that plays.
    add(Qt::CTRL | Qt::Key_D, [this] {
        if (!place_->pressInRow(SongColumn::Download))
            bar_->clickDownload();
    });
    add(Qt::CTRL | Qt::Key_L, [this] {
        if (!place_->pressInRow(SongColumn::Love))
            bar_->clickLove();
    });
}

void MainWindow::addToLibrary()
{
    AddToLibraryPanel panel(this);
    if (panel.exec() == QDialog::Accepted)
        Q_EMIT filesGiven(panel.pickedPaths());
}

void MainWindow::importPlaylist()
{
    if (const QStringList paths = playlistImportPaths(this); !paths.isEmpty())
        Q_EMIT filesGiven(paths);
}

void MainWindow::importLibrary()
{
    if (const QString path = libraryImportPath(this); !path.isEmpty())
        Q_EMIT libraryGiven(path);
}

void MainWindow::exportLibrary()
{
    if (const QString path = libraryExportPath(this); !path.isEmpty())
        Q_EMIT libraryWanted(path);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!draggedFiles(*event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const QStringList paths = draggedFiles(*event->mimeData());
    event->setDropAction(Qt::CopyAction); // whoever offers to move would remove the files
    event->accept();
    // Later, so that the file manager need not wait for what follows.
    QMetaObject::invokeMethod(
        this, [this, paths] { Q_EMIT filesGiven(paths); }, Qt::QueuedConnection);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    // The space key plays or pauses where a list has the focus.
    if (event->type() == QEvent::KeyRelease && controller_ &&
        isAncestorOf(qobject_cast<QAbstractItemView*>(watched))) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Space && !key->isAutoRepeat()) {
            playback().playPause();
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    session_->save();
    QMainWindow::closeEvent(event);
}

// What the controller shows

QMenu& MainWindow::applicationMenu()
{
    return bar_->menu();
}

void MainWindow::setPlaying(bool playing)
{
    bar_->setPlaying(playing);
}

void MainWindow::setFavorite(bool loved)
{
    bar_->setFavorite(loved);
}

void MainWindow::setFavoriteEnabled(bool enabled)
{
    bar_->setFavoriteEnabled(enabled);
}

void MainWindow::setDownloaded(bool downloaded)
{
    bar_->setDownloaded(downloaded);
}

void MainWindow::setDownloadEnabled(bool enabled)
{
    bar_->setDownloadEnabled(enabled);
}

void MainWindow::setArtwork(Artwork artwork)
{
    bar_->panel().setArtwork(artwork);
}

void MainWindow::setArtworkPicture(const QByteArray& file)
{
    bar_->panel().setArtworkPicture(file);
}

void MainWindow::setTickerHeader(const QString& text)
{
    bar_->panel().setHeader(text);
}

void MainWindow::setTickerText(const QString& text)
{
    bar_->panel().setTickerText(text);
}

void MainWindow::setProgress(int percent)
{
    bar_->panel().setProgress(percent);
}

void MainWindow::setProgressEnabled(bool enabled)
{
    bar_->panel().setProgressEnabled(enabled);
}

void MainWindow::setElapsedText(const QString& text)
{
    bar_->panel().setElapsedText(text);
}

void MainWindow::setRemainingText(const QString& text)
{
    bar_->panel().setRemainingText(text);
}

void MainWindow::setStreamingMarkVisible(bool visible)
{
    bar_->panel().setStreamingMarkVisible(visible);
}

void MainWindow::setSearchType(int type)
{
    bar_->search().setSearchType(type);
}

void MainWindow::setSearchPlaceholder(const QString& text)
{
    bar_->search().setPlaceholder(text);
}

void MainWindow::setLoaderAnimating(bool animating)
{
    bar_->search().setBusy(animating);
}

std::optional<SongInformation> MainWindow::editInformation(FileViewController& songs)
{
    SongInformationWindow window(songs, this);
    return window.exec() == QDialog::Accepted ? std::optional(window.information()) : std::nullopt;
}

void MainWindow::setUrlFieldText(const QString& text)
{
    statusLine_->setUrlFieldText(text);
}

void MainWindow::setConnected(bool connected)
{
    place_->setConnected(connected);
}

OutlineView& MainWindow::outlineView()
{
    return sources_->list();
}

void MainWindow::setCurrentView(MainView view)
{
    statusLine_->filter().setVisible(view == MainView::Songs);
    // A view that is only shown anew, as when the program comes online, leaves the welcome where it is.
    if (view != view_ || views_->currentWidget() != welcome_) {
        view_ = view;
        showView();
    }
}

void MainWindow::showView()
{
    switch (view_) {
    case MainView::None:
        views_->setCurrentWidget(nothing_);
        break;
    case MainView::NowPlaying:
        views_->setCurrentWidget(pages_.widget);
        break;
    case MainView::Songs:
        views_->setCurrentWidget(place_);
        break;
    }
}

void MainWindow::showWelcome()
{
    if (welcome_ == nullptr) {
        welcome_ = new WelcomePlace(views_);
        views_->addWidget(welcome_);
        connect(welcome_, &WelcomePlace::addMusicWanted, this, &MainWindow::addToLibrary);
        connect(welcome_, &WelcomePlace::closeWanted, this, &MainWindow::showView);
        connect(welcome_, &WelcomePlace::tagChosen, this,
                [this](const QString& tag) { controller_->search().beginSearchForTags({tag}); });
    }
    views_->setCurrentWidget(welcome_);
}

} // namespace zib
