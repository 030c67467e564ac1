// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/BrowserTable.h"

#include <QAbstractListModel>
#include <QScopedValueRollback>

#include <utility>

namespace zib {

/// Holds nothing but how many rows the view was told of.
class BrowserTable::Model : public QAbstractListModel {
  public:
    using QAbstractListModel::QAbstractListModel;

    void setSource(Source source)
    {
        source_ = std::move(source);
        reload();
    }
    void reload()
    {
        const int rows = source_.rowCount ? source_.rowCount() : 0;
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
            Q_EMIT dataChanged(index(0), index(rows_ - 1));
    }
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : rows_;
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
            return {};
        return source_.text(index.row());
    }

  private:
    Source source_;
    int rows_ = 0;
};

BrowserTable::BrowserTable(const QString& name, QWidget* parent)
    : QListView(parent)
    , model_(new Model(this))
{
    setAccessibleName(name);
    setModel(model_);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
}

BrowserTable::~BrowserTable() = default;

void BrowserTable::setSource(Source source)
{
    model_->setSource(std::move(source));
}

void BrowserTable::reloadData()
{
    const QScopedValueRollback selecting(selecting_, true);
    const int row = selectedRow();
    model_->reload();
    if (row >= model_->rowCount())
        deselectAll(); // the view would select a neighbour
}

void BrowserTable::reloadCell(int row, const QString& /*column*/)
{
    update(model_->index(row));
}

void BrowserTable::scrollRowToVisible(int row)
{
    scrollTo(model_->index(row));
}

QList<int> BrowserTable::selectedRows() const
{
    QList<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows.append(index.row());
    return rows;
}

void BrowserTable::selectRows(const QList<int>& rows)
{
    const QScopedValueRollback selecting(selecting_, true);
    if (rows.isEmpty())
        deselectAll();
    else if (const QModelIndex index = model_->index(rows.first()); index.isValid())
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

void BrowserTable::deselectAll()
{
    const QScopedValueRollback selecting(selecting_, true);
    clearSelection();
    setCurrentIndex({});
}

void BrowserTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QListView::selectionChanged(selected, deselected);
    if (!selecting_ && !selectedRows().isEmpty())
        Q_EMIT chosen();
}

} // namespace zib
