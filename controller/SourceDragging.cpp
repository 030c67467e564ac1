// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/SourceDragging.h"

#include "library/RVDataManager.h"
#include "library/SongReordering.h"
#include "library/SourceTypes.h"

#include <QMimeData>

#include <algorithm>

namespace zib {

namespace {

constexpr int searchesPosition = int(SourceType::RecentSearches);
constexpr int playlistsPosition = int(SourceType::Playlists);

bool inRowOrder(const NodePath& a, const NodePath& b)
{
    return std::ranges::lexicographical_compare(a, b);
}

bool holdsPlaylist(const ChildNode* node)
{
    return node != nullptr && node->urlString() == QLatin1String("playlist");
}

} // namespace

const QString SourceDragging::nodesPBoardType = QStringLiteral("ZibNodesPBoardType");

bool SourceDragging::takes(const QMimeData& pasteboard)
{
    return pasteboard.hasFormat(SongReordering::tableViewDataType) || pasteboard.hasFormat(nodesPBoardType);
}

bool SourceDragging::isDraggable(const NodePath& path) const
{
    const auto node = tree_.nodeAt(path);
    const int category = path.value(0, -1);
    return node && node->isLeaf() && node->isDraggable() &&
           (category == searchesPosition || category == playlistsPosition);
}

bool SourceDragging::writeItems(const QList<NodePath>& items, QMimeData& toPasteboard)
{
    if (items.isEmpty() ||
        !std::ranges::all_of(items, [this](const NodePath& path) { return isDraggable(path); }))
        return false;
    setDragNodesArray(items);
    // Which rows, is remembered here: until they are dropped they may have got other places.
    toPasteboard.setData(nodesPBoardType, QByteArray::number(items.size()));
    return true;
}

void SourceDragging::setDragNodesArray(QList<NodePath> paths)
{
    std::ranges::sort(paths, inRowOrder);
    dragNodes_.clear();
    for (const NodePath& path : paths)
        dragNodes_.push_back(tree_.nodeAt(path));
}

QList<NodePath> SourceDragging::draggedPaths() const
{
    QList<NodePath> paths;
    for (const auto& dragged : dragNodes_)
        if (const BaseNode::Node node = dragged.lock())
            paths.append(tree_.pathOf(*node));
    paths.removeAll({});
    std::ranges::sort(paths, inRowOrder);
    return paths;
}

std::optional<OutlineDrop> SourceDragging::validateDrop(const QMimeData& pasteboard,
                                                        const NodePath& proposedItem,
                                                        int proposedChildIndex) const
{
    if (pasteboard.hasFormat(SongReordering::tableViewDataType)) {
        if (!holdsPlaylist(tree_.nodeAt(proposedItem).get()))
            return std::nullopt;
        return OutlineDrop{proposedItem, OutlineDrop::OnItem};
    }
    if (pasteboard.hasFormat(nodesPBoardType))
        return validateRows(proposedItem, proposedChildIndex);
    return std::nullopt;
}

std::optional<OutlineDrop> SourceDragging::validateRows(const NodePath& item, int childIndex) const
{
    const QList<NodePath> dragged = draggedPaths();
    if (dragged.isEmpty() || item != NodePath{playlistsPosition} || childIndex < 0 ||
        childIndex > tree_.childCount(item))
        return std::nullopt;
    const NodePath& first = dragged.first();
    const bool changesNothing = dragged.size() == 1 && first[0] == playlistsPosition &&
                                (childIndex == first[1] || childIndex == first[1] + 1);
    if (changesNothing)
        return std::nullopt;
    return OutlineDrop{item, childIndex};
}

QList<Record> SourceDragging::songs(const QMimeData& pasteboard) const
{
    QList<Record> result;
    for (const int row : SongReordering(library_).rows(pasteboard))
        result.append(library_.items()[row]);
    return result;
}

QList<SourceDragging::MovedList> SourceDragging::acceptRows(int aboveIndex)
{
    QList<MovedList> moved;
    int place = aboveIndex;
    // Each takes its place above the same row, so that they keep their order; by now, those above it that
    // were playlists themselves have moved up the others.
    for (const auto& dragged : dragNodes_) {
        const BaseNode::Node node = dragged.lock();
        const NodePath from = node ? tree_.pathOf(*node) : NodePath();
        if (from.isEmpty())
            continue;
        int to = place;
        if (from[0] == playlistsPosition) {
            const Record playlist = library_.playlists()[from[1]];
            to = place > from[1] ? place - 1 : place;
            library_.playlists().move(from[1], to);
            moved.append({playlist, playlist});
        } else {
            const Record search = library_.searches().takeAt(from[1]);
            library_.insertPlaylistAtIndex(to, search.string(keys::Name), search.records(keys::Tracks), 0);
            moved.append({search, library_.playlists()[to]});
        }
        SourceTree::setKind(static_cast<ChildNode&>(*node), QStringLiteral("playlist"));
        tree_.moveNode(from, {playlistsPosition, place});
        place = to + 1;
    }
    tree_.setSelectedPaths(draggedPaths());
    dragNodes_.clear();
    return moved;
}

} // namespace zib
