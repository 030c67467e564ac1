// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SourceListView.h"

#include "services/RVPlaylistDownloader.h"
#include "views/Icons.h"
#include "views/Theme.h"

#include <QPainter>
#include <QScopedValueRollback>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

namespace zib {

namespace {

enum Role { SourceRole = Qt::UserRole, NumberRole, IconNameRole };

constexpr int headingHeight = 28;
constexpr int sourceHeight = 26;
constexpr int inset = 8;

bool isHeading(const QModelIndex& index)
{
    return !index.data(SourceRole).isValid();
}

QString iconOfSearch(qint64 kind)
{
    switch (kind) {
    case RVPlaylistDownloader::Artist:
        return QStringLiteral("artist");
    case RVPlaylistDownloader::SimilarArtists:
        return QStringLiteral("similar");
    default:
        return QStringLiteral("tag");
    }
}

class SourceDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override
    {
        return {0, isHeading(index) ? headingHeight : sourceHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        painter->save();
        if (isHeading(index))
            paintHeading(painter, option, index);
        else
            paintSource(painter, option, index);
        painter->restore();
    }

  private:
    static void paintHeading(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index)
    {
        QFont font = option.font;
        font.setPixelSize(Theme::headerText);
        font.setBold(true);
        font.setCapitalization(QFont::AllUppercase);
        font.setLetterSpacing(QFont::AbsoluteSpacing, 0.4);
        painter->setFont(font);
        painter->setPen(Theme::current().secondary);
        painter->drawText(option.rect.adjusted(2 * inset, 0, -inset, -Theme::within),
                          Qt::AlignLeft | Qt::AlignBottom | Qt::TextSingleLine, index.data().toString());
    }

    static void paintSource(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index)
    {
        const Theme& theme = Theme::current();
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        QRect row = option.rect.adjusted(inset, 1, -inset, -1);
        painter->setRenderHint(QPainter::Antialiasing);
        if (selected) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(theme.accent);
            painter->drawRoundedRect(row, Theme::corner, Theme::corner);
        }
        if (selected && option.state.testFlag(QStyle::State_HasFocus)) {
            painter->setPen(QPen(theme.onAccent, 1));
            painter->setBrush(Qt::NoBrush);
            painter->drawRoundedRect(QRectF(row).adjusted(2.5, 2.5, -2.5, -2.5), Theme::within,
                                     Theme::within);
        }
        QRect mark(row.left() + inset, 0, 16, 16);
        mark.moveCenter({mark.center().x(), row.center().y()});
        icon(index.data(IconNameRole).toString(), selected ? Tint::OnAccent : Tint::Secondary)
            .paint(painter, mark);
        row.setLeft(mark.right() + inset);
        row.adjust(0, 0, -inset, 0);
        painter->setFont(option.font);
        painter->setPen(selected ? theme.onAccent : theme.text);
        painter->drawText(
            row, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
            option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, row.width()));
    }
};

} // namespace

SourceListView::SourceListView(QWidget* parent)
    : QListView(parent)
    , model_(new QStandardItemModel(this))
{
    setObjectName(QStringLiteral("sources"));
    setAccessibleName(tr("Sources"));
    setModel(model_);
    setItemDelegate(new SourceDelegate(this));
    setEditTriggers(NoEditTriggers);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    show({}, {});
}

void SourceListView::show(const QList<Record>& playlists, const QList<Record>& searches)
{
    // The rows stay while they say the same: a reload comes also from within the choice of one of them.
    QStringList shown;
    for (const Record& list : playlists + searches)
        shown.append(QString::number(list.integer(keys::Kind)) + list.string(keys::Name));
    if (model_->rowCount() > 0 && shown == shown_)
        return;
    shown_ = shown;
    const QScopedValueRollback quiet(quiet_, true);
    model_->clear();
    addHeading(tr("Library"));
    const auto addFilter = [this](const QString& title, const QString& iconName, FilterType filter) {
        addSource(title, iconName, SourceType::Library, int(filter));
    };
    addFilter(tr("Music"), QStringLiteral("music"), FilterType::All);
    addFilter(tr("Downloads"), QStringLiteral("download"), FilterType::Downloads);
    addFilter(tr("Imported"), QStringLiteral("imported"), FilterType::Imported);
    addFilter(tr("Favorites"), QStringLiteral("heart"), FilterType::Favorites);
    if (!playlists.isEmpty())
        addHeading(tr("Playlists"));
    for (int index = 0; index < playlists.size(); ++index)
        addSource(playlists[index].string(keys::Name), QStringLiteral("playlist"), SourceType::Playlists,
                  index);
    if (!searches.isEmpty())
        addHeading(tr("Recent Searches"));
    for (int index = 0; index < searches.size(); ++index)
        addSource(searches[index].string(keys::Name), iconOfSearch(searches[index].integer(keys::Kind)),
                  SourceType::RecentSearches, index);
}

void SourceListView::markCurrent(SourceType source, FilterType filter, int listIndex)
{
    const QScopedValueRollback quiet(quiet_, true);
    const int number = source == SourceType::Library ? int(filter) : listIndex;
    for (int row = 0; row < model_->rowCount(); ++row) {
        const QModelIndex index = model_->index(row, 0);
        if (!isHeading(index) && index.data(SourceRole).toInt() == int(source) &&
            index.data(NumberRole).toInt() == number) {
            setCurrentIndex(index);
            return;
        }
    }
    setCurrentIndex({});
}

void SourceListView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    if (quiet_ || !current.isValid() || isHeading(current))
        return;
    const int number = current.data(NumberRole).toInt();
    switch (SourceType(current.data(SourceRole).toInt())) {
    case SourceType::Library:
        Q_EMIT libraryChosen(FilterType(number));
        break;
    case SourceType::Playlists:
        Q_EMIT playlistChosen(number);
        break;
    default:
        Q_EMIT searchChosen(number);
    }
}

QModelIndex SourceListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (action == MoveHome) // the first row is a heading
        return model_->index(1, 0);
    return QListView::moveCursor(action, modifiers);
}

void SourceListView::addHeading(const QString& title)
{
    auto* item = new QStandardItem(title);
    item->setFlags(Qt::NoItemFlags);
    model_->appendRow(item);
}

void SourceListView::addSource(const QString& title, const QString& iconName, SourceType source, int number)
{
    auto* item = new QStandardItem(title);
    item->setData(int(source), SourceRole);
    item->setData(number, NumberRole);
    item->setData(iconName, IconNameRole);
    item->setToolTip(title);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    model_->appendRow(item);
}

} // namespace zib
