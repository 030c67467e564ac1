// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongTableModel.h"

#include "library/RVDataManager.h"
#include "library/SongDownloads.h"

#include <QDateTime>
#include <QLocale>

namespace zib {

namespace {

SongColumn columnOf(const QModelIndex& index)
{
    return SongColumn(index.column());
}

bool isNumeric(SongColumn column)
{
    switch (column) {
    case SongColumn::Index:
    case SongColumn::Duration:
    case SongColumn::Year:
    case SongColumn::Position:
    case SongColumn::PlayCount:
    case SongColumn::PlayDate:
    case SongColumn::Hotness:
    case SongColumn::Familiarity:
    case SongColumn::FoundDate:
        return true;
    default:
        return false;
    }
}

/// The columns that are drawn, not written.
bool isDrawn(SongColumn column)
{
    return column == SongColumn::Speaker || column == SongColumn::Love || column == SongColumn::Download ||
           column == SongColumn::Progress;
}

int alignment(SongColumn column)
{
    return int((isNumeric(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

} // namespace

void SongTableModel::setLibrary(const RVDataManager& library)
{
    library_ = &library;
    cells_.emplace(library.browser());
    reload();
}

int SongTableModel::numberOfRows() const
{
    return cells_ ? cells_->numberOfRows() : 0;
}

Record SongTableModel::track(int row) const
{
    return library_ ? library_->items().value(row) : Record();
}

CellDecoration SongTableModel::decoration(const QModelIndex& index) const
{
    return cells_ ? cells_->willDisplayCell(columnOf(index), index.row()) : CellDecoration();
}

std::optional<double> SongTableModel::progress(int row) const
{
    const Record song = track(row);
    return song ? SongDownloads::progress(song) : std::nullopt;
}

bool SongTableModel::isEditable(SongColumn column)
{
    return column == SongColumn::Name || column == SongColumn::Artist || column == SongColumn::Album ||
           column == SongColumn::Genre;
}

QString SongTableModel::songId(int row) const
{
    const Record song = track(row);
    return song ? song.string(keys::Id) : QString();
}

int SongTableModel::rowOf(const QString& songId, int likely) const
{
    const QByteArray utf8 = songId.toUtf8();
    const std::string_view id(utf8.constData(), std::size_t(utf8.size()));
    const QList<Record>& items = library_->items();
    if (likely >= 0 && likely < items.size() && items[likely].utf8(keys::Id) == id)
        return likely;
    for (int row = 0; row < items.size(); ++row)
        if (items[row].utf8(keys::Id) == id)
            return row;
    return -1;
}

int SongTableModel::rowOfName(const QString& beginning, int from) const
{
    const auto rows = numberOfRows();
    for (int step = 0; step < rows; ++step) {
        const int row = (from + step) % rows;
        if (track(row).string(keys::Name).startsWith(beginning, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

void SongTableModel::edit(const QString& songId, int row, SongColumn column, const QString& text)
{
    Q_EMIT edited(songId, row, column, text);
}

int SongTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : songColumnCount;
}

Qt::ItemFlags SongTableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags all = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
    return isEditable(columnOf(index)) ? all | Qt::ItemIsEditable : all;
}

QVariant SongTableModel::data(const QModelIndex& index, int role) const
{
    // The items may have become fewer, and the reload be still to come.
    if (!cells_ || !index.isValid() || index.row() >= numberOfRows())
        return {};
    const SongColumn column = columnOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return text(column, index.row());
    case Qt::EditRole: // without what stands for an unknown name
        return isEditable(column) ? track(index.row()).string(RecordKey::named(identifierOf(column)))
                                  : QVariant();
    case Qt::AccessibleTextRole:
        return spokenText(column, index.row());
    case Qt::AccessibleDescriptionRole:
        return column == SongColumn::Name ? sentence(index.row()) : QString();
    case Qt::ToolTipRole:
        return toolTip(column, index.row());
    case Qt::TextAlignmentRole:
        return alignment(column);
    default:
        return {};
    }
}

QString SongTableModel::text(SongColumn column, int row) const
{
    if (isDrawn(column))
        return {};
    const QVariant value = cells_->objectValueForTableColumn(column, row);
    if (value.typeId() == QMetaType::QDateTime)
        return QLocale().toString(value.toDateTime().toLocalTime().date(), QLocale::ShortFormat);
    return value.toString();
}

QString SongTableModel::spokenText(SongColumn column, int row) const
{
    const CellDecoration cell = cells_->willDisplayCell(column, row);
    switch (column) {
    case SongColumn::Speaker:
        return cell.speaker ? tr("Now playing") : QString();
    case SongColumn::Love:
        return cell.heartActive ? tr("Loved") : tr("Not loved");
    case SongColumn::Download:
        if (!cell.download.enabled)
            return {};
        return cell.download.image == CellDecoration::ButtonImage::Stop ? tr("Stop downloading")
                                                                        : tr("Download");
    case SongColumn::Progress: {
        const std::optional<double> part = progress(row);
        if (!part)
            return {};
        return *part < 0 ? tr("Downloading") : tr("%1% downloaded").arg(int(*part * 100));
    }
    case SongColumn::Name:
        return cell.textColour == CellDecoration::TextColour::Broken
                   ? tr("%1 (broken link)").arg(text(column, row))
                   : text(column, row);
    default:
        return text(column, row);
    }
}

/// 3:20 would be read as the time of day.
QString SongTableModel::spokenDuration(int seconds)
{
    constexpr int inMinute = 60;
    const QString rest = tr("%n seconds", nullptr, seconds % inMinute);
    //: Minutes and seconds as a screen reader says them: “3 minutes 20 seconds”.
    return seconds < inMinute ? rest : tr("%1 %2").arg(tr("%n minutes", nullptr, seconds / inMinute), rest);
}

QString SongTableModel::sentence(int row) const
{
    QStringList parts{
        tr("%1 by %2 from %3")
            .arg(text(SongColumn::Name, row), text(SongColumn::Artist, row), text(SongColumn::Album, row))};
    if (const auto seconds = int(track(row).integer(keys::Duration)); seconds > 0)
        parts.append(spokenDuration(seconds));
    if (cells_->willDisplayCell(SongColumn::Love, row).heartActive)
        parts.append(tr("loved"));
    if (cells_->willDisplayCell(SongColumn::Speaker, row).speaker)
        parts.append(tr("now playing"));
    const QString state = toolTip(SongColumn::Name, row);
    return parts.join(QStringLiteral(", ")) + (state.isEmpty() ? QString() : QStringLiteral(". ") + state);
}

QString SongTableModel::toolTip(SongColumn column, int row) const
{
    if (isDrawn(column))
        return column == SongColumn::Love ? QString() : spokenText(column, row);
    switch (cells_->willDisplayCell(column, row).textColour) {
    case CellDecoration::TextColour::Unavailable:
        return tr("You are offline: this song is on the web and can’t be played now.");
    case CellDecoration::TextColour::Broken:
        return tr("This song could not be opened at its address. Play it to try again.");
    default:
        return {};
    }
}

QString SongTableModel::title(SongColumn column)
{
    switch (column) {
    case SongColumn::Speaker:
        return tr("Now playing");
    case SongColumn::Index:
        return tr("Row number");
    case SongColumn::Love:
        return tr("Loved");
    case SongColumn::Name:
        return tr("Name");
    case SongColumn::Artist:
        return tr("Artist");
    case SongColumn::Album:
        return tr("Album");
    case SongColumn::Download:
        return tr("Download");
    case SongColumn::Progress:
        return tr("Progress");
    case SongColumn::Duration:
        return tr("Duration");
    case SongColumn::Genre:
        return tr("Genre");
    case SongColumn::Year:
        return tr("Year");
    case SongColumn::Position:
        return tr("Track number");
    case SongColumn::PlayCount:
        return tr("Play count");
    case SongColumn::PlayDate:
        return tr("Last played");
    case SongColumn::Hotness:
        return tr("Hotness");
    case SongColumn::Familiarity:
        return tr("Familiarity");
    case SongColumn::FoundDate:
        return tr("Found");
    }
    return {};
}

QVariant SongTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    const auto column = SongColumn(section);
    if (role == Qt::TextAlignmentRole)
        return alignment(column);
    if (role == Qt::AccessibleTextRole || role == Qt::ToolTipRole)
        return title(column);
    if (role != Qt::DisplayRole)
        return {};
    switch (column) { // shorter, where the column is narrow
    case SongColumn::Speaker:
    case SongColumn::Love:
    case SongColumn::Download:
        return QString();
    case SongColumn::Index:
        return tr("#");
    case SongColumn::Duration:
        return tr("Time");
    case SongColumn::Position:
        return tr("Track");
    case SongColumn::PlayCount:
        return tr("Plays");
    default:
        return title(column);
    }
}

} // namespace zib
