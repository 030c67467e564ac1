// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/BlockMemory.h"
#include "records/PropertyList.h"
#include "records/RecordFields.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The readers of the two formats, for PropertyList.cpp alone. Both answer false at the first fault, error()
// then says what it was; both take an optional table for the root's field of one key.

namespace zib {

/// Where one dictionary of the root goes.
struct TableTarget {
    RecordKey key;
    RecordTable& table;
};

/// The one builder of every depth of dictionaries.
class BuilderStack {
  public:
    RecordBuilder& at(int depth)
    {
        while (builders_.size() <= static_cast<std::size_t>(depth))
            builders_.push_back(std::make_unique<RecordBuilder>());
        builders_[static_cast<std::size_t>(depth)]->clear();
        return *builders_[static_cast<std::size_t>(depth)];
    }

  private:
    std::vector<std::unique_ptr<RecordBuilder>> builders_;
};

/// A blank of XML.
constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

class XmlPropertyListReader {
  public:
    XmlPropertyListReader(std::string_view text, const TableTarget* target);
    /// The text comes piece by piece, after the beginning that is here already. The source outlives the
    /// reader.
    XmlPropertyListReader(std::vector<char> beginning, const ByteSource& source, const TableTarget* target);

    bool read(PropertyValue& root);
    [[nodiscard]] QString error() const { return error_; }

  private:
    enum class Element { Key, Dict, Real, True, Date, Data, Array, False, Plist, String, Integer };
    struct Tag {
        Element element = Element::Plist;
        bool closing = false;
        bool empty = false; // closes itself
    };
    /// What stands between two values of a dictionary.
    struct FieldStart {
        RecordKey key{0};
        Tag tag; // the opening tag of the value
    };
    struct KnownFieldStart {
        std::string text;
        FieldStart start;
    };
    struct CachedKey {
        std::string_view name;
        RecordKey key{0};
    };

    /// Brings more of the text into memory and lets go of what is read. False when there is no more.
    bool readOn();
    /// Reads what must stand in memory whole. When that fails it may have been cut off, so it is begun again
    /// with more of the text, up to all of it.
    template <typename Reading>
    bool readWhole(Reading reading);

    bool fail(const char* text);
    [[nodiscard]] bool startsWith(std::string_view text) const;
    bool skipPast(std::string_view end, const char* otherwise);
    bool skipDoctype();
    /// Skips blanks, comments and processing instructions up to the next tag or the end.
    bool skipToTag();
    bool readTag(Tag& tag);
    bool readElementName(Element& element);
    bool readOpening(Element element);
    bool readClosing(Element element);

    /// The text of the element opened by the tag, past its closing tag. Valid until the next call.
    bool readText(const Tag& tag, std::string_view& text);
    bool readMixedText(std::string_view& text);
    bool readReference();
    bool appendRun();

    bool readKey(Tag& tag, bool& atEnd, std::string_view& name);
    RecordKey interned(std::string_view name);
    bool readFieldStart(std::size_t& place, FieldStart& start, bool& atEnd);
    const FieldStart* knownFieldStart(std::size_t& place);
    void rememberFieldStart(std::size_t& place, std::string_view text, const FieldStart& start);
    bool readField(RecordBuilder& builder, RecordKey key, const Tag& tag, int depth);
    bool readValue(const Tag& tag, int depth, PropertyValue& value);
    bool readArray(const Tag& tag, int depth, PropertyValue& value);
    bool readDictionary(const Tag& tag, int depth, RecordFields& fields);
    bool readRootDictionary(const Tag& tag, PropertyValue& root);
    bool readTable(const Tag& tag, int depth);
    bool readTableEntry(int depth, bool& atEnd);
    bool readInteger(const Tag& tag, PropertyValue& value);
    bool readReal(const Tag& tag, double& value);
    bool readDate(const Tag& tag, std::int64_t& seconds);
    bool readData(const Tag& tag, PropertyValue& value);

    const char* begin_; // of what stands in memory
    const char* at_;
    const char* end_;
    const TableTarget* const target_;
    const ByteSource* source_ = nullptr; // of the rest, while there is any
    std::vector<char> window_;
    std::size_t passed_ = 0; // bytes before begin_
    BuilderStack builders_;
    BlockMemory blocks_; // of the records of the table
    std::array<CachedKey, 256> cachedKeys_;
    // One song's fields look like those of the song before, so they are compared before they are parsed: from
    // the end of one value into the next. What the same bytes say does not depend on where they stand.
    std::vector<KnownFieldStart> fieldStarts_;
    std::string tableId_;
    std::string scratch_;
    QString error_;
};

template <typename Reading>
bool XmlPropertyListReader::readWhole(Reading reading)
{
    for (;;) {
        const std::ptrdiff_t done = at_ - begin_;
        if (reading())
            return true;
        if (source_ == nullptr)
            return false;
        at_ = begin_ + done;
        error_.clear();
        readOn(); // when nothing comes, all is here, and the same failure holds
    }
}

class BinaryPropertyListReader {
  public:
    BinaryPropertyListReader(std::string_view bytes, const TableTarget* target);

    bool read(PropertyValue& root);
    [[nodiscard]] QString error() const { return error_; }

  private:
    struct Container {
        std::size_t references = 0; // offset of the first
        std::uint64_t count = 0;
    };

    bool fail(const char* text);
    bool readTrailer(std::uint64_t& rootObject);
    /// A big-endian number of 1 to 8 bytes; the caller has checked that they are there.
    [[nodiscard]] std::uint64_t number(std::size_t offset, std::size_t width) const;
    /// Accounts for what a value unfolds to.
    bool spend(std::uint64_t bytes);
    bool offsetOf(std::uint64_t object, std::size_t& offset);
    /// The count in a marker or in the integer after it; offset moves to the content of count * unit bytes.
    bool readCount(std::size_t& offset, std::size_t unit, std::uint64_t& count);

    bool readObject(std::uint64_t object, int depth, PropertyValue& value);
    bool readInline(std::size_t offset, PropertyValue& value);
    bool readInteger(std::size_t offset, unsigned power, PropertyValue& value);
    bool readReal(std::size_t offset, unsigned power, double& value);
    bool readText(std::size_t offset, PropertyValue& value);
    bool readContainer(std::size_t offset, int depth, PropertyValue& value);
    bool readArray(const Container& container, int depth, PropertyValue& value);
    bool readDictionary(const Container& container, int depth, PropertyValue& value);
    bool readTable(std::uint64_t object, int depth);
    bool readEntry(const Container& container, std::uint64_t index, PropertyValue& key,
                   std::uint64_t& object);

    const std::string_view bytes_;
    const TableTarget* const target_;
    std::size_t offsetWidth_ = 0;
    std::size_t referenceWidth_ = 0;
    std::uint64_t objectCount_ = 0;
    std::size_t offsets_ = 0; // where their table begins
    std::uint64_t budget_;
    std::vector<bool> open_; // the containers being read: meeting one again is a circle
    BuilderStack builders_;
    QString error_;
};

} // namespace zib
