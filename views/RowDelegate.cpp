// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/RowDelegate.h"

#include "views/TextDrawing.h"
#include "views/Theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QToolTip>

namespace zib {

namespace {

constexpr int markSize = 16;
constexpr int barHeight = 6;

void paintMarkIn(QPainter* painter, const QRect& place, const QIcon& mark, bool onAccent)
{
    mark.paint(painter, place, Qt::AlignCenter, onAccent ? QIcon::Selected : QIcon::Normal);
}

} // namespace

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const
{
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const Ground ground = paintGround(painter, option);
    paintText(painter, option, index, textColour(ground));
}

RowDelegate::Ground RowDelegate::paintGround(QPainter* painter, const QStyleOptionViewItem& given) const
{
    QStyleOptionViewItem option = given;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    option.text.clear();
    option.state.setFlag(QStyle::State_HasFocus, false); // the row shows it, not the cell
    option.state.setFlag(QStyle::State_Selected, false);
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    if (!selected)
        return Ground::Plain;
    // An editor is a part of its table.
    const bool hasKeyboard =
        option.widget && option.widget->isActiveWindow() &&
        (option.widget->hasFocus() || option.widget->isAncestorOf(QApplication::focusWidget()));
    const Theme& theme = Theme::current();
    painter->fillRect(option.rect, hasKeyboard ? theme.accent : theme.quiet);
    return hasKeyboard ? Ground::Accent : Ground::Quiet;
}

void RowDelegate::paintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                            const QColor& colour)
{
    paintTextIn(painter, option, index, colour, textArea(option.rect));
}

void RowDelegate::paintMarkedText(QPainter* painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index, const QColor& colour, const QIcon& mark,
                                  Ground ground)
{
    const QRect area = textArea(option.rect);
    const QRect place =
        QStyle::alignedRect(option.direction, Qt::AlignLeft | Qt::AlignVCenter, {markSize, markSize}, area);
    paintMarkIn(painter, place, mark, ground == Ground::Accent);
    const QRect rest = area.adjusted(markSize + Theme::within, 0, 0, 0);
    paintTextIn(painter, option, index, colour, QStyle::visualRect(option.direction, area, rest));
}

void RowDelegate::paintMark(QPainter* painter, const QRect& cell, const QIcon& mark, Ground ground)
{
    QRect place(0, 0, markSize, markSize);
    place.moveCenter(cell.center());
    paintMarkIn(painter, place, mark, ground == Ground::Accent);
}

void RowDelegate::paintProgress(QPainter* painter, const QStyleOptionViewItem& option, double part,
                                Ground ground)
{
    const Theme& theme = Theme::current();
    const bool onAccent = ground == Ground::Accent;
    const QRect cell = textArea(option.rect);
    const QString most = tr("%1%").arg(100);
    const int percentWidth = option.fontMetrics.horizontalAdvance(most) + Theme::between;
    const auto mirrored = [&](const QRect& area) {
        return QRectF(QStyle::visualRect(option.direction, cell, area));
    };
    QRect bar(cell.left(), cell.center().y() + 1 - barHeight / 2, cell.width() - percentWidth, barHeight);
    if (part < 0)
        bar.setWidth(cell.width()); // there is no number
    QRect done = bar;
    if (part < 0) // how much there will be nobody knows: a piece in the middle
        done.adjust(bar.width() / 3, 0, -bar.width() / 3, 0);
    else
        done.setWidth(qMax(barHeight, qRound(bar.width() * qMin(part, 1.0))));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(onAccent ? theme.onAccent : theme.outline, 1));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(mirrored(bar).adjusted(0.5, 0.5, -0.5, -0.5), barHeight / 2.0, barHeight / 2.0);
    painter->setPen(Qt::NoPen);
    painter->setBrush(onAccent ? theme.onAccent : theme.accent);
    painter->drawRoundedRect(mirrored(done), barHeight / 2.0, barHeight / 2.0);
    painter->setPen(textColour(ground));
    if (part >= 0)
        painter->drawText(cell, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                          tr("%1%").arg(int(part * 100)));
    painter->restore();
}

void RowDelegate::paintTextIn(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                              const QColor& colour, const QRect& area)
{
    painter->setFont(option.font);
    painter->setPen(colour);
    const Qt::Alignment alignment(index.data(Qt::TextAlignmentRole).toInt());
    drawLine(*painter, area, alignment, option.direction, option.text);
}

QColor RowDelegate::textColour(Ground ground)
{
    return ground == Ground::Accent ? Theme::current().onAccent : Theme::current().text;
}

QRect RowDelegate::textArea(const QRect& cell)
{
    return cell.adjusted(Theme::between, 0, -Theme::between, 0);
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index)
{
    if (event->type() == QEvent::ToolTip && index.data(Qt::ToolTipRole).toString().isEmpty()) {
        const QString text = index.data().toString();
        const bool fits = option.fontMetrics.horizontalAdvance(text) <= textArea(option.rect).width();
        if (!fits) {
            QToolTip::showText(event->globalPos(), text.toHtmlEscaped(), view);
            return true;
        }
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

} // namespace zib
