// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongTable.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "views/SongDelegate.h"
#include "views/SongTableModel.h"
#include "views/Theme.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>

namespace zib {

namespace {

using Model = SongTableModel;

constexpr int smallestTextColumn = 72;

int defaultWidth(int column)
{
    switch (column) {
    case Model::Speaker:
    case Model::Love:
        return 28;
    case Model::Index:
        return 36;
    case Model::Name:
        return 220;
    case Model::Artist:
    case Model::Album:
        return 160;
    case Model::Genre:
    case Model::PlayDate:
    case Model::FoundDate:
        return 102;
    case Model::Hotness:
    case Model::Familiarity:
        return 80;
    default:
        return 60;
    }
}

bool isShownAtFirst(int column)
{
    return column != Model::Genre && column != Model::Year;
}

/// The columns that share the width which the others leave.
constexpr std::array flexibleColumns{int(Model::Name), int(Model::Artist), int(Model::Album)};

bool isFlexible(int column)
{
    return std::find(flexibleColumns.begin(), flexibleColumns.end(), column) != flexibleColumns.end();
}

} // namespace

SongTable::SongTable(UserDefaults& defaults, QWidget* parent)
    : QTableView(parent)
    , defaults_(defaults)
    , model_(new SongTableModel(this))
{
    setObjectName(QStringLiteral("songTable"));
    setAccessibleName(tr("Songs"));
    setModel(model_);
    setItemDelegate(new SongDelegate(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setMouseTracking(true);
    setFrameShape(NoFrame);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setCornerButtonEnabled(false);

    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(Theme::rowHeight);
    verticalHeader()->setDefaultSectionSize(Theme::rowHeight);

    QHeaderView* header = horizontalHeader();
    header->setMinimumSectionSize(28);
    header->setHighlightSections(false);
    header->setSectionsMovable(true);
    header->setFixedHeight(Theme::rowHeight + 2);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QHeaderView::customContextMenuRequested, this, &SongTable::showColumnMenu);

    saveSoon_.setSingleShot(true);
    saveSoon_.setInterval(400);
    connect(&saveSoon_, &QTimer::timeout, this, &SongTable::saveLayout);
    const auto changed = [this] {
        if (!arranging_)
            saveSoon_.start();
    };
    connect(header, &QHeaderView::sectionResized, this, [this, changed](int column) {
        if (!arranging_ && isFlexible(column))
            takeShares();
        changed();
    });
    connect(header, &QHeaderView::sectionMoved, this, changed);
    applyLayout();
}

SongTable::~SongTable() = default;

void SongTable::setController(RVMainController* controller)
{
    model_->setController(controller);
    applyLayout();
    Q_EMIT reloaded();
}

// What the library manager asks for

void SongTable::reloadData()
{
    model_->reload();
    Q_EMIT reloaded();
}

void SongTable::scrollRowToVisible(int row)
{
    scrollTo(model_->index(row, Model::Name));
}

QList<int> SongTable::selectedRows() const
{
    QList<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void SongTable::selectRows(const QList<int>& rows)
{
    QItemSelection selection;
    for (const int row : rows)
        if (row >= 0 && row < model_->rowCount())
            selection.select(model_->index(row, 0), model_->index(row, Model::ColumnCount - 1));
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!selection.isEmpty())
        selectionModel()->setCurrentIndex(model_->index(selection.first().top(), Model::Name),
                                          QItemSelectionModel::NoUpdate);
}

void SongTable::deselectAll()
{
    clearSelection();
    setCurrentIndex({});
}

void SongTable::reloadCell(int row, const QString& column)
{
    if (row < 0 || row >= model_->rowCount())
        return;
    if (const auto changed = model_->columnOf(column))
        Q_EMIT model_->dataChanged(model_->index(row, *changed), model_->index(row, *changed));
}

void SongTable::removeSubviews()
{
    const QModelIndex edited = currentIndex();
    if (QWidget* editor = indexWidget(edited))
        closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

// Columns

void SongTable::setSortDescriptors(const QList<SortDescriptor>& descriptors)
{
    descriptors_ = descriptors;
}

void SongTable::setColumnAvailable(const QString& column, bool available)
{
    if (!model_->setColumnAvailable(column, available))
        return;
    saveUnsavedLayout();
    applyLayout();
}

void SongTable::setAutosaveName(const QString& name)
{
    saveUnsavedLayout();
    autosaveName_ = name;
    applyLayout();
}

void SongTable::saveUnsavedLayout()
{
    if (!saveSoon_.isActive())
        return;
    saveSoon_.stop();
    saveLayout();
}

void SongTable::applyLayout()
{
    const QScopedValueRollback arranging(arranging_, true);
    QHeaderView* header = horizontalHeader();
    const QString key = settings::SongTableLayout + autosaveName_;
    const QByteArray saved =
        autosaveName_.isEmpty() ? QByteArray() : QByteArray::fromBase64(defaults_.string(key).toLatin1());
    const bool restored = !saved.isEmpty() && header->restoreState(saved);
    for (int column = 0; column < Model::ColumnCount; ++column) {
        if (!restored) {
            header->moveSection(header->visualIndex(column), column);
            setColumnHidden(column, false);
            header->resizeSection(column, defaultWidth(column));
        }
        const bool wanted = restored ? !isColumnHidden(column) : isShownAtFirst(column);
        setColumnHidden(column, !wanted || !model_->hasColumn(column));
    }
    for (const int column : {Model::Speaker, Model::Love})
        header->setSectionResizeMode(column, QHeaderView::Fixed);
    takeShares();
    fitColumns();
}

void SongTable::saveLayout()
{
    if (autosaveName_.isEmpty())
        return;
    const QByteArray state = horizontalHeader()->saveState().toBase64();
    defaults_.setValue(settings::SongTableLayout + autosaveName_, QString::fromLatin1(state));
}

void SongTable::setColumnShown(int column, bool shown)
{
    {
        const QScopedValueRollback arranging(arranging_, true);
        setColumnHidden(column, !shown);
        if (shown && !isFlexible(column) && columnWidth(column) < defaultWidth(column))
            setColumnWidth(column, defaultWidth(column));
        fitColumns();
    }
    saveLayout();
}

void SongTable::fitColumns()
{
    if (!isVisible()) // the width is not the one to come
        return;
    const QScopedValueRollback arranging(arranging_, true);
    int free = viewport()->width();
    double shares = 0;
    for (int column = 0; column < Model::ColumnCount; ++column) {
        if (isColumnHidden(column))
            continue;
        if (isFlexible(column))
            shares += shares_.value(column);
        else
            free -= columnWidth(column);
    }
    for (const int column : flexibleColumns) {
        if (isColumnHidden(column))
            continue;
        const double share = shares_.value(column);
        const int width = qMax(smallestTextColumn, qRound(free * share / shares));
        setColumnWidth(column, width);
        // What is left over by rounding or taken by a smallest width is the others' to share.
        free -= width;
        shares -= share;
    }
}

void SongTable::takeShares()
{
    for (const int column : flexibleColumns)
        shares_[column] = qMax(1, columnWidth(column));
}

void SongTable::showColumnMenu(const QPoint& position)
{
    QMenu menu(this);
    for (int column = Model::Artist; column < Model::ColumnCount; ++column) {
        if (!model_->hasColumn(column))
            continue;
        QAction* action =
            menu.addAction(model_->headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString());
        action->setCheckable(true);
        action->setChecked(!isColumnHidden(column));
        connect(action, &QAction::toggled, this, [this, column](bool on) { setColumnShown(column, on); });
    }
    menu.exec(horizontalHeader()->mapToGlobal(position));
}

// What the user does

void SongTable::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT activated();
        return;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        Q_EMIT deletePressed();
        return;
    case Qt::Key_Space: // plays or pauses, for the window; not a change of the selection
        event->ignore();
        return;
    default:
        QTableView::keyPressEvent(event);
    }
}

void SongTable::mouseReleaseEvent(QMouseEvent* event)
{
    QTableView::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid() && index.column() == Model::Love &&
        event->modifiers() == Qt::NoModifier)
        Q_EMIT loveToggled(index.row());
}

void SongTable::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    // A second click on the heart is one more click, no wish to hear the song.
    if (event->button() == Qt::LeftButton && index.isValid() && index.column() != Model::Love)
        Q_EMIT activated();
}

void SongTable::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

void SongTable::contextMenuEvent(QContextMenuEvent* event)
{
    const QModelIndex index = currentIndex();
    if (!index.isValid())
        return;
    const int row = index.row();
    QMenu menu(this);
    connect(menu.addAction(tr("Play")), &QAction::triggered, this, [this] { Q_EMIT activated(); });
    const bool loved = index.data(Model::LovedRole).toBool();
    connect(menu.addAction(loved ? tr("Love no more") : tr("Love")), &QAction::triggered, this,
            [this, row] { Q_EMIT loveToggled(row); });
    if (const QString download = index.data(Model::DownloadRole).toString(); !download.isEmpty())
        connect(menu.addAction(download), &QAction::triggered, this,
                [this, row] { Q_EMIT downloadPressed(row); });
    connect(menu.addAction(tr("Information…")), &QAction::triggered, this,
            [this] { Q_EMIT informationPressed(); });
    if (const QString remove = model_->removalText(); !remove.isEmpty())
        connect(menu.addAction(remove), &QAction::triggered, this, [this] { Q_EMIT deletePressed(); });
    menu.exec(event->reason() == QContextMenuEvent::Keyboard
                  ? viewport()->mapToGlobal(visualRect(index).bottomLeft())
                  : event->globalPos());
}

} // namespace zib
