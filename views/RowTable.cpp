// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/RowTable.h"

#include "views/RowHeader.h"
#include "views/RowsModel.h"
#include "views/Theme.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace zib {

RowTable::RowTable(RowsModel* model, int mainColumn, QWidget* parent)
    : QTableView(parent)
    , rows_(model)
    , mainColumn_(mainColumn)
{
    rows_->setParent(this);
    setModel(rows_);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setFrameShape(NoFrame);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(Theme::rowHeight);
    verticalHeader()->setDefaultSectionSize(Theme::rowHeight);
    setHorizontalHeader(new RowHeader(this));
    horizontalHeader()->setFixedHeight(Theme::rowHeight + 2);
}

RowTable::~RowTable() = default;

void RowTable::reloadData()
{
    const QScopedValueRollback selecting(selecting_, true);
    const int chosen = selectedRow();
    rows_->reload();
    if (chosen >= rows_->rowCount())
        deselectAll(); // where one row is selected, the view takes its neighbour instead
}

void RowTable::scrollRowToVisible(int row)
{
    scrollTo(rows_->index(row, mainColumn_));
}

QList<int> RowTable::selectedRows() const
{
    QList<int> rows;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection)
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

int RowTable::selectedRow() const
{
    const QItemSelection selection = selectionModel()->selection();
    int first = NoRow;
    for (const QItemSelectionRange& range : selection)
        if (first == NoRow || range.top() < first)
            first = range.top();
    return first;
}

void RowTable::selectRows(const QList<int>& rows)
{
    const QScopedValueRollback selecting(selecting_, true);
    QItemSelection selection;
    const int lastColumn = rows_->columnCount() - 1;
    for (const int row : rows) {
        if (row < 0 || row >= rows_->rowCount())
            continue;
        if (!selection.isEmpty() && selection.last().bottom() == row - 1) // one range for rows in a row
            selection.last() = QItemSelectionRange(selection.last().topLeft(), rows_->index(row, lastColumn));
        else
            selection.append(QItemSelectionRange(rows_->index(row, 0), rows_->index(row, lastColumn)));
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!selection.isEmpty())
        selectionModel()->setCurrentIndex(rows_->index(selection.first().top(), mainColumn_),
                                          QItemSelectionModel::NoUpdate);
}

void RowTable::deselectAll()
{
    const QScopedValueRollback selecting(selecting_, true);
    clearSelection();
    setCurrentIndex({});
}

void RowTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTableView::selectionChanged(selected, deselected);
    if (!selecting_)
        Q_EMIT rowsChosen();
}

QModelIndex RowTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    // Without a current row the toolkit would begin in a column that may be hidden.
    if (!currentIndex().isValid() || action == MoveHome)
        return rows_->index(0, mainColumn_);
    if (action == MoveEnd)
        return rows_->index(rows_->rowCount() - 1, mainColumn_);
    return QTableView::moveCursor(action, modifiers);
}

} // namespace zib
