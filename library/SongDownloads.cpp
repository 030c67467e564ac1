// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/SongDownloads.h"

#include "library/RVDataManager.h"
#include "library/SongColumns.h"
#include "platform/Alerts.h"
#include "platform/SettingsKeys.h"
#include "platform/TableView.h"
#include "platform/UserDefaults.h"
#include "records/PropertyValue.h"
#include "services/utilities/DownloadedCopy.h"

#include <QLoggingCategory>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.library")

constexpr double unknownProgress = -1;

} // namespace

SongDownloads::SongDownloads(RVDataManager& library, const WebServices& services, UserDefaults& defaults,
                             Alerts& alerts)
    : library_(library)
    , services_(services)
    , defaults_(defaults)
    , alerts_(alerts)
    , files_(defaults)
{
    files_.removeUnfinished();
    showProgressColumn();
}

SongDownloads::~SongDownloads() = default;

std::optional<double> SongDownloads::progress(const Record& track)
{
    const PropertyValue value = track.value(keys::Progress);
    const auto* const bar = value.get<Record>();
    return bar != nullptr ? std::optional(bar->real(keys::Progress)) : std::nullopt;
}

void SongDownloads::downloadSongAtIndex(int row)
{
    const Record track = library_.items().value(row);
    if (!track)
        return;
    if (const auto running = running_.find(track.string(keys::Id)); running != running_.end()) {
        qCInfo(log, "wants abort!");
        running->second.aborted = true;
        mark(track, keys::Abort, true);
        return;
    }
    if (!downloadedCopy(files_.paths(), track).isEmpty()) {
        Alert question;
        question.messageText = tr("Zib!");
        question.informativeText =
            tr("A song like this has already been downloaded. Do you want to overwrite it?");
        question.buttons = {tr("Overwrite"), tr("Cancel")};
        if (alerts_.runModal(question).button != 0)
            return;
    }
    downloadSong(track);
}

void SongDownloads::downloadSong(const Record& track)
{
    const QString id = track.string(keys::Id);
    if (isRunning(id))
        return;
    const SourceType source = library_.currentSourceType();
    Record known = library_.library().find(id);
    if (!known && source != SourceType::Library && source != SourceType::Playlists) {
        qCInfo(log, "not in lib, adding it now...");
        known = track;
        library_.library().insert(id, known);
        library_.saveLibrary();
    }
    // The library's own record knows an edit or a love that a search's record does not.
    start(known ? known : track);
}

void SongDownloads::start(const Record& track)
{
    const QString id = track.string(keys::Id);
    running_.try_emplace(id);
    showProgressColumn();
    mark(track, keys::CanAbort, true);
    RVFileDownloaderDelegate* const delegate = this;
    auto client = std::make_unique<RVFileDownloader>(services_, track, delegate);
    client->setUid(qint32(library_.currentUID()));
    // It may have failed by now.
    const auto running = running_.find(id);
    if (running != running_.end() && running->second.client == nullptr)
        running->second.client = std::move(client);
    library_.playlistsTableView().reloadData();
}

void SongDownloads::cancel(const Record& track)
{
    const QString id = track.string(keys::Id);
    if (!isRunning(id))
        return;
    end(track);
    Q_EMIT ended(id);
}

bool SongDownloads::isShown(const RVFileDownloader& download) const
{
    return download.uid() == qint32(library_.currentUID());
}

void SongDownloads::downloadGotExpectedContentLength(RVFileDownloader& download)
{
    if (!isShown(download))
        return;
    const Record track = download.fileDict();
    Download& running = running_.at(track.string(keys::Id));
    const bool known = download.expectedContentLength() > 0;
    running.bar = Record::make({{keys::Progress, known ? 0.0 : unknownProgress}});
    mark(track, keys::Progress, running.bar);
    library_.playlistsTableView().reloadData();
}

void SongDownloads::downloadReceivedContentLength(RVFileDownloader& download)
{
    if (!isShown(download))
        return;
    const Record track = download.fileDict();
    if (!running_.at(track.string(keys::Id)).aborted) {
        showProgress(download);
        return;
    }
    qCInfo(log, "aborting...");
    cancel(track);
    if (library_.isNowplaying(track))
        defaults_.setValue(settings::BriefStatusMessage, tr("Download cancelled"));
}

void SongDownloads::showProgress(const RVFileDownloader& download)
{
    const QString id = download.fileDict().string(keys::Id);
    const qint64 expected = download.expectedContentLength();
    if (expected <= 0)
        return;
    const double part = double(download.contentLength()) / double(expected);
    if (Record bar = running_.at(id).bar) {
        bar.set(keys::Progress, part);
        for (int row = 0; row < library_.items().size(); ++row)
            if (library_.items()[row].utf8(keys::Id) == download.fileDict().utf8(keys::Id))
                library_.playlistsTableView().reloadCell(row, identifierOf(SongColumn::Progress));
    }
    if (library_.isNowplaying(download.fileDict()))
        defaults_.setValue(settings::BriefStatusMessage,
                           tr("Downloading... (%1 %2)").arg(int(part * 100)).arg(QLatin1Char('%')));
}

void SongDownloads::downloadCompletedForRequest(RVFileDownloader& request)
{
    const Record track = request.fileDict();
    const QString id = track.string(keys::Id);
    // The names that it has by now, so that its file is where the song is looked for.
    const Record known = library_.library().find(id);
    const Record named = known ? known : track;
    const auto written = files_.write(named, request.receivedData());
    end(track);
    if (written) {
        if (*written)
            qCInfo(log, "exported -> %s", qUtf8Printable(files_.paths().filePath(named)));
        library_.exportedFile(track);
        if (library_.currentFilterType() == FilterType::Downloads)
            library_.reloadData(); // where it is new
    }
    Q_EMIT ended(id);
    if (!written)
        showFailure(track, written.error());
}

void SongDownloads::downloadFailedForRequest(RVFileDownloader& request, const ServiceError& withError)
{
    const Record track = request.fileDict();
    const QString reason = withError.text; // it may be the request's
    end(track);
    Q_EMIT ended(track.string(keys::Id));
    showFailure(track, reason);
}

void SongDownloads::showFailure(const Record& track, const QString& reason)
{
    Alert alert;
    alert.messageText = tr("“%1” could not be downloaded.").arg(track.string(keys::Name));
    alert.informativeText = reason;
    alert.buttons = {tr("OK")};
    alerts_.runModal(alert);
}

void SongDownloads::end(const Record& track)
{
    running_.erase(track.string(keys::Id));
    showProgressColumn();
    for (const RecordKey key : {keys::Progress, keys::CanAbort, keys::Abort})
        mark(track, key, {});
    library_.playlistsTableView().reloadData();
}

/// The column takes room from the songs only while it has something to show.
void SongDownloads::showProgressColumn()
{
    library_.playlistsTableView().setColumnAvailable(identifierOf(SongColumn::Progress), !running_.empty());
}

void SongDownloads::mark(const Record& track, RecordKey key, const PropertyValue& value)
{
    for (Record& holder : library_.holdersOf(track))
        holder.set(key, value);
}

} // namespace zib
