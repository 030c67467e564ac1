// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: an entry lost or doubled as the table grows, is thinned out and filled again, the order of insertion
// disturbed, and a snapshot that a later change reaches.
#include "records/RecordTable.h"

#include "records/PropertyValue.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

using namespace std::literals;

namespace zib {
namespace {

Record numbered(int number)
{
    return Record::make({{keys::Year, number}});
}

template <typename Entries>
QStringList listed(const Entries& entries)
{
    QStringList result;
    entries.forEach([&result](std::string_view id, const Record& record) {
        result.append(QStringLiteral("%1=%2")
                          .arg(QString::fromUtf8(id.data(), qsizetype(id.size())))
                          .arg(record.integer(keys::Year)));
    });
    return result;
}

TEST(RecordTable, KeepsTheOrderOfInsertion)
{
    RecordTable table;
    EXPECT_TRUE(table.find("a"sv).isNull());
    EXPECT_FALSE(table.remove("a"sv));
    table.insert("b"sv, numbered(1));
    table.insert("a"sv, numbered(2));
    table.insert("c"sv, numbered(3));
    table.insert("b"sv, numbered(4));
    EXPECT_EQ(listed(table),
              QStringList({QStringLiteral("b=4"), QStringLiteral("a=2"), QStringLiteral("c=3")}));
    EXPECT_TRUE(table.remove("b"sv));
    EXPECT_FALSE(table.contains("b"sv));
    table.insert("b"sv, numbered(5));
    EXPECT_EQ(listed(table),
              QStringList({QStringLiteral("a=2"), QStringLiteral("c=3"), QStringLiteral("b=5")}));
    EXPECT_EQ(table.size(), 3);
    table.insert(""sv, numbered(6));
    EXPECT_EQ(table.find(QString()).integer(keys::Year), 6);

    const RecordTable moved = std::move(table);
    EXPECT_EQ(moved.size(), 4);
}

TEST(RecordTable, AgreesWithAMapThroughRandomChanges)
{
    std::mt19937 random(7); // NOLINT(bugprone-random-generator-seed): the same run every time
    RecordTable table;
    std::map<std::string, int> expected;
    for (int step = 0; step < 40000; ++step) {
        const std::string id = std::to_string(random() % 3000);
        if (random() % 3 == 0) {
            EXPECT_EQ(table.remove(id), expected.erase(id) == 1);
        } else {
            table.insert(id, numbered(step));
            expected[id] = step;
        }
        if (step % 1000 == 0)
            static_cast<void>(table.snapshot());
    }
    ASSERT_EQ(table.size(), qsizetype(expected.size()));
    for (const auto& [id, number] : expected)
        EXPECT_EQ(table.find(id).integer(keys::Year), number) << id;
    int entries = 0;
    table.forEach([&](std::string_view id, const Record& record) {
        ++entries;
        EXPECT_EQ(expected.at(std::string(id)), record.integer(keys::Year));
    });
    EXPECT_EQ(entries, table.size());
}

TEST(RecordTable, ASnapshotStaysAsItWas)
{
    RecordTable table;
    for (int number = 0; number < 1000; ++number)
        table.insert(std::to_string(number), numbered(number));
    const QStringList before = listed(table);
    const RecordTable::Snapshot snapshot = table.snapshot();
    for (int number = 0; number < 1000; number += 3)
        table.insert(std::to_string(number), numbered(-number));
    for (int number = 1; number < 1000; number += 3)
        table.remove(std::to_string(number));
    for (int number = 1000; number < 3000; ++number)
        table.insert(std::to_string(number), numbered(number));
    const RecordTable::Snapshot later = table.snapshot();
    const QStringList after = listed(table);
    table.clear();
    EXPECT_EQ(listed(snapshot), before);
    EXPECT_EQ(listed(later), after);
    EXPECT_EQ(after.size(), 2667);
}

} // namespace
} // namespace zib
