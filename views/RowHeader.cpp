// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/RowHeader.h"

#include "views/Theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionHeader>

namespace zib {

namespace {

constexpr int markWidth = 8;
constexpr int markHeight = 4;

} // namespace

void RowHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const
{
    QHeaderView::initStyleOptionForIndex(option, logicalIndex);
    option->sortIndicator = QStyleOptionHeader::None; // the style's would lie on a short title
}

void RowHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const
{
    painter->save(); // the style leaves its pen behind
    QHeaderView::paintSection(painter, rect, logicalIndex);
    painter->restore();
    if (!isSortIndicatorShown() || sortIndicatorSection() != logicalIndex)
        return;
    const int middle = rect.center().x();
    const bool ascending = sortIndicatorOrder() == Qt::AscendingOrder;
    const int base = rect.top() + (ascending ? markHeight + 1 : 1);
    const int tip = rect.top() + (ascending ? 1 : markHeight + 1);
    QPainterPath mark(QPointF(middle - markWidth / 2, base));
    mark.lineTo(middle + markWidth / 2, base);
    mark.lineTo(middle, tip);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(mark, Theme::current().accent);
    painter->restore();
}

} // namespace zib
