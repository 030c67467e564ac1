// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ImportThread.h"
#include "library/LibraryFile.h"

#include <QObject>

#include <tl/expected.hpp>

namespace zib {

class RVDataManager;

/// Merges an exported library into ours: songs and playlists of ids that are known already stay as they are.
/// Nothing is taken of a file that cannot be read to its end. Main thread; the file is read on another one.
class LibraryImporter : public QObject {
    Q_OBJECT

  public:
    /// @param dataManager outlives the importer.
    explicit LibraryImporter(RVDataManager& dataManager);

    /// Returns at once; finished() or failed() follows. Nothing happens while an import runs.
    void importLibrary(const QString& path);
    [[nodiscard]] bool isRunning() const { return thread_.isRunning(); }
    /// Gives the import up; nothing of it comes in.
    void stop();

    /// What of such a file may come in: songs and playlists with their own fields, of the types that they
    /// have, and at places that are web addresses or local files. Any thread.
    static LibraryContents cleaned(const LibraryContents& contents);

  Q_SIGNALS:
    void started();
    /// That playlist stands at the end of the playlists from now on.
    void playlistAdded(const QString& name);
    /// The library is shown and saved.
    void finished(int songs, int playlists);
    /// @param reason a text for people; empty when it was given up.
    void failed(const QString& reason);

  private:
    void merge();

    RVDataManager& dataManager_;
    tl::expected<LibraryContents, QString> contents_; // the thread's until it has finished
    bool stopped_ = false;
    ImportThread thread_;
};

} // namespace zib
