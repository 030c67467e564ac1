// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/SourceDragging.h"
#include "controller/SourceListing.h"
#include "controller/SourceTree.h"

namespace zib {

struct ControllerContext;
class PlaybackQueue;

/// The list at the left of the window: the places whose songs can be shown, kept in step with the library's
/// playlists and recent searches. What is selected there decides what the main area shows. Main thread.
class SourceList : public SourceListing {
  public:
    /// All of them outlive the list. Empty until populateOutlineContents().
    SourceList(ControllerContext& context, PlaybackQueue& playback, OutlineView& view);

    /// Makes the rows anew from the library; "Now Playing" is selected then.
    void populateOutlineContents();
    [[nodiscard]] const SourceTree& tree() const { return tree_; }

    // What the outline asks
    [[nodiscard]] bool shouldSelectItem(const NodePath& path) const;
    [[nodiscard]] bool isGroupItem(const NodePath& path) const;
    [[nodiscard]] bool shouldEditItem(const NodePath& path) const;
    /// Whether writeItems() takes it.
    [[nodiscard]] bool shouldDragItem(const NodePath& path) const { return dragging_.isDraggable(path); }
    /// In pixels.
    [[nodiscard]] int heightOfRowByItem(const NodePath& path) const;

    // What the outline reports
    void outlineViewSelectionDidChange(const QList<NodePath>& selected);
    /// Whether a playlist may be called that.
    [[nodiscard]] static bool textShouldEndEditing(const QString& text);
    /// The user has given that playlist a new name.
    void controlTextDidEndEditing(const NodePath& path, const QString& text);
    /// Whether drops of that are taken anywhere in the list.
    [[nodiscard]] static bool takesDrop(const QMimeData& pasteboard)
    {
        return SourceDragging::takes(pasteboard);
    }
    bool writeItems(const QList<NodePath>& items, QMimeData& toPasteboard);
    [[nodiscard]] std::optional<OutlineDrop>
    validateDrop(const QMimeData& pasteboard, const NodePath& proposedItem, int proposedChildIndex) const;
    /// @param drop as validateDrop() gave it.
    bool acceptDrop(const QMimeData& pasteboard, const OutlineDrop& drop);

    // Actions
    /// A new playlist without songs; it is selected.
    void addPlaylistAction();
    /// A new playlist of those songs; it is selected. Songs that the library lacks are added to it.
    void addPlaylist(const QString& title, const QList<Record>& tracks);
    /// A new playlist of the songs selected in the song table, called after their artist when it is one. It
    /// is selected. Nothing happens without such songs.
    void addPlaylistFromSelectionAction();
    /// Lets the user rename the selected playlist.
    void editPlaylistAction();
    /// Removes the selected playlists, once the user has agreed, and recent searches.
    void removePlaylistAction();
    /// Plays what the selected row shows, from its first song on.
    void playSelectedSource();
    [[nodiscard]] bool canPlaySelectedSource() const;
    /// Appends songs to that playlist.
    void addSongs(const QList<Record>& songs, int toPlaylist);
    /// Selects that source, of a group the first row.
    void revealSource(SourceType type);
    /// Shows the song now playing where it was started from.
    void revealCurrentTrack();
    /// Selects that row, as a click would. Nothing happens when it cannot be selected.
    void select(const NodePath& path);

    /// Whether the actions have something to work on.
    /// @{
    [[nodiscard]] bool removeEnabled() const { return removeEnabled_; }
    [[nodiscard]] bool actionEnabled() const { return actionEnabled_; } ///< on a single playlist
    /// @}
    /// The songs selected in the song table, while it is shown.
    [[nodiscard]] QList<Record> selectedSongs() const;

    // For the searches and the connectivity
    [[nodiscard]] int categoryOfSelectedNode() const override;
    [[nodiscard]] bool isNodeEnabled(SourceType position) const override;
    void setNodeEnabled(SourceType position, bool enabled) override;
    void reloadRow(SourceType position) override;
    void reloadRows() override { view_.reloadItems(); }
    void insertNode(SourceType group, int index, const QString& title, const QString& kindTag) override;
    void removeNode(SourceType group, int index) override { tree_.removeNode({int(group), index}); }
    void changeItemView() override;

  private:
    class RemovedLists;

    void addRecentSection();
    void addLibrarySection();
    void addPlaylistsSection();
    void showSelection();
    void showRow(const NodePath& path);
    void showSongs(SourceType source, FilterType filter);
    void showSongs(SourceType source, int listIndex);
    void noticeFixedList(SourceType source);
    [[nodiscard]] bool confirmRemoval();
    [[nodiscard]] bool isList(const NodePath& path) const;
    /// The playlists, or the recent searches.
    [[nodiscard]] QList<Record>& listsAt(int position);
    /// The playlist or recent search that plays; none without.
    [[nodiscard]] Record playingList();
    /// The snapshot names that list, where it is now.
    void followPlayingList(const Record& list);
    void selectPlayingSong();

    ControllerContext& context_;
    PlaybackQueue& playback_;
    OutlineView& view_;
    SourceTree tree_;
    SourceDragging dragging_;
    bool removeEnabled_ = false;
    bool actionEnabled_ = false;
    bool songsShown_ = false;
};

} // namespace zib
