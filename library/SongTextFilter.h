// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QList>
#include <QString>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zib {

/// Finds the songs of a list by what is typed of their names: every word must stand somewhere in a song's
/// name, artist, album, genre or year, in whatever case and with or without accents. Main thread.
class SongTextFilter {
  public:
    /// Takes the texts of those songs; what is found is among them. 100,000 songs take some ten milliseconds.
    void setSongs(const QList<Record>& songs);
    [[nodiscard]] const QList<Record>& songs() const { return songs_; }
    void clear() { *this = SongTextFilter(); }

    /// The songs that hold the words, in their order; all of them without a word.
    [[nodiscard]] QList<Record> matching(const QString& text) const;

  private:
    QList<Record> songs_;
    std::string texts_;             // of all songs one behind the other, a line for each field
    std::vector<std::size_t> ends_; // of each song's texts
};

/// As a text is compared: letters without case and accents, as UTF-8.
void appendFolded(std::string& to, std::string_view utf8);

} // namespace zib
