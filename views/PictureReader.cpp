// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/PictureReader.h"

#include "services/utilities/ThreadQueue.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

namespace zib {

namespace {

constexpr int mostMegabytes = 96; ///< of a picture in memory: some 5000 pixels wide and high

QImage pictureIn(QByteArray file, QSize pixels)
{
    QBuffer buffer(&file);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    // Photographs are read at about that size to begin with, which is a matter of milliseconds.
    if (reader.size().isValid())
        reader.setScaledSize(reader.size().scaled(pixels, Qt::KeepAspectRatioByExpanding));
    const QImage whole = reader.read();
    if (whole.isNull())
        return {};
    const QImage filling = whole.scaled(pixels, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    return filling.copy((filling.width() - pixels.width()) / 2, (filling.height() - pixels.height()) / 2,
                        pixels.width(), pixels.height());
}

} // namespace

QPixmap roundedPicture(const QImage& picture, qreal corner, qreal devicePixelRatio)
{
    QPixmap pixmap(picture.size());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(picture));
    painter.drawRoundedRect(pixmap.rect(), corner * devicePixelRatio, corner * devicePixelRatio);
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

PictureReader::PictureReader(QObject* parent)
    : QObject(parent)
{
    QImageReader::setAllocationLimit(mostMegabytes);
}

PictureReader::~PictureReader()
{
    for (auto& [number, thread] : threads_)
        thread.join();
}

void PictureReader::read(const QByteArray& file, QSize pixels)
{
    const int number = ++latest_;
    threads_.emplace(number, std::thread([this, number, file, pixels] {
                         const QImage picture = pictureIn(file, pixels);
                         queueOnThreadOf(*this, [this, number, picture] { deliver(number, picture); });
                     }));
}

void PictureReader::deliver(int number, const QImage& picture)
{
    const auto thread = threads_.find(number);
    thread->second.join();
    threads_.erase(thread);
    if (number == latest_)
        Q_EMIT finished(picture);
}

} // namespace zib
