// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ImportThread.h"
#include "library/playlists/PlaylistMatching.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <tl/expected.hpp>

namespace zib {

class FileImporter;
class RVDataManager;
class UserDefaults;

/// Brings playlist files in: finds their songs in the library and imports those that are only on the disk.
/// Main thread; files are read on another one.
class PlaylistImporter : public QObject {
    Q_OBJECT

  public:
    /// All of them outlive the importer.
    PlaylistImporter(RVDataManager& dataManager, FileImporter& files, const UserDefaults& defaults);

    /// Returns at once; imported() or failed() follows for each, one file after the other.
    void importPlaylists(const QStringList& paths);
    [[nodiscard]] bool isRunning() const { return !current_.isEmpty(); }
    /// Forgets what was begun; nothing follows.
    void stopNow();

  Q_SIGNALS:
    /// Files are going to be imported now.
    void importingFiles();
    /// @param notFound the names of songs that are nowhere.
    void imported(const QString& title, const QList<zib::Record>& tracks, const QStringList& notFound);
    /// @param reason a text for people.
    void failed(const QString& path, const QString& reason);

  private:
    struct Found {
        QString title;
        QList<PlaylistMatch> matches;
    };
    using Reading = tl::expected<Found, QString>;

    static Reading read(const QString& path, const RecordTable::Snapshot& library,
                        const UserDefaults& defaults);
    void startNext();
    void importFiles();
    void finish();

    RVDataManager& dataManager_;
    FileImporter& files_;
    const UserDefaults& defaults_;
    QStringList waiting_;
    QString current_; // the path; none while nothing runs
    bool importingFiles_ = false;
    Reading reading_;                  // the thread's until it has finished
    QHash<QString, Record> fromFiles_; // what has become of the files
    ImportThread thread_;
};

} // namespace zib
