// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/TableView.h"

#include <QSet>
#include <QStringList>

#include <algorithm>
#include <functional>
#include <utility>

namespace zib {

/// A table without a screen: keeps the selection as a table does, and what was asked of it.
class FakeTableView : public TableView {
  public:
    void reloadData() override
    {
        ++reloads;
        if (rowCount)
            selected_.removeIf([rows = rowCount()](int row) { return row >= rows; });
    }
    void reloadCell(int row, const QString& column) override { reloadedCells.append({row, column}); }
    void scrollRowToVisible(int row) override { scrolledTo = row; }
    QList<int> selectedRows() const override { return selected_; }
    void selectRows(const QList<int>& rows) override
    {
        selected_ = rows;
        if (rowCount)
            selected_.removeIf([count = rowCount()](int row) { return row < 0 || row >= count; });
        std::sort(selected_.begin(), selected_.end());
        selected_.erase(std::unique(selected_.begin(), selected_.end()), selected_.end());
    }
    void deselectAll() override { selected_.clear(); }
    void setAutosaveName(const QString& name) override { autosaveNames.append(name); }
    QList<SortDescriptor> sortDescriptors() const override { return descriptors; }
    void setSortDescriptors(const QList<SortDescriptor>& wanted) override { descriptors = wanted; }
    void setColumnAvailable(const QString& column, bool available) override
    {
        if (available)
            missingColumns.remove(column);
        else
            missingColumns.insert(column);
    }
    void removeSubviews() override { ++subviewRemovals; }

    std::function<int()> rowCount; ///< how many rows there are to select; any, when not set
    int reloads = 0;
    QList<std::pair<int, QString>> reloadedCells; ///< in order
    int scrolledTo = -1;
    int subviewRemovals = 0;
    QStringList autosaveNames; ///< in order
    QList<SortDescriptor> descriptors;
    QSet<QString> missingColumns;

  private:
    QList<int> selected_;
};

} // namespace zib
