// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/PropertyValue.h"
#include "records/RecordKeys.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zib {

class BlockMemory;

/// The content of a record at one moment: fields in the order of their key numbers, in one block of memory
/// that never changes. Copying shares the block. Usable on any thread.
///
/// The block holds a value of eight bytes and a tag of four per field, then all texts as UTF-8. That is a
/// fifth of what a map of variants needs, equal content is equal bytes, and a thread that holds a block needs
/// no lock to read it.
class RecordFields {
  public:
    enum class Type : std::uint8_t { Boolean, Integer, Real, Date, String, Nested };

    RecordFields() noexcept = default;
    RecordFields(const RecordFields& other) noexcept;
    RecordFields(RecordFields&& other) noexcept;
    RecordFields& operator=(RecordFields other) noexcept;
    ~RecordFields();

    [[nodiscard]] std::size_t size() const noexcept { return block_ != nullptr ? block_->count : 0; }

    static constexpr std::size_t absent = SIZE_MAX;
    /// The place of the field, or absent.
    [[nodiscard]] std::size_t find(RecordKey key) const noexcept;

    /// The field at a place below size(). Only the getter of its type may be asked for its value.
    /// @{
    [[nodiscard]] RecordKey key(std::size_t place) const noexcept;
    [[nodiscard]] Type type(std::size_t place) const noexcept;
    [[nodiscard]] bool boolean(std::size_t place) const noexcept { return payloads()[place] != 0; }
    [[nodiscard]] std::int64_t integer(std::size_t place) const noexcept;
    [[nodiscard]] double real(std::size_t place) const noexcept;
    /// A date: whole seconds since 1970-01-01 UTC.
    [[nodiscard]] std::int64_t seconds(std::size_t place) const noexcept { return integer(place); }
    [[nodiscard]] std::string_view text(std::size_t place) const noexcept;
    /// An array, data or another record.
    [[nodiscard]] const PropertyValue& nested(std::size_t place) const noexcept;
    /// @}

    [[nodiscard]] PropertyValue value(std::size_t place) const;
    /// The text of that key; empty when the key is absent or holds another type.
    [[nodiscard]] std::string_view text(RecordKey key) const noexcept;

    /// Identity: whether both are the very same block.
    [[nodiscard]] bool isSame(const RecordFields& other) const noexcept { return block_ == other.block_; }
    /// Sharing, releasing or reading many blocks waits for each one's memory in turn, unless it was asked for
    /// some blocks ahead.
    /// @{
    void prefetch() const noexcept { __builtin_prefetch(block_, 1); }
    void prefetchForReading() const noexcept
    {
        constexpr std::size_t cacheLine = 64;
        constexpr std::size_t linesBeforeTexts = 4; // of a song of 15 fields
        for (std::size_t line = 0; line < linesBeforeTexts; ++line)
            __builtin_prefetch(reinterpret_cast<const char*>(block_) + line * cacheLine);
    }
    /// @}

    friend bool operator==(const RecordFields& a, const RecordFields& b);

  private:
    friend class RecordBuilder;

    struct Block {
        std::atomic<std::uint32_t> references{1};
        std::uint32_t count = 0;
        std::uint32_t textSize = 0;
        bool hasNested = false;
        bool isInBlockMemory = false;
        // payloads, tags and texts follow
    };
    static_assert(sizeof(Block) == 16);

    [[nodiscard]] std::uint64_t* payloads() const noexcept
    {
        return reinterpret_cast<std::uint64_t*>(block_ + 1);
    }
    [[nodiscard]] std::uint32_t* tags() const noexcept
    {
        return reinterpret_cast<std::uint32_t*>(payloads() + block_->count);
    }
    [[nodiscard]] char* texts() const noexcept { return reinterpret_cast<char*>(tags() + block_->count); }

    Block* block_ = nullptr; // none when there are no fields
};

/// Gathers fields and makes a block of them. Meant to be used again and again.
class RecordBuilder {
  public:
    void clear();
    /// Takes over all fields of a block.
    void add(const RecordFields& fields);
    /// Of a key that is added twice the last value holds.
    /// @{
    void addBoolean(RecordKey key, bool value);
    void addInteger(RecordKey key, std::int64_t value);
    void addReal(RecordKey key, double value);
    void addDate(RecordKey key, std::int64_t seconds);
    void addText(RecordKey key, std::string_view utf8);
    /// A null value and a date that is none add nothing.
    void add(RecordKey key, const PropertyValue& value);
    /// @}
    void remove(RecordKey key);
    /// The fields gathered; the builder is empty afterwards.
    /// @param memory where to put them, for one of very many.
    RecordFields build(BlockMemory* memory = nullptr);

  private:
    struct Entry {
        std::uint32_t tag;
        std::uint64_t payload; // of a text: its place in text_ and length; of a nested value: its place
    };

    void addEntry(RecordKey key, RecordFields::Type type, std::uint64_t payload);
    void sortEntries();

    std::vector<Entry> entries_;
    std::string text_;
    std::vector<PropertyValue> nested_;
};

} // namespace zib
