// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ImportThread.h"

#include <QObject>
#include <QString>

namespace zib {

class RVDataManager;

/// Brings the songs of the user's iTunes library into ours, by reference, and takes them out again. Main
/// thread; the file is read on another one.
class ITunesImporter : public QObject {
    Q_OBJECT

  public:
    /// @param dataManager outlives the importer.
    explicit ITunesImporter(RVDataManager& dataManager);

    /// The library file that iTunes used last, or the one at its standard place; empty, with a line in the
    /// log, when there is none.
    [[nodiscard]] static QString iTunesLibraryPath();

    /// Imports every song, replacing records of the same id; then shows and saves the library. Returns at
    /// once. Without an iTunes library there are no songs.
    void mergeLibraryWithITunesLibrary();
    [[nodiscard]] bool isRunning() const { return thread_.isRunning(); }
    /// Ends the import; what came in stays.
    void stop() { thread_.stop(); }
    void stopNow() { thread_.stopNow(); }

    /// Removes the songs that came from iTunes; then shows and saves the library. Playlists keep their ids.
    void removeITunesItemsFromLibrary();

  Q_SIGNALS:
    void started();
    /// @param done songs of all.
    void progressed(int done, int total);
    /// @param found whether there was an iTunes library that could be read.
    void finished(int added, bool found);

  private:
    void readLibrary(ImportThread::Sink& sink, const QString& path);

    RVDataManager& dataManager_;
    int added_ = 0;
    bool found_ = false; // the thread's until it has finished
    ImportThread thread_;
};

} // namespace zib
