// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SongRemoval.h"
#include "library/UndoStack.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QSet>
#include <QStringList>

#include <vector>

namespace zib {

/// A place that a song had in a playlist.
struct PlaylistPlace {
    Record playlist;
    int index;
    QString id;
};

/// Songs out of the library and all playlists. They come back as they were, to their places.
class SongsRemovedFromLibrary : public UndoCommand {
    Q_DECLARE_TR_FUNCTIONS(SongsRemovedFromLibrary)

  public:
    /// Nothing is done before redo().
    /// @param withFiles whether their files go into the trash.
    SongsRemovedFromLibrary(const SongRemoval::Needs& needs, const QList<Record>& songs, bool withFiles);

    [[nodiscard]] Texts texts() const override;
    void undo() override;
    void redo() override;

  private:
    struct Song {
        QByteArray id;
        QByteArray after; // the one before it in the library; none for the first
        Record record;
    };

    void takeOutOfLibrary();
    void takeOutOfPlaylists();
    void putIntoLibrary();
    void bringFilesBack();
    /// The files among the songs' locations that no song of the library plays from any more.
    [[nodiscard]] QStringList filesLeft() const;
    void show(bool back);

    SongRemoval::Needs needs_;
    QSet<QByteArray> ids_;
    bool withFiles_;
    std::vector<Song> songs_; // in the library's order
    QList<PlaylistPlace> places_;
    QStringList files_;
};

/// Songs out of one playlist, by their places in it.
class SongsRemovedFromPlaylist : public UndoCommand {
    Q_DECLARE_TR_FUNCTIONS(SongsRemovedFromPlaylist)

  public:
    /// Nothing is done before redo().
    /// @param indexes ascending, in the playlist's songs.
    SongsRemovedFromPlaylist(RVDataManager& library, const Record& playlist, const QList<int>& indexes);

    [[nodiscard]] Texts texts() const override;
    void undo() override;
    void redo() override;
    /// What redo() does, but what is shown stays as it is, and nothing is saved.
    void takeOut();

  private:
    [[nodiscard]] bool isShown() const;
    void showAnew();

    RVDataManager& library_;
    Record playlist_;
    QList<PlaylistPlace> places_;
};

} // namespace zib
