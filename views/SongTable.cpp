// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongTable.h"

#include "library/RVDataManager.h"
#include "library/SongReordering.h"
#include "views/DragPicture.h"
#include "views/SongDelegate.h"
#include "views/SongTableModel.h"
#include "views/Theme.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>

namespace zib {

namespace {

constexpr int nameColumn = int(SongColumn::Name);
constexpr int dropLineWidth = 2;

bool isButton(const QModelIndex& index)
{
    return index.column() == int(SongColumn::Love) || index.column() == int(SongColumn::Download);
}

} // namespace

SongTable::SongTable(UserDefaults& defaults, QWidget* parent)
    : SongTable(new SongTableModel, defaults, parent)
{
}

SongTable::SongTable(SongTableModel* model, UserDefaults& defaults, QWidget* parent)
    : RowTable(model, nameColumn, parent)
    , model_(model)
    , layout_(*this, defaults)
{
    setObjectName(QStringLiteral("songTable"));
    setAccessibleName(tr("Songs"));
    setItemDelegate(new SongDelegate(*model_, this));
    setSelectionMode(ExtendedSelection);
    setAlternatingRowColors(true);
    setMouseTracking(true);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false); // it would underline one cell
    connect(&layout_, &SongTableLayout::sorted, this, &SongTable::sorted);
    // Later, when the editor is closed: a refused edit asks in a window of its own.
    connect(model_, &SongTableModel::edited, this, &SongTable::takeEdit, Qt::QueuedConnection);
}

SongTable::~SongTable() = default;

void SongTable::setLibrary(RVDataManager& library)
{
    reordering_ = std::make_unique<SongReordering>(library);
    model_->setLibrary(library);
    Q_EMIT reloaded();
}

// What the library manager asks for

void SongTable::reloadData()
{
    RowTable::reloadData();
    Q_EMIT reloaded();
}

void SongTable::reloadCell(int row, const QString& column)
{
    const auto changed = songColumn(column);
    if (changed && row >= 0 && row < model_->rowCount())
        Q_EMIT model_->dataChanged(model_->index(row, int(*changed)), model_->index(row, int(*changed)));
}

void SongTable::setSortDescriptors(const QList<SortDescriptor>& descriptors)
{
    layout_.setSortDescriptors(descriptors);
}

void SongTable::setColumnAvailable(const QString& column, bool available)
{
    if (const auto known = songColumn(column))
        layout_.setAvailable(*known, available);
}

void SongTable::removeSubviews()
{
    if (QWidget* editor = indexWidget(currentIndex()))
        RowTable::closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

// Keys and mouse

void SongTable::keyPressEvent(QKeyEvent* event)
{
    if (state() == EditingState) {
        RowTable::keyPressEvent(event); // what the open field leaves of its keys
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT activated();
        return;
    case Qt::Key_F2:
        editCurrent();
        return;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        Q_EMIT deletePressed();
        return;
    case Qt::Key_Space: // plays or pauses, for the window; not a change of the selection
        event->ignore();
        return;
    default:
        RowTable::keyPressEvent(event);
    }
}

void SongTable::keyboardSearch(const QString& typed)
{
    const bool goesOn =
        sinceTyped_.isValid() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
    // The same letter again and again goes on to the next song that begins so.
    const bool again = goesOn && typed_ == typed;
    typed_ = goesOn && !again ? typed_ + typed : typed;
    sinceTyped_.start();
    const int row = model_->rowOfName(typed_, qMax(0, currentIndex().row()) + (typed_ == typed ? 1 : 0));
    if (row < 0)
        return;
    setCurrentIndex(model_->index(row, nameColumn));
    scrollRowToVisible(row);
}

void SongTable::mouseReleaseEvent(QMouseEvent* event)
{
    const bool dragged = state() == DragSelectingState || state() == DraggingState;
    RowTable::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier && !dragged &&
        index.isValid())
        press(SongColumn(index.column()), index.row());
    clickedButton_ = isButton(index);
}

void SongTable::press(SongColumn column, int row)
{
    if (column == SongColumn::Love)
        Q_EMIT loveToggled(row);
    else if (column == SongColumn::Download &&
             model_->decoration(model_->index(row, int(column))).download.enabled)
        Q_EMIT downloadPressed(row);
}

void SongTable::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    // A second click on a button is no wish to hear the song, also when the columns have moved since.
    if (event->button() == Qt::LeftButton && index.isValid() && !isButton(index) && !clickedButton_)
        Q_EMIT activated();
}

void SongTable::contextMenuEvent(QContextMenuEvent* event)
{
    const QModelIndex index = currentIndex();
    if (index.isValid())
        Q_EMIT menuRequested(event->reason() == QContextMenuEvent::Keyboard
                                 ? viewport()->mapToGlobal(visualRect(index).bottomLeft())
                                 : event->globalPos());
}

void SongTable::resizeEvent(QResizeEvent* event)
{
    RowTable::resizeEvent(event);
    layout_.fit();
}

void SongTable::showEvent(QShowEvent* event)
{
    RowTable::showEvent(event);
    layout_.fit();
}

// Editing

void SongTable::editCurrent()
{
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return;
    const auto column = SongColumn(current.column());
    const bool editable = SongTableModel::isEditable(column) && !isColumnHidden(current.column());
    const QModelIndex cell = editable ? current : current.siblingAtColumn(nameColumn);
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    edit(cell);
}

void SongTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const int column = currentIndex().column();
    RowTable::closeEditor(editor, QAbstractItemDelegate::NoHint);
    const int step = hint == QAbstractItemDelegate::EditNextItem       ? 1
                     : hint == QAbstractItemDelegate::EditPreviousItem ? -1
                                                                       : 0;
    if (step != 0) // after the edit itself
        QMetaObject::invokeMethod(
            this, [this, column, step] { editNeighbour(column, step); }, Qt::QueuedConnection);
}

/// Edits the next text of the same song to that side, if there is one.
void SongTable::editNeighbour(int column, int step)
{
    const QHeaderView* header = horizontalHeader();
    for (int place = header->visualIndex(column) + step; place >= 0 && place < header->count();
         place += step) {
        const int next = header->logicalIndex(place);
        if (header->isSectionHidden(next) || !SongTableModel::isEditable(SongColumn(next)))
            continue;
        const QModelIndex cell = currentIndex().siblingAtColumn(next);
        if (cell.isValid()) {
            setCurrentIndex(cell);
            edit(cell);
        }
        return;
    }
}

void SongTable::takeEdit(const QString& songId, int row, SongColumn column, const QString& text)
{
    const int now = model_->rowOf(songId, row);
    if (now >= 0)
        Q_EMIT edited(now, column, text);
}

// Dragging

void SongTable::startDrag(Qt::DropActions /*actions*/)
{
    const QList<int> rows = selectedRows();
    if (rows.isEmpty())
        return;
    auto* songs = new QMimeData;
    SongReordering::writeRowsWithIndexes(rows, *songs);
    const QString name = model_->index(rows.first(), nameColumn).data().toString();
    auto* drag = new QDrag(this);
    drag->setMimeData(songs);
    drag->setPixmap(dragPicture(*this, rows.size() == 1 ? name : tr("%Ln songs", nullptr, int(rows.size()))));
    drag->exec(Qt::MoveAction);
}

/// The row above which a drop at that place of the viewport would be.
int SongTable::rowAbove(const QPoint& place) const
{
    const int row = rowAt(place.y());
    if (row < 0)
        return model_->rowCount();
    return place.y() < rowViewportPosition(row) + rowHeight(row) / 2 ? row : row + 1;
}

void SongTable::setDropRow(int row)
{
    dropRow_ = row;
    viewport()->update();
}

void SongTable::dragEnterEvent(QDragEnterEvent* event)
{
    // Anything else is the window's.
    event->setAccepted(event->mimeData()->hasFormat(SongReordering::tableViewDataType));
}

void SongTable::dragMoveEvent(QDragMoveEvent* event)
{
    RowTable::dragMoveEvent(event); // scrolls at the edges
    const auto row =
        reordering_ ? reordering_->validateDrop(*event->mimeData(), rowAbove(event->position().toPoint()))
                    : std::nullopt;
    setDropRow(row.value_or(NoRow));
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(row.has_value());
}

void SongTable::dragLeaveEvent(QDragLeaveEvent* event)
{
    RowTable::dragLeaveEvent(event);
    setDropRow(NoRow);
}

void SongTable::dropEvent(QDropEvent* event)
{
    setDropRow(NoRow);
    stopAutoScroll();
    setState(NoState);
    const bool moved =
        reordering_ && reordering_->acceptDrop(*event->mimeData(), rowAbove(event->position().toPoint()));
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(moved);
}

void SongTable::paintEvent(QPaintEvent* event)
{
    RowTable::paintEvent(event);
    if (dropRow_ == NoRow)
        return;
    const bool isLast = dropRow_ == model_->rowCount();
    const int y =
        isLast ? rowViewportPosition(dropRow_ - 1) + rowHeight(dropRow_ - 1) : rowViewportPosition(dropRow_);
    QPainter painter(viewport());
    painter.fillRect(0, qMax(0, y - dropLineWidth / 2), viewport()->width(), dropLineWidth,
                     Theme::current().accent);
}

} // namespace zib
