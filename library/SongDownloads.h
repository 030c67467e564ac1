// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SongFiles.h"
#include "records/Record.h"
#include "services/RVFileDownloader.h"

#include <QObject>
#include <QString>

#include <map>
#include <memory>
#include <optional>

namespace zib {

class Alerts;
class RVDataManager;
class UserDefaults;

/// Songs from the web on their way into the music folder. While a song is being fetched, its record says so
/// under "Can Abort", and under "Progress" how far it has got, wherever the record is held and shown. All
/// downloads that still run end with this object, and leave nothing behind. Main thread.
class SongDownloads : public QObject, private RVFileDownloaderDelegate {
    Q_OBJECT

  public:
    /// Clears away what an earlier program that was killed left. All of them outlive this object.
    SongDownloads(RVDataManager& library, const WebServices& services, UserDefaults& defaults,
                  Alerts& alerts);
    ~SongDownloads() override;

    /// Fetches the song, unless it is being fetched already. It goes into the library when neither that nor a
    /// playlist is shown.
    void downloadSong(const Record& track);
    /// The same for that row of the shown songs; asks first when there is a file of such a name. For a song
    /// that is being fetched it is the wish to stop that, which is granted at the next report of progress.
    void downloadSongAtIndex(int row);

    /// Fetches the song no more, from now on.
    void cancel(const Record& track);

    /// Whether the song is being fetched.
    [[nodiscard]] bool isRunning(const QString& id) const { return running_.contains(id); }
    /// How much of the song is here, from 0 to 1, or less than 0 when its size is not known. Nothing unless
    /// it is being fetched and its progress is to be shown.
    [[nodiscard]] static std::optional<double> progress(const Record& track);

  Q_SIGNALS:
    /// The download has ended: completed, failed or stopped; all records say so.
    void ended(const QString& id);

  private:
    struct Download {
        std::unique_ptr<RVFileDownloader> client;
        Record bar; // what the song's records hold under "Progress", one object for all of them
        bool aborted = false;
    };

    void downloadGotExpectedContentLength(RVFileDownloader& download) override;
    void downloadReceivedContentLength(RVFileDownloader& download) override;
    void downloadCompletedForRequest(RVFileDownloader& request) override;
    void downloadFailedForRequest(RVFileDownloader& request, const ServiceError& withError) override;

    void start(const Record& track);
    void showFailure(const Record& track, const QString& reason);
    [[nodiscard]] bool isShown(const RVFileDownloader& download) const;
    void showProgress(const RVFileDownloader& download);
    void showProgressColumn();
    /// Lets go of the download and of what records say of it.
    void end(const Record& track);
    /// Sets the value in every record of the song that somebody looks at.
    void mark(const Record& track, RecordKey key, const PropertyValue& value);

    RVDataManager& library_;
    WebServices services_;
    UserDefaults& defaults_;
    Alerts& alerts_;
    SongFiles files_;
    std::map<QString, Download> running_; // by song id
};

} // namespace zib
