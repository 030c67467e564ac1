// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/SongCells.h"

#include "library/TrackBrowser.h"
#include "records/PropertyValue.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>

namespace zib {
namespace {

QString nameOr(const QString& name, const char* unknown)
{
    return name.isEmpty() ? QCoreApplication::translate("SongCells", unknown) : name;
}

QString artistOr(const QString& name)
{
    return nameOr(name, QT_TRANSLATE_NOOP("SongCells", "Unknown Artist"));
}

QString albumOr(const QString& name)
{
    return nameOr(name, QT_TRANSLATE_NOOP("SongCells", "Unknown Album"));
}

QVariant percent(const Record& track, RecordKey key)
{
    return track.contains(key) ? QCoreApplication::translate("SongCells", "%1%").arg(track.integer(key))
                               : QVariant();
}

QVariant variant(const PropertyValue& value)
{
    if (const auto* text = value.get<QString>())
        return *text;
    if (const auto* integer = value.get<qint64>())
        return *integer;
    if (const auto* real = value.get<double>())
        return *real;
    if (const auto* date = value.get<QDateTime>())
        return *date;
    if (const auto* boolean = value.get<bool>())
        return *boolean;
    return {};
}

QVariant fieldOf(const Record& track, SongColumn column)
{
    switch (column) {
    case SongColumn::Love:
        return variant(track.value(keys::Favorite));
    case SongColumn::Name:
        return variant(track.value(keys::Name));
    case SongColumn::Genre:
        return variant(track.value(keys::Genre));
    case SongColumn::Year:
        return variant(track.value(keys::Year));
    case SongColumn::Position:
        return variant(track.value(keys::Position));
    case SongColumn::PlayCount:
        return variant(track.value(keys::PlayCount));
    case SongColumn::PlayDate:
        return variant(track.value(keys::PlayDate));
    case SongColumn::FoundDate:
        return variant(track.value(keys::FoundDate));
    default:
        return {};
    }
}

bool isOnWeb(const Record& track)
{
    return track.utf8(keys::Location).starts_with("http://");
}

} // namespace

int SongCells::numberOfRows() const
{
    return int(browser_.items().size());
}

QString SongCells::artist(int row) const
{
    return artistOr(browser_.allArtists().value(row));
}

QString SongCells::album(int row) const
{
    return albumOr(browser_.allAlbums().value(row));
}

QVariant SongCells::objectValueForTableColumn(SongColumn column, int row) const
{
    const Record track = browser_.items().value(row);
    if (!track) // the items have become fewer, and the table has not asked yet
        return {};
    switch (column) {
    case SongColumn::Index:
        return row + 1;
    case SongColumn::Artist:
        return artistOr(track.string(keys::Artist));
    case SongColumn::Album:
        return albumOr(track.string(keys::Album));
    case SongColumn::Duration:
        return timeString(track.integer(keys::Duration));
    case SongColumn::Hotness:
        return percent(track, keys::Hotness);
    case SongColumn::Familiarity:
        return percent(track, keys::Familiarity);
    default:
        return fieldOf(track, column);
    }
}

CellDecoration SongCells::willDisplayCell(SongColumn column, int row) const
{
    const Record track = browser_.items().value(row);
    CellDecoration cell;
    switch (column) {
    case SongColumn::Speaker:
        cell.speaker = isPlaying(track);
        break;
    case SongColumn::Love:
        cell.heartActive = track.boolean(keys::Favorite);
        break;
    case SongColumn::Download:
        cell.download = downloadButton(track);
        break;
    default:
        if (isUnavailable(track))
            cell.textColour = CellDecoration::TextColour::Unavailable;
        else if (track.boolean(keys::BrokenLink))
            cell.textColour = CellDecoration::TextColour::Broken;
    }
    return cell;
}

bool SongCells::isPlaying(const Record& track) const
{
    const RVDataManagerDelegate& delegate = browser_.delegate();
    const Record playing = delegate.nowplayingTrack();
    if (!playing || !track || browser_.uid() != delegate.nowplayingPlaylistUID())
        return false;
    // A song can stand twice in a playlist: there its place tells, which is not the row when it is sorted.
    if (browser_.hasBrowser())
        return track.utf8(keys::Id) == playing.utf8(keys::Id);
    return track.integer(keys::Index) == playing.integer(keys::Index);
}

bool SongCells::isUnavailable(const Record& track) const
{
    return isOnWeb(track) && !track.boolean(keys::Downloaded) && !browser_.delegate().connectedToInternet();
}

CellDecoration::DownloadButton SongCells::downloadButton(const Record& track) const
{
    CellDecoration::DownloadButton button;
    button.enabled = track && browser_.delegate().connectedToInternet() && !track.boolean(keys::Downloaded) &&
                     !track.boolean(keys::BrokenLink) && !track.utf8(keys::Location).starts_with("file://");
    if (track.boolean(keys::CanAbort))
        button.image = CellDecoration::ButtonImage::Stop;
    return button;
}

} // namespace zib
