// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/RecordFields.h"

#include "records/BlockMemory.h"

#include <QTimeZone>

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <utility>

namespace zib {
namespace {

constexpr unsigned typeBits = 3;
constexpr unsigned typeMask = (1U << typeBits) - 1;

constexpr std::uint32_t tagOf(RecordKey key, RecordFields::Type type)
{
    return (key.id() << typeBits) | static_cast<std::uint32_t>(type);
}

constexpr RecordFields::Type typeOf(std::uint32_t tag)
{
    return static_cast<RecordFields::Type>(tag & typeMask);
}

constexpr std::uint64_t textPayload(std::uint64_t offset, std::uint64_t length)
{
    return (offset << 32U) | length;
}

constexpr std::string_view textOf(const char* texts, std::uint64_t payload)
{
    return {texts + (payload >> 32U), static_cast<std::size_t>(payload & 0xFFFFFFFFU)};
}

} // namespace

RecordFields::RecordFields(const RecordFields& other) noexcept
    : block_(other.block_)
{
    if (block_ != nullptr)
        block_->references.fetch_add(1, std::memory_order_relaxed);
}

RecordFields::RecordFields(RecordFields&& other) noexcept
    : block_(std::exchange(other.block_, nullptr))
{
}

RecordFields& RecordFields::operator=(RecordFields other) noexcept
{
    std::swap(block_, other.block_);
    return *this;
}

RecordFields::~RecordFields()
{
    if (block_ == nullptr || block_->references.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    if (block_->hasNested)
        for (std::size_t place = 0; place < size(); ++place)
            if (type(place) == Type::Nested)
                delete &nested(place);
    const bool isInBlockMemory = block_->isInBlockMemory;
    block_->~Block();
    if (isInBlockMemory)
        BlockMemory::release(block_);
    else
        ::operator delete(block_);
}

std::size_t RecordFields::find(RecordKey key) const noexcept
{
    if (block_ == nullptr)
        return absent;
    const std::uint32_t* const begin = tags();
    const std::uint32_t* const end = begin + block_->count;
    const std::uint32_t* const found = std::lower_bound(begin, end, key.id() << typeBits);
    return found != end && *found >> typeBits == key.id() ? static_cast<std::size_t>(found - begin) : absent;
}

RecordKey RecordFields::key(std::size_t place) const noexcept
{
    return RecordKey(tags()[place] >> typeBits);
}

RecordFields::Type RecordFields::type(std::size_t place) const noexcept
{
    return typeOf(tags()[place]);
}

std::int64_t RecordFields::integer(std::size_t place) const noexcept
{
    return static_cast<std::int64_t>(payloads()[place]);
}

double RecordFields::real(std::size_t place) const noexcept
{
    return std::bit_cast<double>(payloads()[place]);
}

std::string_view RecordFields::text(std::size_t place) const noexcept
{
    return textOf(texts(), payloads()[place]);
}

std::string_view RecordFields::text(RecordKey key) const noexcept
{
    const std::size_t place = find(key);
    return place != absent && type(place) == Type::String ? text(place) : std::string_view();
}

const PropertyValue& RecordFields::nested(std::size_t place) const noexcept
{
    return *reinterpret_cast<const PropertyValue*>(static_cast<std::uintptr_t>(payloads()[place]));
}

PropertyValue RecordFields::value(std::size_t place) const
{
    switch (type(place)) {
    case Type::Boolean:
        return boolean(place);
    case Type::Integer:
        return qint64(integer(place));
    case Type::Real:
        return real(place);
    case Type::Date:
        return QDateTime::fromSecsSinceEpoch(seconds(place), Qt::UTC);
    case Type::String:
        return QString::fromUtf8(text(place).data(), static_cast<qsizetype>(text(place).size()));
    case Type::Nested:
        return nested(place);
    }
    return {};
}

bool operator==(const RecordFields& a, const RecordFields& b)
{
    if (a.block_ == b.block_)
        return true;
    if (a.size() != b.size() || a.size() == 0)
        return a.size() == b.size();
    if (a.block_->textSize != b.block_->textSize || a.block_->hasNested != b.block_->hasNested)
        return false;
    // tags and texts lie side by side
    const std::size_t bytes = a.size() * sizeof(std::uint32_t) + a.block_->textSize;
    if (std::memcmp(a.tags(), b.tags(), bytes) != 0)
        return false;
    if (!a.block_->hasNested)
        return std::memcmp(a.payloads(), b.payloads(), a.size() * sizeof(std::uint64_t)) == 0;
    for (std::size_t place = 0; place < a.size(); ++place) {
        const bool equal = a.type(place) == RecordFields::Type::Nested
                               ? a.nested(place) == b.nested(place)
                               : a.payloads()[place] == b.payloads()[place];
        if (!equal)
            return false;
    }
    return true;
}

void RecordBuilder::clear()
{
    entries_.clear();
    text_.clear();
    nested_.clear();
}

void RecordBuilder::addEntry(RecordKey key, RecordFields::Type type, std::uint64_t payload)
{
    entries_.push_back({tagOf(key, type), payload});
}

void RecordBuilder::add(const RecordFields& fields)
{
    for (std::size_t place = 0; place < fields.size(); ++place) {
        const RecordKey key = fields.key(place);
        switch (fields.type(place)) {
        case RecordFields::Type::String:
            addText(key, fields.text(place));
            break;
        case RecordFields::Type::Nested:
            add(key, fields.nested(place));
            break;
        default:
            entries_.push_back({fields.tags()[place], fields.payloads()[place]});
        }
    }
}

void RecordBuilder::addBoolean(RecordKey key, bool value)
{
    addEntry(key, RecordFields::Type::Boolean, value ? 1 : 0);
}

void RecordBuilder::addInteger(RecordKey key, std::int64_t value)
{
    addEntry(key, RecordFields::Type::Integer, static_cast<std::uint64_t>(value));
}

void RecordBuilder::addReal(RecordKey key, double value)
{
    addEntry(key, RecordFields::Type::Real, std::bit_cast<std::uint64_t>(value));
}

void RecordBuilder::addDate(RecordKey key, std::int64_t seconds)
{
    addEntry(key, RecordFields::Type::Date, static_cast<std::uint64_t>(seconds));
}

void RecordBuilder::addText(RecordKey key, std::string_view utf8)
{
    addEntry(key, RecordFields::Type::String, textPayload(text_.size(), utf8.size()));
    text_.append(utf8);
}

void RecordBuilder::add(RecordKey key, const PropertyValue& value)
{
    if (const auto* boolean = value.get<bool>()) {
        addBoolean(key, *boolean);
    } else if (const auto* integer = value.get<qint64>()) {
        addInteger(key, *integer);
    } else if (const auto* real = value.get<double>()) {
        addReal(key, *real);
    } else if (const auto* date = value.get<QDateTime>()) {
        if (date->isValid()) {
            const qint64 milliseconds = date->toMSecsSinceEpoch();
            addDate(key, milliseconds / 1000 - (milliseconds % 1000 < 0 ? 1 : 0));
        }
    } else if (const auto* string = value.get<QString>()) {
        const QByteArray utf8 = string->toUtf8();
        addText(key, {utf8.constData(), static_cast<std::size_t>(utf8.size())});
    } else if (!value.isNull()) {
        addEntry(key, RecordFields::Type::Nested, nested_.size());
        nested_.push_back(value);
    }
}

void RecordBuilder::remove(RecordKey key)
{
    std::erase_if(entries_, [key](const Entry& entry) { return entry.tag >> typeBits == key.id(); });
}

void RecordBuilder::sortEntries()
{
    const auto keyOf = [](const Entry& entry) { return entry.tag >> typeBits; };
    const auto disorder = std::ranges::adjacent_find(entries_, std::ranges::greater_equal(), keyOf);
    if (disorder == entries_.end())
        return;
    constexpr std::size_t few = 32; // what a song has is in order sooner than a general sort has begun
    if (entries_.size() <= few) {
        for (auto entry = entries_.begin() + 1; entry != entries_.end(); ++entry) {
            const Entry moved = *entry;
            auto place = entry;
            for (; place != entries_.begin() && keyOf(*(place - 1)) > keyOf(moved); --place)
                *place = *(place - 1);
            *place = moved;
        }
    } else {
        std::ranges::stable_sort(entries_, std::ranges::less(), keyOf);
    }
    // Of equal keys the last holds.
    auto kept = entries_.begin();
    for (const Entry& entry : entries_) {
        if (keyOf(entry) != keyOf(*kept))
            ++kept;
        *kept = entry;
    }
    entries_.erase(kept + 1, entries_.end());
}

RecordFields RecordBuilder::build(BlockMemory* memory)
{
    sortEntries();
    std::size_t textSize = 0;
    for (const Entry& entry : entries_)
        if (typeOf(entry.tag) == RecordFields::Type::String)
            textSize += textOf(text_.data(), entry.payload).size();

    RecordFields result;
    if (!entries_.empty()) {
        using Block = RecordFields::Block;
        const std::size_t fieldSize = sizeof(std::uint64_t) + sizeof(std::uint32_t);
        const std::size_t size = sizeof(Block) + entries_.size() * fieldSize + textSize;
        void* const shared = memory != nullptr ? memory->allocate(size) : nullptr;
        result.block_ = new (shared != nullptr ? shared : ::operator new(size)) Block;
        result.block_->isInBlockMemory = shared != nullptr;
        result.block_->count = static_cast<std::uint32_t>(entries_.size());
        result.block_->textSize = static_cast<std::uint32_t>(textSize);
        std::uint64_t* const payloads = result.payloads();
        std::uint32_t* const tags = result.tags();
        char* const texts = result.texts();
        std::size_t textEnd = 0;
        for (std::size_t place = 0; place < entries_.size(); ++place) {
            const Entry& entry = entries_[place];
            tags[place] = entry.tag;
            payloads[place] = entry.payload;
            if (typeOf(entry.tag) == RecordFields::Type::String) {
                const std::string_view text = textOf(text_.data(), entry.payload);
                payloads[place] = textPayload(textEnd, text.size());
                std::ranges::copy(text, texts + textEnd);
                textEnd += text.size();
            } else if (typeOf(entry.tag) == RecordFields::Type::Nested) {
                auto* const boxed = new PropertyValue(std::move(nested_[entry.payload]));
                payloads[place] = reinterpret_cast<std::uintptr_t>(boxed);
                result.block_->hasNested = true;
            }
        }
    }
    clear();
    return result;
}

} // namespace zib
