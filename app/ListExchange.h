// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ImportThread.h"
#include "library/LibraryImporter.h"
#include "library/playlists/PlaylistImporter.h"

#include <QObject>

#include <tl/expected.hpp>

namespace zib {

class Alerts;
class FileImporter;
class RVBusyPanel;
class RVDataManager;
class UserDefaults;

/// Playlists and the whole library as files of other programs: shows how far it is and tells what went wrong.
/// Main thread.
class ListExchange : public QObject {
    Q_OBJECT

  public:
    /// All of them outlive it.
    struct Parts {
        RVDataManager& dataManager;
        FileImporter& importer;
        RVBusyPanel& sharedPanel;
        UserDefaults& defaults;
        Alerts& alerts;
        QString libraryPath;
    };
    explicit ListExchange(const Parts& parts);

    /// Each becomes a playlist of the songs that are found; what is not found is told at the end.
    void importPlaylists(const QStringList& paths) { playlists_.importPlaylists(paths); }
    /// Merges an exported library into ours.
    void importLibrary(const QString& path);
    /// Writes the library as an XML property list.
    void exportLibrary(const QString& path);
    /// Gives up what has not come in.
    void stopNow();

  Q_SIGNALS:
    /// A playlist file is read: a playlist is to be made of it.
    void playlistRead(const QString& title, const QList<zib::Record>& tracks);
    /// That playlist stands at the end of the library's playlists.
    void playlistAdded(const QString& name);

  private:
    void followPlaylists();
    void followLibrary();
    [[nodiscard]] bool isBusy() const;
    void warn(const QString& message, const QString& informativeText);

    Parts parts_;
    PlaylistImporter playlists_;
    LibraryImporter library_;
    QString exporting_;                    // where to; none while nothing is written
    tl::expected<void, QString> exported_; // the thread's until it has finished
    ImportThread exportThread_;
};

} // namespace zib
