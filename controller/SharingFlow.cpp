// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/SharingFlow.h"

#include "controller/ControllerContext.h"
#include "controller/Notices.h"
#include "controller/SourceList.h"
#include "library/RVDataManager.h"
#include "platform/Desktop.h"
#include "platform/Pasteboard.h"
#include "platform/RVBusyPanel.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "records/PropertyValue.h"
#include "services/Log.h"
#include "services/ServiceHosts.h"
#include "services/ShareUserName.h"
#include "services/SharedPlaylist.h"

#include <QCoreApplication>

namespace zib {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(SharingFlow)
};

bool canBePlayedByOthers(const Record& track)
{
    return !track.string(keys::Location).startsWith(QLatin1String("file://")) &&
           !track.boolean(keys::BrokenLink);
}

} // namespace

SharingFlow::SharingFlow(ControllerContext& context, SourceList& sources, const WebServices& services,
                         Desktop& desktop, const SharingPorts& ports)
    : context_(context)
    , sources_(sources)
    , services_(services)
    , desktop_(desktop)
    , ports_(ports)
{
}

SharingFlow::~SharingFlow() = default;

// Asking

QList<Record> SharingFlow::songsOfPlaylist() const
{
    // Of the playlist, not of the table, which may be sorted otherwise or show some of them only.
    QList<Record> songs;
    for (const QString& id : playlist_.strings(keys::Tracks))
        if (const Record song = context_.dataManager.library().find(id))
            songs.append(song);
    return songs;
}

void SharingFlow::sharePlaylistAction(int tag)
{
    if (uploading_)
        return;
    if (sources_.categoryOfSelectedNode() != int(SourceType::Playlists)) {
        context_.notices.runErrorAlert(Texts::tr("You can only share regular playlists."));
        return;
    }
    playlist_ = context_.dataManager.currentPlaylist();
    const auto count = songsOfPlaylist().size();
    if (count == 0 || count > mostSongs) {
        context_.notices.runErrorAlert(
            count == 0 ? Texts::tr("A shared playlist must contain at least 1 song")
                       : Texts::tr("A shared playlist cannot contain more than 50 songs"));
        return;
    }
    shareWindow_ = std::make_unique<ShareWindowController>(ports_.window, *this, tag);
    shareWindow_->setDescription(playlist_.string(keys::Description));
    shareWindow_->setTagstring(playlist_.string(keys::Tags));
    // The two spellings differ on purpose: the window opens with the playlist's own name.
    shareWindow_->setTitle(
        playlist_.string(playlist_.contains(keys::SharedNameAsked) ? keys::SharedName : keys::Name));
    if (context_.dataManager.userName().isEmpty())
        shareWindow_->setUserName(desktop_.userFullName());
    shareWindow_->showWindow();
}

// Publishing

QList<Record> SharingFlow::sharedSongs() const
{
    constexpr RecordKey personalKeys[] = {keys::Downloaded, keys::Favorite, keys::PlayDate, keys::PlayCount,
                                          keys::Index,      keys::Progress, keys::CanAbort, keys::Abort};
    QList<Record> songs;
    for (const Record& track : songsOfPlaylist()) {
        if (!canBePlayedByOthers(track))
            continue;
        Record song = track.copy();
        for (const RecordKey key : personalKeys)
            song.remove(key);
        songs.append(song);
    }
    return songs;
}

void SharingFlow::performShare(ShareWindowController& window)
{
    const QList<Record> songs = sharedSongs();
    const bool someAreLeftOut = songs.size() < songsOfPlaylist().size();
    if (someAreLeftOut &&
        !context_.notices.runConfirmation(
            Texts::tr("Warning"),
            Texts::tr("The selected playlist contains one or more songs that cannot be played remotely. "
                      "These songs will be removed from your shared playlist. Do you want to continue?"),
            Texts::tr("Continue")))
        return;
    if (songs.isEmpty()) {
        context_.notices.runErrorAlert(Texts::tr("No streamable songs in this playlist"));
        return;
    }
    keepUserName(window);
    const Record record = uploadRecord(window, songs);
    keepDetails(window);
    const int tag = window.tag();
    shareWindow_.reset(); // and with it the window
    upload(record, tag);
}

void SharingFlow::keepUserName(const ShareWindowController& window)
{
    if (context_.dataManager.userName().isEmpty())
        context_.dataManager.setUserName(makeShareUserName(window.userName().value_or(QString())));
}

Record SharingFlow::uploadRecord(const ShareWindowController& window, const QList<Record>& songs) const
{
    Record record =
        Record::make({{keys::Username, context_.dataManager.userName()},
                      {keys::Name, window.title().isEmpty() ? playlist_.string(keys::Name) : window.title()},
                      {keys::Tracks, songs}});
    record.set(keys::Id, playlist_.value(keys::ShareId));
    if (!window.description().isNull())
        record.set(keys::Description, window.description());
    if (!window.tagstring().isNull())
        record.set(keys::Tags, window.tagstring());
    return record;
}

void SharingFlow::keepDetails(const ShareWindowController& window)
{
    if (!window.title().isEmpty() && window.title() != playlist_.string(keys::Name))
        playlist_.set(keys::SharedName, window.title());
    if (!window.description().isNull())
        playlist_.set(keys::Description, window.description());
    if (!window.tagstring().isNull())
        playlist_.set(keys::Tags, window.tagstring());
    context_.dataManager.saveLibrary();
}

void SharingFlow::upload(const Record& record, int tag)
{
    uploading_ = true;
    uploader_ = std::make_unique<RVPlaylistUploader>(services_, record, *this, tag);
    if (uploading_)
        ports_.busyPanel.open(Texts::tr("Sharing your playlist"));
    else
        uploader_.reset(); // it has failed before it was here
}

void SharingFlow::uploadCompletedWithResult(const QString& result, RVPlaylistUploader& request)
{
    const std::unique_ptr<RVPlaylistUploader> ended = std::move(uploader_);
    const int tag = request.tag();
    uploading_ = false;
    ports_.busyPanel.close();
    const QStringList words = result.simplified().split(QLatin1Char(' '));
    bool isNumber = false;
    const qint64 identifier = words.value(1).toLongLong(&isNumber);
    if (!isNumber) {
        qCWarning(servicesLog) << "no identifier in the service's answer:" << result;
        context_.notices.runErrorAlert(Texts::tr("The server's answer was not understood."));
        return;
    }
    playlist_.set(keys::ShareId, identifier);
    context_.dataManager.saveLibrary();
    passOn(QStringLiteral("http://%1/playlists/%2/%3")
               .arg(playlistWebSite(context_.defaults), QString::number(identifier), words.value(2)),
           tag);
}

void SharingFlow::uploadFailedWithError(const QString& error, RVPlaylistUploader& /*request*/)
{
    const std::unique_ptr<RVPlaylistUploader> ended = std::move(uploader_);
    uploading_ = false;
    ports_.busyPanel.close();
    context_.notices.runErrorAlert(error);
}

void SharingFlow::passOn(const QString& link, int tag)
{
    if (tag != ShareWindowController::Facebook && tag != ShareWindowController::Twitter) {
        ports_.pasteboard.setString(link);
        const int button = context_.notices.runChoice(
            Texts::tr("You just shared a playlist. The public link to this playlist is:\n\n%1\n\n"
                      "The link has been copied to the clipboard.")
                .arg(link),
            {Texts::tr("Share on Twitter"), Texts::tr("Share on Facebook"), Texts::tr("Close")});
        constexpr int choices[] = {ShareWindowController::Twitter, ShareWindowController::Facebook,
                                   ShareWindowController::Plain};
        tag = choices[button];
    }
    if (tag == ShareWindowController::Facebook)
        openOn(settings::FacebookSite, QStringLiteral("/share.php?u="), link);
    else if (tag == ShareWindowController::Twitter)
        openOn(settings::TwitterSite, QStringLiteral("/home?status="), link);
}

void SharingFlow::openOn(const QString& siteKey, const QString& pathAndQuery, const QString& link)
{
    desktop_.openUrl(QUrl(context_.defaults.string(siteKey) + pathAndQuery + link));
}

// Opening

void SharingFlow::openSharedPlaylist(const QString& identifier)
{
    const auto reply = services_.urlLoader.load(sharedPlaylistRequest(services_.userDefaults, identifier));
    if (!reply) {
        context_.notices.runErrorAlert(reply.error());
        return;
    }
    const auto playlist = readSharedPlaylist(reply->body);
    if (!playlist) {
        qCWarning(servicesLog).noquote() << playlist.error();
        context_.notices.runErrorAlert(Texts::tr("This shared playlist could not be opened."));
        return;
    }
    sources_.addPlaylist(playlist->name, playlist->tracks);
}

} // namespace zib
