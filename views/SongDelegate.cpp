// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongDelegate.h"

#include "views/Icons.h"
#include "views/SongTableModel.h"
#include "views/Theme.h"

#include <QLineEdit>

namespace zib {

namespace {

/// Which song is edited, for its row may have moved by the end.
const char* const songProperty = "song";

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
    const CellDecoration cell = model_.decoration(index);
    switch (SongColumn(index.column())) {
    case SongColumn::Speaker:
        if (cell.speaker)
            paintMark(painter, option.rect, speaker_, ground);
        break;
    case SongColumn::Love:
        paintMark(painter, option.rect, cell.heartActive ? loved_ : heart_, ground);
        break;
    case SongColumn::Download:
        if (cell.download.enabled)
            paintMark(painter, option.rect,
                      cell.download.image == CellDecoration::ButtonImage::Stop ? stop_ : download_, ground);
        break;
    case SongColumn::Progress:
        if (const std::optional<double> part = model_.progress(index.row()))
            paintProgress(painter, option, *part, ground);
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
    QColor colour = textColour(ground);
    if (ground == Ground::Plain && broken)
        colour = theme.error;
    else if (ground == Ground::Plain && state == CellDecoration::TextColour::Unavailable)
        colour = theme.unplayable;
    if (broken && SongColumn(index.column()) == SongColumn::Name)
        paintMarkedText(painter, option, index, colour, broken_, ground);
    else
        paintText(painter, option, index, colour);
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
