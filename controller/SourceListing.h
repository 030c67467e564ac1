// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SourceTypes.h"

#include <QString>

namespace zib {

/// What the search and the connectivity handling need of the source list. A row's position is its place at
/// the top level, which equals the source type of what it shows; rows of a group are counted in it from 0.
/// Main thread.
class SourceListing {
  public:
    virtual ~SourceListing() = default;

    /// The top-level position of the first selected row: 0 is "Now Playing". The largest int when no row is
    /// selected.
    [[nodiscard]] virtual int categoryOfSelectedNode() const = 0;
    /// Whether the row at that top-level position can be selected: "What's Hot?" and "Recommended" can once
    /// their songs are there.
    [[nodiscard]] virtual bool isNodeEnabled(SourceType position) const = 0;
    virtual void setNodeEnabled(SourceType position, bool enabled) = 0;

    /// Draws the row at that top-level position anew.
    virtual void reloadRow(SourceType position) = 0;
    /// Draws all rows anew.
    virtual void reloadRows() = 0;

    /// Adds a leaf to a group; it becomes the selected row, whose songs are shown.
    /// @param kindTag "artist", "artistradio" or "tag" for a recent search.
    virtual void insertNode(SourceType group, int index, const QString& title, const QString& kindTag) = 0;
    /// Takes the leaf at that place out of its group; nothing happens when there is none.
    virtual void removeNode(SourceType group, int index) = 0;

    /// Shows the view and the songs of the selected row again. Nothing happens when no row is selected.
    virtual void changeItemView() = 0;
};

} // namespace zib
