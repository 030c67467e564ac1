// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SourceListView.h"

#include "controller/SourceList.h"
#include "views/DragPicture.h"
#include "views/SourceDelegate.h"
#include "views/SourceModel.h"
#include "views/Theme.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QMimeData>
#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>

namespace zib {

namespace {

constexpr int dropLineWidth = 2;

} // namespace

SourceListView::SourceListView(QWidget* parent)
    : QTreeView(parent)
    , model_(new SourceModel(this))
{
    setObjectName(QStringLiteral("sources"));
    setAccessibleName(tr("Sources"));
    setModel(model_);
    setItemDelegate(new SourceDelegate(this));
    setFrameShape(NoFrame);
    setHeaderHidden(true);
    setIndentation(0);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false); // drawn here, where the source list says
    // Everything is there to be seen.
    connect(model_, &SourceModel::rowsInserted, this, [this](const QModelIndex& group) { expand(group); });
}

SourceListView::~SourceListView() = default;

void SourceListView::attach(SourceList& sources)
{
    sources_ = &sources;
    model_->setSources(sources);
}

// From the source list

void SourceListView::setHidden(bool hidden)
{
    hidden_ = hidden;
    setUpdatesEnabled(!hidden); // its place stays
}

bool SourceListView::isHidden() const
{
    return hidden_;
}

void SourceListView::insertItem(const NodePath& at, const Change& change)
{
    const QScopedValueRollback quiet(quiet_, true);
    model_->insertItem(at, change);
}

void SourceListView::removeItem(const NodePath& at, const Change& change)
{
    const QScopedValueRollback quiet(quiet_, true);
    model_->removeItem(at, change);
}

void SourceListView::moveItem(const NodePath& from, const NodePath& to, const Change& change)
{
    const QScopedValueRollback quiet(quiet_, true);
    model_->moveItem(from, to, change);
}

void SourceListView::reloadItem(const NodePath& path)
{
    model_->reloadItem(path);
}

void SourceListView::reloadItems()
{
    model_->reloadItems();
}

void SourceListView::selectPaths(const QList<NodePath>& paths)
{
    const QScopedValueRollback quiet(quiet_, true);
    reports_ = false;
    QItemSelection selection;
    for (const NodePath& path : paths)
        selection.select(model_->indexOf(path), model_->indexOf(path));
    const QModelIndex first = paths.isEmpty() ? QModelIndex() : model_->indexOf(paths.first());
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (first.isValid())
        scrollTo(first);
}

void SourceListView::editItem(const NodePath& path)
{
    setFocus();
    scrollTo(model_->indexOf(path));
    edit(model_->indexOf(path));
}

// Selection

QList<NodePath> SourceListView::chosenPaths() const
{
    QList<NodePath> paths;
    for (const QModelIndex& index : selectionModel()->selectedIndexes())
        paths.append(model_->pathOf(index));
    std::ranges::sort(paths, [](const NodePath& a, const NodePath& b) {
        return std::ranges::lexicographical_compare(a, b);
    });
    return paths;
}

void SourceListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    if (quiet_ || !sources_ || reports_)
        return;
    // Later, when the mouse or key event is over: what follows may ask in a window of its own.
    reports_ = true;
    QMetaObject::invokeMethod(this, &SourceListView::reportSelection, Qt::QueuedConnection);
}

void SourceListView::reportSelection()
{
    if (!reports_)
        return;
    reports_ = false;
    sources_->outlineViewSelectionDidChange(chosenPaths());
}

QModelIndex SourceListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    switch (action) {
    case MoveLeft: // nothing opens or closes here
    case MoveRight:
        return currentIndex();
    default:
        return QTreeView::moveCursor(action, modifiers);
    }
}

// Keys and mouse

void SourceListView::keyPressEvent(QKeyEvent* event)
{
    if (state() == EditingState) {
        QTreeView::keyPressEvent(event); // what the open field leaves of its keys
        return;
    }
    reportSelection();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT playRequested();
        return;
    case Qt::Key_F2:
        sources_->editPlaylistAction();
        return;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (sources_->removeEnabled())
            sources_->removePlaylistAction();
        else
            QApplication::beep();
        return;
    case Qt::Key_Space: // plays or pauses, for the window; not a change of the selection
        event->ignore();
        return;
    default:
        QTreeView::keyPressEvent(event);
    }
}

void SourceListView::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    mayDrag_ = index.flags().testFlag(Qt::ItemIsDragEnabled);
    // A place without a row is no choice of nothing.
    if (index.flags().testFlag(Qt::ItemIsSelectable))
        QTreeView::mousePressEvent(event);
    else
        setFocus(Qt::MouseFocusReason);
}

void SourceListView::mouseMoveEvent(QMouseEvent* event)
{
    // A hand that is not quite still does not choose several rows.
    if (mayDrag_ || event->buttons() == Qt::NoButton)
        QTreeView::mouseMoveEvent(event);
}

void SourceListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !index.flags().testFlag(Qt::ItemIsSelectable))
        return;
    reportSelection();
    Q_EMIT playRequested();
}

void SourceListView::contextMenuEvent(QContextMenuEvent* event)
{
    reportSelection();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QModelIndex index = currentIndex();
        Q_EMIT menuRequested(viewport()->mapToGlobal(visualRect(index).bottomLeft()), index.isValid());
    } else {
        const bool onRow = indexAt(event->pos()).flags().testFlag(Qt::ItemIsSelectable);
        Q_EMIT menuRequested(event->globalPos(), onRow);
    }
}

void SourceListView::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    viewport()->update(); // the selection looks otherwise
}

void SourceListView::focusOutEvent(QFocusEvent* event)
{
    QTreeView::focusOutEvent(event);
    viewport()->update();
}

// Dragging

void SourceListView::startDrag(Qt::DropActions /*actions*/)
{
    reportSelection();
    const QList<NodePath> rows = chosenPaths();
    auto pasteboard = std::make_unique<QMimeData>();
    if (!sources_->writeItems(rows, *pasteboard))
        return;
    const QString title = model_->indexOf(rows.first()).data().toString();
    auto* drag = new QDrag(this);
    drag->setMimeData(pasteboard.release());
    drag->setPixmap(dragPicture(*this, rows.size() == 1 ? title : tr("%n rows", nullptr, int(rows.size()))));
    drag->exec(Qt::MoveAction);
}

std::optional<OutlineDrop> SourceListView::dropAt(const QPoint& place, const QMimeData& pasteboard) const
{
    if (!sources_)
        return std::nullopt;
    const NodePath playlists{int(SourceType::Playlists)};
    const QModelIndex index = indexAt(place);
    const NodePath path = model_->pathOf(index);
    const int count = sources_->tree().childCount(playlists);
    if (!pasteboard.hasFormat(SourceDragging::nodesPBoardType))
        return sources_->validateDrop(pasteboard, path, OutlineDrop::OnItem);
    if (!index.isValid()) // below the last row
        return sources_->validateDrop(pasteboard, playlists, count);
    if (path == playlists)
        return sources_->validateDrop(pasteboard, playlists, 0);
    if (path.first() != playlists.first())
        return sources_->validateDrop(pasteboard, path, OutlineDrop::OnItem);
    const bool below = place.y() > visualRect(index).center().y();
    return sources_->validateDrop(pasteboard, playlists, path.last() + (below ? 1 : 0));
}

void SourceListView::setDrop(const std::optional<OutlineDrop>& drop)
{
    dropMark_.reset();
    if (drop && drop->childIndex == OutlineDrop::OnItem) {
        dropMark_ = visualRect(model_->indexOf(drop->item));
    } else if (drop) {
        const bool first = drop->childIndex == 0;
        const QRect row = visualRect(first ? model_->indexOf(drop->item)
                                           : model_->indexOf(drop->item + NodePath{drop->childIndex - 1}));
        dropMark_ = QRect(row.left(), row.bottom() + 1 - dropLineWidth / 2, row.width(), dropLineWidth);
    }
    viewport()->update();
}

void SourceListView::dragEnterEvent(QDragEnterEvent* event)
{
    // Anything else is the window's.
    event->setAccepted(SourceList::takesDrop(*event->mimeData()));
}

void SourceListView::dragMoveEvent(QDragMoveEvent* event)
{
    QTreeView::dragMoveEvent(event); // scrolls at the edges
    const auto drop = dropAt(event->position().toPoint(), *event->mimeData());
    setDrop(drop);
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(drop.has_value());
}

void SourceListView::dragLeaveEvent(QDragLeaveEvent* event)
{
    QTreeView::dragLeaveEvent(event);
    setDrop(std::nullopt);
}

void SourceListView::dropEvent(QDropEvent* event)
{
    const auto drop = dropAt(event->position().toPoint(), *event->mimeData());
    setDrop(std::nullopt);
    stopAutoScroll();
    setState(NoState);
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(drop && sources_->acceptDrop(*event->mimeData(), *drop));
}

void SourceListView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (!dropMark_)
        return;
    QPainter painter(viewport());
    const QRect mark = dropMark_->adjusted(Theme::between, 0, -Theme::between, 0);
    if (mark.height() <= dropLineWidth) {
        painter.fillRect(mark, Theme::current().accent);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::current().accent, dropLineWidth));
    painter.drawRoundedRect(mark.adjusted(1, 1, -1, -1), Theme::corner, Theme::corner);
}

} // namespace zib
