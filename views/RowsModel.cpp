// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/RowsModel.h"

namespace zib {

void RowsModel::reload()
{
    const int rows = numberOfRows();
    if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    } else if (rows < rows_) {
        beginRemoveRows({}, rows, rows_ - 1);
        rows_ = rows;
        endRemoveRows();
    }
    if (rows_ > 0)
        Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1));
}

int RowsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_;
}

} // namespace zib
