// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/NowPlayingSnapshot.h"

#include "controller/SongPlaces.h"
#include "records/PropertyValue.h"

namespace zib {

namespace {

bool canPlayNow(const Record& track, bool connectedToInternet)
{
    return !track.boolean(keys::BrokenLink) && (connectedToInternet || !needsConnection(track));
}

} // namespace

int NowPlayingSnapshot::indexOfTrack() const
{
    const qint64 current = track.integer(keys::Index);
    for (int row = 0; row < playlistItems.size(); ++row)
        if (playlistItems[row].integer(keys::Index) == current)
            return row;
    return -1;
}

Record NowPlayingSnapshot::playableFrom(int index, int step, bool connectedToInternet) const
{
    for (; index >= 0 && index < playlistItems.size(); index += step)
        if (canPlayNow(playlistItems[index], connectedToInternet))
            return playlistItems[index];
    return {};
}

QString NowPlayingSnapshot::itemNames() const
{
    QStringList names;
    for (const Record& item : playlistItems)
        names.append(artistAndName(item));
    return names.join(QLatin1Char('\n'));
}

QString artistAndName(const Record& track)
{
    return QStringLiteral("%1 - %2").arg(track.string(keys::Artist), track.string(keys::Name));
}

Record withIndex(const Record& replacement, const Record& old)
{
    if (replacement.contains(keys::Index) || !old.contains(keys::Index))
        return replacement;
    Record track = replacement.copy();
    track.set(keys::Index, old.value(keys::Index));
    return track;
}

} // namespace zib
