// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/CoverField.h"

#include "platform/TagApi.h"
#include "views/FilePanel.h"
#include "views/Icons.h"
#include "views/PictureReader.h"
#include "views/Theme.h"

#include <QDropEvent>
#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace zib {

namespace {

constexpr int pictureSize = 144;
constexpr int markSize = 64; // of what stands for a picture

bool isPicture(const QByteArray& bytes)
{
    return bytes.startsWith("\x89PNG\r\n\x1a\n") || bytes.startsWith("\xff\xd8\xff");
}

} // namespace

CoverField::CoverField(const QByteArray& cover, bool canChange, QWidget* parent)
    : QWidget(parent)
    , reader_(new PictureReader(this))
    , picture_(new QLabel(this))
    , replace_(new QPushButton(tr("Replace…"), this))
    , remove_(new QPushButton(tr("Remove"), this))
    , wrong_(new QLabel(this))
{
    setAcceptDrops(canChange);
    picture_->setObjectName(QStringLiteral("cover"));
    picture_->setFixedSize(pictureSize, pictureSize);
    picture_->setAlignment(Qt::AlignCenter);
    replace_->setAccessibleName(tr("Replace the cover"));
    replace_->setEnabled(canChange);
    if (!canChange)
        replace_->setToolTip(tr("Only songs with a file of their own have a cover that can be changed"));
    remove_->setAccessibleName(tr("Remove the cover"));
    wrong_->setObjectName(QStringLiteral("hint"));
    wrong_->setProperty("role", QStringLiteral("error"));
    wrong_->setWordWrap(true);
    wrong_->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Theme::between);
    for (QWidget* part : {static_cast<QWidget*>(picture_), static_cast<QWidget*>(replace_),
                          static_cast<QWidget*>(remove_), static_cast<QWidget*>(wrong_)})
        layout->addWidget(part);
    layout->addStretch();
    setFixedWidth(pictureSize);

    for (QPushButton* button : {replace_, remove_})
        button->setAutoDefault(false);
    connect(replace_, &QPushButton::clicked, this, &CoverField::choose);
    connect(remove_, &QPushButton::clicked, this, [this] { setCover({}); });
    connect(reader_, &PictureReader::finished, this, [this](const QImage& picture) {
        if (picture.isNull())
            return;
        hasPicture_ = true;
        picture_->setPixmap(roundedPicture(picture, Theme::corner, devicePixelRatioF()));
    });
    showCover(cover);
    // Which of several songs have one is not told, so that none of their files is read for it.
    remove_->setEnabled(canChange && !cover.isEmpty());
}

void CoverField::choose()
{
    FilePanel panel(this, tr("Choose a cover"),
                    QStandardPaths::writableLocation(QStandardPaths::PicturesLocation),
                    tr("Pictures (%1)").arg(QStringLiteral("*.png *.jpg *.jpeg")));
    if (const QString path = panel.askForFile(); !path.isEmpty())
        take(path);
}

void CoverField::take(const QString& path)
{
    QFile file(path);
    const QByteArray bytes =
        file.open(QIODevice::ReadOnly) ? file.read(TagAPI::maximumCoverBytes + 1) : QByteArray();
    const bool tooLarge = bytes.size() > TagAPI::maximumCoverBytes;
    const bool good = isPicture(bytes) && !tooLarge;
    wrong_->setText(tooLarge ? tr("The picture is larger than 6 MB.")
                             : tr("A cover is a picture in a PNG or JPEG file."));
    wrong_->setVisible(!good);
    if (good)
        setCover(bytes);
}

void CoverField::setCover(const QByteArray& cover)
{
    newCover_ = cover;
    showCover(cover);
    remove_->setEnabled(!cover.isEmpty());
    Q_EMIT changed();
}

void CoverField::showCover(const QByteArray& cover)
{
    picture_->setAccessibleName(cover.isEmpty() ? tr("No cover") : tr("Cover"));
    hasPicture_ = false;
    showNone();
    if (cover.isEmpty())
        reader_->cancel();
    else
        reader_->read(cover, QSize(pictureSize, pictureSize) * devicePixelRatioF());
}

void CoverField::showNone()
{
    picture_->setPixmap(icon(QStringLiteral("music"))
                            .pixmap(QSize(markSize, markSize), devicePixelRatioF(), QIcon::Disabled));
}

void CoverField::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange && !hasPicture_)
        showNone();
    QWidget::changeEvent(event);
}

void CoverField::dragEnterEvent(QDragEnterEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.first().isLocalFile())
        event->acceptProposedAction();
}

void CoverField::dropEvent(QDropEvent* event)
{
    event->setDropAction(Qt::CopyAction); // whoever offers to move would remove the file
    event->accept();
    take(event->mimeData()->urls().first().toLocalFile());
}

} // namespace zib
