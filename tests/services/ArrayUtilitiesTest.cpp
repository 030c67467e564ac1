// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: identity taken for equality and the reverse, indexes off by one, moves that land beside their aim.
#include "services/utilities/ArrayUtilities.h"

#include "records/PropertyValue.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

Record track(const char* id, const char* name = "")
{
    return Record::make({{keys::Id, QString::fromUtf8(id)}, {keys::Name, QString::fromUtf8(name)}});
}

TEST(ArrayUtilities, FindsPositionsByContent)
{
    const Record unnamed = Record::make({{keys::Name, QStringLiteral("no id")}});
    const QList<Record> list{track("a"), track("b"), track("a"), track("a", "other"), unnamed};
    EXPECT_EQ(indexesOfObjects(list, {track("a")}), QList<qsizetype>{0});
    EXPECT_EQ(indexesOfObjects(list, {track("a", "other"), track("b")}), (QList<qsizetype>{1, 3}));
    EXPECT_EQ(indexesOfObjects(list, {track("a"), track("a"), track("x")}), QList<qsizetype>{0});
    EXPECT_EQ(indexesOfObjects(list, {unnamed.copy()}), QList<qsizetype>{4});
    EXPECT_EQ(indexesOfObjects(list, {}), QList<qsizetype>{});
    EXPECT_EQ(indexesOfObjects({}, {track("a")}), QList<qsizetype>{});
}

TEST(ArrayUtilities, ContainsByIdentity)
{
    const Record a = track("a");
    const QList<Record> list{a, track("b")};
    EXPECT_TRUE(containsObjectIdenticalTo(list, a));
    EXPECT_FALSE(containsObjectIdenticalTo(list, a.copy()));
    EXPECT_TRUE(containsAnyObjectsIdenticalTo(list, {track("b"), list[1]}));
    EXPECT_FALSE(containsAnyObjectsIdenticalTo(list, {a.copy(), track("b")}));
    EXPECT_FALSE(containsAnyObjectsIdenticalTo(list, {}));
}

TEST(ArrayUtilities, IndexesCopiesFromZeroAndTheRecordsThemselvesFromOne)
{
    const QList<Record> list{track("a"), track("b")};
    const QList<Record> copies = indexedArray(list);
    ASSERT_EQ(copies.size(), 2);
    EXPECT_EQ(copies[1].integer(keys::Index), 1);
    EXPECT_EQ(copies[1].string(keys::Id), QStringLiteral("b"));
    EXPECT_FALSE(list[1].contains(keys::Index));

    const QList<Record> same = indexedArrayWithArray(list);
    EXPECT_TRUE(same[0].isSame(list[0]));
    EXPECT_EQ(list[0].integer(keys::Index), 1);
    EXPECT_EQ(list[1].integer(keys::Index), 2);
    EXPECT_EQ(copies[1].integer(keys::Index), 1);
}

TEST(ArrayUtilities, MovesToTheIndexNamed)
{
    struct Case {
        const char* list;
        char moved;
        int to;
        const char* result;
    };
    const Case cases[] = {
        {"ABC", 'A', 2, "BCA"},  {"ABC", 'C', 0, "CAB"},  {"ABC", 'A', 1, "BAC"}, {"ABC", 'B', 1, "ABC"},
        {"ABC", 'X', 1, "AXBC"}, {"ABC", 'X', 3, "ABCX"}, {"ABC", 'A', 9, "BCA"}, {"ABC", 'X', -1, "XABC"},
        {"ABA", 'A', 1, "BAA"},  {"", 'X', 0, "X"},
    };
    for (const Case& entry : cases) {
        QList<char> list(entry.list, entry.list + strlen(entry.list));
        moveObject(list, entry.moved, entry.to);
        EXPECT_EQ(std::string(list.begin(), list.end()), entry.result)
            << entry.moved << " of " << entry.list << " to " << entry.to;
    }
}

} // namespace
} // namespace zib
