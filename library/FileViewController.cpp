// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/FileViewController.h"

#include "library/RVDataManager.h"
#include "platform/TagApi.h"
#include "records/PropertyValue.h"
#include "services/utilities/PathUtilities.h"
#include "services/utilities/StringUtilities.h"

#include <algorithm>

namespace zib {
namespace {

void setUnlessEmpty(Record& record, RecordKey key, const QString& text)
{
    if (!text.isEmpty())
        record.set(key, text);
}

QString number(qint64 value)
{
    return value == 0 ? QString() : QString::number(value);
}

int wholeNumber(const QString& text)
{
    return int(std::clamp<qint64>(integerValue(text), 0, std::numeric_limits<int>::max()));
}

} // namespace

FileViewController::FileViewController(RVDataManager& library, TagAPIs& tags, const UserDefaults& defaults)
    : library_(library)
    , tags_(tags)
    , files_(defaults)
{
}

void FileViewController::open(const QList<Record>& tracks)
{
    tracks_ = tracks;
    changed_ = false;
}

SongInformation FileViewController::information() const
{
    const auto common = [this](RecordKey key) {
        const PropertyValue first = tracks_.value(0).value(key);
        const bool shared =
            std::ranges::all_of(tracks_, [&](const Record& track) { return track.value(key) == first; });
        return shared ? tracks_.value(0) : Record();
    };
    SongInformation result;
    result.artist = common(keys::Artist).string(keys::Artist);
    result.album = common(keys::Album).string(keys::Album);
    result.genre = common(keys::Genre).string(keys::Genre);
    result.year = number(common(keys::Year).integer(keys::Year));
    if (!hasOneSong())
        return result;
    const Record& track = tracks_.first();
    result.name = track.string(keys::Name);
    result.trackNumber = number(track.integer(keys::Position));
    if (const auto tags = tags_.open(files_.paths().filePath(track))) {
        result.composer = tags->composer();
        result.trackTotal = number(tags->trackTotal());
        result.discNumber = number(tags->discNumber());
        result.discTotal = number(tags->discTotal());
    }
    return result;
}

QByteArray FileViewController::cover() const
{
    const auto tags = hasOneSong() ? tags_.open(files_.paths().filePath(tracks_.first())) : nullptr;
    return tags ? tags->cover() : QByteArray();
}

bool FileViewController::canChangeCover() const
{
    return std::ranges::any_of(tracks_, [this](const Record& track) {
        return tags_.open(files_.paths().filePath(track)) != nullptr;
    });
}

QStringList FileViewController::save(const SongInformation& fields)
{
    QStringList failures;
    if (!changed_)
        return failures;
    for (const Record& track : std::as_const(tracks_))
        if (const auto saved = save(fields, track); !saved)
            failures.append(tr("“%1” stays as it is. %2").arg(track.string(keys::Name), saved.error()));
    changed_ = false;
    library_.reloadData();
    library_.saveLibrary();
    return failures;
}

void FileViewController::apply(const SongInformation& fields, Record& record) const
{
    setUnlessEmpty(record, keys::Artist, fields.artist);
    setUnlessEmpty(record, keys::Album, fields.album);
    setUnlessEmpty(record, keys::Genre, fields.genre);
    record.set(keys::Year, wholeNumber(fields.year));
    if (hasOneSong()) {
        setUnlessEmpty(record, keys::Name, fields.name);
        record.set(keys::Position, wholeNumber(fields.trackNumber));
    }
    // The file is taken to lie where the song's names put it, wherever it was imported from.
    if (record.utf8(keys::Location).starts_with("file://"))
        record.set(keys::Location, fileUrlString(files_.paths().filePath(record)));
}

void FileViewController::write(const SongInformation& fields, TagAPI& tags) const
{
    if (!fields.artist.isEmpty())
        tags.setArtist(fields.artist);
    if (!fields.album.isEmpty())
        tags.setAlbum(fields.album);
    if (!fields.genre.isEmpty())
        tags.setGenreList({fields.genre});
    if (!fields.composer.isEmpty())
        tags.setComposer(fields.composer);
    if (fields.cover)
        tags.setCover(*fields.cover);
    tags.setYear(wholeNumber(fields.year));
    if (hasOneSong()) {
        if (!fields.name.isEmpty())
            tags.setTitle(fields.name);
        tags.setTrack(wholeNumber(fields.trackNumber), wholeNumber(fields.trackTotal));
        tags.setDisc(wholeNumber(fields.discNumber), wholeNumber(fields.discTotal));
    }
    tags.write();
}

SongFiles::Result FileViewController::save(const SongInformation& fields, const Record& track)
{
    const QString id = track.string(keys::Id);
    // What the library knows of the song is more than what a search found.
    Record kept = library_.library().find(id);
    if (!kept)
        kept = track;
    const Record before = kept.copy();
    Record after = kept.copy();
    apply(fields, after);
    if (auto possible = files_.checkMove(before, after); !possible)
        return possible;
    if (const auto tags = tags_.open(files_.paths().filePath(before)))
        write(fields, *tags);
    if (auto moved = files_.move(before, after); !moved)
        return moved;
    // On the very records, so that every list that shows the song shows its new names.
    Record shown = track;
    apply(fields, shown);
    apply(fields, kept);
    library_.library().insert(id, kept);
    if (library_.isNowplaying(kept))
        library_.delegate().updateNowplayingTrack(kept);
    return {};
}

} // namespace zib
