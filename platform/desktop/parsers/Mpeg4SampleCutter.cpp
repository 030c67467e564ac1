// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/Mpeg4SampleCutter.h"

#include <algorithm>

namespace zib {

namespace {

constexpr std::size_t kBatchPackets = 1024;

} // namespace

Mpeg4SampleCutter::Mpeg4SampleCutter(ParserOutput& output)
    : output_(output)
{
    batch_.reserve(kBatchPackets);
}

void Mpeg4SampleCutter::setProperties(AudioFileProperties properties)
{
    bound_ = properties.packetSizeUpperBound.value_or(0);
    unannounced_ = std::move(properties);
}

void Mpeg4SampleCutter::follow(Mpeg4SampleTable table)
{
    table_ = std::move(table);
    place_ = {};
    carry_.clear();
    if (table_.count() > 0)
        goTo(0);
}

std::int64_t Mpeg4SampleCutter::goTo(std::uint64_t sample)
{
    carry_.clear();
    place_ = table_.placeOf(sample);
    return place_.offset;
}

void Mpeg4SampleCutter::cut(std::span<const std::byte> bytes, std::int64_t offset)
{
    const std::int64_t end = offset + std::ssize(bytes);
    for (; place_.sample < table_.count(); table_.advance(place_)) {
        const std::uint32_t size = table_.sizeOf(place_.sample);
        if (place_.offset + std::ssize(carry_) < offset) { // the rest of it was left out
            carry_.clear();
            continue;
        }
        if (place_.offset >= end)
            break;
        if (!carry_.empty() || place_.offset + size > end) {
            if (!carry(bytes, offset, size))
                break;
            continue;
        }
        if (size == 0 || size >= bound_)
            continue;
        batch_.push_back({place_.offset - offset, 0, size});
        if (batch_.size() == kBatchPackets)
            emitBatch(bytes);
    }
    emitBatch(bytes);
}

/// Adds what these bytes hold of a sample that began before or ends after them; whether it is whole now.
bool Mpeg4SampleCutter::carry(std::span<const std::byte> bytes, std::int64_t offset, std::uint32_t size)
{
    const auto rest = bytes.subspan(static_cast<std::size_t>(place_.offset + std::ssize(carry_) - offset));
    const auto taken = rest.first(std::min(rest.size(), size - carry_.size()));
    carry_.insert(carry_.end(), taken.begin(), taken.end());
    if (carry_.size() < size)
        return false;
    const AudioPacketDescription packet{0, 0, size};
    if (size < bound_)
        emit(carry_, {&packet, 1});
    carry_.clear();
    return true;
}

void Mpeg4SampleCutter::emitBatch(std::span<const std::byte> bytes)
{
    if (batch_.empty())
        return;
    emit(bytes, batch_);
    batch_.clear();
}

void Mpeg4SampleCutter::emit(std::span<const std::byte> bytes,
                             std::span<const AudioPacketDescription> packets)
{
    if (unannounced_)
        output_.announce(*std::exchange(unannounced_, std::nullopt));
    packets_ += packets.size();
    output_.packets(bytes, static_cast<std::uint32_t>(packets.size()), packets);
}

} // namespace zib
