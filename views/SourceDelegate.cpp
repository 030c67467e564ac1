// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SourceDelegate.h"

#include "views/Icons.h"
#include "views/SourceModel.h"
#include "views/TextDrawing.h"
#include "views/Theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <QToolTip>

namespace zib {

namespace {

constexpr int side = Theme::between; // of the list
constexpr int smallIcon = 16;
constexpr int largeIcon = 24;
constexpr int largeRow = 40; // from which on an icon is large

int iconSize(const QRect& row)
{
    return row.height() >= largeRow ? largeIcon : smallIcon;
}

/// The part of the row that the selection fills.
QRect groundOf(const QRect& row)
{
    const int apart = row.height() >= largeRow ? 2 : 0; // small rows have no room to lose
    return row.adjusted(side, apart, -side, -apart);
}

QRect iconArea(const QStyleOptionViewItem& option)
{
    const int size = iconSize(option.rect);
    return QStyle::alignedRect(option.direction, Qt::AlignLeft | Qt::AlignVCenter, {size, size},
                               groundOf(option.rect).adjusted(Theme::between, 0, -Theme::between, 0));
}

QRect textArea(const QStyleOptionViewItem& option)
{
    const QRect ground = groundOf(option.rect);
    const int before = Theme::between + iconSize(option.rect) + Theme::between;
    return QStyle::visualRect(option.direction, ground, ground.adjusted(before, 0, -Theme::between, 0));
}

void paintSeparator(QPainter* painter, const QRect& row)
{
    painter->fillRect(row.left() + 2 * side, row.center().y(), row.width() - 4 * side, 1,
                      Theme::current().border);
}

void paintHeading(QPainter* painter, const QStyleOptionViewItem& option, const QString& title)
{
    QFont font = option.font;
    font.setPixelSize(Theme::headerText);
    font.setBold(true);
    font.setCapitalization(QFont::SmallCaps);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.4);
    painter->setFont(font);
    painter->setPen(Theme::current().secondary);
    painter->drawText(option.rect.adjusted(2 * side, 0, -2 * side, -Theme::within),
                      Qt::AlignLeft | Qt::AlignBottom | Qt::TextSingleLine, title);
}

void paintSelection(QPainter* painter, const QRect& row, bool hasKeyboard)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(hasKeyboard ? Theme::current().accent : Theme::current().quiet);
    painter->drawRoundedRect(groundOf(row), Theme::corner, Theme::corner);
}

void paintSource(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const Theme& theme = Theme::current();
    const bool enabled = index.flags().testFlag(Qt::ItemIsEnabled);
    const bool selected = enabled && option.state.testFlag(QStyle::State_Selected);
    // A field to edit in is a part of its list.
    const bool hasKeyboard =
        option.widget && option.widget->isActiveWindow() &&
        (option.widget->hasFocus() || option.widget->isAncestorOf(QApplication::focusWidget()));
    if (selected)
        paintSelection(painter, option.rect, hasKeyboard);
    const bool large = iconSize(option.rect) == largeIcon;
    const QString name = index.data(SourceModel::IconNameRole).toString();
    const Tint tint = selected && hasKeyboard ? Tint::OnAccent : selected ? Tint::Text : Tint::Secondary;
    icon(large && selected ? name + QLatin1String("-active") : name, tint)
        .paint(painter, iconArea(option), Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
    const QRect area = textArea(option);
    painter->setFont(option.font);
    painter->setPen(selected && hasKeyboard ? theme.onAccent : enabled ? theme.text : theme.unplayable);
    drawLine(*painter, area, Qt::AlignLeft | Qt::AlignVCenter, option.direction, index.data().toString());
}

} // namespace

void SourceDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    painter->save();
    if (index.data(SourceModel::SeparatorRole).toBool())
        paintSeparator(painter, option.rect);
    else if (index.data(SourceModel::GroupRole).toBool())
        paintHeading(painter, option, index.data().toString());
    else
        paintSource(painter, option, index);
    painter->restore();
}

bool SourceDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                               const QModelIndex& index)
{
    const QString title = index.data().toString();
    if (event->type() == QEvent::ToolTip && index.data(Qt::ToolTipRole).toString().isEmpty() &&
        option.fontMetrics.horizontalAdvance(title) > textArea(option).width()) {
        QToolTip::showText(event->globalPos(), title.toHtmlEscaped(), view);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

QWidget* SourceDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                      const QModelIndex& /*index*/) const
{
    auto* editor = new QLineEdit(parent);
    editor->setObjectName(QStringLiteral("sourceName"));
    editor->setAccessibleName(tr("Name of the playlist"));
    // Return does not end the editing while there is nothing to be seen in it.
    static const QRegularExpression something(QStringLiteral(".*\\S.*"));
    editor->setValidator(new QRegularExpressionValidator(something, editor));
    return editor;
}

void SourceDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                          const QModelIndex& /*index*/) const
{
    // To the end of the row's ground: what is typed may be long.
    const QRect ground = groundOf(option.rect);
    const QRect text = QStyle::visualRect(option.direction, ground, textArea(option));
    const QRect area(QPoint(text.left() - Theme::within, text.top()), ground.bottomRight());
    editor->setGeometry(QStyle::visualRect(option.direction, ground, area));
}

} // namespace zib
