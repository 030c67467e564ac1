// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"
#include "services/utilities/SongPaths.h"

#include <QByteArray>
#include <QString>

#include <tl/expected.hpp>

namespace zib {

/// The files of songs in the music folder, each at its song's SongPaths::filePath: the one place that
/// creates, fills and moves them. Nothing is touched outside of the folder, no file ever takes another's
/// place, and a file appears whole or not at all, also when the program is killed. A failure is a text for
/// people, and leaves every file where it was. Any thread.
class SongFiles {
  public:
    using Result = tl::expected<void, QString>;

    /// @param userDefaults outlives this object.
    explicit SongFiles(const UserDefaults& userDefaults)
        : paths_(userDefaults)
    {
    }

    [[nodiscard]] const SongPaths& paths() const { return paths_; }

    /// Removes what a program that was killed left unfinished. Only while no other song is being written.
    void removeUnfinished() const;

    /// The path of the song's file, or why it may have none.
    [[nodiscard]] tl::expected<QString, QString> place(const Record& track) const;

    /// Makes the song's file of those bytes. A file that is there already stays as it is, and that is no
    /// failure.
    /// @return whether the file was made now.
    [[nodiscard]] tl::expected<bool, QString> write(const Record& track, const QByteArray& bytes) const;
    /// Makes the song's file as a copy of any file; a failure when there is one already.
    [[nodiscard]] Result copy(const QString& from, const Record& track) const;

    /// Whether move() has a chance: asked before the song's tags are written, so that an edit that cannot be
    /// followed is not begun.
    [[nodiscard]] Result checkMove(const Record& before, const Record& after) const;
    /// The song's names have changed: brings its file along to the new place, and removes the old album's
    /// folder when it is empty, and then the artist's. A song without a file there has nothing to move.
    [[nodiscard]] Result move(const Record& before, const Record& after) const;

  private:
    struct Places {
        QString from; // none when there is nothing to move
        QString to;
    };
    [[nodiscard]] tl::expected<Places, QString> placesOfMove(const Record& before, const Record& after) const;
    [[nodiscard]] QString workFolder() const;
    [[nodiscard]] Result copyFile(const QString& from, const QString& to) const;
    [[nodiscard]] Result moveFile(const QString& from, const QString& to) const;
    void removeEmptyFolders(const QString& lost) const;

    SongPaths paths_;
};

} // namespace zib
