// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include <functional>

namespace zib {

/// The place of a row in an outline: its index at the top level, then in each group below. Empty for the top
/// level itself.
using NodePath = QList<int>;

/// An outline of rows, as the source list drives it; what the rows hold is asked from the source list. What
/// the program selects is not reported back to the program; what the user selects is. Main thread.
class OutlineView {
  public:
    using Change = std::function<void()>;

    virtual ~OutlineView() = default;

    virtual void setHidden(bool hidden) = 0;
    [[nodiscard]] virtual bool isHidden() const = 0;

    /// The tree changes in these ways only, and only while `change` runs. The rows that stay keep their
    /// selection; selectPaths() follows where it is to be another.
    /// @{
    virtual void insertItem(const NodePath& at, const Change& change) = 0;
    virtual void removeItem(const NodePath& at, const Change& change) = 0;
    /// @param to the place before the move that the row is to stand above, as in a list.
    virtual void moveItem(const NodePath& from, const NodePath& to, const Change& change) = 0;
    /// @}
    /// What that row shows has changed.
    virtual void reloadItem(const NodePath& path) = 0;
    /// What the rows show has changed; they are the same rows.
    virtual void reloadItems() = 0;

    /// Selects these rows and no other, and scrolls to the first.
    virtual void selectPaths(const QList<NodePath>& paths) = 0;
    /// Lets the user edit the title of that row, whose text is selected.
    virtual void editItem(const NodePath& path) = 0;
};

} // namespace zib
