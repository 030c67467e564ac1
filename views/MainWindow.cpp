// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/MainWindow.h"

#include "controller/RVMainController.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "views/AddToLibraryPanel.h"
#include "views/Icons.h"
#include "views/LibraryPlace.h"
#include "views/NowPlayingPanel.h"
#include "views/NowPlayingPlace.h"
#include "views/SearchBar.h"
#include "views/SongInformationWindow.h"
#include "views/SourceListView.h"
#include "views/SourcePane.h"
#include "views/TextLabel.h"
#include "views/Theme.h"
#include "views/ValueSlider.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBoxLayout>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolButton>

namespace zib {

namespace {

constexpr QSize smallestWindow(960, 600);
constexpr QSize comfortableWindow(1280, 800);
constexpr int sourceListWidth = 200;
constexpr int titleBarHeight = 40; // no desktop's is higher

QToolButton* makeButton(const QString& iconName, int iconSize, const QString& accessibleName,
                        const QString& tip, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setIcon(icon(iconName));
    button->setIconSize(QSize(iconSize, iconSize));
    button->setAccessibleName(accessibleName);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

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

MainWindow::MainWindow(UserDefaults& defaults)
    : defaults_(defaults)
{
    setWindowTitle(QStringLiteral("Zib"));
    setMinimumSize(smallestWindow);
    setAcceptDrops(true);
    auto* content = new QWidget(this);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeBar());
    layout->addWidget(makeMainArea(), 1);
    layout->addWidget(makeStatusLine());
    setCentralWidget(content);
    restorePlace();
    showVolume();
    status_->setShownText(defaults_.string(settings::BriefStatusMessage));
    connect(&defaults_, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == settings::SoundLevel)
            showVolume();
        else if (key == settings::BriefStatusMessage)
            status_->setShownText(defaults_.string(key));
    });
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow() = default;

LibraryView& MainWindow::libraryView()
{
    return place_->libraryView();
}

// The parts

QWidget* MainWindow::makeBar()
{
    auto* bar = new QWidget(this);
    bar->setObjectName(QStringLiteral("bar"));
    bar->setAttribute(Qt::WA_StyledBackground);
    back_ = makeButton(QStringLiteral("back"), 20, tr("Back"), tr("Previous song (Ctrl+Left)"), bar);
    playPause_ =
        makeButton(QStringLiteral("play"), 28, tr("Play or pause"), tr("Play or pause (Space)"), bar);
    playPause_->setCheckable(true);
    next_ = makeButton(QStringLiteral("next"), 20, tr("Next"), tr("Next song (Ctrl+Right)"), bar);
    panel_ = new NowPlayingPanel(bar);
    love_ = makeButton(QStringLiteral("heart"), 20, tr("Love"), tr("Love this song (Ctrl+L)"), bar);
    love_->setCheckable(true);
    love_->setEnabled(false);
    download_ =
        makeButton(QStringLiteral("download"), 20, tr("Download"), tr("Download this song (Ctrl+D)"), bar);
    download_->setCheckable(true);
    download_->setEnabled(false);
    speaker_ = new QLabel(bar);
    volume_ = new VolumeSlider(bar);
    volume_->setFixedWidth(88);
    search_ = new SearchBar(bar);
    search_->setMaximumWidth(440);

    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(Theme::between, Theme::between, Theme::between, Theme::between);
    layout->setSpacing(Theme::within);
    layout->addWidget(back_);
    layout->addWidget(playPause_);
    layout->addWidget(next_);
    layout->addSpacing(Theme::between);
    layout->addWidget(panel_, 3);
    layout->addSpacing(Theme::within);
    layout->addWidget(love_);
    layout->addWidget(download_);
    layout->addSpacing(Theme::between);
    layout->addWidget(speaker_);
    layout->addWidget(volume_);
    layout->addSpacing(Theme::between);
    layout->addWidget(search_, 2);
    layout->addWidget(makeMenuButton(bar));
    return bar;
}

QToolButton* MainWindow::makeMenuButton(QWidget* bar)
{
    QToolButton* button = makeButton(QStringLiteral("menu"), 20, tr("Menu"), tr("Menu"), bar);
    menu_ = new QMenu(button);
    button->setMenu(menu_);
    button->setPopupMode(QToolButton::InstantPopup);
    return button;
}

QWidget* MainWindow::makeMainArea()
{
    auto* splitter = new QSplitter(this);
    splitter->setHandleWidth(1);
    splitter->setChildrenCollapsible(false);
    sources_ = new SourcePane(splitter);
    sources_->setMinimumWidth(140);

    views_ = new QStackedWidget(splitter);
    nothing_ = new QWidget(views_);
    nowPlaying_ = new NowPlayingPlace(views_);
    place_ = new LibraryPlace(defaults_, views_);
    for (QWidget* view : {nothing_, static_cast<QWidget*>(nowPlaying_), static_cast<QWidget*>(place_)})
        views_->addWidget(view);
    views_->setCurrentWidget(nowPlaying_); // what a start shows, while a large library is still being read
    splitter->addWidget(sources_);
    splitter->addWidget(views_);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({sourceListWidth, comfortableWindow.width() - sourceListWidth});
    return splitter;
}

QWidget* MainWindow::makeStatusLine()
{
    auto* line = new QWidget(this);
    line->setObjectName(QStringLiteral("statusLine"));
    line->setAttribute(Qt::WA_StyledBackground);
    status_ = new TextLabel(tr("Status"), line);
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(12, Theme::within, 12, Theme::within);
    layout->addWidget(status_, 1);
    return line;
}

void MainWindow::restorePlace()
{
    const auto geometry = QByteArray::fromBase64(defaults_.string(settings::WindowGeometry).toLatin1());
    if (!geometry.isEmpty() && restoreGeometry(geometry))
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
    nowPlaying_->attach(controller);
    sources_->attach(controller);
    panel_->setDurationSource([&controller] { return controller.playback().duration(); });
    connectControls();
    makeShortcuts();
    controller.windowDidLoad();
    search_->focusField();
}

void MainWindow::connectControls()
{
    // A click also switches a checkable button; the controller then shows what is the case.
    connect(back_, &QToolButton::clicked, this, [this] { playback().backTrack(); });
    connect(playPause_, &QToolButton::clicked, this, [this] { playback().playPause(); });
    connect(next_, &QToolButton::clicked, this, [this] { playback().nextTrack(); });
    connect(love_, &QToolButton::clicked, this, [this](bool on) {
        setFavorite(on);
        playback().addCurrentFavorite(on);
    });
    connect(download_, &QToolButton::clicked, this,
            [this](bool on) { controller_->downloading().downloadCurrentSong(on); });
    connect(panel_, &NowPlayingPanel::scanRequested, this,
            [this](double percent) { playback().scanTrack(percent); });
    connect(volume_, &VolumeSlider::chosen, this, [this](double percent) {
        defaults_.setValue(settings::SoundLevel, percent / 100);
        playback().setSoundLevel(float(percent / 100));
    });
    connect(search_, &SearchBar::searchTypeChosen, this,
            [this](int type) { controller_->search().radioTypeSelected(type); });
    connect(search_, &SearchBar::searchRequested, this,
            [this](const QString& text) { controller_->search().performSearchAction(text); });
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
    add(Qt::CTRL | Qt::Key_F, [this] { search_->focusField(); });
    add(Qt::CTRL | Qt::Key_Left, [this] { playback().backTrack(); });
    add(Qt::CTRL | Qt::Key_Right, [this] { playback().nextTrack(); });
    add(Qt::CTRL | Qt::Key_Up, [this] { playback().volumeUp(); });
    add(Qt::CTRL | Qt::Key_Down, [this] { playback().volumeDown(); });
    add(Qt::CTRL | Qt::Key_I, [this] { controller_->editInformation(); });
    // The song selected in a table that has the keyboard, else the one that plays.
    add(Qt::CTRL | Qt::Key_D, [this] {
        if (!place_->pressInRow(SongColumn::Download))
            download_->click();
    });
    add(Qt::CTRL | Qt::Key_L, [this] {
        if (!place_->pressInRow(SongColumn::Love))
            love_->click();
    });
}

void MainWindow::addToLibrary()
{
    AddToLibraryPanel panel(this);
    if (panel.exec() == QDialog::Accepted)
        Q_EMIT filesGiven(panel.pickedPaths());
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
    defaults_.setValue(settings::WindowGeometry, QString::fromLatin1(saveGeometry().toBase64()));
    QMainWindow::closeEvent(event);
}

// What the controller shows

void MainWindow::setPlaying(bool playing)
{
    playPause_->setChecked(playing);
    playPause_->setIcon(icon(playing ? QStringLiteral("pause") : QStringLiteral("play")));
    playPause_->setToolTip(playing ? tr("Pause (Space)") : tr("Play (Space)"));
}

void MainWindow::setFavorite(bool loved)
{
    love_->setChecked(loved);
    love_->setIcon(loved ? icon(QStringLiteral("heart-filled"), Tint::Loved) : icon(QStringLiteral("heart")));
    love_->setToolTip(loved ? tr("Love this song no more (Ctrl+L)") : tr("Love this song (Ctrl+L)"));
}

void MainWindow::setFavoriteEnabled(bool enabled)
{
    love_->setEnabled(enabled);
}

void MainWindow::setDownloaded(bool downloaded)
{
    download_->setChecked(downloaded);
    showDownload();
}

void MainWindow::setDownloadEnabled(bool enabled)
{
    download_->setEnabled(enabled);
    showDownload();
}

/// On disk, on its way there, or neither.
void MainWindow::showDownload()
{
    const bool onDisk = download_->isChecked() && !download_->isEnabled();
    download_->setIcon(icon(onDisk ? QStringLiteral("check") : QStringLiteral("download"),
                            download_->isChecked() ? Tint::Accent : Tint::Text));
    download_->setToolTip(onDisk                   ? tr("This song is on your disk")
                          : download_->isChecked() ? tr("This song is being downloaded")
                                                   : tr("Download this song (Ctrl+D)"));
}

void MainWindow::setArtwork(Artwork artwork)
{
    panel_->setArtwork(artwork);
    nowPlaying_->setArtwork();
}

void MainWindow::setArtworkPicture(const QByteArray& file)
{
    panel_->setArtworkPicture(file);
    nowPlaying_->setArtworkPicture(file);
}

void MainWindow::setTickerHeader(const QString& text)
{
    panel_->setHeader(text);
}

void MainWindow::setTickerText(const QString& text)
{
    panel_->setTickerText(text);
}

void MainWindow::setProgress(int percent)
{
    panel_->setProgress(percent);
}

void MainWindow::setProgressEnabled(bool enabled)
{
    panel_->setProgressEnabled(enabled);
}

void MainWindow::setElapsedText(const QString& text)
{
    panel_->setElapsedText(text);
}

void MainWindow::setRemainingText(const QString& text)
{
    panel_->setRemainingText(text);
}

void MainWindow::setStreamingMarkVisible(bool visible)
{
    panel_->setStreamingMarkVisible(visible);
}

void MainWindow::setSearchType(int type)
{
    search_->setSearchType(type);
}

void MainWindow::setSearchPlaceholder(const QString& text)
{
    search_->setPlaceholder(text);
}

void MainWindow::setLoaderAnimating(bool animating)
{
    search_->setBusy(animating);
}

std::optional<SongInformation> MainWindow::editInformation(FileViewController& songs)
{
    SongInformationWindow window(songs, this);
    return window.exec() == QDialog::Accepted ? std::optional(window.information()) : std::nullopt;
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
    switch (view) {
    case MainView::None:
        views_->setCurrentWidget(nothing_);
        break;
    case MainView::NowPlaying:
        views_->setCurrentWidget(nowPlaying_);
        break;
    case MainView::Songs:
        views_->setCurrentWidget(place_);
        break;
    }
}

void MainWindow::showVolume()
{
    const double level = defaults_.real(settings::SoundLevel);
    volume_->showValue(qRound(level * 100));
    const QString name = level <= 0    ? QStringLiteral("volume-off")
                         : level < 0.5 ? QStringLiteral("volume-low")
                                       : QStringLiteral("volume-high");
    speaker_->setPixmap(icon(name, Tint::Secondary).pixmap(QSize(20, 20), devicePixelRatioF()));
}

} // namespace zib
