// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/ControlBar.h"

#include "controller/RVMainController.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "views/IconLabel.h"
#include "views/NowPlayingPanel.h"
#include "views/SearchBar.h"
#include "views/Theme.h"
#include "views/ValueSlider.h"

#include <QApplication>
#include <QBoxLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QToolButton>
#include <QWindow>

namespace zib {

namespace {

constexpr int buttonIcon = 20;
constexpr int largeIcon = 28;
constexpr int volumeWidth = 88;
constexpr int widestSearch = 440;

void dress(QToolButton& button, const QString& iconName, int iconSize, const QString& accessibleName,
           const QString& tip)
{
    button.setIcon(icon(iconName));
    button.setIconSize(QSize(iconSize, iconSize));
    button.setAccessibleName(accessibleName);
    button.setToolTip(tip);
    button.setFocusPolicy(Qt::StrongFocus);
}

} // namespace

ControlBar::ControlBar(UserDefaults& defaults, QWidget* parent)
    : QWidget(parent)
    , defaults_(defaults)
    , back_(new QToolButton(this))
    , playPause_(new QToolButton(this))
    , next_(new QToolButton(this))
    , panel_(new NowPlayingPanel(this))
    , love_(new QToolButton(this))
    , download_(new QToolButton(this))
    , speaker_(new IconLabel(QStringLiteral("volume-high"), Tint::Secondary, buttonIcon, this))
    , volume_(new VolumeSlider(this))
    , search_(new SearchBar(this))
    , menuButton_(new QToolButton(this))
    , menu_(new QMenu(menuButton_))
{
    setObjectName(QStringLiteral("bar"));
    setAttribute(Qt::WA_StyledBackground);
    makeButtons();
    volume_->setFixedWidth(volumeWidth);
    search_->setMaximumWidth(widestSearch);
    search_->keepTermsIn(defaults_);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Theme::between, Theme::between, Theme::between, Theme::between);
    layout->setSpacing(Theme::within);
    for (QToolButton* button : {back_, playPause_, next_})
        layout->addWidget(button);
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
    layout->addWidget(menuButton_);

    showVolume();
    connect(&defaults_, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == settings::SoundLevel)
            showVolume();
    });
}

void ControlBar::makeButtons()
{
    dress(*back_, QStringLiteral("back"), buttonIcon, tr("Back"), tr("Previous song (Ctrl+Left)"));
    dress(*playPause_, QStringLiteral("play"), largeIcon, tr("Play or pause"), tr("Play or pause (Space)"));
    dress(*next_, QStringLiteral("next"), buttonIcon, tr("Next"), tr("Next song (Ctrl+Right)"));
    dress(*love_, QStringLiteral("heart"), buttonIcon, tr("Love"), tr("Love this song (Ctrl+L)"));
    dress(*download_, QStringLiteral("download"), buttonIcon, tr("Download"),
          tr("Download this song (Ctrl+D)"));
    dress(*menuButton_, QStringLiteral("menu"), buttonIcon, tr("Menu"), tr("Menu"));
    for (QToolButton* button : {playPause_, love_, download_})
        button->setCheckable(true);
    for (QToolButton* button : {love_, download_})
        button->setEnabled(false);
    menu_->setAccessibleName(menuButton_->accessibleName());
    menuButton_->setMenu(menu_);
    menuButton_->setPopupMode(QToolButton::InstantPopup);
}

void ControlBar::attach(RVMainController& controller)
{
    PlaybackQueue& playback = controller.playback();
    panel_->setDurationSource([&playback] { return playback.duration(); });
    // A click also switches a checkable button; the controller then shows what is the case.
    connect(back_, &QToolButton::clicked, this, [&playback] { playback.backTrack(); });
    connect(playPause_, &QToolButton::clicked, this, [&playback] { playback.playPause(); });
    connect(next_, &QToolButton::clicked, this, [&playback] { playback.nextTrack(); });
    connect(love_, &QToolButton::clicked, this, [this, &controller](bool on) {
        setFavorite(on);
        controller.loving().addCurrentFavorite(on);
    });
    connect(download_, &QToolButton::clicked, this,
            [&controller](bool on) { controller.downloading().downloadCurrentSong(on); });
    connect(panel_, &NowPlayingPanel::scanRequested, this,
            [&playback](double percent) { playback.scanTrack(percent); });
    connect(volume_, &VolumeSlider::chosen, this,
            [&playback](double percent) { playback.soundLevel().set(percent / 100); });
    connect(search_, &SearchBar::searchTypeChosen, this,
            [&controller](int type) { controller.search().radioTypeSelected(type); });
    connect(search_, &SearchBar::searchRequested, this,
            [&controller](const QString& text) { controller.search().performSearchAction(text); });
}

void ControlBar::clickLove()
{
    love_->click();
}

void ControlBar::clickDownload()
{
    download_->click();
}

void ControlBar::setPlaying(bool playing)
{
    playPause_->setChecked(playing);
    playPause_->setIcon(icon(playing ? QStringLiteral("pause") : QStringLiteral("play")));
    playPause_->setToolTip(playing ? tr("Pause (Space)") : tr("Play (Space)"));
}

void ControlBar::setFavorite(bool loved)
{
    love_->setChecked(loved);
    love_->setIcon(loved ? icon(QStringLiteral("heart-filled"), Tint::Loved) : icon(QStringLiteral("heart")));
    love_->setToolTip(loved ? tr("Love this song no more (Ctrl+L)") : tr("Love this song (Ctrl+L)"));
}

void ControlBar::setFavoriteEnabled(bool enabled)
{
    love_->setEnabled(enabled);
}

void ControlBar::setDownloaded(bool downloaded)
{
    download_->setChecked(downloaded);
    showDownload();
}

void ControlBar::setDownloadEnabled(bool enabled)
{
    download_->setEnabled(enabled);
    showDownload();
}

/// On disk, on its way there, or neither.
void ControlBar::showDownload()
{
    const bool onDisk = download_->isChecked() && !download_->isEnabled();
    download_->setIcon(icon(onDisk ? QStringLiteral("check") : QStringLiteral("download"),
                            download_->isChecked() ? Tint::Accent : Tint::Text));
    download_->setToolTip(onDisk                   ? tr("This song is on your disk")
                          : download_->isChecked() ? tr("This song is being downloaded")
                                                   : tr("Download this song (Ctrl+D)"));
}

void ControlBar::showVolume()
{
    const double level = defaults_.real(settings::SoundLevel);
    volume_->showValue(qRound(level * 100));
    const QString name = level <= 0    ? QStringLiteral("volume-off")
                         : level < 0.5 ? QStringLiteral("volume-low")
                                       : QStringLiteral("volume-high");
    speaker_->setIcon(name, Tint::Secondary);
}

// The window's handle

bool ControlBar::isHandle(const QPoint& place) const
{
    for (const QWidget* at = childAt(place); at && at != this; at = at->parentWidget())
        if (at->focusPolicy() != Qt::NoFocus) // a control, enabled or not
            return false;
    return true;
}

void ControlBar::mousePressEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    if (event->button() == Qt::LeftButton && isHandle(place))
        handleHeld_ = place;
    else
        handleHeld_.reset();
}

void ControlBar::mouseMoveEvent(QMouseEvent* event)
{
    // Not from the press on, since a desktop that moves a window keeps the rest of a double click for itself.
    if (!handleHeld_ || !event->buttons().testFlag(Qt::LeftButton) ||
        (event->position().toPoint() - *handleHeld_).manhattanLength() < QApplication::startDragDistance())
        return;
    handleHeld_.reset();
    if (QWindow* moved = window()->windowHandle())
        moved->startSystemMove();
}

void ControlBar::mouseDoubleClickEvent(QMouseEvent* event)
{
    handleHeld_.reset();
    if (event->button() == Qt::LeftButton && isHandle(event->position().toPoint()) &&
        !window()->isFullScreen())
        window()->setWindowState(window()->windowState() ^ Qt::WindowMaximized);
}

} // namespace zib
