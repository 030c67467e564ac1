// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SourceModel.h"

#include "controller/SourceList.h"

#include <QSize>

namespace zib {

// A row of a group is known by the place of its group, counted from 1; 0 is the top level. Groups keep their
// places for as long as there are any rows.

void SourceModel::setSources(SourceList& sources)
{
    beginResetModel();
    sources_ = &sources;
    endResetModel();
}

NodePath SourceModel::pathOf(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    if (index.internalId() == 0)
        return {index.row()};
    return {int(index.internalId()) - 1, index.row()};
}

QModelIndex SourceModel::indexOf(const NodePath& path) const
{
    QModelIndex result;
    for (const int row : path)
        result = index(row, 0, result);
    return result;
}

void SourceModel::insertItem(const NodePath& at, const OutlineView::Change& change)
{
    beginInsertRows(indexOf(at.first(at.size() - 1)), at.last(), at.last());
    change();
    endInsertRows();
}

void SourceModel::removeItem(const NodePath& at, const OutlineView::Change& change)
{
    beginRemoveRows(indexOf(at.first(at.size() - 1)), at.last(), at.last());
    change();
    endRemoveRows();
}

void SourceModel::moveItem(const NodePath& from, const NodePath& to, const OutlineView::Change& change)
{
    beginMoveRows(indexOf(from.first(from.size() - 1)), from.last(), from.last(),
                  indexOf(to.first(to.size() - 1)), to.last());
    change();
    endMoveRows();
}

void SourceModel::reloadItem(const NodePath& path)
{
    const QModelIndex index = indexOf(path);
    if (index.isValid())
        Q_EMIT dataChanged(index, index);
}

void SourceModel::reloadItems()
{
    for (int top = 0; top < rowCount({}); ++top) {
        reloadItem({top});
        if (const int children = rowCount(indexOf({top})); children > 0)
            Q_EMIT dataChanged(indexOf({top, 0}), indexOf({top, children - 1}));
    }
}

QModelIndex SourceModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, quintptr(parent.isValid() ? parent.row() + 1 : 0));
}

QModelIndex SourceModel::parent(const QModelIndex& child) const
{
    if (!child.isValid() || child.internalId() == 0)
        return {};
    return createIndex(int(child.internalId()) - 1, 0, quintptr(0));
}

int SourceModel::rowCount(const QModelIndex& parent) const
{
    return sources_ ? sources_->tree().childCount(pathOf(parent)) : 0;
}

int SourceModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

QVariant SourceModel::data(const QModelIndex& index, int role) const
{
    const NodePath path = pathOf(index);
    const auto node = sources_ && index.isValid() ? sources_->tree().nodeAt(path) : nullptr;
    if (!node)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return node->nodeTitle();
    case Qt::ToolTipRole:
        return node->description() == ChildNode::noDescription ? QVariant() : node->description();
    case Qt::AccessibleTextRole:
        return SourceTree::isSeparator(*node) ? tr("Separator") : node->nodeTitle();
    case Qt::SizeHintRole:
        return QSize(0, sources_->heightOfRowByItem(path));
    case IconNameRole:
        return node->nodeIcon();
    case KindRole:
        return node->urlString();
    case SeparatorRole:
        return SourceTree::isSeparator(*node);
    case GroupRole:
        return sources_->isGroupItem(path);
    default:
        return {};
    }
}

QVariant SourceModel::headerData(int /*section*/, Qt::Orientation orientation, int role) const
{
    // Not shown, but read out.
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? tr("Sources") : QVariant();
}

bool SourceModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const QString title = value.toString();
    if (role != Qt::EditRole || !sources_ || !index.isValid() || !SourceList::textShouldEndEditing(title))
        return false;
    if (title != index.data().toString())
        sources_->controlTextDidEndEditing(pathOf(index), title);
    return true;
}

Qt::ItemFlags SourceModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags result = Qt::NoItemFlags;
    if (!sources_ || !index.isValid())
        return result;
    const NodePath path = pathOf(index);
    if (sources_->shouldSelectItem(path))
        result |= Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (sources_->shouldEditItem(path))
        result |= Qt::ItemIsEditable;
    if (sources_->shouldDragItem(path))
        result |= Qt::ItemIsDragEnabled;
    return result;
}

} // namespace zib
