// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/Mpeg4SampleTable.h"

#include "platform/desktop/parsers/BitReader.h"
#include "platform/desktop/parsers/ByteReader.h"

#include <algorithm>

namespace zib {

namespace {

constexpr std::uint16_t kLargeSize = 0xffff; ///< stands for one in the other list
// Lossless audio in many channels comes to a quarter of it. A reader makes several buffers of the largest.
constexpr std::uint32_t kLargestSample = std::uint32_t{1} << 19;
constexpr std::int64_t kLargestOffset = std::int64_t{1} << 60;

/// The entries of a table of which so many are claimed.
std::size_t present(std::uint64_t claimed, std::span<const std::byte> entries, std::size_t entryBits)
{
    return static_cast<std::size_t>(std::min<std::uint64_t>(claimed, entries.size() * 8 / entryBits));
}

} // namespace

void Mpeg4SampleTable::addSize(std::uint32_t size)
{
    if (size >= kLargeSize)
        largeSizes_.emplace_back(static_cast<std::uint32_t>(sizes_.size()), size);
    sizes_.push_back(static_cast<std::uint16_t>(std::min<std::uint32_t>(size, kLargeSize)));
    largest_ = std::max(largest_, size);
    count_ = sizes_.size();
}

void Mpeg4SampleTable::readSizes(std::span<const std::byte> body)
{
    constexpr std::size_t kFieldBytes = 12;
    if (body.size() < kFieldBytes || count_ > 0)
        return;
    commonSize_ = bigEndian32(body.subspan(4));
    const std::uint32_t claimed = bigEndian32(body.subspan(8));
    if (commonSize_ != 0) {
        count_ = claimed; // the chunks tell whether they are there
        largest_ = commonSize_;
        return;
    }
    const auto entries = body.subspan(kFieldBytes);
    const std::size_t samples = present(claimed, entries, 32);
    sizes_.reserve(samples);
    for (std::size_t i = 0; i < samples; ++i)
        addSize(bigEndian32(entries.subspan(i * 4)));
}

void Mpeg4SampleTable::readCompactSizes(std::span<const std::byte> body)
{
    constexpr std::size_t kFieldBytes = 12;
    if (body.size() < kFieldBytes || count_ > 0)
        return;
    const auto bits = std::to_integer<unsigned>(body[7]);
    if (bits != 4 && bits != 8 && bits != 16)
        return;
    const auto entries = body.subspan(kFieldBytes);
    BitReader reader(entries);
    const std::size_t samples = present(bigEndian32(body.subspan(8)), entries, bits);
    sizes_.reserve(samples);
    for (std::size_t i = 0; i < samples; ++i)
        addSize(reader.read(bits));
}

void Mpeg4SampleTable::readChunkLengths(std::span<const std::byte> body)
{
    constexpr std::size_t kFieldBytes = 8;
    constexpr std::size_t kEntryBytes = 12;
    if (body.size() < kFieldBytes || !runs_.empty())
        return;
    const auto entries = body.subspan(kFieldBytes);
    const std::size_t runs = present(bigEndian32(body.subspan(4)), entries, kEntryBytes * 8);
    runs_.reserve(runs);
    for (std::size_t i = 0; i < runs; ++i) {
        const auto entry = entries.subspan(i * kEntryBytes);
        runs_.push_back({bigEndian32(entry), bigEndian32(entry.subspan(4)), 0});
    }
}

void Mpeg4SampleTable::readChunkOffsets(std::span<const std::byte> body, std::size_t entryBytes)
{
    constexpr std::size_t kFieldBytes = 8;
    if (body.size() < kFieldBytes || !chunks_.empty())
        return;
    const auto entries = body.subspan(kFieldBytes);
    const std::size_t chunks = present(bigEndian32(body.subspan(4)), entries, entryBytes * 8);
    chunks_.reserve(chunks);
    for (std::size_t i = 0; i < chunks; ++i) {
        const std::uint64_t offset = bigEndian(entries.subspan(i * entryBytes, entryBytes));
        chunks_.push_back(static_cast<std::int64_t>(std::min(offset, std::uint64_t{kLargestOffset})));
    }
}

AudioStatus Mpeg4SampleTable::finish()
{
    if (largest_ > kLargestSample)
        return kInvalidFile;
    std::uint64_t samples = 0; // so far
    std::size_t chunk = 0;
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        Run& run = runs_[i];
        // The table counts chunks from 1.
        if (run.firstChunk != chunk + 1)
            return kInvalidFile;
        run = {chunk, run.samplesPerChunk, samples};
        std::size_t next = chunks_.size();
        if (i + 1 < runs_.size())
            next = std::min(next, std::max<std::size_t>(runs_[i + 1].firstChunk, 1) - 1);
        for (; chunk < next && samples < count_; ++chunk) {
            const std::uint64_t inChunk = std::min(run.samplesPerChunk, count_ - samples);
            if (chunks_[chunk] < end_ || chunks_[chunk] >= kLargestOffset)
                return kInvalidFile;
            end_ = chunks_[chunk] + static_cast<std::int64_t>(bytesOf(samples, inChunk));
            samples += inChunk;
        }
        if (chunk < next || chunk == chunks_.size()) {
            runs_.resize(i + 1);
            break;
        }
    }
    chunks_.resize(chunk);
    count_ = samples;
    return kAudioOk;
}

void Mpeg4SampleTable::addChunk(std::int64_t offset)
{
    const std::uint64_t before = runs_.empty() ? 0 : runs_.back().firstSample + runs_.back().samplesPerChunk;
    runs_.push_back({chunks_.size(), count_ - before, before});
    chunks_.push_back(offset);
    end_ = offset + static_cast<std::int64_t>(bytesOf(before, count_ - before));
}

std::uint32_t Mpeg4SampleTable::sizeOf(std::uint64_t sample) const
{
    if (commonSize_ != 0)
        return commonSize_;
    const std::uint16_t size = sizes_[static_cast<std::size_t>(sample)];
    if (size != kLargeSize)
        return size;
    return std::lower_bound(largeSizes_.begin(), largeSizes_.end(),
                            std::pair(static_cast<std::uint32_t>(sample), std::uint32_t{0}))
        ->second;
}

std::uint64_t Mpeg4SampleTable::bytesOf(std::uint64_t sample, std::uint64_t count) const
{
    if (commonSize_ != 0)
        return commonSize_ * count;
    std::uint64_t bytes = 0;
    for (std::uint64_t i = 0; i < count; ++i)
        bytes += sizeOf(sample + i);
    return bytes;
}

Mpeg4SampleTable::Place Mpeg4SampleTable::placeOf(std::uint64_t sample) const
{
    const auto run = std::prev(
        std::upper_bound(runs_.begin(), runs_.end(), sample, [](std::uint64_t wanted, const Run& candidate) {
            return wanted < candidate.firstSample;
        }));
    const std::uint64_t inRun = sample - run->firstSample;
    Place place;
    place.run = static_cast<std::size_t>(run - runs_.begin());
    place.chunk = run->firstChunk + static_cast<std::size_t>(inRun / run->samplesPerChunk);
    place.sample = sample - inRun % run->samplesPerChunk;
    place.leftInChunk = run->samplesPerChunk - inRun % run->samplesPerChunk;
    place.offset =
        chunks_[place.chunk] + static_cast<std::int64_t>(bytesOf(place.sample, sample - place.sample));
    place.sample = sample;
    return place;
}

void Mpeg4SampleTable::advance(Place& place) const
{
    place.offset += sizeOf(place.sample);
    ++place.sample;
    --place.leftInChunk;
    while (place.leftInChunk == 0 && place.sample < count_) {
        ++place.chunk;
        if (place.run + 1 < runs_.size() && runs_[place.run + 1].firstChunk == place.chunk)
            ++place.run;
        place.leftInChunk = runs_[place.run].samplesPerChunk;
        place.offset = chunks_[place.chunk];
    }
}

} // namespace zib
