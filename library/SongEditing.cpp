// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/SongEditing.h"

#include "library/RVDataManager.h"
#include "platform/Alerts.h"
#include "platform/TableView.h"
#include "platform/TagApi.h"
#include "records/PropertyValue.h"
#include "services/utilities/PathUtilities.h"

#include <QFileInfo>
#include <QLoggingCategory>

#include <optional>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.library")

std::optional<RecordKey> editedKey(SongColumn column)
{
    switch (column) {
    case SongColumn::Name:
        return keys::Name;
    case SongColumn::Artist:
        return keys::Artist;
    case SongColumn::Album:
        return keys::Album;
    case SongColumn::Genre:
        return keys::Genre;
    default:
        return std::nullopt; // a text would be the wrong kind of value
    }
}

bool isLocal(const Record& track)
{
    return track.utf8(keys::Location).starts_with("file://");
}

} // namespace

SongEditing::SongEditing(RVDataManager& library, TagAPIs& tags, const UserDefaults& defaults, Alerts& alerts)
    : library_(library)
    , tags_(tags)
    , alerts_(alerts)
    , files_(defaults)
{
}

void SongEditing::setObjectValue(const QString& value, SongColumn column, int row)
{
    const Record track = library_.items().value(row);
    const std::optional<RecordKey> key = editedKey(column);
    if (!track || !key || value.isEmpty() || value == track.string(*key))
        return;
    Record edited = track.copy();
    edited.set(*key, value);
    const SongFiles::Result changed = change(track, edited, *key);
    if (changed) {
        showEdited(edited, *key, row);
        return;
    }
    Alert alert;
    alert.messageText = tr("“%1” could not be changed.").arg(track.string(keys::Name));
    alert.informativeText = changed.error();
    alert.buttons = {tr("OK")};
    alerts_.runModal(alert);
}

SongFiles::Result SongEditing::change(const Record& track, Record edited, RecordKey key)
{
    if (auto allowed = checkPlaces(track, edited); !allowed)
        return allowed;
    writeTag(track, key, edited.string(key));
    if (auto moved = files_.move(track, edited); !moved)
        return moved;
    // The file is taken to be at its place in the music folder, whether or not it was ever copied there.
    if (isLocal(edited))
        edited.set(keys::Location, fileUrlString(files_.paths().filePath(edited)));
    library_.storeEdited(track, [&](Record& stored) {
        stored.set(key, edited.value(key));
        stored.set(keys::Location, edited.value(keys::Location));
    });
    return {};
}

/// Names come from anywhere: neither the file that is written nor the address that is stored may lie outside
/// of the music folder.
SongFiles::Result SongEditing::checkPlaces(const Record& track, const Record& edited) const
{
    const auto failed = [](const auto& place) { return tl::unexpected(place.error()); };
    if (QFileInfo::exists(files_.paths().filePath(track)))
        if (const auto place = files_.place(track); !place)
            return failed(place);
    if (isLocal(edited))
        if (const auto place = files_.place(edited); !place)
            return failed(place);
    return files_.checkMove(track, edited);
}

/// A file that is not there, or has no tags, is simply not retagged.
void SongEditing::writeTag(const Record& track, RecordKey key, const QString& text)
{
    if (key == keys::Genre)
        return;
    const auto file = tags_.open(files_.paths().filePath(track));
    if (!file)
        return;
    if (key == keys::Name)
        file->setTitle(text);
    else if (key == keys::Artist)
        file->setArtist(text);
    else
        file->setAlbum(text);
    if (!file->write())
        qCWarning(log).noquote() << "The tags could not be written:" << files_.paths().filePath(track);
}

void SongEditing::showEdited(const Record& edited, RecordKey key, int row)
{
    TrackBrowser& browser = library_.browser();
    TableView& table = library_.playlistsTableView();
    if (browser.hasBrowser()) {
        browser.updateArtistsBrowser();
        if (key == keys::Artist)
            browser.selectArtist(edited.string(key));
        else if (key == keys::Album)
            browser.selectAlbum(edited.string(key));
        browser.selectSong(edited.utf8(keys::Id));
    } else {
        table.selectRows({row});
        table.scrollRowToVisible(row);
    }
    table.reloadData();
    library_.saveLibrary();
}

} // namespace zib
