// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/OutlineView.h"

namespace zib {

/// An outline without a screen: keeps what it was told.
class FakeOutlineView : public OutlineView {
  public:
    void setHidden(bool on) override { hidden = on; }
    bool isHidden() const override { return hidden; }
    void insertItem(const NodePath& /*at*/, const Change& change) override { change(); }
    void removeItem(const NodePath& /*at*/, const Change& change) override { change(); }
    void moveItem(const NodePath& /*from*/, const NodePath& /*to*/, const Change& change) override
    {
        change();
    }
    void reloadItem(const NodePath& path) override { reloaded.append(path); }
    void reloadItems() override { ++reloads; }
    void selectPaths(const QList<NodePath>& paths) override { selected = paths; }
    void editItem(const NodePath& path) override { edited = path; }

    bool hidden = false;
    QList<NodePath> reloaded; ///< in order
    int reloads = 0;
    QList<NodePath> selected;
    NodePath edited; ///< last
};

} // namespace zib
