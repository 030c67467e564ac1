// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/BaseNode.h"

#include <QDir>

#include <algorithm>
#include <iterator>

namespace zib {

int BaseNode::compare(const BaseNode& other) const
{
    return nodeTitle_.toLower().compare(other.nodeTitle_.toLower());
}

bool BaseNode::isDraggable() const
{
    return !QDir::isAbsolutePath(urlString_) && !nodeIcon_.isEmpty();
}

void BaseNode::removeObjectFromChildren(const BaseNode& node)
{
    std::erase_if(children_, [&node](const Node& child) { return child.get() == &node; });
    for (const Node& child : children_)
        child->removeObjectFromChildren(node);
}

BaseNode::Nodes BaseNode::descendants() const
{
    Nodes result;
    for (const Node& child : children_) {
        result.push_back(child);
        std::ranges::move(child->descendants(), std::back_inserter(result));
    }
    return result;
}

BaseNode::Nodes BaseNode::allChildLeafs() const
{
    Nodes result = descendants();
    std::erase_if(result, [](const Node& node) { return !node->isLeaf(); });
    return result;
}

BaseNode::Nodes BaseNode::groupChildren() const
{
    Nodes result = children_;
    std::erase_if(result, [](const Node& node) { return node->isLeaf(); });
    return result;
}

bool BaseNode::isDescendantOfOrOneOfNodes(const Nodes& nodes) const
{
    return !indexPathInArray(nodes).isEmpty();
}

bool BaseNode::isDescendantOfNodes(const Nodes& nodes) const
{
    return indexPathInArray(nodes).size() > 1;
}

NodePath BaseNode::indexPathInArray(const Nodes& nodes) const
{
    for (std::size_t index = 0; index < nodes.size(); ++index) {
        if (nodes[index].get() == this)
            return {int(index)};
        const NodePath below = indexPathInArray(nodes[index]->children());
        if (!below.isEmpty())
            return NodePath{int(index)} + below;
    }
    return {};
}

BaseNode::Node BaseNode::parentFromArray(const Nodes& nodes) const
{
    NodePath path = indexPathInArray(nodes);
    Node parent;
    const Nodes* level = &nodes;
    for (qsizetype depth = 0; depth + 1 < path.size(); ++depth) {
        parent = (*level)[std::size_t(path[depth])];
        level = &parent->children();
    }
    return parent;
}

} // namespace zib
