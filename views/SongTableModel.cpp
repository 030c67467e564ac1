// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongTableModel.h"

#include "controller/RVMainController.h"
#include "controller/SongPlaces.h"
#include "library/RVDataManager.h"
#include "library/SongColumns.h"
#include "services/utilities/StringUtilities.h"

#include <QLocale>

namespace zib {

namespace {

QString percent(const Record& track, RecordKey key)
{
    return track.contains(key) ? QString::number(track.integer(key)) + QLatin1Char('%') : QString();
}

QString number(const Record& track, RecordKey key)
{
    return track.contains(key) ? QString::number(track.integer(key)) : QString();
}

QString date(const Record& track, RecordKey key)
{
    return QLocale().toString(track.date(key).toLocalTime().date(), QLocale::ShortFormat);
}

bool isNumeric(int column)
{
    switch (column) {
    case SongTableModel::Index:
    case SongTableModel::Duration:
    case SongTableModel::Year:
    case SongTableModel::PlayCount:
    case SongTableModel::PlayDate:
    case SongTableModel::Hotness:
    case SongTableModel::Familiarity:
    case SongTableModel::FoundDate:
        return true;
    default:
        return false;
    }
}

} // namespace

void SongTableModel::setController(RVMainController* controller)
{
    controller_ = controller;
    reload();
}

void SongTableModel::reload()
{
    const int rows = controller_ ? int(controller_->dataManager().items().size()) : 0;
    if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    } else if (rows < rows_) {
        beginRemoveRows({}, rows, rows_ - 1);
        rows_ = rows;
        endRemoveRows();
    }
    if (rows_ > 0)
        Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, ColumnCount - 1));
}

std::optional<int> SongTableModel::columnOf(const QString& identifier)
{
    static const QHash<SongColumn, Column> columns{{SongColumn::Speaker, Speaker},
                                                   {SongColumn::Index, Index},
                                                   {SongColumn::Love, Love},
                                                   {SongColumn::Name, Name},
                                                   {SongColumn::Artist, Artist},
                                                   {SongColumn::Album, Album},
                                                   {SongColumn::Duration, Duration},
                                                   {SongColumn::Genre, Genre},
                                                   {SongColumn::Year, Year},
                                                   {SongColumn::PlayCount, PlayCount},
                                                   {SongColumn::PlayDate, PlayDate},
                                                   {SongColumn::Hotness, Hotness},
                                                   {SongColumn::Familiarity, Familiarity},
                                                   {SongColumn::FoundDate, FoundDate}};
    const auto column = songColumn(identifier);
    const auto known = column ? columns.constFind(*column) : columns.constEnd();
    return known != columns.constEnd() ? std::optional<int>(*known) : std::nullopt;
}

bool SongTableModel::setColumnAvailable(const QString& identifier, bool available)
{
    const std::optional<int> column = columnOf(identifier);
    if (!column || available == hasColumn(*column))
        return false;
    if (available)
        missing_.remove(*column);
    else
        missing_.insert(*column);
    return true;
}

int SongTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_;
}

int SongTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SongTableModel::data(const QModelIndex& index, int role) const
{
    if (!controller_)
        return {};
    const Record track = controller_->dataManager().items().value(index.row());
    if (!track) // the items have become fewer, and the reload is still to come
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(track, index.row(), index.column());
    case Qt::AccessibleTextRole:
        return spokenText(track, index);
    case Qt::ToolTipRole:
        return toolTip(track);
    case Qt::TextAlignmentRole:
        return int(isNumeric(index.column()) ? Qt::AlignRight | Qt::AlignVCenter
                                             : Qt::AlignLeft | Qt::AlignVCenter);
    case LovedRole:
        return track.boolean(keys::Favorite);
    case PlayingRole:
        return isPlaying(track);
    case BrokenRole:
        return track.boolean(keys::BrokenLink);
    case UnplayableRole:
        return isUnplayable(track);
    case DownloadRole:
        return downloadText(track);
    default:
        return {};
    }
}

QString SongTableModel::text(const Record& track, int row, int column) const
{
    switch (column) {
    case Index:
        return QString::number(row + 1);
    case Name:
        return track.string(keys::Name);
    case Artist: {
        const QString artist = track.string(keys::Artist);
        return artist.isEmpty() ? tr("Unknown Artist") : artist;
    }
    case Album: {
        const QString album = track.string(keys::Album);
        return album.isEmpty() ? tr("Unknown Album") : album;
    }
    case Duration:
        return timeString(track.integer(keys::Duration));
    case Genre:
        return track.string(keys::Genre);
    case Year:
        return number(track, keys::Year);
    case PlayCount:
        return number(track, keys::PlayCount);
    case PlayDate:
        return date(track, keys::PlayDate);
    case Hotness:
        return percent(track, keys::Hotness);
    case Familiarity:
        return percent(track, keys::Familiarity);
    case FoundDate:
        return date(track, keys::FoundDate);
    default:
        return {};
    }
}

QString SongTableModel::spokenText(const Record& track, const QModelIndex& index) const
{
    if (index.column() == Speaker)
        return isPlaying(track) ? tr("Now playing") : QString();
    if (index.column() == Love)
        return track.boolean(keys::Favorite) ? tr("Loved") : tr("Not loved");
    QString shown = text(track, index.row(), index.column());
    if (index.column() == Name && track.boolean(keys::BrokenLink))
        return tr("%1 (broken link)").arg(shown);
    return shown;
}

QString SongTableModel::toolTip(const Record& track) const
{
    if (isUnplayable(track))
        return tr("You are offline: this song is on the web and can’t be played now.");
    if (track.boolean(keys::BrokenLink))
        return tr("This song could not be opened at its address. Play it to try again.");
    return {};
}

bool SongTableModel::isPlaying(const Record& track) const
{
    const PlaybackQueue& playback = controller_->playback();
    const RVDataManager& library = controller_->dataManager();
    if (!playback.snapshot() || library.currentUID() != playback.nowplayingPlaylistUID())
        return false;
    // A song can stand twice in a playlist: there its place tells, which a browser's sorting would change.
    if (library.sourceHasBrowser())
        return track.string(keys::Id) == playback.nowplayingTrackID();
    return track.integer(keys::Index) == playback.nowplayingTrackIndex();
}

QString SongTableModel::removalText() const
{
    if (!controller_)
        return {};
    switch (controller_->dataManager().currentSourceType()) {
    case SourceType::Library:
        return tr("Remove from library…");
    case SourceType::Playlists:
        return tr("Remove from playlist");
    default:
        return {};
    }
}

QString SongTableModel::downloadText(const Record& track) const
{
    if (track.boolean(keys::CanAbort))
        return tr("Stop downloading");
    const bool canBe =
        controller_->connectedToInternet() && needsConnection(track) && !track.boolean(keys::BrokenLink);
    return canBe ? tr("Download") : QString();
}

bool SongTableModel::isUnplayable(const Record& track) const
{
    return !controller_->connectedToInternet() && needsConnection(track);
}

QVariant SongTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return int(isNumeric(section) ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    const bool spoken = role == Qt::AccessibleTextRole || role == Qt::ToolTipRole;
    if (role != Qt::DisplayRole && !spoken)
        return {};
    switch (section) {
    case Speaker:
        return spoken ? tr("Now playing") : QString();
    case Index:
        return spoken ? tr("Row number") : tr("#");
    case Love:
        return spoken ? tr("Loved") : QString();
    case Name:
        return tr("Name");
    case Artist:
        return tr("Artist");
    case Album:
        return tr("Album");
    case Duration:
        return spoken ? tr("Duration") : tr("Time");
    case Genre:
        return tr("Genre");
    case Year:
        return tr("Year");
    case PlayCount:
        return spoken ? tr("Play count") : tr("Plays");
    case PlayDate:
        return tr("Last played");
    case Hotness:
        return tr("Hotness");
    case Familiarity:
        return tr("Familiarity");
    case FoundDate:
        return tr("Found");
    default:
        return {};
    }
}

} // namespace zib
