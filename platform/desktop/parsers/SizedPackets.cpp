// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/SizedPackets.h"

#include <algorithm>
#include <numeric>

namespace zib {

namespace {

constexpr std::size_t kBatchPackets = 512;

} // namespace

void SizedPackets::begin(AudioFileProperties properties, std::vector<std::uint32_t> sizes)
{
    properties_ = std::move(properties);
    sizes_ = std::move(sizes);
    const std::uint32_t largest = sizes_.empty() ? 0 : *std::ranges::max_element(sizes_);
    properties_.maximumPacketSize = largest;
    properties_.packetSizeUpperBound = largest + 1;
    batch_.reserve(kBatchPackets);
}

void SizedPackets::parse(std::span<const std::byte> bytes, bool discontinuous)
{
    if (discontinuous && deliveredSinceBreak_) {
        // Not where a seek said: there is no telling where in a packet this is.
        carry_.clear();
        next_ = sizes_.size();
        deliveredSinceBreak_ = false;
    }
    while (next_ < sizes_.size() && !bytes.empty()) {
        const std::size_t size = sizes_[next_];
        if (carry_.empty() && size <= bytes.size()) {
            emitWhole(bytes);
            continue;
        }
        const auto taken = bytes.first(std::min(size - carry_.size(), bytes.size()));
        carry_.insert(carry_.end(), taken.begin(), taken.end());
        bytes = bytes.subspan(taken.size());
        if (carry_.size() == size) {
            ++next_;
            batch_.push_back({0, 0, static_cast<std::uint32_t>(size)});
            emitBatch(carry_);
            carry_.clear();
        }
    }
}

/// Hands on the packets that are whole in these bytes, and takes them away.
void SizedPackets::emitWhole(std::span<const std::byte>& bytes)
{
    std::size_t end = 0;
    for (; next_ < sizes_.size() && batch_.size() < kBatchPackets && sizes_[next_] <= bytes.size() - end;
         ++next_) {
        if (sizes_[next_] > 0) // others are no packets to a decoder
            batch_.push_back({static_cast<std::int64_t>(end), 0, sizes_[next_]});
        end += sizes_[next_];
    }
    emitBatch(bytes.first(end));
    bytes = bytes.subspan(end);
}

void SizedPackets::emitBatch(std::span<const std::byte> bytes)
{
    if (batch_.empty())
        return;
    if (!announced_) {
        announced_ = true;
        output_.announce(std::move(properties_));
    }
    deliveredSinceBreak_ = true;
    output_.packets(bytes, static_cast<std::uint32_t>(batch_.size()), batch_);
    batch_.clear();
}

AudioStatus SizedPackets::seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated)
{
    if (sizes_.empty() || packet < 0)
        return kIllegalPacket;
    next_ = std::min(static_cast<std::size_t>(packet), sizes_.size() - 1);
    byteOffset =
        std::accumulate(sizes_.begin(), sizes_.begin() + static_cast<std::ptrdiff_t>(next_), std::int64_t{0});
    estimated = false;
    carry_.clear();
    deliveredSinceBreak_ = false;
    return kAudioOk;
}

} // namespace zib
