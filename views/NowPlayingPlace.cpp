// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/NowPlayingPlace.h"

#include "controller/RVMainController.h"
#include "views/EmptyPlace.h"
#include "views/Icons.h"
#include "views/PictureReader.h"
#include "views/TextLabel.h"
#include "views/Theme.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>

namespace zib {

namespace {

constexpr int pictureSize = 280;
constexpr int markSize = 96; // of what stands for a picture

} // namespace

NowPlayingPlace::NowPlayingPlace(QWidget* parent)
    : QStackedWidget(parent)
    , reader_(new PictureReader(this))
    , song_(makeSong())
    , empty_(new EmptyPlace(this))
{
    empty_->say(tr("Nothing is playing"),
                tr("Type an artist into the search field and press Return, or choose a place at the left and "
                   "double-click a song. Your own files come in with Ctrl+O. Or try a tag:"));
    addWidget(song_);
    addWidget(empty_);
    setCurrentWidget(empty_);
    connect(reader_, &PictureReader::finished, this, [this](const QImage& picture) {
        cover_ = picture;
        showArtwork();
    });
    showArtwork();
}

QWidget* NowPlayingPlace::makeSong()
{
    auto* song = new QWidget(this);
    song->setObjectName(QStringLiteral("nowPlayingPlace"));
    song->setAttribute(Qt::WA_StyledBackground);
    picture_ = new QLabel(song);
    picture_->setObjectName(QStringLiteral("largeArtwork"));
    picture_->setFixedSize(pictureSize, pictureSize);
    picture_->setAlignment(Qt::AlignCenter);
    title_ = new TextLabel(tr("Playing title"), song);
    title_->setObjectName(QStringLiteral("largeTitle"));
    artist_ = new TextLabel(tr("Playing artist"), song);
    artist_->setObjectName(QStringLiteral("largeArtist"));
    album_ = new TextLabel(tr("Playing album"), song);
    album_->setObjectName(QStringLiteral("largeAlbum"));
    auto* layout = new QVBoxLayout(song);
    layout->setContentsMargins(Theme::groups, Theme::groups, Theme::groups, Theme::groups);
    layout->setSpacing(Theme::within);
    layout->addStretch(2);
    layout->addWidget(picture_, 0, Qt::AlignHCenter);
    layout->addSpacing(Theme::groups);
    for (TextLabel* label : {title_, artist_, album_}) {
        label->setAlignment(Qt::AlignCenter);
        layout->addWidget(label);
    }
    layout->addStretch(3);
    return song;
}

void NowPlayingPlace::attach(RVMainController& controller)
{
    controller_ = &controller;
    connect(&controller.playback(), &PlaybackQueue::trackChanged, this, &NowPlayingPlace::showSong);
    connect(empty_, &EmptyPlace::tagChosen, this,
            [&controller](const QString& tag) { controller.search().beginSearchForTags({tag}); });
    showSong();
}

void NowPlayingPlace::showSong()
{
    const Record track = controller_->playback().nowplayingTrack();
    setCurrentWidget(track ? song_ : empty_);
    title_->setShownText(track.string(keys::Name));
    artist_->setShownText(track.string(keys::Artist));
    album_->setShownText(track.string(keys::Album));
}

void NowPlayingPlace::setArtwork()
{
    cover_ = {};
    reader_->cancel();
    showArtwork();
}

void NowPlayingPlace::setArtworkPicture(const QByteArray& file)
{
    reader_->read(file, QSize(pictureSize, pictureSize) * devicePixelRatioF());
}

void NowPlayingPlace::showArtwork()
{
    if (!cover_.isNull()) {
        picture_->setPixmap(roundedPicture(cover_, Theme::corner, devicePixelRatioF()));
        return;
    }
    // Quiet: it stands for a picture.
    picture_->setPixmap(icon(QStringLiteral("music"))
                            .pixmap(QSize(markSize, markSize), devicePixelRatioF(), QIcon::Disabled));
}

void NowPlayingPlace::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        showArtwork();
    QStackedWidget::changeEvent(event);
}

} // namespace zib
