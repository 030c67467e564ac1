// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SongFiles.h"
#include "records/Record.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>

namespace zib {

class RVDataManager;
class TagAPI;
class TagAPIs;

/// What the information window shows of songs, and what was typed there. Numbers are texts as typed.
struct SongInformation {
    QString name = {};
    QString artist = {};
    QString album = {};
    QString genre = {};
    QString composer = {};
    QString year = {};
    QString trackNumber = {};
    QString trackTotal = {};
    QString discNumber = {};
    QString discTotal = {};
    std::optional<QByteArray> cover = {}; ///< a new one, a PNG or JPEG file; empty for none
};

/// Edits what is known of the selected songs: in the library, in the tags of their files, and in where those
/// lie. From open() to save() or to being forgotten. Main thread.
class FileViewController {
    Q_DECLARE_TR_FUNCTIONS(FileViewController)

  public:
    /// All of them outlive this object.
    FileViewController(RVDataManager& library, TagAPIs& tags, const UserDefaults& defaults);

    /// These songs, records out of the shown items, are to be edited.
    void open(const QList<Record>& tracks);
    [[nodiscard]] bool hasOneSong() const { return tracks_.size() == 1; }
    /// What to show at first; of several songs what all of them have in common.
    [[nodiscard]] SongInformation information() const;

    /// The cover that the file of one song has, the bytes of a picture from outside; of several songs none.
    [[nodiscard]] QByteArray cover() const;
    /// Whether any of the songs has a file whose cover can be changed.
    [[nodiscard]] bool canChangeCover() const;

    /// A text or the cover was changed in the window. Without that save() changes nothing.
    void textDidChange() { changed_ = true; }
    /// An empty text leaves a song what it has, but an empty year or track number is 0. Name and numbers on
    /// the album are of one song alone. A song whose file can't follow stays as it was.
    /// @return for people, one line for each song that stayed.
    QStringList save(const SongInformation& fields);

  private:
    void apply(const SongInformation& fields, Record& record) const;
    void write(const SongInformation& fields, TagAPI& tags) const;
    SongFiles::Result save(const SongInformation& fields, const Record& track);

    RVDataManager& library_;
    TagAPIs& tags_;
    SongFiles files_;
    QList<Record> tracks_;
    bool changed_ = false;
};

} // namespace zib
