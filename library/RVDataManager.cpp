// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/RVDataManager.h"

#include "library/LibrarySaver.h"
#include "platform/Alerts.h"
#include "platform/Clock.h"
#include "platform/SettingsKeys.h"
#include "platform/TableView.h"
#include "platform/UserDefaults.h"
#include "records/PropertyValue.h"

#include <QLoggingCategory>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.library")

/// Of a manager whose main controller has not come yet.
RVDataManagerDelegate noDelegate;

} // namespace

RVDataManager::RVDataManager(UserDefaults& defaults, Alerts& alerts, const Clock& clock,
                             TableView& playlistsTableView, const QString& libraryPath)
    : defaults_(defaults)
    , alerts_(alerts)
    , clock_(clock)
    , table_(playlistsTableView)
    , delegate_(&noDelegate)
    , browser_(contents_, tophot_, recommended_, playlistsTableView)
{
    // The settings are written on the main thread only, so the save hands the removal of layouts over.
    saver_ = std::make_unique<LibrarySaver>(LibraryFile(libraryPath), [this](const QList<Record>& searches) {
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
    loadLibrary();
}

RVDataManager::~RVDataManager()
{
    waitForSaves();
}

void RVDataManager::setDelegate(RVDataManagerDelegate* delegate)
{
    delegate_ = delegate != nullptr ? delegate : &noDelegate;
}

void RVDataManager::loadLibrary()
{
    if (saver_->file().exists()) {
        tl::expected<LibraryContents, QString> loaded = saver_->file().load();
        if (loaded) {
            contents_ = std::move(*loaded);
            return;
        }
        qCWarning(log, "Error: Failed deserializing data. %s", qUtf8Printable(loaded.error()));
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
    saver_->save({contents_.library.snapshot(), contents_.playlists, contents_.searches, contents_.userInfo});
}

void RVDataManager::waitForSaves()
{
    saver_->wait();
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

void RVDataManager::toggleFavorite(Record& track)
{
    if (track.boolean(keys::Favorite))
        track.remove(keys::Favorite);
    else
        track.set(keys::Favorite, true);
}

bool RVDataManager::isNowplaying(const Record& track) const
{
    const Record playing = delegate_->nowplayingTrack();
    return playing && playing.utf8(keys::Id) == track.utf8(keys::Id);
}

void RVDataManager::replaceInSearches(const Record& old, const Record& replacement)
{
    for (Record& search : searches()) {
        QList<Record> tracks = search.records(keys::Tracks);
        const qsizetype place = tracks.indexOf(old);
        if (place < 0)
            continue;
        tracks[place] = replacement;
        search.set(keys::Tracks, tracks);
    }
}

void RVDataManager::markFavoriteAtIndex(int row)
{
    if (row < 0 || row >= items().size())
        return;
    const Record old = items()[row];
    Record track = old.copy();
    toggleFavorite(track);
    browser_.replaceItem(old, track, row);
    if (isNowplaying(track))
        delegate_->setNowplayingTrack(track.copy());
    track.remove(keys::Index);
    const QString id = track.string(keys::Id);
    library().insert(id, track);
    for (RecordTable* table : {&tophot_, &recommended_})
        if (table->contains(id))
            table->insert(id, track);
    replaceInSearches(old, track);
    updateTracksBrowser();
    saveLibrary();
}

void RVDataManager::addFavorite(const Record& old)
{
    Record track = old.copy();
    toggleFavorite(track);
    browser_.replaceItem(old, track);
    track.remove(keys::Index);
    const QString id = track.string(keys::Id);
    library().insert(id, track);
    if (tophot_.contains(id))
        tophot_.insert(id, track);
    replaceInSearches(old, track);
    updateTracksBrowser();
    saveLibrary();
}

Record RVDataManager::replaceRecord(const Record& old, const Change& change)
{
    Record track = old.copy();
    change(track);
    const QString id = track.string(keys::Id);
    const std::pair<RecordTable*, SourceType> tables[] = {{&contents_.library, SourceType::Library},
                                                          {&tophot_, SourceType::TopHot},
                                                          {&recommended_, SourceType::Recommended}};
    for (const auto& [table, source] : tables) {
        if (table->contains(id)) {
            table->insert(id, track);
            browser_.recordReplaced(source);
        }
    }
    replaceInSearches(old, track);
    browser_.replaceItem(old, track);
    saveLibrary();
    return track;
}

Record RVDataManager::fileRefound(const Record& track)
{
    return replaceRecord(track, [](Record& found) { found.remove(keys::BrokenLink); });
}

void RVDataManager::fileNotFound(const Record& track)
{
    const bool onWeb = track.string(keys::Location).startsWith(QLatin1String("http://"));
    if (onWeb && !track.boolean(keys::Downloaded) && !delegate_->connectedToInternet())
        return;
    replaceRecord(track, [](Record& broken) { broken.set(keys::BrokenLink, true); });
}

void RVDataManager::exportedFile(const Record& exported)
{
    Record track = exported;
    const Record old = track.copy();
    track.set(keys::Downloaded, true);
    const QString id = track.string(keys::Id);
    library().insert(id, track);
    if (tophot_.contains(id))
        tophot_.insert(id, track);
    browser_.replaceItem(old, track);
    replaceInSearches(old, track);
    if (isNowplaying(track)) {
        delegate_->setNowplayingTrack(track);
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

void RVDataManager::removeAutosaveForTableColumnWithUID(const QString& uid)
{
    const QStringList stored = defaults_.storedKeys();
    for (const QString& key : stored)
        if (key.endsWith(uid))
            defaults_.remove(key);
}

void RVDataManager::relocate(const QString& oldBase, const QString& newBase)
{
    Q_UNUSED(oldBase)
    Q_UNUSED(newBase)
}

void RVDataManager::setSource(SourceType source)
{
    browser_.setSource(source);
}

bool RVDataManager::sourceIsContinuos(SourceType source)
{
    return source == SourceType::Library || source == SourceType::Playlists;
}

void RVDataManager::reloadData()
{
    browser_.reloadData();
}

void RVDataManager::updateTracksBrowser()
{
    browser_.updateTracksBrowser();
}

} // namespace zib
