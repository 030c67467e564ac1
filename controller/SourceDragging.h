// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/SourceTree.h"
#include "records/Record.h"

#include <optional>
#include <utility>

class QMimeData;

namespace zib {

class RVDataManager;

/// Where in the outline a drop goes: onto a row, or above the child of that index.
struct OutlineDrop {
    static constexpr int OnItem = -1;

    NodePath item;
    int childIndex = OnItem;

    friend bool operator==(const OutlineDrop&, const OutlineDrop&) = default;
};

/// What may be dragged in the source list: playlists to another place, recent searches into the playlists,
/// and songs onto a playlist. Main thread.
class SourceDragging {
  public:
    /// The type under which rows of the source list travel.
    static const QString nodesPBoardType;

    SourceDragging(RVDataManager& library, SourceTree& tree)
        : library_(library)
        , tree_(tree)
    {
    }

    /// Whether drops of that are taken anywhere.
    [[nodiscard]] static bool takes(const QMimeData& pasteboard);
    [[nodiscard]] bool isDraggable(const NodePath& path) const;
    /// False when one of the rows may not be dragged.
    bool writeItems(const QList<NodePath>& items, QMimeData& toPasteboard);
    /// Where a drop goes that is proposed there; none when it is refused.
    [[nodiscard]] std::optional<OutlineDrop>
    validateDrop(const QMimeData& pasteboard, const NodePath& proposedItem, int proposedChildIndex) const;
    /// The songs that are dragged; none when rows of the source list are.
    [[nodiscard]] QList<Record> songs(const QMimeData& pasteboard) const;

    using MovedList = std::pair<Record, Record>;
    /// Puts the dragged rows among the playlists, above that one: a playlist moves, a search becomes one.
    /// They are selected then.
    /// @return the records of the rows, before and after.
    QList<MovedList> acceptRows(int aboveIndex);

  private:
    [[nodiscard]] std::optional<OutlineDrop> validateRows(const NodePath& item, int childIndex) const;
    void setDragNodesArray(QList<NodePath> paths);
    /// Where the dragged rows are now; some may have gone while they were dragged.
    [[nodiscard]] QList<NodePath> draggedPaths() const;

    RVDataManager& library_;
    SourceTree& tree_;
    std::vector<std::weak_ptr<BaseNode>> dragNodes_;
};

} // namespace zib
