// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/PropertyList.h"
#include "records/Record.h"
#include "records/RecordTable.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <tl/expected.hpp>

#include <functional>
#include <span>
#include <stop_token>

namespace zib {

/// What the library file holds.
struct LibraryContents {
    RecordTable library;
    QList<Record> playlists; ///< in source-list order
    QList<Record> searches;  ///< newest first
    Record userInfo = Record::make();
};

/// The same, frozen for a save: the collections are copies, the records in them the shared ones. Any thread.
struct LibrarySnapshot {
    RecordTable::Snapshot library;
    QList<Record> playlists;
    QList<Record> searches;
    Record userInfo;
};

/// The enciphered library file at one path. Any thread.
class LibraryFile {
  public:
    explicit LibraryFile(const QString& path)
        : path_(path)
    {
    }

    /// "~/Music/Zib/Zib Music Library.zib".
    static QString standardPath();

    [[nodiscard]] const QString& path() const { return path_; }
    [[nodiscard]] bool exists() const;

    /// The contents, or why the file is not a library. Gives up when it is asked to.
    [[nodiscard]] tl::expected<LibraryContents, QString> load(const std::stop_token& stop = {}) const;

    /// Writes the file anew so that it is at every moment either the old or the new one, whole; makes its
    /// folder when there is none. A failure is logged and leaves the old file. At most one call at a time.
    bool save(const LibrarySnapshot& snapshot) const;

    /// The deciphered content of the file, an XML property list, or why there is none.
    [[nodiscard]] tl::expected<QByteArray, QString> readPlain() const;
    /// The contents of such a file's bytes.
    static tl::expected<LibraryContents, QString> parse(std::span<const char> bytes);
    /// The contents of such a property list.
    static tl::expected<LibraryContents, QString> parsePlain(const ByteSource& source);

  private:
    QString path_;
};

} // namespace zib
