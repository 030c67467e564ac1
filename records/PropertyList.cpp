// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/PropertyList.h"

#include "records/PropertyListReaders.h"

namespace zib {
namespace {

template <typename Reader>
tl::expected<PropertyValue, QString> readWith(std::string_view bytes, const TableTarget* target)
{
    Reader reader(bytes, target);
    PropertyValue root;
    if (!reader.read(root))
        return tl::unexpected(reader.error());
    return root;
}

tl::expected<PropertyValue, QString> read(QByteArrayView bytes, const TableTarget* target)
{
    const std::string_view view(bytes.data(), static_cast<std::size_t>(bytes.size()));
    return view.starts_with("bplist") ? readWith<BinaryPropertyListReader>(view, target)
                                      : readWith<XmlPropertyListReader>(view, target);
}

} // namespace

tl::expected<PropertyValue, QString> readPropertyList(QByteArrayView bytes)
{
    return read(bytes, nullptr);
}

tl::expected<TableDocument, QString> readPropertyListWithTable(QByteArrayView bytes, RecordKey tableKey)
{
    TableDocument document;
    const TableTarget target{tableKey, document.table};
    const auto root = read(bytes, &target);
    if (!root)
        return tl::unexpected(root.error());
    const auto* record = root->get<Record>();
    if (record == nullptr)
        return tl::unexpected(QStringLiteral("the root is not a dictionary"));
    document.root = *record;
    return document;
}

} // namespace zib
