// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SourceTypes.h"
#include "library/TextOrder.h"
#include "records/Record.h"
#include "records/RecordFields.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace zib {

class RecordTable;

/// Names, each with a number, and their order.
class NameNumbers {
  public:
    using Number = std::uint32_t;
    using Less = bool (*)(const QString& a, const QString& b);

    explicit NameNumbers(Less less)
        : less_(less)
    {
    }

    Number number(std::string_view utf8);
    [[nodiscard]] const QStringList& names() const { return names_; }
    /// All numbers in the order of their names.
    const std::vector<Number>& inOrder();

  private:
    Less less_;
    QHash<QByteArray, Number> numbers_;
    QStringList names_;
    std::vector<Number> order_; // of the names when it was last asked for
};

/// What the artist and album browsers ask of one table of songs, answered without reading every song anew:
/// it remembers what it read of a record's content, which never changes, as long as the record has that
/// content. Main thread.
class BrowserIndex {
  public:
    /// Which songs are wanted. An artist or an album that is not set is any.
    struct Choice {
        FilterType filter = FilterType::All;
        std::optional<QString> artist; ///< a pattern of WildcardMatch
        std::optional<QString> album;  ///< a pattern without an artist, a name with one
    };

    /// Both outlive the index.
    BrowserIndex(const RecordTable& table, const TextCollation& collation);

    /// Reads what has changed in the table. The answers below are those of the last refresh.
    void refresh();

    /// The distinct artists, without regard to a leading "the " and to case.
    [[nodiscard]] QStringList artists(FilterType filter);
    /// The distinct albums in the order of their characters.
    [[nodiscard]] QStringList albums(FilterType filter, const std::optional<QString>& artist);
    /// The songs in the table's order, each a copy with its "Index".
    [[nodiscard]] QList<Record> tracks(const Choice& choice) const { return tracks(choice, nullptr); }
    /// places: is filled with the place of each song in the table.
    [[nodiscard]] QList<Record> tracks(const Choice& choice, std::vector<std::uint32_t>* places) const;
    /// The table's, at the last refresh.
    [[nodiscard]] std::uint64_t placing() const { return placing_; }

    /// The order of the texts of one field, by the places of the table.
    const TextOrder& order(RecordKey key);

  private:
    static constexpr NameNumbers::Number noName = UINT32_MAX;
    struct Entry {
        RecordFields fields;
        NameNumbers::Number artist = noName;
        NameNumbers::Number album = noName;
        std::uint8_t filters = 0; // a bit per FilterType that it passes
    };
    struct Column {
        explicit Column(const TextCollation& collation)
            : order(collation)
        {
        }
        TextOrder order;
        std::vector<std::uint32_t> changed; // places whose text the order does not know yet
    };
    using Marks = std::vector<bool>; // by name number

    void read(std::size_t place, const Record& record);
    [[nodiscard]] static bool passes(const Entry& entry, FilterType filter);
    /// Those names, in their order.
    [[nodiscard]] static QStringList marked(const Marks& marks, NameNumbers& names);
    [[nodiscard]] static Marks matching(const NameNumbers& names, const QString& pattern);
    [[nodiscard]] static bool isMarked(const Marks& marks, NameNumbers::Number number);

    const RecordTable& table_;
    const TextCollation& collation_;
    std::vector<Entry> entries_; // by place
    std::uint64_t placing_ = 0;
    NameNumbers artists_;
    NameNumbers albums_;
    std::map<RecordKey, Column> columns_;
};

} // namespace zib
