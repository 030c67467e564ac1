// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/SourceKinds.h"
#include "tests/controller/ControllerFixture.h"

#include <QMimeData>

namespace zib {

inline constexpr int searchesAt = int(SourceType::RecentSearches);
inline constexpr int libraryAt = int(SourceType::Library);
inline constexpr int playlistsAt = int(SourceType::Playlists);

/// A source list over a library, with what the user does there.
class SourceListFixture : public ControllerFixture {
  protected:
    SourceList& list() { return controller->sources(); }
    const ChildNode& node(const NodePath& path) { return *list().tree().nodeAt(path); }
    QString titles(const NodePath& group)
    {
        QStringList result;
        for (int index = 0; index < list().tree().childCount(group); ++index)
            result.append(node(group + NodePath{index}).nodeTitle());
        return result.join(QLatin1Char(','));
    }
    static QString names(const QList<Record>& lists)
    {
        QStringList result;
        for (const Record& one : lists)
            result.append(one.string(keys::Name));
        return result.join(QLatin1Char(','));
    }
    /// What is selected, and that tree, library and outline agree about it.
    NodePath selected()
    {
        EXPECT_EQ(titles({playlistsAt}), names(library->playlists()));
        EXPECT_EQ(titles({searchesAt}), names(library->searches()));
        const QList<NodePath> paths = list().tree().selectedPaths();
        EXPECT_EQ(window.outline.selected, paths);
        if (paths.size() == 1 && paths[0].size() == 2 && isListSource(SourceType(paths[0][0]))) {
            EXPECT_EQ(int(library->currentSourceType()), paths[0][0]);
            EXPECT_EQ(library->currentPlaylistIndex(), paths[0][1]);
            EXPECT_EQ(library->currentPlaylist().string(keys::Name), node(paths[0]).nodeTitle());
        }
        return paths.value(0);
    }
    /// The user selects rows in the outline.
    void click(const QList<NodePath>& paths)
    {
        window.outline.selected = paths;
        list().outlineViewSelectionDidChange(paths);
    }
    void addPlaylist(const QString& title, const QList<Record>& songs = {})
    {
        clock.advance(std::chrono::seconds(1));
        library->addPlaylistWithTitle(title, songs, 0);
    }
    void addSearch(const QString& title, const QList<Record>& songs = {})
    {
        clock.advance(std::chrono::seconds(1));
        library->addPlaylistWithTitle(title, songs, RVPlaylistDownloader::SimilarArtists);
    }
    void addPlaylistsABC()
    {
        for (const char* title : {"A", "B", "C"})
            addPlaylist(QString::fromLatin1(title), {localSong(1), localSong(2)});
        list().populateOutlineContents();
    }
    bool drag(const QList<NodePath>& rows, int above)
    {
        QMimeData pasteboard;
        if (!list().writeItems(rows, pasteboard))
            return false;
        const auto drop = list().validateDrop(pasteboard, {playlistsAt}, above);
        return drop && list().acceptDrop(pasteboard, *drop);
    }
};

} // namespace zib
