// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/DemoCatalogue.h"
#include "catalogue/demo/Composer.h"
#include "catalogue/demo/PicturePainter.h"

#include <QHash>

namespace zib::demo {

enum class Encoding { Mp3Constant, Mp3Variable, M4a, Adts, Wav };

/// All that is needed to make one track's file.
struct TrackPlan {
    Commission commission;
    Encoding encoding = Encoding::Mp3Constant;
    int number = 1; ///< on the album, from 1
    DemoTrack track;
    QString artist;
    QString album;
    QString genre;
    QStringList tags;
    int year = 0;
    QString coverId; ///< 32 hexadecimal characters, one for all tracks of an album
};

struct DemoPlan {
    QList<DemoArtist> artists;
    QHash<QString, TrackPlan> tracks; ///< by track id
    QHash<QString, Sitters> sitters;  ///< by picture id
};

/// A number for these names that is the same for ever, as 32 lower-case hexadecimal characters.
QString digest(const QStringList& names);

/// The artists, albums and songs of the demo catalogue; the same object always.
const DemoPlan& demoPlan();

} // namespace zib::demo
