// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QByteArray>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace zib {

/// A dictionary of track id -> Record for a whole library. It keeps the order of insertion, finds by id in
/// constant time, and can be frozen for a save in next to no time whatever its size. Main thread; a Snapshot
/// may be used on any thread.
class RecordTable {
    struct Slot {
        QByteArray id;
        Record record; // none when the entry was removed
    };
    struct Chunk {
        std::uint64_t epoch = 0; // of the table when the chunk was made
        std::vector<Slot> slots;
    };
    using Chunks = std::vector<std::shared_ptr<Chunk>>;

    template <typename Visitor>
    static void visit(const Chunks& chunks, Visitor& visitor)
    {
        for (const auto& chunk : chunks)
            for (const Slot& slot : chunk->slots)
                if (!slot.record.isNull())
                    visitor(view(slot.id), slot.record);
    }

  public:
    /// The entries as they stood when it was taken. The records themselves are the shared ones.
    class Snapshot {
      public:
        /// Calls visitor(std::string_view id, const Record&) for every entry in order of insertion.
        template <typename Visitor>
        void forEach(Visitor visitor) const
        {
            visit(chunks_, visitor);
        }

      private:
        friend class RecordTable;
        Chunks chunks_;
    };

    RecordTable() = default;
    RecordTable(RecordTable&& other) noexcept { swap(other); }
    RecordTable& operator=(RecordTable&& other) noexcept
    {
        RecordTable(std::move(other)).swap(*this);
        return *this;
    }
    ~RecordTable() = default;

    [[nodiscard]] qsizetype size() const { return size_; }
    [[nodiscard]] bool isEmpty() const { return size_ == 0; }

    /// The record, or none when there is no such id.
    [[nodiscard]] Record find(std::string_view id) const;
    [[nodiscard]] Record find(const QString& id) const { return find(view(id.toUtf8())); }
    /// The number of the entry's place, below placeCount(); none when there is no such id. An entry keeps its
    /// place while others come and go, until so many were removed that the table is packed anew.
    [[nodiscard]] std::optional<std::size_t> placeOf(std::string_view id) const;
    [[nodiscard]] std::size_t placeCount() const { return slotCount_; }
    /// Another number whenever the entries may have other places than before.
    [[nodiscard]] std::uint64_t placing() const { return placing_; }
    [[nodiscard]] bool contains(std::string_view id) const { return !find(id).isNull(); }
    [[nodiscard]] bool contains(const QString& id) const { return !find(id).isNull(); }

    /// Adds the record at the end; a record that stands under that id already is replaced in its place.
    void insert(std::string_view id, const Record& record);
    void insert(const QString& id, const Record& record) { insert(view(id.toUtf8()), record); }
    /// Whether there was such an entry.
    bool remove(std::string_view id);
    bool remove(const QString& id) { return remove(view(id.toUtf8())); }
    void clear() { *this = RecordTable(); }

    /// The records in order of insertion.
    [[nodiscard]] QList<Record> records() const;
    /// Calls visitor(std::string_view id, const Record&) for every entry in order of insertion. The visitor
    /// must not change the table.
    template <typename Visitor>
    void forEach(Visitor visitor) const
    {
        visit(chunks_, visitor);
    }

    /// Calls visitor(std::size_t place, const Record&) for every place in order; a removed entry's record is
    /// none. The visitor must not change the table.
    template <typename Visitor>
    void forEachPlace(Visitor visitor) const
    {
        std::size_t place = 0;
        for (const auto& chunk : chunks_)
            for (const Slot& slot : chunk->slots)
                visitor(place++, slot.record);
    }

    /// Freezes the entries. Costs one pointer per chunk of entries now, and one copied chunk per chunk that
    /// is changed later.
    [[nodiscard]] Snapshot snapshot();

  private:
    struct Bucket {
        std::uint32_t hash = 0;
        std::uint32_t place = 0; // slot number + 1; 0 is empty
    };

    void swap(RecordTable& other) noexcept
    {
        std::swap(chunks_, other.chunks_);
        std::swap(buckets_, other.buckets_);
        std::swap(slotCount_, other.slotCount_);
        std::swap(size_, other.size_);
        std::swap(epoch_, other.epoch_);
        std::swap(placing_, other.placing_);
    }
    static std::string_view view(const QByteArray& bytes)
    {
        return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
    }
    /// A number that no table has had before.
    static std::uint64_t newPlacing();
    [[nodiscard]] const Slot& slot(std::size_t number) const;
    Slot& changeableSlot(std::size_t number);
    /// The bucket that holds the id, or the empty one where it would go.
    [[nodiscard]] std::size_t bucketOf(std::string_view id, std::uint32_t hash) const;
    void append(std::string_view id, const Record& record);
    /// Makes the index anew for at least that many entries, leaving the removed ones behind.
    void rebuild(std::size_t capacity);

    Chunks chunks_;
    std::vector<Bucket> buckets_; // open addressing, a power of two
    std::size_t slotCount_ = 0;   // with the removed ones
    qsizetype size_ = 0;
    // A chunk of an older epoch may stand in a snapshot, so it is copied before it is changed. Asking its
    // reference count instead would need the count's owners to synchronise.
    std::uint64_t epoch_ = 0;
    std::uint64_t placing_ = newPlacing();
};

} // namespace zib
