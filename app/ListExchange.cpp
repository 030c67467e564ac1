// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ListExchange.h"

#include "library/FileImporter.h"
#include "library/ITunesImporter.h"
#include "library/LibraryExport.h"
#include "library/RVDataManager.h"
#include "platform/Alerts.h"
#include "platform/RVBusyPanel.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"

#include <QFileInfo>

#include <utility>

namespace zib {
namespace {

constexpr qsizetype mostNamesShown = 10; // an alert has to hold them

} // namespace

ListExchange::ListExchange(const Parts& parts)
    : parts_(parts)
    , playlists_(parts.dataManager, parts.importer, parts.defaults)
    , library_(parts.dataManager)
{
    followPlaylists();
    followLibrary();
    connect(&exportThread_, &ImportThread::finished, this, [this] {
        const QString path = std::exchange(exporting_, QString());
        if (!isBusy())
            parts_.sharedPanel.close();
        if (!exported_)
            warn(tr("The library could not be exported."), exported_.error());
        else
            parts_.defaults.setValue(settings::BriefStatusMessage, tr("Library exported"));
    });
}

bool ListExchange::isBusy() const
{
    return parts_.importer.isRunning() || parts_.dataManager.iTunesImporter().isRunning() ||
           library_.isRunning() || !exporting_.isEmpty();
}

void ListExchange::warn(const QString& message, const QString& informativeText)
{
    Alert alert;
    alert.messageText = message;
    alert.informativeText = informativeText;
    alert.buttons = {tr("OK")};
    parts_.alerts.runModal(alert);
}

void ListExchange::followPlaylists()
{
    connect(&playlists_, &PlaylistImporter::importingFiles, this, [this] {
        if (!isBusy())
            parts_.sharedPanel.open(tr("Adding songs to your library"), [this] { parts_.importer.stop(); });
    });
    connect(&playlists_, &PlaylistImporter::failed, this, [this](const QString& path, const QString& reason) {
        warn(tr("The playlist “%1” could not be imported.").arg(QFileInfo(path).fileName()), reason);
    });
    connect(&playlists_, &PlaylistImporter::imported, this,
            [this](const QString& title, const QList<Record>& tracks, const QStringList& notFound) {
                if (!tracks.isEmpty())
                    Q_EMIT playlistRead(title, tracks);
                if (notFound.isEmpty())
                    return;
                QStringList names = notFound.mid(0, mostNamesShown);
                if (const qsizetype more = notFound.size() - names.size(); more > 0)
                    names.append(tr("and %Ln more", nullptr, int(more)));
                warn(tr("%Ln songs of the playlist “%1” were not found.", nullptr, int(notFound.size()))
                         .arg(title),
                     names.join(QLatin1Char('\n')));
            });
}

void ListExchange::followLibrary()
{
    connect(&library_, &LibraryImporter::playlistAdded, this, &ListExchange::playlistAdded);
    connect(&library_, &LibraryImporter::failed, this, [this](const QString& reason) {
        if (!isBusy())
            parts_.sharedPanel.close();
        if (!reason.isEmpty())
            warn(tr("The library could not be imported."), reason);
    });
    connect(&library_, &LibraryImporter::finished, this, [this](int songs, int playlists) {
        if (!isBusy())
            parts_.sharedPanel.close();
        //: Two counts: “2 songs”, “1 playlist”.
        parts_.defaults.setValue(
            settings::BriefStatusMessage,
            tr("%1 and %2 added")
                .arg(tr("%Ln songs", nullptr, songs), tr("%Ln playlists", nullptr, playlists)));
    });
}

void ListExchange::importLibrary(const QString& path)
{
    if (!isBusy())
        parts_.sharedPanel.open(tr("Importing a library"), [this] { library_.stop(); });
    library_.importLibrary(path);
}

void ListExchange::exportLibrary(const QString& path)
{
    if (!exporting_.isEmpty())
        return;
    if (!isBusy())
        parts_.sharedPanel.open(tr("Exporting your library"));
    exporting_ = path;
    parts_.dataManager.waitForSaves();
    exportThread_.start([this, path, library = parts_.libraryPath](ImportThread::Sink&) {
        exported_ = zib::exportLibrary(library, path);
    });
}

void ListExchange::stopNow()
{
    playlists_.stopNow();
    library_.stop();
}

} // namespace zib
