// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/OutlineView.h"

#include <QAbstractItemModel>

namespace zib {

class SourceList;

/// The rows of the source list for a view: groups, and rows in them. It has nothing of its own.
class SourceModel : public QAbstractItemModel {
    Q_OBJECT

  public:
    enum Role {
        IconNameRole = Qt::UserRole, ///< empty for a heading and a separator
        KindRole,                    ///< the kind tag
        SeparatorRole,
        GroupRole,
    };

    using QAbstractItemModel::QAbstractItemModel;

    /// Whose rows it shows; nothing until then.
    void setSources(SourceList& sources);

    [[nodiscard]] NodePath pathOf(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex indexOf(const NodePath& path) const;

    /// As in OutlineView.
    /// @{
    void insertItem(const NodePath& at, const OutlineView::Change& change);
    void removeItem(const NodePath& at, const OutlineView::Change& change);
    void moveItem(const NodePath& from, const NodePath& to, const OutlineView::Change& change);
    void reloadItem(const NodePath& path);
    void reloadItems();
    /// @}

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    SourceList* sources_ = nullptr;
};

} // namespace zib
