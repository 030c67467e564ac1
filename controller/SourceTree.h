// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/ChildNode.h"
#include "library/SourceTypes.h"
#include "platform/OutlineView.h"

namespace zib {

struct TreeAdditionObj;

/// The rows of the source list and which of them are selected; the outline is told of every change. Main
/// thread.
class SourceTree {
  public:
    explicit SourceTree(OutlineView& view)
        : view_(view)
    {
    }

    /// The top level.
    [[nodiscard]] const BaseNode::Nodes& nodes() const { return root_.children(); }
    /// The node there, or none.
    [[nodiscard]] std::shared_ptr<ChildNode> nodeAt(const NodePath& path) const;
    /// How many nodes the group there has; the empty path is the top level.
    [[nodiscard]] int childCount(const NodePath& group) const;
    [[nodiscard]] NodePath pathOf(const BaseNode& node) const { return node.indexPathInArray(nodes()); }
    /// The top-level position of a row, which for what can be shown is its source type.
    [[nodiscard]] int categoryOfNode(const BaseNode& node) const { return pathOf(node).value(0, -1); }

    /// Selected rows, in the order of the rows. They stay selected when others come, go or move. Setting them
    /// does not tell the outline.
    /// @{
    [[nodiscard]] QList<NodePath> selectedPaths() const;
    void setSelectedPaths(const QList<NodePath>& paths);
    void selectParentFromSelection();
    /// @}

    /// Adds a leaf of that kind and title to the selected group. @param selectParent see TreeAdditionObj.
    void addChild(const QString& kindTag, const QString& name, bool selectParent);
    /// Adds a leaf where the request says. Without a place it goes to the end of the selected group, or of
    /// the group that has the selected leaf.
    void performAddChild(const TreeAdditionObj& addition);
    /// Adds a group at the end of the top level and selects it.
    void performAddFolder(const QString& title);
    void addSeparatorItem();
    /// Adds that node at that place of its group; the selection stays.
    void insertNode(const BaseNode::Node& node, const NodePath& path);
    void removeNode(const NodePath& path);
    void removeAll();
    /// @param to the place before the move above which the node is to stand.
    void moveNode(const NodePath& from, const NodePath& to);

    /// Gives the row its kind and what it is drawn with.
    static void setKind(ChildNode& node, const QString& kindTag);
    /// A row that only parts others.
    [[nodiscard]] static bool isSeparator(const ChildNode& node);
    /// The heading of a group.
    [[nodiscard]] static bool isSpecialGroup(const ChildNode& node);

    /// The texts of the headings.
    /// @{
    [[nodiscard]] static QString recentSearchesTitle();
    [[nodiscard]] static QString libraryTitle();
    [[nodiscard]] static QString playlistsTitle();
    /// @}
    [[nodiscard]] static QString untitledPlaylist();

  private:
    [[nodiscard]] BaseNode* groupOf(const NodePath& path);

    OutlineView& view_;
    BaseNode root_;
    std::vector<std::weak_ptr<BaseNode>> selected_;
};

} // namespace zib
