// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/RemovedLists.h"

#include "controller/ControllerContext.h"
#include "controller/PlaybackQueue.h"
#include "controller/SourceKinds.h"
#include "library/RVDataManager.h"
#include "platform/UserDefaults.h"

#include <algorithm>
#include <ranges>

namespace zib {

SourceList::RemovedLists::RemovedLists(SourceList& sources, const std::vector<BaseNode::Node>& nodes)
    : sources_(sources)
{
    for (const BaseNode::Node& node : nodes)
        if (!sources.tree_.pathOf(*node).isEmpty())
            lists_.push_back({.node = node});
}

UndoCommand::Texts SourceList::RemovedLists::texts() const
{
    const int count = int(lists_.size());
    const bool searches = std::ranges::all_of(lists_, [](const List& list) {
        return SourceType(list.path.value(0)) == SourceType::RecentSearches;
    });
    if (searches)
        return {.done = tr("%Ln searches removed. Press Ctrl+Z to undo.", nullptr, count),
                .undo = tr("Undo remove %Ln searches", nullptr, count),
                .redo = tr("Redo remove %Ln searches", nullptr, count)};
    return {.done = tr("%Ln playlists removed. Press Ctrl+Z to undo.", nullptr, count),
            .undo = tr("Undo remove %Ln playlists", nullptr, count),
            .redo = tr("Redo remove %Ln playlists", nullptr, count)};
}

void SourceList::RemovedLists::takeOut(List& list)
{
    RVDataManager& library = sources_.context_.dataManager;
    const UserDefaults& defaults = sources_.context_.defaults;
    list.path = sources_.tree_.pathOf(*list.node);
    list.record = sources_.listsAt(list.path.first()).takeAt(list.path.last());
    const QString uid = QString::number(list.record.integer(keys::Id));
    list.layouts.clear();
    const QStringList stored = defaults.storedKeys();
    for (const QString& key : stored)
        if (key.endsWith(uid))
            list.layouts.insert(key, defaults.value(key));
    library.removeAutosaveForTableColumnWithUID(uid);
    sources_.tree_.removeNode(list.path);
}

void SourceList::RemovedLists::redo()
{
    RVDataManager& library = sources_.context_.dataManager;
    if (sources_.playback_.nowplayingPlaylistUID() == library.currentUID())
        sources_.playback_.stop();
    const Record playing = sources_.playingList();
    for (List& list : lists_)
        takeOut(list);
    sources_.followPlayingList(playing);
    const NodePath first = lists_.front().path;
    const int count = int(sources_.listsAt(first.first()).size());
    if (count == 0)
        sources_.select({int(SourceType::NowPlaying)});
    else
        sources_.select({first.first(), std::min(first.last(), count - 1)});
    library.saveLibrary();
}

void SourceList::RemovedLists::undo()
{
    const auto& snapshot = sources_.playback_.snapshot();
    Record playing = sources_.playingList();
    for (const List& list : std::views::reverse(lists_)) {
        QList<Record>& records = sources_.listsAt(list.path.first());
        const int index = std::min(list.path.last(), int(records.size()));
        for (auto layout = list.layouts.begin(); layout != list.layouts.end(); ++layout)
            sources_.context_.defaults.setValue(layout.key(), layout.value());
        records.insert(index, list.record);
        sources_.tree_.insertNode(list.node, {list.path.first(), index});
        // It may have played on without its list.
        if (!playing && snapshot && isListSource(snapshot->sourceType) &&
            snapshot->playlistUid == list.record.integer(keys::Id))
            playing = list.record;
    }
    sources_.followPlayingList(playing);
    sources_.select(sources_.tree_.pathOf(*lists_.front().node));
    sources_.context_.dataManager.saveLibrary();
}

} // namespace zib
