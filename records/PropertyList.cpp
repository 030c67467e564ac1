// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/PropertyList.h"

#include "records/PropertyListReaders.h"

#include <utility>
#include <vector>

namespace zib {
namespace {

constexpr std::size_t pieceBytes = std::size_t(256) << 10U; // stays in the cache while it is read

template <typename Bytes>
std::string_view viewOf(const Bytes& bytes)
{
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

constexpr std::string_view binaryMark = "bplist";

bool isBinary(std::string_view bytes)
{
    return bytes.starts_with(binaryMark);
}

template <typename Reader>
tl::expected<PropertyValue, QString> readWith(Reader reader)
{
    PropertyValue root;
    if (!reader.read(root))
        return tl::unexpected(reader.error());
    return root;
}

tl::expected<PropertyValue, QString> read(std::string_view bytes, const TableTarget* target)
{
    return isBinary(bytes) ? readWith(BinaryPropertyListReader(bytes, target))
                           : readWith(XmlPropertyListReader(bytes, target));
}

/// Enough to tell the format; nothing at the end.
std::vector<char> readPiece(const ByteSource& source)
{
    std::vector<char> piece(pieceBytes);
    std::size_t size = 0;
    while (size < binaryMark.size()) {
        const std::size_t count = source(std::span(piece).subspan(size));
        if (count == 0)
            break;
        size += count;
    }
    piece.resize(size);
    return piece;
}

/// The references in a binary list point to any place, so it is read whole.
tl::expected<PropertyValue, QString> readBinary(std::vector<char> bytes, const ByteSource& source,
                                                const TableTarget* target)
{
    for (;;) {
        const std::vector<char> more = readPiece(source);
        if (more.empty())
            return read(viewOf(bytes), target);
        bytes.insert(bytes.end(), more.begin(), more.end());
    }
}

tl::expected<PropertyValue, QString> read(const ByteSource& source, const TableTarget* target)
{
    std::vector<char> beginning = readPiece(source);
    if (isBinary(viewOf(beginning)))
        return readBinary(std::move(beginning), source, target);
    return readWith(XmlPropertyListReader(std::move(beginning), source, target));
}

template <typename Bytes>
tl::expected<TableDocument, QString> readDocument(const Bytes& bytes, RecordKey tableKey)
{
    TableDocument document;
    const TableTarget target{tableKey, document.table};
    const auto root = read(bytes, &target);
    if (!root)
        return tl::unexpected(root.error());
    const auto* record = root->template get<Record>();
    if (record == nullptr)
        return tl::unexpected(QStringLiteral("the root is not a dictionary"));
    document.root = *record;
    return document;
}

} // namespace

tl::expected<PropertyValue, QString> readPropertyList(QByteArrayView bytes)
{
    return read(viewOf(bytes), nullptr);
}

tl::expected<TableDocument, QString> readPropertyListWithTable(QByteArrayView bytes, RecordKey tableKey)
{
    return readDocument(viewOf(bytes), tableKey);
}

tl::expected<TableDocument, QString> readPropertyListWithTable(const ByteSource& source, RecordKey tableKey)
{
    return readDocument(source, tableKey);
}

} // namespace zib
