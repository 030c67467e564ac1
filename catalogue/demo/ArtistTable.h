// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Artists.h"

#include <string_view>
#include <vector>

namespace zib::demo {

struct SongEntry {
    std::string_view title;
    int seconds;
    Encoding encoding = Encoding::Mp3Constant;
};

struct AlbumEntry {
    std::string_view title;
    int year;
    std::vector<SongEntry> songs;
};

struct ArtistEntry {
    std::string_view name;
    std::vector<std::string_view> tags;
    double hotness;
    double familiarity;
    std::vector<AlbumEntry> albums;
};

/// Track ids are made of the names in this table: changing a name makes another track.
std::vector<ArtistEntry> artistTable();

} // namespace zib::demo
