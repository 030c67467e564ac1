// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongDelegate.h"

#include "views/Icons.h"
#include "views/SongTableModel.h"
#include "views/Theme.h"

#include <QApplication>
#include <QPainter>

namespace zib {

namespace {

using Model = SongTableModel;

constexpr int iconSize = 16;

QRect markRect(const QRect& cell)
{
    QRect mark(0, 0, iconSize, iconSize);
    mark.moveCenter(cell.center());
    return mark;
}

} // namespace

SongDelegate::SongDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
    , speaker_(icon(QStringLiteral("speaker"), Tint::Accent))
    , heart_(icon(QStringLiteral("heart"), Tint::Secondary))
    , loved_(icon(QStringLiteral("heart-filled"), Tint::Loved))
    , broken_(icon(QStringLiteral("broken-link"), Tint::Error))
{
}

void SongDelegate::paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const
{
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    option.text.clear();
    option.state.setFlag(QStyle::State_HasFocus, false); // the row shows it, not the cell
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    if (index.column() == Model::Speaker || index.column() == Model::Love)
        paintMark(painter, option, index);
    else
        paintText(painter, option, index);
}

void SongDelegate::paintText(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    const Theme& theme = Theme::current();
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool unplayable = index.data(Model::UnplayableRole).toBool();
    const bool broken = !unplayable && index.data(Model::BrokenRole).toBool();

    QRect area = option.rect.adjusted(Theme::between, 0, -Theme::between, 0);
    if (broken && index.column() == Model::Name) {
        QRect mark(area.left(), 0, iconSize, iconSize);
        mark.moveCenter({mark.center().x(), area.center().y()});
        broken_.paint(painter, mark, Qt::AlignCenter, selected ? QIcon::Selected : QIcon::Normal);
        area.setLeft(mark.right() + Theme::within);
    }
    painter->setFont(option.font);
    painter->setPen(selected     ? theme.onAccent
                    : unplayable ? theme.unplayable
                    : broken     ? theme.error
                                 : theme.text);
    const auto alignment = Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt());
    const QString text = option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, area.width());
    painter->drawText(area, int(alignment) | Qt::TextSingleLine, text);
}

void SongDelegate::paintMark(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    const QIcon::Mode mode = option.state.testFlag(QStyle::State_Selected) ? QIcon::Selected : QIcon::Normal;
    const QRect mark = markRect(option.rect);
    if (index.column() == Model::Love) {
        const bool loved = index.data(Model::LovedRole).toBool();
        (loved ? loved_ : heart_).paint(painter, mark, Qt::AlignCenter, mode);
    } else if (index.data(Model::PlayingRole).toBool()) {
        speaker_.paint(painter, mark, Qt::AlignCenter, mode);
    }
}

} // namespace zib
