// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstddef>
#include <optional>

namespace zib {

/// The columns of the song table, in the order that they have until the user moves them.
enum class SongColumn {
    Speaker,  ///< marks the song now playing
    Index,    ///< the row's number
    Love,     ///< a button
    Download, ///< a button
    Name,
    Artist,
    Album,
    Progress, ///< of a download that is running
    Duration,
    Genre,
    Year,
    Position,
    PlayCount,
    PlayDate,
    Hotness,
    Familiarity,
    FoundDate,
};

inline constexpr int songColumnCount = int(SongColumn::FoundDate) + 1;

/// The identifier by which the table view knows the column: the record key that it shows, if it shows one.
[[nodiscard]] QString identifierOf(SongColumn column);
/// The column of that identifier, or none.
[[nodiscard]] std::optional<SongColumn> songColumn(const QString& identifier);

/// How a cell of the song table is drawn, apart from its value; of a cell's column only what concerns it is
/// filled in.
struct CellDecoration {
    enum class TextColour {
        Normal,
        Unavailable, ///< a song that can't be played now
        Broken,
    };
    enum class ButtonImage { Download, Stop };
    struct DownloadButton {
        bool enabled = false; ///< else it is not visible either
        ButtonImage image = ButtonImage::Download;

        friend bool operator==(const DownloadButton&, const DownloadButton&) = default;
    };

    TextColour textColour = TextColour::Normal;
    bool speaker = false; ///< this row is the song now playing
    DownloadButton download;
    bool heartActive = false;

    friend bool operator==(const CellDecoration&, const CellDecoration&) = default;
};

/// The places of a song in the browsers and in the song table; each -1 when nothing is selected.
struct IndexPath {
    int artist = -1;
    int album = -1;
    int song = -1;

    friend bool operator==(const IndexPath&, const IndexPath&) = default;
};

} // namespace zib
