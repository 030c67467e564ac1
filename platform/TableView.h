// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace zib {

/// One rule by which a table's rows are sorted: the identifier of a column, and the direction.
struct SortDescriptor {
    QString key;
    bool ascending = true;

    friend bool operator==(const SortDescriptor& a, const SortDescriptor& b) = default;
};

/// A table of rows, as the library drives it; what the rows hold is asked from the library, for the cells
/// that are visible. What the program selects or sorts is not reported back to the program; what the user
/// does is. Main thread.
class TableView {
  public:
    static constexpr int NoRow = -1;

    virtual ~TableView() = default;
    /// The rows or what they hold have changed: ask again. Selection and scrolling stay by row number; rows
    /// that are gone are no longer selected.
    virtual void reloadData() = 0;
    /// What that one cell shows has changed. Rows and columns that are not visible cost nothing.
    virtual void reloadCell(int row, const QString& column) = 0;
    virtual void scrollRowToVisible(int row) = 0;
    /// The selected rows in ascending order.
    [[nodiscard]] virtual QList<int> selectedRows() const = 0;
    /// The first selected row, or NoRow.
    [[nodiscard]] virtual int selectedRow() const { return selectedRows().value(0, NoRow); }
    virtual void selectRows(const QList<int>& rows) = 0;
    virtual void deselectAll() = 0;
    /// The name under which column widths, order and sorting are kept from now on; a saved layout of that
    /// name is applied at once. An empty name keeps nothing.
    virtual void setAutosaveName(const QString& name) = 0;

    /// By what the rows are sorted, the weightiest rule first; empty for a table that is not.
    [[nodiscard]] virtual QList<SortDescriptor> sortDescriptors() const = 0;
    virtual void setSortDescriptors(const QList<SortDescriptor>& descriptors) = 0;
    /// Whether there is such a column in what is shown now. The user may hide a column that there is.
    virtual void setColumnAvailable(const QString& column, bool available) = 0;
    /// Takes away what stands on rows beside their cells: an editor that is open, a progress bar.
    virtual void removeSubviews() = 0;
};

} // namespace zib
