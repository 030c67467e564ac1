// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/PropertyValue.h"
#include "records/RecordFields.h"
#include "records/RecordTable.h"

#include <QByteArray>

#include <array>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace zib {

/// Writes an XML property list piece by piece, so that a large one never stands in memory whole. Characters
/// that XML cannot hold are left out. Any thread: records are read as they stand when they are written.
///
///     writer.beginDictionary(); writer.key(k); writer.value(v); ... writer.endDictionary(); writer.finish();
class PropertyListWriter {
  public:
    /// Takes the bytes as they come, in pieces of some 64 KB.
    using Sink = std::function<void(std::string_view)>;

    /// Fields of the omitted keys are written nowhere.
    explicit PropertyListWriter(Sink sink, std::initializer_list<RecordKey> omitted = {});

    void beginDictionary();
    void key(std::string_view utf8);
    void key(RecordKey key) { this->key(key.name()); }
    void value(const PropertyValue& value);
    /// A dictionary of the table's entries.
    void table(const RecordTable::Snapshot& table);
    void endDictionary();

    /// Writes the end. False when something had no form in a property list (a missing value in an array, a
    /// date outside the years 1 to 9999, more than propertyListDepth levels): the bytes are then worth
    /// nothing.
    bool finish();

  private:
    bool enter();
    void open(std::string_view tag);
    void close(std::string_view tag);
    void line(std::string_view text);
    void fieldKey(RecordKey key);
    /// An element on a line of its own, given with both its tags.
    void element(std::string_view opening, std::string_view content, std::string_view closing);
    void text(std::string_view opening, std::string_view utf8, std::string_view closing);
    void escaped(std::string_view utf8);
    void slowlyEscaped(std::string_view utf8);
    void integer(std::int64_t value);
    void real(double value);
    void date(std::int64_t seconds);
    void data(const QByteArray& bytes);
    void array(const PropertyArray& array);
    void dictionary(const RecordFields& fields);
    void field(const RecordFields& fields, std::size_t place);
    void flush();

    static constexpr std::size_t pieceSize = std::size_t(64) << 10U;

    struct KeyLine {
        int depth = -1;
        std::string text;
    };

    Sink sink_;
    std::vector<RecordKey> omitted_;
    // The lines of the well-known keys as they were written last: nearly every one is written again, as deep.
    std::array<KeyLine, keys::detail::Count> keyLines_;
    std::string buffer_;
    int depth_ = 0;
    bool valid_ = true;
};

/// The value as an XML property list, or none when it has no form in one.
QByteArray writePropertyList(const PropertyValue& root);

} // namespace zib
