// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/SourceList.h"
#include "library/UndoStack.h"

#include <QCoreApplication>
#include <QVariantMap>

#include <vector>

namespace zib {

/// Playlists and recent searches out of the source list and the library. They come back to their places with
/// the layouts of their columns.
class SourceList::RemovedLists : public UndoCommand {
    Q_DECLARE_TR_FUNCTIONS(RemovedLists)

  public:
    /// Nothing is done before redo().
    /// @param nodes the lists' rows, in their order.
    RemovedLists(SourceList& sources, const std::vector<BaseNode::Node>& nodes);

    /// Whether there is none, as when all are gone by now.
    [[nodiscard]] bool isEmpty() const { return lists_.empty(); }

    [[nodiscard]] Texts texts() const override;
    void undo() override;
    void redo() override;

  private:
    struct List {
        BaseNode::Node node;
        NodePath path = {};
        Record record = {};
        QVariantMap layouts = {}; ///< settings by their keys
    };

    void takeOut(List& list);

    SourceList& sources_;
    std::vector<List> lists_;
};

} // namespace zib
