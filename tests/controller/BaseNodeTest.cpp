// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a walk through the tree that misses a level, or takes a node for its equal.
#include "controller/ChildNode.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

BaseNode::Node node(const QString& title, bool isLeaf, const BaseNode::Nodes& children = {})
{
    auto made = std::make_shared<ChildNode>(isLeaf);
    made->setNodeTitle(title);
    made->children() = children;
    return made;
}

QString titles(const BaseNode::Nodes& nodes)
{
    QString result;
    for (const BaseNode::Node& one : nodes)
        result += one->nodeTitle();
    return result;
}

TEST(BaseNodeTest, KnowsItsPlaceInATree)
{
    const BaseNode::Node c = node(QStringLiteral("c"), true);
    const BaseNode::Node b = node(QStringLiteral("b"), false, {c});
    const BaseNode::Node a = node(QStringLiteral("a"), false, {node(QStringLiteral("x"), true), b});
    const BaseNode::Node twin = node(QStringLiteral("c"), true);
    const BaseNode::Nodes tree{twin, a};
    EXPECT_EQ(titles(a->descendants()), QStringLiteral("xbc"));
    EXPECT_EQ(titles(a->allChildLeafs()), QStringLiteral("xc"));
    EXPECT_EQ(titles(a->groupChildren()), QStringLiteral("b"));
    EXPECT_EQ(c->indexPathInArray(tree), (NodePath{1, 1, 0}));
    EXPECT_EQ(twin->indexPathInArray(tree), NodePath{0});
    EXPECT_EQ(node(QStringLiteral("c"), true)->indexPathInArray(tree), NodePath());
    EXPECT_EQ(c->parentFromArray(tree), b);
    EXPECT_EQ(a->parentFromArray(tree), nullptr);
    EXPECT_TRUE(c->isDescendantOfNodes({a}));
    EXPECT_FALSE(a->isDescendantOfNodes({a}));
    EXPECT_TRUE(a->isDescendantOfOrOneOfNodes({a}));
    EXPECT_FALSE(a->isDescendantOfOrOneOfNodes({b}));
    a->removeObjectFromChildren(*c);
    EXPECT_EQ(titles(a->descendants()), QStringLiteral("xb"));
}

TEST(BaseNodeTest, ComparesWithoutCaseAndIsDraggedByItsIcon)
{
    const BaseNode::Node a = node(QStringLiteral("alpha"), true);
    EXPECT_EQ(a->compare(*node(QStringLiteral("ALPHA"), true)), 0);
    EXPECT_LT(a->compare(*node(QStringLiteral("Beta"), true)), 0);
    EXPECT_FALSE(a->isDraggable());
    a->setNodeIcon(QStringLiteral("playlist"));
    EXPECT_TRUE(a->isDraggable());
    a->setURL(QStringLiteral("/home/song.mp3"));
    EXPECT_FALSE(a->isDraggable());
}

} // namespace
} // namespace zib
