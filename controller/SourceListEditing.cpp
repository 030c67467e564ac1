// SPDX-License-Identifier: GPL-3.0-or-later
// What the source list does to the playlists and the recent searches.
#include "controller/ControllerContext.h"
#include "controller/Notices.h"
#include "controller/PlaybackQueue.h"
#include "controller/RemovedLists.h"
#include "controller/SourceKinds.h"
#include "controller/SourceList.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "platform/TableView.h"
#include "records/PropertyValue.h"

#include <QCoreApplication>

#include <algorithm>

namespace zib {

namespace {

constexpr int playlistsPosition = int(SourceType::Playlists);

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(SourceList)
};

} // namespace

bool SourceList::isList(const NodePath& path) const
{
    return path.size() == 2 && isListSource(SourceType(path.first())) && tree_.nodeAt(path);
}

QList<Record>& SourceList::listsAt(int position)
{
    return position == playlistsPosition ? context_.dataManager.playlists() : context_.dataManager.searches();
}

// New playlists

QList<Record> SourceList::selectedSongs() const
{
    QList<Record> songs;
    if (songsShown_)
        for (const int row : context_.dataManager.playlistsTableView().selectedRows())
            if (const Record song = context_.dataManager.items().value(row))
                songs.append(song);
    return songs;
}

void SourceList::addPlaylistAction()
{
    addPlaylist(SourceTree::untitledPlaylist(), {});
}

void SourceList::addPlaylistFromSelectionAction()
{
    const QList<Record> songs = selectedSongs();
    if (songs.isEmpty())
        return;
    const QString artist = songs.first().string(keys::Artist);
    const bool oneArtist = !artist.isEmpty() && std::ranges::all_of(songs, [&artist](const Record& song) {
        return song.string(keys::Artist) == artist;
    });
    addPlaylist(oneArtist ? artist : SourceTree::untitledPlaylist(), songs);
}

void SourceList::addPlaylist(const QString& title, const QList<Record>& tracks)
{
    const int count = tree_.childCount({playlistsPosition});
    tree_.setSelectedPaths(
        {count > 0 ? NodePath{playlistsPosition, count - 1} : NodePath{playlistsPosition}});
    context_.dataManager.addPlaylistWithTitle(title, tracks, 0);
    tree_.addChild(QStringLiteral("playlist"), title, false);
    showSelection();
}

void SourceList::addSongs(const QList<Record>& songs, int toPlaylist)
{
    RVDataManager& library = context_.dataManager;
    library.addObjects(songs, toPlaylist);
    if (library.currentSourceType() == SourceType::Playlists && library.currentPlaylistIndex() == toPlaylist)
        library.setCurrentPlaylistIndex(toPlaylist);
}

// Renaming

void SourceList::editPlaylistAction()
{
    const QList<NodePath> selected = tree_.selectedPaths();
    if (selected.size() == 1 && shouldEditItem(selected.first()))
        view_.editItem(selected.first());
}

bool SourceList::textShouldEndEditing(const QString& text)
{
    return !text.trimmed().isEmpty();
}

void SourceList::controlTextDidEndEditing(const NodePath& path, const QString& text)
{
    RVDataManager& library = context_.dataManager;
    Record playlist = shouldEditItem(path) ? library.playlists().value(path.last()) : Record();
    if (!playlist || !textShouldEndEditing(text))
        return;
    playlist.set(keys::Name, text);
    tree_.nodeAt(path)->setNodeTitle(text);
    view_.reloadItem(path);
    if (library.currentPlaylist().isSame(playlist))
        library.setCurrentName(text);
    library.saveLibrary();
}

// Removing

bool SourceList::confirmRemoval()
{
    return context_.notices.runConfirmation(
        Texts::tr("Are you sure you want to remove the selected playlist?"),
        Texts::tr("This action cannot be undone."), Texts::tr("Remove"),
        settings::SupressDialogRemovePlaylist);
}

void SourceList::removePlaylistAction()
{
    std::vector<BaseNode::Node> nodes;
    bool asks = false;
    for (const NodePath& path : tree_.selectedPaths()) {
        if (!isList(path))
            continue;
        nodes.push_back(tree_.nodeAt(path));
        asks = asks || path.first() == playlistsPosition;
    }
    if (nodes.empty() || (asks && !confirmRemoval()))
        return;
    auto removal = std::make_unique<RemovedLists>(*this, nodes);
    if (removal->isEmpty()) // gone while the question was open
        return;
    removal->redo();
    context_.undo.push(std::move(removal));
}

// Moving

Record SourceList::playingList()
{
    const auto& snapshot = playback_.snapshot();
    return snapshot && isListSource(snapshot->sourceType)
               ? listsAt(int(snapshot->sourceType)).value(snapshot->playlistIndex)
               : Record();
}

void SourceList::followPlayingList(const Record& list)
{
    if (!list)
        return;
    playback_.setNowplayingPlaylistIndex(RVDataManager::NotFound); // for when it is gone
    for (const SourceType source : {SourceType::RecentSearches, SourceType::Playlists}) {
        const QList<Record>& lists = listsAt(int(source));
        const auto found = std::ranges::find_if(lists, [&](const Record& one) { return one.isSame(list); });
        if (found != lists.end())
            playback_.setNowplayingSource(source, int(found - lists.begin()), list.integer(keys::Id));
    }
}

bool SourceList::writeItems(const QList<NodePath>& items, QMimeData& toPasteboard)
{
    return dragging_.writeItems(items, toPasteboard);
}

std::optional<OutlineDrop> SourceList::validateDrop(const QMimeData& pasteboard, const NodePath& proposedItem,
                                                    int proposedChildIndex) const
{
    return dragging_.validateDrop(pasteboard, proposedItem, proposedChildIndex);
}

bool SourceList::acceptDrop(const QMimeData& pasteboard, const OutlineDrop& drop)
{
    if (validateDrop(pasteboard, drop.item, drop.childIndex) != drop)
        return false;
    if (drop.childIndex == OutlineDrop::OnItem) {
        const QList<Record> songs = dragging_.songs(pasteboard);
        if (!songs.isEmpty())
            addSongs(songs, drop.item.last());
        return !songs.isEmpty();
    }
    Record playing = playingList();
    for (const auto& [before, after] : dragging_.acceptRows(drop.childIndex))
        if (playing && before.isSame(playing))
            playing = after;
    followPlayingList(playing);
    showSelection();
    context_.dataManager.playlistsTableView().reloadData(); // the mark of what plays
    context_.dataManager.saveLibrary();
    return true;
}

} // namespace zib
