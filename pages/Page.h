// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>

#include <array>

namespace zib {

/// The pages about the current song, with the numbers that the setting "SelectedNowPlayingPage" keeps. No
/// page has the number 3.
enum class Page {
    Artist = 0,
    Album = 1,
    Track = 2,
    Images = 4,
    Videos = 5,
    Blogs = 6,
    News = 7,
    Reviews = 8,
};

/// In the order of the menu: those about the song, then the feeds.
/// @{
inline constexpr std::array songPages{Page::Artist, Page::Album, Page::Track, Page::Images};
inline constexpr std::array feedPages{Page::Videos, Page::Blogs, Page::News, Page::Reviews};
/// @}

/// The page's name in addresses, ids and the names of images, "artist" for one.
QLatin1String pageName(Page page);

/// The page's entry in the menu: a link whose own image fades in, a link that only has the background of the
/// style sheet, or the cell of the page that is shown.
/// @{
QString menuLink(Page page);
QString emptyMenuLink(Page page);
QString selectedMenuCell(Page page);
/// @}

} // namespace zib
