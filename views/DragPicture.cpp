// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/DragPicture.h"

#include "views/Theme.h"

#include <QPainter>
#include <QWidget>

namespace zib {

namespace {

constexpr int widestText = 240;

} // namespace

QPixmap dragPicture(const QWidget& list, const QString& text)
{
    const QString shown = list.fontMetrics().elidedText(text, Qt::ElideRight, widestText);
    const QRect label = list.fontMetrics().boundingRect(shown).marginsAdded(
        {Theme::between, Theme::within, Theme::between, Theme::within});
    QPixmap picture(label.size() * list.devicePixelRatioF());
    picture.setDevicePixelRatio(list.devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::current().accent);
    painter.drawRoundedRect(QRect(QPoint(), label.size()), Theme::corner, Theme::corner);
    painter.setFont(list.font());
    painter.setPen(Theme::current().onAccent);
    painter.drawText(QRect(QPoint(), label.size()), Qt::AlignCenter, shown);
    return picture;
}

} // namespace zib
