// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

#include <compare>
#include <cstdint>
#include <string_view>

namespace zib {

/// The name of a record's field, interned so that it costs four bytes and compares as a number.
/// Two keys are equal exactly when their names are. Usable from any thread.
class RecordKey {
  public:
    /// The key of that name, made when it is new. Names are kept for the life of the process.
    static RecordKey named(std::string_view utf8);
    static RecordKey named(QStringView name);

    /// The name, UTF-8; valid for the life of the process.
    [[nodiscard]] std::string_view name() const;
    [[nodiscard]] constexpr std::uint32_t id() const { return id_; }

    friend constexpr auto operator<=>(RecordKey, RecordKey) = default;

    /// For the constants below, whose numbers are their places in the table of well-known names.
    explicit constexpr RecordKey(std::uint32_t id)
        : id_(id)
    {
    }

  private:
    std::uint32_t id_;
};

// ZIB_RECORD_KEY(constant, name): the one list of well-known keys. The names are the file format.
#define ZIB_RECORD_KEYS(ZIB_RECORD_KEY)                                                                      \
    ZIB_RECORD_KEY(Id, "ID")                                                                                 \
    ZIB_RECORD_KEY(Name, "Name")                                                                             \
    ZIB_RECORD_KEY(Artist, "Artist")                                                                         \
    ZIB_RECORD_KEY(Album, "Album")                                                                           \
    ZIB_RECORD_KEY(Genre, "Genre")                                                                           \
    ZIB_RECORD_KEY(Year, "Year")                                                                             \
    ZIB_RECORD_KEY(Duration, "Duration")                                                                     \
    ZIB_RECORD_KEY(Position, "Position")                                                                     \
    ZIB_RECORD_KEY(Location, "Location")                                                                     \
    ZIB_RECORD_KEY(Info, "Info")                                                                             \
    ZIB_RECORD_KEY(Hotness, "Hotness")                                                                       \
    ZIB_RECORD_KEY(Familiarity, "Familiarity")                                                               \
    ZIB_RECORD_KEY(FoundDate, "Found Date")                                                                  \
    ZIB_RECORD_KEY(PlayCount, "Play Count")                                                                  \
    ZIB_RECORD_KEY(PlayDate, "Play Date")                                                                    \
    ZIB_RECORD_KEY(Favorite, "Favorite")                                                                     \
    ZIB_RECORD_KEY(Downloaded, "Downloaded")                                                                 \
    ZIB_RECORD_KEY(BrokenLink, "Broken Link")                                                                \
    ZIB_RECORD_KEY(ITunes, "iTunes")                                                                         \
    ZIB_RECORD_KEY(Index, "Index")                                                                           \
    ZIB_RECORD_KEY(Progress, "Progress")                                                                     \
    ZIB_RECORD_KEY(CanAbort, "Can Abort")                                                                    \
    ZIB_RECORD_KEY(Abort, "Abort")                                                                           \
    ZIB_RECORD_KEY(Kind, "Kind")                                                                             \
    ZIB_RECORD_KEY(Tracks, "Tracks")                                                                         \
    ZIB_RECORD_KEY(ShareId, "Share ID")                                                                      \
    ZIB_RECORD_KEY(SharedName, "Shared Name")                                                                \
    ZIB_RECORD_KEY(SharedNameAsked, "Shared name")                                                           \
    ZIB_RECORD_KEY(Description, "Description")                                                               \
    ZIB_RECORD_KEY(Tags, "Tags")                                                                             \
    ZIB_RECORD_KEY(ApplicationVersion, "Application Version")                                                \
    ZIB_RECORD_KEY(Library, "Library")                                                                       \
    ZIB_RECORD_KEY(Playlists, "Playlists")                                                                   \
    ZIB_RECORD_KEY(RecentSearches, "Recent Searches")                                                        \
    ZIB_RECORD_KEY(Data, "Data")                                                                             \
    ZIB_RECORD_KEY(Username, "Username")                                                                     \
    ZIB_RECORD_KEY(Mbid, "MBID")

namespace keys {
namespace detail {
#define ZIB_ENUMERATE(constant, name) constant,
enum Number : std::uint32_t { ZIB_RECORD_KEYS(ZIB_ENUMERATE) Count };
#undef ZIB_ENUMERATE
} // namespace detail
#define ZIB_DEFINE(constant, name) inline constexpr RecordKey constant{detail::constant};
ZIB_RECORD_KEYS(ZIB_DEFINE)
#undef ZIB_DEFINE
} // namespace keys

} // namespace zib
