// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryFile.h"

#include "library/AtomicFile.h"
#include "library/LibraryEnvelope.h"
#include "library/PieceThread.h"
#include "records/PropertyListWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>
#include <filesystem>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.library")

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(LibraryFile)
};
constexpr qsizetype envelopeRoom = 16; // what EnvelopeReader wants beyond the content
const QString applicationVersion = QStringLiteral("1.0");

/// The records of a collection of the file. False when it is anything but an array of records; a missing one
/// is empty.
bool takeRecords(const Record& root, RecordKey key, QList<Record>& records)
{
    records = root.records(key);
    const PropertyValue value = root.value(key);
    const auto* array = value.get<PropertyArray>();
    return value.isNull() || (array != nullptr && array->size() == records.size());
}

bool openForReading(QFile& file)
{
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

/// @param file is open and outlives the reader.
EnvelopeReader::ReadAt readerOf(QFile& file, const std::stop_token& stop)
{
    return [&file, stop](std::uint64_t offset, std::span<char> target) {
        const auto size = static_cast<qint64>(target.size());
        return !stop.stop_requested() && file.seek(static_cast<qint64>(offset)) &&
               file.read(target.data(), size) == size;
    };
}

tl::expected<LibraryContents, QString> contentsOf(EnvelopeReader& envelope)
{
    auto contents =
        LibraryFile::parsePlain([&envelope](std::span<char> target) { return envelope.read(target); });
    if (envelope.hasFailed())
        return tl::unexpected(Texts::tr("the file cannot be deciphered"));
    return contents;
}

} // namespace

tl::expected<LibraryContents, QString> LibraryFile::parsePlain(const ByteSource& source)
{
    auto document = readPropertyListWithTable(source, keys::Library);
    if (!document)
        return tl::unexpected(document.error());
    LibraryContents contents;
    contents.library = std::move(document->table);
    if (!takeRecords(document->root, keys::Playlists, contents.playlists) ||
        !takeRecords(document->root, keys::RecentSearches, contents.searches))
        return tl::unexpected(QStringLiteral("a collection is no array of dictionaries"));
    const PropertyValue userInfo = document->root.value(keys::Data);
    if (const auto* record = userInfo.get<Record>())
        contents.userInfo = *record;
    else if (!userInfo.isNull())
        return tl::unexpected(QStringLiteral("the user information is no dictionary"));
    return contents;
}

QString LibraryFile::standardPath()
{
    return QDir::home().filePath(QStringLiteral("Music/Zib/Zib Music Library.zib"));
}

bool LibraryFile::exists() const
{
    return QFileInfo::exists(path_);
}

tl::expected<LibraryContents, QString> LibraryFile::load(const std::stop_token& stop) const
{
    QFile file(path_);
    if (!openForReading(file))
        return tl::unexpected(file.errorString());
    EnvelopeReader envelope(static_cast<std::uint64_t>(file.size()), readerOf(file, stop));
    return contentsOf(envelope);
}

tl::expected<QByteArray, QString> LibraryFile::readPlain() const
{
    QFile file(path_);
    if (!openForReading(file))
        return tl::unexpected(file.errorString());
    EnvelopeReader envelope(static_cast<std::uint64_t>(file.size()), readerOf(file, {}));
    QByteArray plain(static_cast<qsizetype>(envelope.length().value_or(0)) + envelopeRoom, Qt::Uninitialized);
    const std::span<char> room(plain.data(), static_cast<std::size_t>(plain.size()));
    std::size_t done = 0;
    while (const std::size_t count = envelope.read(room.subspan(done)))
        done += count;
    if (envelope.hasFailed())
        return tl::unexpected(Texts::tr("the file cannot be deciphered"));
    plain.truncate(static_cast<qsizetype>(done));
    return plain;
}

tl::expected<LibraryContents, QString> LibraryFile::parse(std::span<const char> bytes)
{
    EnvelopeReader envelope(bytes.size(), [bytes](std::uint64_t offset, std::span<char> target) {
        std::ranges::copy(bytes.subspan(offset, target.size()), target.begin());
        return true;
    });
    return contentsOf(envelope);
}

bool LibraryFile::save(const LibrarySnapshot& snapshot) const
{
    const QString folder = QFileInfo(path_).absolutePath();
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(QFile::encodeName(folder).constData()), error);
    if (error) {
        qCWarning(log, "Failed creating directory at path %s\nError: %s", qUtf8Printable(folder),
                  error.message().c_str());
        return false;
    }
    // The attribute that hides a file's extension has no counterpart on Linux, so none is set.
    AtomicFile file(path_);
    // Making the list, enciphering it and writing it go on beside each other; each takes about as long.
    PieceThread writing([&file](std::string_view piece) { file.write(piece); });
    EnvelopeWriter envelope([&writing](std::string_view piece) { writing.push(piece); });
    PieceThread sealing([&envelope](std::string_view piece) { envelope.write(piece); });
    // What lives only while a song is shown or downloads means nothing in the next run.
    PropertyListWriter writer([&sealing](std::string_view piece) { sealing.push(piece); },
                              {keys::Index, keys::Progress, keys::CanAbort, keys::Abort});
    writer.beginDictionary();
    writer.key(keys::ApplicationVersion);
    writer.value(applicationVersion);
    writer.key(keys::Data);
    writer.value(snapshot.userInfo);
    writer.key(keys::Library);
    writer.table(snapshot.library);
    writer.key(keys::Playlists);
    writer.value(snapshot.playlists);
    writer.key(keys::RecentSearches);
    writer.value(snapshot.searches);
    writer.endDictionary();
    const bool valid = writer.finish();
    sealing.finish();
    if (!valid) {
        qCWarning(log, "Invalid property list format!");
        return false;
    }
    const bool isSealed = envelope.finish();
    writing.finish();
    if (!isSealed) {
        qCWarning(log, "Error: Failed serializing data %s", "the library cannot be enciphered");
        return false;
    }
    if (!file.commit()) {
        qCWarning(log, "Failed writing file at path %s\nError: %s", qUtf8Printable(path_),
                  qUtf8Printable(file.error()));
        return false;
    }
    return true;
}

} // namespace zib
