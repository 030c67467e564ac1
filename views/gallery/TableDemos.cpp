// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/Icons.h"
#include "views/RowDelegate.h"
#include "views/RowTable.h"
#include "views/RowsModel.h"
#include "views/SourceDelegate.h"
#include "views/SourceModel.h"
#include "views/Theme.h"
#include "views/gallery/Demos.h"

#include <QHeaderView>
#include <QPainter>
#include <QStandardItemModel>
#include <QTreeView>

namespace zib {

namespace {

using State = Page::State;

enum Column { Mark, Name, Time, Done, ColumnCount };

struct Song {
    QString name;
    QString time;
    double done; ///< more than 1 where nothing is under way
    bool loved = false;
    bool broken = false;
    bool playable = true;
};

QList<Song> someSongs()
{
    return {{QStringLiteral("Long Way Home"), QStringLiteral("3:41"), 2, true},
            {QStringLiteral("On its way here"), QStringLiteral("4:05"), 0.4},
            {QStringLiteral("Of unknown size"), QStringLiteral("12:59"), -1},
            {QStringLiteral("All but here"), QStringLiteral("0:58"), 1},
            {QStringLiteral("A broken song"), QString(), 2, false, true},
            {QStringLiteral("Not to be played now"), QStringLiteral("3:03"), 2, false, false, false},
            {longText, QStringLiteral("1:02:33"), 0.02}};
}

class SongRows : public RowsModel {
  public:
    explicit SongRows(QList<Song> songs)
        : songs_(std::move(songs))
    {
        reload();
    }

    [[nodiscard]] const Song& song(int row) const { return songs_.at(row); }
    [[nodiscard]] int columnCount(const QModelIndex& /*parent*/ = {}) const override { return ColumnCount; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        if (role == Qt::TextAlignmentRole)
            return alignment(index.column());
        if (role != Qt::DisplayRole)
            return {};
        return index.column() == Name   ? song(index.row()).name
               : index.column() == Time ? song(index.row()).time
                                        : QString();
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal)
            return {};
        const QString titles[] = {QString(), QStringLiteral("Name"), QStringLiteral("Time"),
                                  QStringLiteral("Progress")};
        return role == Qt::DisplayRole         ? QVariant(titles[section])
               : role == Qt::TextAlignmentRole ? QVariant(alignment(section))
                                               : QVariant();
    }

  protected:
    [[nodiscard]] int numberOfRows() const override { return int(songs_.size()); }

  private:
    static int alignment(int column)
    {
        return int((column == Time ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }

    QList<Song> songs_;
};

/// All that a cell of a RowTable can be.
class SongCellDemo : public RowDelegate {
  public:
    SongCellDemo(SongRows& rows, QObject* parent)
        : RowDelegate(parent)
        , rows_(rows)
    {
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const override
    {
        QStyleOptionViewItem option = given;
        initStyleOption(&option, index);
        const Ground ground = paintGround(painter, option);
        const Song& song = rows_.song(index.row());
        const bool plain = ground == Ground::Plain;
        const QColor colour = plain && song.broken      ? Theme::current().error
                              : plain && !song.playable ? Theme::current().unplayable
                                                        : textColour(ground);
        if (index.column() == Mark)
            paintMark(painter, option.rect,
                      song.loved ? icon(QStringLiteral("heart-filled"), Tint::Loved)
                                 : icon(QStringLiteral("heart"), Tint::Secondary),
                      ground);
        else if (index.column() == Done && song.done <= 1)
            paintProgress(painter, option, song.done, ground);
        else if (index.column() == Name && song.broken)
            paintMarkedText(painter, option, index, colour, icon(QStringLiteral("broken-link"), Tint::Error),
                            ground);
        else
            paintText(painter, option, index, colour);
    }

  private:
    SongRows& rows_;
};

class DemoTable : public RowTable {
  public:
    explicit DemoTable(const QList<Song>& songs)
        : DemoTable(new SongRows(songs))
    {
    }

    void reloadCell(int /*row*/, const QString& /*column*/) override {}
    void setAutosaveName(const QString& /*name*/) override {}
    [[nodiscard]] QList<SortDescriptor> sortDescriptors() const override { return {}; }
    void setSortDescriptors(const QList<SortDescriptor>& /*descriptors*/) override {}
    void setColumnAvailable(const QString& /*column*/, bool /*available*/) override {}
    void removeSubviews() override {}

  private:
    explicit DemoTable(SongRows* rows)
        : RowTable(rows, Name, nullptr)
    {
        setItemDelegate(new SongCellDemo(*rows, this));
        setAlternatingRowColors(true);
        setAccessibleName(QStringLiteral("Songs"));
        QHeaderView& header = *horizontalHeader();
        header.setHighlightSections(false);
        header.setSectionsClickable(true);
        header.setMinimumSectionSize(28);
        header.resizeSection(Mark, 28);
        header.resizeSection(Name, 210);
        header.resizeSection(Time, 76);
        header.resizeSection(Done, 150);
        setFixedSize(28 + 210 + 76 + 150 + 16, 26 + 7 * Theme::rowHeight + 4);
    }
};

void fillCells(Page& page)
{
    page.add(QStringLiteral("None selected"), new DemoTable(someSongs()));
    for (const auto& [caption, state] :
         {std::pair{QStringLiteral("Selected"), State::Normal},
          std::pair{QStringLiteral("Selected,\nwith the keyboard"), State::Focused}}) {
        auto* table = new DemoTable(someSongs());
        table->selectRows({0, 1, 2, 4});
        page.add(caption, table, state);
    }
}

void fillHeaders(Page& page)
{
    const std::tuple<QString, int, Qt::SortOrder> kinds[] = {
        {QStringLiteral("Unsorted"), -1, Qt::AscendingOrder},
        {QStringLiteral("By name"), Name, Qt::AscendingOrder},
        {QStringLiteral("By name, backwards"), Name, Qt::DescendingOrder},
        {QStringLiteral("By the narrow one"), Mark, Qt::AscendingOrder}};
    for (const auto& [caption, section, order] : kinds) {
        auto* table = new DemoTable(someSongs().mid(0, 2));
        table->horizontalHeader()->setSortIndicatorShown(true);
        table->horizontalHeader()->setSortIndicator(section, order);
        table->setFixedHeight(26 + 2 * Theme::rowHeight + 4);
        page.add(caption, table);
    }
    auto* empty = new DemoTable(QList<Song>());
    empty->setFixedHeight(26 + Theme::rowHeight);
    page.add(QStringLiteral("Empty"), empty);
}

void fillScrollBars(Page& page)
{
    QList<Song> many;
    while (many.size() < 60)
        many += someSongs();
    page.add(QStringLiteral("Vertical"), new DemoTable(many));
    auto* both = new DemoTable(many);
    both->setFixedWidth(300);
    page.add(QStringLiteral("Both"), both);
}

QStandardItem* makeSource(const QString& title, const QString& iconName, int height)
{
    auto* item = new QStandardItem(title);
    item->setData(iconName, SourceModel::IconNameRole);
    item->setSizeHint({0, height});
    return item;
}

QTreeView* makeSources(int selected)
{
    auto* list = new QTreeView;
    auto* rows = new QStandardItemModel(list);
    rows->appendRow(makeSource(QStringLiteral("Now Playing"), QStringLiteral("now-playing"), 40));
    QStandardItem* separator = makeSource({}, {}, 9);
    separator->setData(true, SourceModel::SeparatorRole);
    rows->appendRow(separator);
    QStandardItem* heading = makeSource(QStringLiteral("Library"), {}, 24);
    heading->setData(true, SourceModel::GroupRole);
    rows->appendRow(heading);
    rows->appendRow(makeSource(QStringLiteral("Music"), QStringLiteral("music"), 24));
    rows->appendRow(makeSource(longText, QStringLiteral("playlist"), 24));
    QStandardItem* disabled = makeSource(QStringLiteral("Not now"), QStringLiteral("globe"), 24);
    disabled->setEnabled(false);
    rows->appendRow(disabled);
    list->setObjectName(QStringLiteral("sources"));
    list->setAccessibleName(QStringLiteral("Sources"));
    list->setHeaderHidden(true);
    list->setIndentation(0);
    list->setRootIsDecorated(false);
    list->setModel(rows);
    list->setItemDelegate(new SourceDelegate(list));
    list->setFixedSize(200, 180);
    list->setCurrentIndex(rows->index(selected, 0));
    return list;
}

void fillSources(Page& page)
{
    page.add(QStringLiteral("Large row selected"), makeSources(0));
    page.add(QStringLiteral("Small row selected"), makeSources(3));
    page.add(QStringLiteral("With the keyboard"), makeSources(3), State::Focused);
    page.add(QStringLiteral("Large,\nwith the keyboard"), makeSources(0), State::Focused);
}

} // namespace

QList<Demo> tableDemos()
{
    return {{QStringLiteral("cells"), QStringLiteral("Cells"), fillCells},
            {QStringLiteral("headers"), QStringLiteral("Headings"), fillHeaders},
            {QStringLiteral("scroll-bars"), QStringLiteral("Scroll bars"), fillScrollBars},
            {QStringLiteral("sources"), QStringLiteral("Sources"), fillSources}};
}

} // namespace zib
