// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/IconLabel.h"

#include <QPainter>

namespace zib {

IconLabel::IconLabel(const QString& name, Tint tint, int size, QWidget* parent)
    : QWidget(parent)
    , icon_(icon(name, tint))
{
    setFixedSize(size, size);
}

void IconLabel::setIcon(const QString& name, Tint tint)
{
    icon_ = icon(name, tint);
    update();
}

void IconLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    icon_.paint(&painter, rect());
}

} // namespace zib
