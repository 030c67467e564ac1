// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/OutlineView.h"

#include <QString>

#include <memory>
#include <vector>

namespace zib {

/// A row of the source list with the rows below it. Main thread.
class BaseNode {
  public:
    using Node = std::shared_ptr<BaseNode>;
    using Nodes = std::vector<Node>;

    /// A group, or a leaf.
    explicit BaseNode(bool isLeaf = false)
        : isLeaf_(isLeaf)
    {
    }
    virtual ~BaseNode() = default;
    BaseNode(const BaseNode&) = delete;
    BaseNode& operator=(const BaseNode&) = delete;

    [[nodiscard]] const QString& nodeTitle() const { return nodeTitle_; }
    void setNodeTitle(const QString& title) { nodeTitle_ = title; }
    [[nodiscard]] Nodes& children() { return children_; }
    [[nodiscard]] const Nodes& children() const { return children_; }
    [[nodiscard]] bool isLeaf() const { return isLeaf_; }
    /// The name of a drawing; groups and separators have none.
    [[nodiscard]] const QString& nodeIcon() const { return nodeIcon_; }
    void setNodeIcon(const QString& name) { nodeIcon_ = name; }
    /// The kind tag, which tells what the row shows.
    [[nodiscard]] const QString& urlString() const { return urlString_; }
    void setURL(const QString& kindTag) { urlString_ = kindTag; }

    /// The order of the titles, whatever their case: below, at or above 0.
    [[nodiscard]] int compare(const BaseNode& other) const;
    /// Whether the row has an icon and stands for no file.
    [[nodiscard]] bool isDraggable() const;
    /// Takes the node out, wherever below this one it is.
    void removeObjectFromChildren(const BaseNode& node);

    /// All nodes below, each before those below it; of them the leaves.
    /// @{
    [[nodiscard]] Nodes descendants() const;
    [[nodiscard]] Nodes allChildLeafs() const;
    /// @}
    /// The children that are no leaves.
    [[nodiscard]] Nodes groupChildren() const;

    [[nodiscard]] bool isDescendantOfOrOneOfNodes(const Nodes& nodes) const;
    [[nodiscard]] bool isDescendantOfNodes(const Nodes& nodes) const;
    /// Where this node is in a tree with those nodes at its top; empty when it is not there.
    [[nodiscard]] NodePath indexPathInArray(const Nodes& nodes) const;
    /// The node that has this one among its children, in that tree; none at its top.
    [[nodiscard]] Node parentFromArray(const Nodes& nodes) const;

  private:
    QString nodeTitle_ = QStringLiteral("BaseNode Untitled");
    Nodes children_;
    bool isLeaf_;
    QString nodeIcon_;
    QString urlString_;
};

} // namespace zib
