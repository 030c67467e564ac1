// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace zib {

/// A table of rows, as the library drives it; what the rows hold is asked from the library. Main thread.
class TableView {
  public:
    virtual ~TableView() = default;
    /// The rows or what they hold have changed: ask again.
    virtual void reloadData() = 0;
    virtual void scrollRowToVisible(int row) = 0;
    /// The selected rows in ascending order.
    [[nodiscard]] virtual QList<int> selectedRows() const = 0;
    virtual void selectRows(const QList<int>& rows) = 0;
    virtual void deselectAll() = 0;
    /// The name under which column widths, order and sorting are kept from now on; a saved layout of that
    /// name is applied at once. An empty name keeps nothing.
    virtual void setAutosaveName(const QString& name) = 0;
};

} // namespace zib
