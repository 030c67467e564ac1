// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/TableView.h"

#include <QTableView>

namespace zib {

class RowsModel;

/// A table whose rows are chosen whole: the songs, the artists, the albums. There is no object per row, and
/// only what is visible costs anything.
class RowTable : public QTableView, public TableView {
    Q_OBJECT

  public:
    // From the library manager
    void reloadData() override;
    void scrollRowToVisible(int row) override;
    [[nodiscard]] QList<int> selectedRows() const override;
    [[nodiscard]] int selectedRow() const override;
    void selectRows(const QList<int>& rows) override;
    void deselectAll() override;

  Q_SIGNALS:
    /// The user has selected other rows.
    void rowsChosen();

  protected:
    /// @param mainColumn the one that the keyboard stands in. The model is the table's child.
    RowTable(RowsModel* model, int mainColumn, QWidget* parent);
    ~RowTable() override;

    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

  private:
    RowsModel* rows_;
    int mainColumn_;
    bool selecting_ = false; ///< the program selects
};

} // namespace zib
