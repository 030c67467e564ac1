// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/NowPlayingPanel.h"

#include "services/utilities/StringUtilities.h"
#include "views/Icons.h"
#include "views/PictureReader.h"
#include "views/TextLabel.h"
#include "views/Theme.h"
#include "views/Ticker.h"
#include "views/ValueSlider.h"

#include <QEvent>
#include <QGridLayout>
#include <QPainter>

namespace zib {

namespace {

constexpr int artworkSize = 44;
constexpr int markSize = 14;
constexpr qreal pictureCorner = 4;

TextLabel* makeTime(const QString& accessibleName, Qt::Alignment alignment, QWidget* parent)
{
    auto* label = new TextLabel(accessibleName, parent);
    label->setProperty("role", QStringLiteral("time"));
    label->setAlignment(alignment | Qt::AlignVCenter);
    // So that nothing moves from one second to the next.
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("-00:00")));
    return label;
}

} // namespace

NowPlayingPanel::NowPlayingPanel(QWidget* parent)
    : QFrame(parent)
    , reader_(new PictureReader(this))
    , picture_(new QLabel(this))
    , header_(new TextLabel(tr("Now playing header"), this))
    , streaming_(new QLabel(this))
    , ticker_(new Ticker(this))
    , elapsed_(makeTime(tr("Elapsed time"), Qt::AlignLeft, this))
    , remaining_(makeTime(tr("Remaining time"), Qt::AlignRight, this))
    , progress_(new ProgressSlider(this))
{
    setObjectName(QStringLiteral("nowPlaying"));
    picture_->setObjectName(QStringLiteral("artwork"));
    picture_->setFixedSize(artworkSize, artworkSize);
    picture_->setAlignment(Qt::AlignCenter);
    header_->setObjectName(QStringLiteral("tickerHeader"));
    ticker_->setObjectName(QStringLiteral("ticker"));
    ticker_->setAccessibleName(tr("Now playing"));
    streaming_->setAccessibleName(tr("Streaming"));
    streaming_->setToolTip(tr("Streaming from the web"));
    streaming_->setFixedSize(markSize, markSize);
    setStreamingMarkVisible(false);
    progress_->setTip([this](double percent) { return timeAt(percent); });
    connect(progress_, &ProgressSlider::chosen, this, &NowPlayingPanel::scanRequested);

    auto* titles = new QHBoxLayout;
    titles->setSpacing(Theme::within);
    titles->addWidget(header_);
    titles->addWidget(streaming_);
    titles->addStretch();
    auto* times = new QHBoxLayout;
    times->setSpacing(Theme::within);
    times->addWidget(elapsed_);
    times->addWidget(progress_, 1);
    times->addWidget(remaining_);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(6, 6, Theme::between, 6);
    layout->setHorizontalSpacing(Theme::between);
    layout->setVerticalSpacing(0);
    layout->addWidget(picture_, 0, 0, 3, 1, Qt::AlignVCenter);
    layout->addLayout(titles, 0, 1);
    layout->addWidget(ticker_, 1, 1);
    layout->addLayout(times, 2, 1);
    layout->setColumnStretch(1, 1);
    connect(reader_, &PictureReader::finished, this, [this](const QImage& picture) {
        cover_ = picture;
        if (picture.isNull())
            artwork_ = Artwork::Standard;
        showArtwork();
    });
    showArtwork();
    showStreamingMark();
}

void NowPlayingPanel::setArtwork(Artwork artwork)
{
    artwork_ = artwork;
    cover_ = {};
    reader_->cancel();
    showArtwork();
}

void NowPlayingPanel::setArtworkPicture(const QByteArray& file)
{
    reader_->read(file, QSize(artworkSize, artworkSize) * devicePixelRatioF());
}

void NowPlayingPanel::showArtwork()
{
    if (!cover_.isNull()) {
        picture_->setPixmap(roundedPicture(cover_, pictureCorner, devicePixelRatioF()));
        return;
    }
    const QString name =
        artwork_ == Artwork::SearchService ? QStringLiteral("search") : QStringLiteral("music");
    picture_->setPixmap(icon(name, Tint::Secondary).pixmap(QSize(24, 24), devicePixelRatioF()));
}

void NowPlayingPanel::showStreamingMark()
{
    streaming_->setPixmap(
        icon(QStringLiteral("stream"), Tint::Accent).pixmap(QSize(markSize, markSize), devicePixelRatioF()));
}

void NowPlayingPanel::setHeader(const QString& text)
{
    header_->setShownText(text);
}

void NowPlayingPanel::setTickerText(const QString& text)
{
    ticker_->setText(text);
}

void NowPlayingPanel::setProgress(int percent)
{
    progress_->showValue(percent);
}

void NowPlayingPanel::setProgressEnabled(bool enabled)
{
    progress_->setEnabled(enabled);
}

void NowPlayingPanel::setElapsedText(const QString& text)
{
    elapsed_->setShownText(text);
}

void NowPlayingPanel::setRemainingText(const QString& text)
{
    remaining_->setShownText(text);
}

void NowPlayingPanel::setStreamingMarkVisible(bool visible)
{
    streaming_->setVisible(visible);
}

QString NowPlayingPanel::timeAt(double percent) const
{
    return timeString(qint64(percent * (duration_ ? duration_() : 0) / 100));
}

void NowPlayingPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange) {
        showArtwork();
        showStreamingMark();
    }
    QFrame::changeEvent(event);
}

} // namespace zib
