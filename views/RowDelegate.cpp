// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/RowDelegate.h"

#include "views/Theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace zib {

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const
{
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const Ground ground = paintGround(painter, option);
    paintText(painter, option, index, textColour(ground), textArea(option.rect).left());
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
    painter->fillRect(option.rect, hasKeyboard ? theme.accent : theme.border);
    return hasKeyboard ? Ground::Accent : Ground::Quiet;
}

void RowDelegate::paintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                            const QColor& colour, int left)
{
    QRect area = textArea(option.rect);
    area.setLeft(left);
    painter->setFont(option.font);
    painter->setPen(colour);
    const QString text = option.fontMetrics.elidedText(option.text, Qt::ElideRight, area.width());
    const auto alignment = index.data(Qt::TextAlignmentRole).toInt();
    painter->drawText(area, alignment | Qt::TextSingleLine, text);
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
