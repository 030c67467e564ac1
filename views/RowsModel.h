// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>

namespace zib {

/// Rows over a list that somebody else holds: keeps nothing but how many of them the views know of.
class RowsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    /// The list has changed. What the views keep by row, they keep by row number.
    void reload();
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

  protected:
    /// Of the list as it is now.
    [[nodiscard]] virtual int numberOfRows() const = 0;

  private:
    int rows_ = 0;
};

} // namespace zib
