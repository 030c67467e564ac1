// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/DemoCatalogue.h"

#include <cstdint>

namespace zib::demo {

/// Who is in an artist's pictures: the same people in all of them.
struct Sitters {
    QStringList tags; ///< of the artist: they decide the colours and the instruments
    int members = 1;
    std::uint64_t seed = 0;
};

/// How many different pictures there are of an artist.
int picturesOf(const Sitters& sitters);

/// One of them as a JPEG file; needs no display, any thread.
/// @param number from 1; the first shows faces
QByteArray paintPicture(const Sitters& sitters, int number, PictureSize size);

} // namespace zib::demo
