// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pages/Page.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <optional>

// Pure functions on the addresses that stand in pages.
namespace zib {

/// What a zib:// address asks for.
struct PageAddress {
    enum class Kind {
        ShowPage,             ///< as it is at first
        ShowMoreOfPage,       ///< the whole biography, more images
        SearchTag,            ///< text
        SearchSimilarArtists, ///< the artist and all similar ones
        SearchAllTags,        ///< of the artist
        SearchArtist,         ///< text
        SearchAllTrackTags,
        OpenPlaylist, ///< text, its identifier
    };
    Kind kind;
    Page page = Page::Artist; ///< of the first two
    QString text;             ///< perhaps empty

    friend bool operator==(const PageAddress&, const PageAddress&) = default;
};

/// @return nothing when the address means nothing to us
std::optional<PageAddress> readPageAddress(const QString& address);

/// Whether the address is one of ours.
bool isZibAddress(const QString& address);
/// Whether the address is one that a web browser is for.
bool isWebAddress(const QString& address);

/// The address with what a form sends: the text between the first and the second "=" of its body.
QString addressOfForm(const QString& address, const QByteArray& body);

/// What is to be said while the mouse is over that link, empty for no link.
/// @param imagesShown whether the link stands in the page of images
/// @return nothing when what was said last is to stay
std::optional<QString> hoverHint(const QString& link, bool imagesShown);

} // namespace zib
