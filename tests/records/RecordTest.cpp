// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: identity and equality confused, a change that leaks into a copy, a key that is lost.
#include "records/Record.h"
#include "records/PropertyValue.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

TEST(Record, HandlesShareOneObjectAndCopiesDoNot)
{
    Record a = Record::make({{keys::Name, QStringLiteral("Song")}});
    const Record same = a;
    const Record copy = a.copy();
    EXPECT_TRUE(a.isSame(same));
    EXPECT_FALSE(a.isSame(copy));
    EXPECT_EQ(a, copy);

    a.set(keys::Favorite, true);
    EXPECT_TRUE(same.boolean(keys::Favorite));
    EXPECT_FALSE(copy.contains(keys::Favorite));
    EXPECT_FALSE(a == copy);

    a.remove(keys::Favorite);
    EXPECT_EQ(a, copy);
}

} // namespace
} // namespace zib
