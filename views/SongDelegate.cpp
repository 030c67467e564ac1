// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongDelegate.h"

#include "views/Icons.h"
#include "views/SongTableModel.h"
#include "views/Theme.h"

#include <QLineEdit>
#include <QPainter>

namespace zib {

namespace {

constexpr int iconSize = 16;
constexpr int percentWidth = 36;
constexpr int barHeight = 6;
/// Which song is edited, for its row may have moved by the end.
const char* const songProperty = "song";

void paintIcon(QPainter* painter, const QIcon& icon, const QPoint& centre, bool onAccent)
{
    QRect place(0, 0, iconSize, iconSize);
    place.moveCenter(centre);
    icon.paint(painter, place, Qt::AlignCenter, onAccent ? QIcon::Selected : QIcon::Normal);
}

} // namespace

SongDelegate::SongDelegate(SongTableModel& model, QObject* parent)
    : RowDelegate(parent)
    , model_(model)
    , speaker_(icon(QStringLiteral("speaker"), Tint::Accent))
    , heart_(icon(QStringLiteral("heart"), Tint::Secondary))
    , loved_(icon(QStringLiteral("heart-filled"), Tint::Loved))
    , broken_(icon(QStringLiteral("broken-link"), Tint::Error))
    , download_(icon(QStringLiteral("download"), Tint::Secondary))
    , stop_(icon(QStringLiteral("stop"), Tint::Text))
{
}

void SongDelegate::paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const
{
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const Ground ground = paintGround(painter, option);
    const bool onAccent = ground == Ground::Accent;
    const QPoint centre = option.rect.center();
    const CellDecoration cell = model_.decoration(index);
    switch (SongColumn(index.column())) {
    case SongColumn::Speaker:
        if (cell.speaker)
            paintIcon(painter, speaker_, centre, onAccent);
        break;
    case SongColumn::Love:
        paintIcon(painter, cell.heartActive ? loved_ : heart_, centre, onAccent);
        break;
    case SongColumn::Download:
        if (cell.download.enabled)
            paintIcon(painter, cell.download.image == CellDecoration::ButtonImage::Stop ? stop_ : download_,
                      centre, onAccent);
        break;
    case SongColumn::Progress:
        if (const std::optional<double> part = model_.progress(index.row()))
            paintProgress(painter, textArea(option.rect), *part, ground);
        break;
    default:
        paintSongText(painter, option, index, ground);
    }
}

void SongDelegate::paintSongText(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index, Ground ground) const
{
    const Theme& theme = Theme::current();
    const CellDecoration::TextColour state = model_.decoration(index).textColour;
    const bool broken = state == CellDecoration::TextColour::Broken;
    int left = textArea(option.rect).left();
    if (broken && SongColumn(index.column()) == SongColumn::Name) {
        paintIcon(painter, broken_, {left + iconSize / 2, option.rect.center().y()},
                  ground == Ground::Accent);
        left += iconSize + Theme::within;
    }
    QColor colour = textColour(ground);
    if (ground == Ground::Plain && broken)
        colour = theme.error;
    else if (ground == Ground::Plain && state == CellDecoration::TextColour::Unavailable)
        colour = theme.unplayable;
    paintText(painter, option, index, colour, left);
}

void SongDelegate::paintProgress(QPainter* painter, const QRect& cell, double part, Ground ground) const
{
    const Theme& theme = Theme::current();
    const bool onAccent = ground == Ground::Accent;
    QRectF bar(cell.left(), 0, cell.width() - percentWidth, barHeight);
    bar.moveTop(cell.center().y() + 1 - barHeight / 2);
    if (part < 0)
        bar.setWidth(cell.width()); // there is no number
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(onAccent ? theme.onAccent : theme.border);
    painter->setOpacity(onAccent ? 0.4 : 1);
    painter->drawRoundedRect(bar, barHeight / 2.0, barHeight / 2.0);
    QRectF done = bar;
    if (part < 0) // how much there will be nobody knows: a piece in the middle
        done.adjust(bar.width() / 3, 0, -bar.width() / 3, 0);
    else
        done.setWidth(qMax(double(barHeight), bar.width() * qMin(part, 1.0)));
    painter->setOpacity(1);
    painter->setBrush(onAccent ? theme.onAccent : theme.accent);
    painter->drawRoundedRect(done, barHeight / 2.0, barHeight / 2.0);
    painter->setPen(textColour(ground));
    if (part >= 0)
        painter->drawText(cell, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                          tr("%1%").arg(int(part * 100)));
    painter->restore();
}

// Editing

QWidget* SongDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& index) const
{
    auto* editor = new QLineEdit(index.data(Qt::EditRole).toString(), parent);
    editor->setProperty(songProperty, model_.songId(index.row()));
    editor->setAccessibleName(SongTableModel::title(SongColumn(index.column())));
    return editor;
}

void SongDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex& /*index*/) const
{
    editor->setGeometry(option.rect);
}

void SongDelegate::setModelData(QWidget* editor, QAbstractItemModel* /*model*/,
                                const QModelIndex& index) const
{
    auto* field = qobject_cast<QLineEdit*>(editor);
    if (!field || !field->isModified())
        return;
    field->setModified(false); // it may be asked again while it closes
    model_.edit(field->property(songProperty).toString(), index.row(), SongColumn(index.column()),
                field->text());
}

} // namespace zib
