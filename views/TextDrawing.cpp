// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/TextDrawing.h"

#include <QPainter>
#include <QStyle>

namespace zib {

void drawLine(QPainter& painter, const QRect& area, Qt::Alignment alignment, Qt::LayoutDirection ofWindow,
              const QString& text, Qt::TextElideMode elide)
{
    const Qt::LayoutDirection before = painter.layoutDirection();
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    const Qt::Alignment side = QStyle::visualAlignment(ofWindow, alignment) | Qt::AlignAbsolute;
    painter.drawText(area, int(side) | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text, elide, area.width()));
    painter.setLayoutDirection(before);
}

} // namespace zib
