// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/OutlineView.h"

#include <QTreeView>

#include <optional>

class QMimeData;

namespace zib {

class SourceList;
class SourceModel;
struct OutlineDrop;

/// The source list as a tree of rows.
class SourceListView : public QTreeView, public OutlineView {
    Q_OBJECT

  public:
    explicit SourceListView(QWidget* parent = nullptr);
    ~SourceListView() override;

    /// Whose rows it shows; before that list is filled.
    void attach(SourceList& sources);
    /// Tells the source list what the user has selected, if it does not know yet.
    void reportSelection();

    // From the source list
    void setHidden(bool hidden) override;
    [[nodiscard]] bool isHidden() const override;
    void insertItem(const NodePath& at, const Change& change) override;
    void removeItem(const NodePath& at, const Change& change) override;
    void moveItem(const NodePath& from, const NodePath& to, const Change& change) override;
    void reloadItem(const NodePath& path) override;
    void reloadItems() override;
    void selectPaths(const QList<NodePath>& paths) override;
    void editItem(const NodePath& path) override;

    void selectAll() override {} // nothing is to be done with everything here

  Q_SIGNALS:
    /// What the selected row shows is to be played.
    void playRequested();
    /// A menu is wanted there, in global coordinates. @param ofRows of the selected rows, or of the list.
    void menuRequested(const QPoint& at, bool ofRows);

  protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QList<NodePath> chosenPaths() const;
    /// Where a drop at that place of the viewport goes; none when it is refused.
    [[nodiscard]] std::optional<OutlineDrop> dropAt(const QPoint& place, const QMimeData& pasteboard) const;
    void setDrop(const std::optional<OutlineDrop>& drop);

    SourceModel* model_;
    SourceList* sources_ = nullptr;
    bool hidden_ = false;
    bool quiet_ = false;            ///< the selection changes because the program changes it
    bool reports_ = false;          ///< the user's selection is about to be reported
    bool mayDrag_ = false;          ///< the mouse was pressed on what can be dragged
    std::optional<QRect> dropMark_; ///< a row, or the line between two
};

} // namespace zib
