// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongTableLayout.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "views/SongColumnWidths.h"
#include "views/SongTableModel.h"

#include <QActionGroup>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTableView>

#include <algorithm>

namespace zib {

namespace {

constexpr int smallestTextColumn = 72;
constexpr int largestColumn = 4000;
/// As many as a person can tell apart by looking at the rows.
constexpr int mostDescriptors = 3;

const QString columnsKey = QStringLiteral("columns");
const QString sortKey = QStringLiteral("sort");
const QString columnKey = QStringLiteral("column");
const QString widthKey = QStringLiteral("width");
const QString shownKey = QStringLiteral("shown");
const QString ascendingKey = QStringLiteral("ascending");

bool isShownAtFirst(SongColumn column)
{
    return column != SongColumn::Genre && column != SongColumn::Year && column != SongColumn::Position;
}

/// What is given up for legible names, the first first.
constexpr std::array givenUp{SongColumn::FoundDate, SongColumn::PlayDate, SongColumn::Familiarity,
                             SongColumn::Hotness, SongColumn::PlayCount};

bool isSortable(SongColumn column)
{
    return column != SongColumn::Speaker && column != SongColumn::Progress;
}

/// Without a name there is no row to speak of; a mark or a running download is not the user's to hide.
bool isChoosable(SongColumn column)
{
    return column != SongColumn::Name && column != SongColumn::Speaker && column != SongColumn::Progress;
}

template <typename Do>
void forEachColumn(Do work)
{
    for (int column = 0; column < songColumnCount; ++column)
        work(SongColumn(column));
}

} // namespace

SongTableLayout::SongTableLayout(QTableView& table, UserDefaults& defaults)
    : table_(table)
    , defaults_(defaults)
{
    available_.fill(true);
    QHeaderView& head = header();
    head.setMinimumSectionSize(smallestColumn);
    head.setSectionsMovable(true);
    head.setFirstSectionMovable(true);
    head.setSectionsClickable(true);
    head.setSortIndicatorShown(true);
    head.setContextMenuPolicy(Qt::CustomContextMenu);
    forEachColumn([&head](SongColumn column) {
        if (isFixed(column))
            head.setSectionResizeMode(int(column), QHeaderView::Fixed);
    });
    saveSoon_.setSingleShot(true);
    saveSoon_.setInterval(400);
    connect(&saveSoon_, &QTimer::timeout, this, &SongTableLayout::save);
    connect(&head, &QHeaderView::customContextMenuRequested, this, &SongTableLayout::showMenu);
    connect(&head, &QHeaderView::sectionMoved, this, &SongTableLayout::changed);
    connect(&head, &QHeaderView::sectionResized, this, [this](int column) {
        if (!arranging_)
            takeWidths(SongColumn(column));
        changed();
    });
    connect(&head, &QHeaderView::sortIndicatorChanged, this, &SongTableLayout::sortBy);
    applyFirst();
}

QHeaderView& SongTableLayout::header() const
{
    return *table_.horizontalHeader();
}

// What is kept

void SongTableLayout::setName(const QString& name)
{
    saveUnsaved();
    name_ = name;
    const QByteArray saved =
        name.isEmpty() ? QByteArray() : defaults_.string(settings::SongTableLayout + name).toUtf8();
    applyFirst();
    if (const QJsonObject layout = QJsonDocument::fromJson(saved).object(); !layout.isEmpty())
        apply(layout);
}

void SongTableLayout::applyFirst()
{
    const QScopedValueRollback arranging(arranging_, true);
    descriptors_.clear();
    forEachColumn([this](SongColumn column) {
        header().moveSection(header().visualIndex(int(column)), int(column));
        widths_[std::size_t(column)] =
            firstWidth(column, table_.model()->headerData(int(column), Qt::Horizontal).toString());
        wanted_[std::size_t(column)].reset();
    });
    fit();
    showIndicator();
}

void SongTableLayout::apply(const QJsonObject& saved)
{
    const QScopedValueRollback arranging(arranging_, true);
    int place = 0;
    for (const QJsonValue entry : saved[columnsKey].toArray()) {
        const auto column = songColumn(entry[columnKey].toString());
        if (!column || header().visualIndex(int(*column)) < place) // unknown, or named twice
            continue;
        header().moveSection(header().visualIndex(int(*column)), place++);
        if (!isFixed(*column))
            widths_[std::size_t(*column)] = qBound(smallestColumn, entry[widthKey].toInt(), largestColumn);
        if (isChoosable(*column) && entry[shownKey].isBool())
            wanted_[std::size_t(*column)] = entry[shownKey].toBool();
    }
    for (const QJsonValue entry : saved[sortKey].toArray())
        if (const QString key = entry[columnKey].toString(); songColumn(key))
            descriptors_.append({key, entry[ascendingKey].toBool()});
    fit();
    showIndicator();
}

void SongTableLayout::save()
{
    if (name_.isEmpty())
        return;
    QJsonArray columns;
    for (int place = 0; place < songColumnCount; ++place) {
        const auto column = SongColumn(header().logicalIndex(place));
        QJsonObject entry{{columnKey, identifierOf(column)}, {widthKey, widths_[std::size_t(column)]}};
        if (const std::optional<bool> wanted = wanted_[std::size_t(column)])
            entry[shownKey] = *wanted;
        columns.append(entry);
    }
    QJsonArray sort;
    for (const SortDescriptor& descriptor : descriptors_)
        sort.append(QJsonObject{{columnKey, descriptor.key}, {ascendingKey, descriptor.ascending}});
    const QByteArray text =
        QJsonDocument(QJsonObject{{columnsKey, columns}, {sortKey, sort}}).toJson(QJsonDocument::Compact);
    defaults_.setValue(settings::SongTableLayout + name_, QString::fromUtf8(text));
}

void SongTableLayout::saveUnsaved()
{
    if (!saveSoon_.isActive())
        return;
    saveSoon_.stop();
    save();
}

void SongTableLayout::changed()
{
    if (!arranging_)
        saveSoon_.start();
}

// Which columns, and how wide

void SongTableLayout::setAvailable(SongColumn column, bool available)
{
    if (available_[std::size_t(column)] == available)
        return;
    available_[std::size_t(column)] = available;
    fit();
}

void SongTableLayout::setShown(SongColumn column, bool shown)
{
    wanted_[std::size_t(column)] = shown;
    fit();
    save();
}

bool SongTableLayout::isWanted(SongColumn column) const
{
    return available_[std::size_t(column)] && wanted_[std::size_t(column)].value_or(isShownAtFirst(column));
}

void SongTableLayout::fit()
{
    const QScopedValueRollback arranging(arranging_, true);
    // Before it is shown, the width is not the one to come.
    const int room = table_.isVisible() ? table_.viewport()->width() : largestColumn;
    showWhatFits(room);
    shareOut(room);
}

void SongTableLayout::showWhatFits(int room)
{
    std::array<bool, std::size_t(songColumnCount)> shown{};
    int needed = 0;
    forEachColumn([&](SongColumn column) {
        shown[std::size_t(column)] = isWanted(column);
        if (isWanted(column))
            needed += leastWidth(column, widths_[std::size_t(column)]);
    });
    for (const SongColumn column : givenUp) {
        const auto place = std::size_t(column);
        if (needed <= room || !shown[place] || wanted_[place]) // what the user asks for is there
            continue;
        shown[place] = false;
        needed -= widths_[place];
    }
    forEachColumn(
        [&](SongColumn column) { header().setSectionHidden(int(column), !shown[std::size_t(column)]); });
}

void SongTableLayout::shareOut(int room)
{
    double shares = 0;
    forEachColumn([&](SongColumn column) {
        if (header().isSectionHidden(int(column)))
            return;
        const int width = widths_[std::size_t(column)];
        if (isFlexible(column)) {
            shares += width;
        } else {
            header().resizeSection(int(column), width);
            room -= width;
        }
    });
    for (const SongColumn column : flexibleColumns) {
        if (header().isSectionHidden(int(column)))
            continue;
        const double share = widths_[std::size_t(column)];
        const int width = qMax(smallestTextColumn, qRound(room * share / shares));
        header().resizeSection(int(column), width);
        // What is left over by rounding or taken by a smallest width is the others' to share.
        room -= width;
        shares -= share;
    }
}

void SongTableLayout::takeWidths(SongColumn resized)
{
    const auto take = [this](SongColumn column) {
        if (!header().isSectionHidden(int(column)))
            widths_[std::size_t(column)] = qMax(1, header().sectionSize(int(column)));
    };
    take(resized);
    if (isFlexible(resized))
        std::ranges::for_each(flexibleColumns, take);
}

void SongTableLayout::addColumns(QMenu& menu)
{
    forEachColumn([&](SongColumn column) {
        if (!isChoosable(column) || !available_[std::size_t(column)])
            return;
        QAction* action = menu.addAction(SongTableModel::title(column));
        action->setCheckable(true);
        action->setChecked(isWanted(column));
        connect(action, &QAction::toggled, this, [this, column](bool on) { setShown(column, on); });
    });
}

void SongTableLayout::showMenu(const QPoint& position)
{
    QMenu menu(&table_);
    menu.setAccessibleName(tr("Columns"));
    addColumns(menu);
    menu.exec(header().mapToGlobal(position));
}

// Sorting

void SongTableLayout::setSortDescriptors(const QList<SortDescriptor>& descriptors)
{
    descriptors_ = descriptors;
    showIndicator();
}

void SongTableLayout::sortBy(int section, Qt::SortOrder order)
{
    if (arranging_)
        return;
    const auto column = SongColumn(section);
    if (section < 0 || !isSortable(column)) {
        showIndicator(); // where it was
        return;
    }
    const QString key = identifierOf(column);
    // Songs that are equal there keep the order that they had.
    descriptors_.removeIf([&key](const SortDescriptor& descriptor) { return descriptor.key == key; });
    descriptors_.prepend({key, order == Qt::AscendingOrder});
    if (descriptors_.size() > mostDescriptors)
        descriptors_.resize(mostDescriptors);
    changed();
    Q_EMIT sorted();
}

void SongTableLayout::showIndicator()
{
    const QScopedValueRollback arranging(arranging_, true);
    const auto column = descriptors_.isEmpty() ? std::nullopt : songColumn(descriptors_.first().key);
    header().setSortIndicator(column ? int(*column) : -1,
                              descriptors_.isEmpty() || descriptors_.first().ascending ? Qt::AscendingOrder
                                                                                       : Qt::DescendingOrder);
}

void SongTableLayout::addSorting(QMenu& menu)
{
    auto* group = new QActionGroup(&menu);
    forEachColumn([&](SongColumn column) {
        if (!isSortable(column) || !isWanted(column))
            return;
        QAction* action = menu.addAction(SongTableModel::title(column));
        action->setCheckable(true);
        action->setActionGroup(group);
        const bool isFirst = !descriptors_.isEmpty() && descriptors_.first().key == identifierOf(column);
        action->setChecked(isFirst);
        // Chosen again, it turns round, as its header does.
        const bool turns = isFirst && descriptors_.first().ascending;
        connect(action, &QAction::triggered, this, [this, column, turns] {
            header().setSortIndicator(int(column), turns ? Qt::DescendingOrder : Qt::AscendingOrder);
        });
    });
}

} // namespace zib
