// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/RVDataManager.h"

#include "library/ITunesImporter.h"
#include "library/LibrarySaver.h"
#include "platform/Alerts.h"
#include "platform/Clock.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "records/PropertyValue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.library")

/// The row in which a record given out by the song table most likely stands still.
int rowHint(const Record& track)
{
    return track.contains(keys::Index) ? int(track.integer(keys::Index)) : RVDataManager::NotFound;
}

/// Of a manager whose main controller has not come yet.
RVDataManagerDelegate noDelegate;

} // namespace

RVDataManager::RVDataManager(UserDefaults& defaults, Alerts& alerts, const Clock& clock, LibraryView& view,
                             LibraryLoading loading)
    : defaults_(defaults)
    , alerts_(alerts)
    , clock_(clock)
    , view_(view)
    , delegate_(&noDelegate)
    , browser_(contents_, tophot_, recommended_, view)
    , iTunesImporter_(std::make_unique<ITunesImporter>(*this))
{
    // The settings are written on the main thread only, so the save hands the removal of layouts over.
    saver_ = std::make_unique<LibrarySaver>(loading.file(), [this](const QList<Record>& searches) {
        QStringList uids;
        for (const Record& search : searches)
            uids.append(QString::number(search.snapshot().integer(keys::Id)));
        QMetaObject::invokeMethod(this, [this, uids] {
            for (const QString& uid : uids)
                removeAutosaveForTableColumnWithUID(uid);
        });
    });
    connect(&browser_, &TrackBrowser::itemsChanged, this, [this] {
        delegate_->updateURLField();
        Q_EMIT itemsChanged();
    });
    connect(&browser_, &TrackBrowser::sourceChanged, this, &RVDataManager::sourceChanged);
    browser_.setDelegate(*delegate_);
    takeLibrary(loading);
}

RVDataManager::~RVDataManager()
{
    waitForSaves();
}

void RVDataManager::setDelegate(RVDataManagerDelegate* delegate)
{
    delegate_ = delegate != nullptr ? delegate : &noDelegate;
    browser_.setDelegate(*delegate_);
}

void RVDataManager::takeLibrary(LibraryLoading& loading)
{
    if (std::optional<LibraryLoading::Result> loaded = loading.take()) {
        if (*loaded) {
            contents_ = std::move(**loaded);
            return;
        }
        qCWarning(log, "Error: Failed deserializing data. %s", qUtf8Printable(loaded->error()));
        Alert alert;
        alert.messageText = tr("Your music library has been corrupted.");
        alert.buttons = {tr("OK")};
        alerts_.runModal(alert);
    }
    // Written at once, so that there is a readable file from now on.
    saveLibrary();
}

void RVDataManager::saveLibrary()
{
    // Lists of its own for the saving thread: shared ones would be told apart by a count that it does not
    // order its reading by.
    const auto ownCopy = [](const QList<Record>& list) { return QList<Record>(list.begin(), list.end()); };
    saver_->save({contents_.library.snapshot(), ownCopy(playlists()), ownCopy(searches()), userInfo()});
}

void RVDataManager::waitForSaves()
{
    saver_->wait();
    // the layouts of dropped searches, which the save handed over
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

Record RVDataManager::makePlaylist(const QString& title, int kind) const
{
    return Record::make({{keys::Id, secondsSince2001(clock_)}, {keys::Kind, kind}, {keys::Name, title}});
}

void RVDataManager::addUnknownToLibrary(const QList<Record>& tracks)
{
    for (const Record& track : tracks) {
        const QString id = track.string(keys::Id);
        if (!library().contains(id))
            library().insert(id, track);
    }
}

void RVDataManager::addPlaylistWithTitle(const QString& title, const QList<Record>& tracks, int kind)
{
    insertPlaylistAtIndex(int(playlists().size()), title, tracks, kind);
}

void RVDataManager::insertPlaylistAtIndex(int index, const QString& title, const QList<Record>& tracks,
                                          int kind)
{
    Record playlist = makePlaylist(title, kind);
    if (kind == 0) {
        QStringList ids;
        for (const Record& track : tracks)
            ids.append(track.string(keys::Id));
        playlist.set(keys::Tracks, ids);
        addUnknownToLibrary(tracks);
        playlists().insert(std::clamp(index, 0, int(playlists().size())), playlist);
    } else {
        playlist.set(keys::Tracks, tracks);
        searches().prepend(playlist);
    }
    saveLibrary();
}

void RVDataManager::addObjects(const QList<Record>& tracks, int toPlaylist)
{
    Record playlist = playlists().value(toPlaylist);
    if (playlist.isNull())
        return;
    QStringList ids = playlist.strings(keys::Tracks);
    for (const Record& track : tracks)
        ids.append(track.string(keys::Id));
    addUnknownToLibrary(tracks);
    playlist.set(keys::Tracks, ids);
    saveLibrary();
}

QList<Record> RVDataManager::favorites() const
{
    QList<Record> result;
    library().forEach([&result](std::string_view, const Record& track) {
        if (track.boolean(keys::Favorite))
            result.append(track);
    });
    return result;
}

bool RVDataManager::isNowplaying(const Record& track) const
{
    const Record playing = delegate_->nowplayingTrack();
    return playing && playing.utf8(keys::Id) == track.utf8(keys::Id);
}

QList<Record> RVDataManager::holdersOf(const Record& track) const
{
    const std::string_view id = track.utf8(keys::Id);
    QList<Record> holders{track};
    const auto add = [&](const Record& record) {
        if (record && record.utf8(keys::Id) == id)
            holders.append(record);
    };
    for (const RecordTable* table : {&contents_.library, &tophot_, &recommended_})
        add(table->find(id));
    for (const Record& search : searches())
        for (const Record& result : search.records(keys::Tracks))
            add(result);
    for (const Record& item : items())
        add(item);
    add(delegate_->nowplayingTrack());
    return holders;
}

/// Hands the record to the snapshot, numbered as the playing one is.
void RVDataManager::updateNowplaying(const Record& replacement)
{
    Record playing = replacement.copy();
    playing.set(keys::Index, delegate_->nowplayingTrack().value(keys::Index));
    delegate_->setNowplayingTrack(playing);
}

RVDataManager::Replacement RVDataManager::changed(const Record& track, const Change& change) const
{
    Replacement result;
    result.versions = {track.copy()};
    // A record that was given out long ago, to the player say, may have been replaced since: the change is
    // made on what the library knows now, so that a love or a count given meanwhile is not lost.
    const Record known = library().find(track.utf8(keys::Id));
    if (known)
        result.versions.append(known);
    result.record = result.versions.last().copy();
    change(result.record);
    result.record.remove(keys::Index);
    return result;
}

bool RVDataManager::replaceIn(RecordTable& table, const Record& record)
{
    const std::string_view id = record.utf8(keys::Id);
    if (!table.contains(id))
        return false;
    table.insert(id, record);
    return true;
}

void RVDataManager::replaceInSearches(const Replacement& replacement)
{
    for (Record& search : searches()) {
        QList<Record> tracks = search.records(keys::Tracks);
        const auto place = std::ranges::find_if(tracks, [&replacement](const Record& track) {
            return std::ranges::any_of(replacement.versions, [&track](const Record& version) {
                return track.equalsButIndex(version);
            });
        });
        if (place == tracks.end())
            continue;
        *place = replacement.record;
        search.set(keys::Tracks, tracks);
    }
}

/// Loved when it was not, and the other way round.
RVDataManager::Replacement RVDataManager::favoriteToggled(const Record& track) const
{
    const bool loved = !track.boolean(keys::Favorite);
    return changed(track, [loved](Record& record) {
        record.set(keys::Favorite, loved ? PropertyValue(true) : PropertyValue());
    });
}

void RVDataManager::markFavoriteAtIndex(int row)
{
    if (row < 0 || row >= items().size())
        return;
    const Record old = items()[row];
    const Replacement replacement = favoriteToggled(old);
    const bool inRow = browser_.replaceItems(replacement.versions, replacement.record, row);
    if (isNowplaying(old))
        updateNowplaying(replacement.record);
    const bool known = replaceIn(library(), replacement.record);
    if (!known)
        library().insert(replacement.record.utf8(keys::Id), replacement.record);
    replaceIn(tophot_, replacement.record);
    replaceIn(recommended_, replacement.record);
    replaceInSearches(replacement);
    const bool inPlace = inRow && (known || currentSourceType() != SourceType::Library);
    browser_.updateTracksBrowser(old, replacement.record, inPlace);
    saveLibrary();
}

void RVDataManager::addFavorite(const Record& track)
{
    const Replacement replacement = favoriteToggled(track);
    const bool inRow = browser_.replaceItems(replacement.versions, replacement.record);
    library().insert(replacement.record.utf8(keys::Id), replacement.record);
    replaceIn(tophot_, replacement.record);
    replaceInSearches(replacement);
    // "Recommended" keeps the old record, so its rows are filled anew from that
    const bool inPlace = inRow && currentSourceType() != SourceType::Recommended;
    browser_.updateTracksBrowser(track, replacement.record, inPlace);
    saveLibrary();
}

Record RVDataManager::replaceRecord(const Record& track, const Change& change)
{
    const Replacement replacement = changed(track, change);
    const bool inRow = browser_.replaceItems(replacement.versions, replacement.record, rowHint(track));
    const std::pair<RecordTable*, SourceType> tables[] = {{&contents_.library, SourceType::Library},
                                                          {&tophot_, SourceType::TopHot},
                                                          {&recommended_, SourceType::Recommended}};
    for (const auto& [table, source] : tables)
        if (replaceIn(*table, replacement.record) && currentSourceType() == source)
            browser_.updateTracksBrowser(track, replacement.record, inRow);
    replaceInSearches(replacement);
    saveLibrary();
    Record shown = replacement.record.copy();
    shown.set(keys::Index, track.value(keys::Index));
    return shown;
}

void RVDataManager::storeEdited(const Record& track, const Change& change)
{
    const Replacement replacement = changed(track, change);
    browser_.replaceItems(replacement.versions, replacement.record, rowHint(track));
    library().insert(replacement.record.utf8(keys::Id), replacement.record);
    replaceIn(tophot_, replacement.record);
    replaceIn(recommended_, replacement.record);
    replaceInSearches(replacement);
    if (isNowplaying(track))
        delegate_->updateNowplayingTrack(replacement.record);
}

Record RVDataManager::fileRefound(const Record& track)
{
    return replaceRecord(track, [](Record& found) { found.remove(keys::BrokenLink); });
}

void RVDataManager::fileNotFound(const Record& track)
{
    const bool onWeb = track.utf8(keys::Location).starts_with("http://");
    if (onWeb && !track.boolean(keys::Downloaded) && !delegate_->connectedToInternet())
        return;
    replaceRecord(track, [](Record& broken) { broken.set(keys::BrokenLink, true); });
}

void RVDataManager::exportedFile(const Record& exported)
{
    const Replacement replacement =
        changed(exported, [](Record& track) { track.set(keys::Downloaded, true); });
    // Whoever holds the record that was downloaded is to see at once that its file is there.
    Record shared = exported;
    shared.set(keys::Downloaded, true);
    library().insert(replacement.record.utf8(keys::Id), replacement.record);
    replaceIn(tophot_, replacement.record);
    QList<Record> versions = replacement.versions;
    versions.append(shared);
    browser_.replaceItems(versions, replacement.record, rowHint(exported));
    replaceInSearches({versions, replacement.record});
    if (isNowplaying(exported)) {
        updateNowplaying(replacement.record);
        defaults_.setValue(settings::BriefStatusMessage, tr("Exported to disk"));
    }
    saveLibrary();
}

QString RVDataManager::userName() const
{
    return userInfo().string(keys::Username);
}

void RVDataManager::setUserName(const QString& name)
{
    contents_.userInfo.set(keys::Username, name);
    saveLibrary();
}

QString RVDataManager::iTunesLibraryPath() const
{
    return ITunesImporter::iTunesLibraryPath();
}

void RVDataManager::mergeLibraryWithITunesLibrary()
{
    iTunesImporter_->mergeLibraryWithITunesLibrary();
}

void RVDataManager::removeITunesItemsFromLibrary()
{
    iTunesImporter_->removeITunesItemsFromLibrary();
}

void RVDataManager::removeAutosaveForTableColumnWithUID(const QString& uid)
{
    const QStringList stored = defaults_.storedKeys();
    for (const QString& key : stored)
        if (key.endsWith(uid))
            defaults_.remove(key);
}

void RVDataManager::relocate(const QString& oldBase, const QString& newBase)
{
    const QByteArray oldPrefix = oldBase.toUtf8();
    bool moved = false;
    const auto move = [&](std::string_view, const Record& track) {
        Record shared = track;
        for (const RecordKey key : {keys::Location, keys::Info}) {
            if (shared.utf8(key).starts_with(std::string_view(oldPrefix.constData(), oldPrefix.size()))) {
                shared.set(key, QString(newBase + shared.string(key).mid(oldBase.size())));
                moved = true;
            }
        }
    };
    library().forEach(move);
    for (const Record& search : std::as_const(searches()))
        for (const Record& track : search.records(keys::Tracks))
            move({}, track);
    if (moved)
        saveLibrary();
}

} // namespace zib
