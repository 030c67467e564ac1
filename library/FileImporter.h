// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ImportThread.h"

#include <QObject>
#include <QStringList>

namespace zib {

class FileMetadata;
class RVDataManager;
class UserDefaults;

/// Brings the user's files into the library: folders are walked, and files are copied into the music folder
/// first when the setting "CopyImportedFilesToLibrary" says so. Main thread; files are read and copied on
/// another one.
class FileImporter : public QObject {
    Q_OBJECT

  public:
    /// All of them outlive the importer.
    FileImporter(RVDataManager& dataManager, FileMetadata& metadata, const UserDefaults& defaults);

    /// Imports the files, and what is in the folders, one after the other; a record of the same id is
    /// replaced. Returns at once, finished() follows. While an import runs, the paths wait for its end.
    void addFiles(const QStringList& paths);
    [[nodiscard]] bool isRunning() const { return thread_.isRunning(); }
    /// Ends the import after the file that it is at, and forgets waiting paths. What came in stays.
    void stop();
    /// The same, and finished() comes before it returns.
    void stopNow();

  Q_SIGNALS:
    /// That file's song is stored next.
    void adding(const QString& path);
    /// That file's song is in the library now.
    void stored(const QString& path, const zib::Record& track);
    /// @param done files dealt with, of those that there are.
    void progressed(int done, int total);
    /// No more files come in. The caller shows and saves the library. @param added songs
    void finished(int added);

  private:
    void startNext();
    void store(const ImportThread::Songs& songs, int total);

    RVDataManager& dataManager_;
    FileMetadata& metadata_;
    const UserDefaults& defaults_;
    QStringList waiting_;
    int done_ = 0;
    int added_ = 0;
    ImportThread thread_;
};

} // namespace zib
