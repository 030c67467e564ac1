// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/RecordTable.h"

#include <QHashFunctions>

#include <algorithm>
#include <atomic>
#include <bit>

namespace zib {
namespace {

constexpr std::size_t slotsPerChunk = 256;

std::uint32_t hashOf(std::string_view id)
{
    const auto hash = static_cast<std::uint64_t>(qHashBits(id.data(), id.size(), QHashSeed::globalSeed()));
    return static_cast<std::uint32_t>(hash ^ (hash >> 32U));
}

} // namespace

std::uint64_t RecordTable::newPlacing()
{
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

const RecordTable::Slot& RecordTable::slot(std::size_t number) const
{
    return chunks_[number / slotsPerChunk]->slots[number % slotsPerChunk];
}

RecordTable::Slot& RecordTable::changeableSlot(std::size_t number)
{
    std::shared_ptr<Chunk>& chunk = chunks_[number / slotsPerChunk];
    if (chunk->epoch != epoch_) {
        auto copy = std::make_shared<Chunk>();
        copy->epoch = epoch_;
        copy->slots.reserve(slotsPerChunk);
        copy->slots = chunk->slots;
        chunk = std::move(copy);
    }
    return chunk->slots[number % slotsPerChunk];
}

std::size_t RecordTable::bucketOf(std::string_view id, std::uint32_t hash) const
{
    const std::size_t mask = buckets_.size() - 1;
    std::size_t bucket = hash & mask;
    while (buckets_[bucket].place != 0) {
        if (buckets_[bucket].hash == hash && view(slot(buckets_[bucket].place - 1).id) == id)
            break;
        bucket = (bucket + 1) & mask;
    }
    return bucket;
}

Record RecordTable::find(std::string_view id) const
{
    if (buckets_.empty())
        return {};
    const Bucket& bucket = buckets_[bucketOf(id, hashOf(id))];
    return bucket.place != 0 ? slot(bucket.place - 1).record : Record();
}

std::optional<std::size_t> RecordTable::placeOf(std::string_view id) const
{
    if (buckets_.empty())
        return std::nullopt;
    const Bucket& bucket = buckets_[bucketOf(id, hashOf(id))];
    if (bucket.place == 0 || slot(bucket.place - 1).record.isNull())
        return std::nullopt;
    return bucket.place - 1;
}

void RecordTable::insert(std::string_view id, const Record& record)
{
    if ((slotCount_ + 1) * 4 > buckets_.size() * 3)
        rebuild(static_cast<std::size_t>(size_) + 1);
    const std::uint32_t hash = hashOf(id);
    Bucket& bucket = buckets_[bucketOf(id, hash)];
    // A removed id is added again at the end, like any new one.
    if (bucket.place != 0 && !slot(bucket.place - 1).record.isNull()) {
        changeableSlot(bucket.place - 1).record = record;
        return;
    }
    append(id, record);
    bucket = {hash, static_cast<std::uint32_t>(slotCount_)};
    ++size_;
}

bool RecordTable::remove(std::string_view id)
{
    if (!contains(id))
        return false;
    // The slot keeps its id, so that probing goes on past it.
    changeableSlot(buckets_[bucketOf(id, hashOf(id))].place - 1).record = Record();
    --size_;
    return true;
}

void RecordTable::append(std::string_view id, const Record& record)
{
    if (slotCount_ % slotsPerChunk == 0) {
        chunks_.push_back(std::make_shared<Chunk>());
        chunks_.back()->epoch = epoch_;
        chunks_.back()->slots.reserve(slotsPerChunk);
    } else {
        changeableSlot(slotCount_ - 1); // makes the last chunk ours
    }
    chunks_.back()->slots.push_back({QByteArray(id.data(), static_cast<qsizetype>(id.size())), record});
    ++slotCount_;
}

void RecordTable::rebuild(std::size_t capacity)
{
    std::vector<Bucket> old(std::bit_ceil(std::max<std::size_t>(16, capacity * 2)));
    old.swap(buckets_);
    const std::size_t mask = buckets_.size() - 1;
    const auto place = [this, mask](const Bucket& entry) {
        std::size_t bucket = entry.hash & mask;
        while (buckets_[bucket].place != 0)
            bucket = (bucket + 1) & mask;
        buckets_[bucket] = entry;
    };
    if (static_cast<std::size_t>(size_) == slotCount_) { // the old index knows all hashes
        for (const Bucket& bucket : old)
            if (bucket.place != 0)
                place(bucket);
        return;
    }
    Chunks thinned;
    thinned.swap(chunks_);
    slotCount_ = 0;
    placing_ = newPlacing();
    auto keep = [this, &place](std::string_view id, const Record& record) {
        append(id, record);
        place({hashOf(id), static_cast<std::uint32_t>(slotCount_)});
    };
    visit(thinned, keep);
}

QList<Record> RecordTable::records() const
{
    QList<Record> result;
    result.reserve(size_);
    forEach([&result](std::string_view, const Record& record) { result.append(record); });
    return result;
}

RecordTable::Snapshot RecordTable::snapshot()
{
    Snapshot result;
    result.chunks_ = chunks_;
    ++epoch_;
    return result;
}

} // namespace zib
