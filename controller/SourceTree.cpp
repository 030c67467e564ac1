// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/SourceTree.h"

#include "controller/TreeAdditionObj.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace zib {

namespace {

/// The drawing of a row by its kind tag.
QString iconOfKind(const QString& kindTag)
{
    static const QHash<QString, QString> icons{
        {QStringLiteral("nowplaying"), QStringLiteral("now-playing")},
        {QStringLiteral("tophot"), QStringLiteral("hot")},
        {QStringLiteral("recommended"), QStringLiteral("recommended")},
        {QStringLiteral("artist"), QStringLiteral("artist")},
        {QStringLiteral("artistradio"), QStringLiteral("similar")},
        {QStringLiteral("tag"), QStringLiteral("tag")},
        {QStringLiteral("music"), QStringLiteral("music")},
        {QStringLiteral("downloads"), QStringLiteral("download")},
        {QStringLiteral("imports"), QStringLiteral("imported")},
        {QStringLiteral("favorites"), QStringLiteral("heart")},
        {QStringLiteral("smart"), QStringLiteral("playlist")},
    };
    return icons.value(kindTag, QStringLiteral("playlist"));
}

NodePath parentOf(const NodePath& path)
{
    return path.first(path.size() - 1);
}

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(SourceList)
};

} // namespace

QString SourceTree::recentSearchesTitle()
{
    return Texts::tr("Recent Searches");
}

QString SourceTree::libraryTitle()
{
    return Texts::tr("Library");
}

QString SourceTree::playlistsTitle()
{
    return Texts::tr("Playlists");
}

QString SourceTree::untitledPlaylist()
{
    return Texts::tr("Untitled playlist");
}

bool SourceTree::isSeparator(const ChildNode& node)
{
    return node.nodeIcon().isEmpty() && node.nodeTitle().isEmpty();
}

bool SourceTree::isSpecialGroup(const ChildNode& node)
{
    // By title, but a playlist may be called like one of them.
    const QStringList titles{recentSearchesTitle(), libraryTitle(), playlistsTitle()};
    return !node.isLeaf() && node.nodeIcon().isEmpty() && titles.contains(node.nodeTitle());
}

void SourceTree::setKind(ChildNode& node, const QString& kindTag)
{
    node.setURL(kindTag);
    node.setNodeIcon(iconOfKind(kindTag));
}

std::shared_ptr<ChildNode> SourceTree::nodeAt(const NodePath& path) const
{
    BaseNode::Node node;
    const BaseNode::Nodes* level = &nodes();
    for (const int index : path) {
        if (index < 0 || index >= int(level->size()))
            return nullptr;
        node = (*level)[std::size_t(index)];
        level = &node->children();
    }
    return std::static_pointer_cast<ChildNode>(node);
}

int SourceTree::childCount(const NodePath& group) const
{
    if (group.isEmpty())
        return int(nodes().size());
    const auto node = nodeAt(group);
    return node ? int(node->children().size()) : 0;
}

QList<NodePath> SourceTree::selectedPaths() const
{
    QList<NodePath> paths;
    for (const auto& selected : selected_)
        if (const BaseNode::Node node = selected.lock())
            paths.append(pathOf(*node));
    paths.removeAll({}); // taken out of the tree
    std::ranges::sort(paths, [](const NodePath& a, const NodePath& b) {
        return std::ranges::lexicographical_compare(a, b);
    });
    return paths;
}

void SourceTree::setSelectedPaths(const QList<NodePath>& paths)
{
    selected_.clear();
    for (const NodePath& path : paths)
        if (const auto node = nodeAt(path))
            selected_.push_back(node);
}

void SourceTree::selectParentFromSelection()
{
    const QList<NodePath> selected = selectedPaths();
    if (!selected.isEmpty())
        setSelectedPaths({parentOf(selected.first())}); // nothing, for a row of the top level
}

void SourceTree::addChild(const QString& kindTag, const QString& name, bool selectParent)
{
    performAddChild({.nodeURL = kindTag, .nodeName = name, .selectItsParent = selectParent});
}

void SourceTree::performAddChild(const TreeAdditionObj& addition)
{
    NodePath path = addition.indexPath;
    if (path.isEmpty()) {
        const auto selected = nodeAt(selectedPaths().value(0));
        if (selected && selected->isLeaf())
            selectParentFromSelection();
        path = selectedPaths().value(0);
        path.append(childCount(path));
    }
    const auto node = std::make_shared<ChildNode>(true);
    if (addition.nodeURL) {
        QString kindTag = *addition.nodeURL;
        if (kindTag.isEmpty()) {
            kindTag = QStringLiteral("http://");
            node->setNodeTitle(untitledPlaylist());
        } else {
            node->setNodeTitle(addition.nodeName ? *addition.nodeName : QFileInfo(kindTag).fileName());
        }
        setKind(*node, kindTag);
    }
    node->setEnabled(addition.enabled);
    insertNode(node, path);
    setSelectedPaths({pathOf(*node)});
    if (addition.selectItsParent)
        selectParentFromSelection();
}

void SourceTree::performAddFolder(const QString& title)
{
    const auto node = std::make_shared<ChildNode>();
    node->setNodeTitle(title);
    const NodePath path{childCount({})};
    insertNode(node, path);
    setSelectedPaths({path});
}

void SourceTree::addSeparatorItem()
{
    performAddChild({.nodeURL = {}, .nodeName = {}});
}

BaseNode* SourceTree::groupOf(const NodePath& path)
{
    return path.size() == 1 ? &root_ : nodeAt(parentOf(path)).get();
}

void SourceTree::insertNode(const BaseNode::Node& node, const NodePath& path)
{
    BaseNode::Nodes& siblings = groupOf(path)->children();
    view_.insertItem(path, [&] { siblings.insert(siblings.begin() + path.last(), node); });
}

void SourceTree::removeNode(const NodePath& path)
{
    if (!nodeAt(path))
        return;
    BaseNode::Nodes& siblings = groupOf(path)->children();
    view_.removeItem(path, [&] { siblings.erase(siblings.begin() + path.last()); });
}

void SourceTree::removeAll()
{
    while (!nodes().empty())
        removeNode({int(nodes().size()) - 1});
}

void SourceTree::moveNode(const NodePath& from, const NodePath& to)
{
    BaseNode::Nodes& source = groupOf(from)->children();
    BaseNode::Nodes& destination = groupOf(to)->children();
    const bool within = &source == &destination;
    const int shift = within && from.last() < to.last() ? 1 : 0;
    if (within && to.last() - shift == from.last())
        return;
    view_.moveItem(from, to, [&] {
        const BaseNode::Node node = source[std::size_t(from.last())];
        source.erase(source.begin() + from.last());
        destination.insert(destination.begin() + to.last() - shift, node);
    });
}

} // namespace zib
