// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: identity and equality confused, a change that leaks into a copy, a key that is lost, a value that
// comes back as another, and a snapshot that a later change or another thread tears.
#include "records/Record.h"

#include "records/PropertyValue.h"
#include "records/RecordFields.h"

#include <gtest/gtest.h>

#include <string>

#include <atomic>
#include <limits>
#include <thread>

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

TEST(Record, EveryValueComesBackAsItWasSet)
{
    const QDateTime date(QDate(1969, 7, 20), QTime(20, 17, 40), Qt::UTC);
    const PropertyValue values[] = {
        true,
        false,
        0,
        std::numeric_limits<qint64>::min(),
        std::numeric_limits<qint64>::max(),
        0.1,
        -std::numeric_limits<double>::infinity(),
        date,
        QString(),
        QStringLiteral("Beyonc\u00e9 \U0001F3B5"),
        QByteArray("\0\xff", 2),
        PropertyArray{1, QStringLiteral("two"), PropertyArray{}},
        Record::make({{keys::Name, QStringLiteral("nested")}}),
    };
    Record record = Record::make({{keys::Name, QStringLiteral("before")}, {keys::Username, true}});
    for (const PropertyValue& value : values) {
        for (const RecordKey key : {keys::Id, keys::Genre, keys::Index, keys::ShareId}) {
            record.set(key, value);
            EXPECT_EQ(record.value(key), value) << key.name();
            EXPECT_TRUE(record.contains(key)) << key.name();
            EXPECT_EQ(record.keys().count(key), 1) << key.name();
        }
        EXPECT_EQ(record.string(keys::Name), QStringLiteral("before"));
        EXPECT_TRUE(record.boolean(keys::Username));
    }
    record.set(keys::Genre, PropertyValue());
    EXPECT_FALSE(record.contains(keys::Genre));
}

TEST(Record, DatesKeepWholeSecondsAlsoBeforeTheEpoch)
{
    const QDateTime epoch = QDateTime::fromSecsSinceEpoch(0, Qt::UTC);
    const Record record = Record::make({{keys::FoundDate, epoch.addMSecs(1999)},
                                        {keys::PlayDate, epoch.addMSecs(-1)},
                                        {keys::Name, QDateTime()}});
    EXPECT_EQ(record.date(keys::FoundDate), epoch.addSecs(1));
    EXPECT_EQ(record.date(keys::PlayDate), epoch.addSecs(-1));
    EXPECT_FALSE(record.contains(keys::Name)) << "no date is no value";
}

TEST(Record, NumbersAndBooleansStandForEachOther)
{
    const struct {
        PropertyValue value;
        qint64 integer;
        bool boolean;
    } cases[] = {
        {3.9, 3, true},
        {-3.9, -3, true},
        {true, 1, true},
        {qint64(9007199254740993), 9007199254740993, true}, // no double holds it
        {1e300, std::numeric_limits<qint64>::max(), true},
        {std::numeric_limits<double>::quiet_NaN(), 0, true},
        {QStringLiteral("7"), 0, false},
    };
    for (const auto& test : cases) {
        const Record record = Record::make({{keys::Year, test.value}});
        EXPECT_EQ(record.integer(keys::Year), test.integer);
        EXPECT_EQ(record.boolean(keys::Year), test.boolean);
    }
    const Record none;
    EXPECT_EQ(none.integer(keys::Year), 0);
    EXPECT_TRUE(none.string(keys::Name).isEmpty());
    EXPECT_TRUE(none.utf8(keys::Name).empty());
}

TEST(Record, EqualityIsByContentAndType)
{
    const auto tracks = [](const QString& name) { return QList<Record>{Record::make({{keys::Name, name}})}; };
    const Record a =
        Record::make({{keys::Name, QStringLiteral("a")}, {keys::Tracks, tracks(QStringLiteral("x"))}});
    const Record turned =
        Record::make({{keys::Tracks, tracks(QStringLiteral("x"))}, {keys::Name, QStringLiteral("a")}});
    const Record other =
        Record::make({{keys::Name, QStringLiteral("a")}, {keys::Tracks, tracks(QStringLiteral("y"))}});
    EXPECT_EQ(a, turned);
    EXPECT_FALSE(a == other);
    EXPECT_FALSE(Record::make({{keys::Year, 1}}) == Record::make({{keys::Year, true}}));
    EXPECT_FALSE(Record::make({{keys::Name, QStringLiteral("ab")}, {keys::Album, QStringLiteral("c")}}) ==
                 Record::make({{keys::Name, QStringLiteral("a")}, {keys::Album, QStringLiteral("bc")}}));
    EXPECT_EQ(Record(), Record());
    EXPECT_FALSE(Record() == Record::make());
}

TEST(Record, TheIndexOfARowIsAFieldLikeAnyOther)
{
    const Record song = Record::make({{keys::Name, QStringLiteral("Song")}});
    Record shown = song.copy();
    shown.set(keys::Index, 7);
    EXPECT_EQ(shown.integer(keys::Index), 7);
    EXPECT_FALSE(shown == song);
    EXPECT_TRUE(shown.equalsButIndex(song));
    EXPECT_EQ(shown.copy(), shown);
    EXPECT_EQ(shown.snapshot(), shown);
    EXPECT_EQ(shown.fields(), song.fields()) << "never stored";

    shown.set(keys::Index, qint64(1) << 40); // no row, but kept all the same
    EXPECT_EQ(shown.integer(keys::Index), qint64(1) << 40);
    shown.set(keys::Index, 3);
    EXPECT_EQ(shown.integer(keys::Index), 3);
    shown.remove(keys::Index);
    EXPECT_EQ(shown, song);
}

TEST(RecordBuilder, TheLastOfEqualKeysHolds)
{
    RecordBuilder builder;
    builder.addText(keys::Name, "first");
    builder.addText(keys::Album, "album");
    builder.addInteger(keys::Name, 2);
    builder.addText(keys::Name, "last");
    builder.addInteger(keys::Id, 1);
    EXPECT_EQ(Record::make(builder.build()), Record::make({{keys::Id, 1},
                                                           {keys::Name, QStringLiteral("last")},
                                                           {keys::Album, QStringLiteral("album")}}));
    EXPECT_EQ(builder.build().size(), 0U) << "built means empty";

    // So many that they are put in order in another way.
    const auto keyOf = [](int number) { return RecordKey::named("key" + std::to_string(number)); };
    for (int number = 999; number >= 0; --number)
        builder.addInteger(keyOf(number % 100), number);
    const Record many = Record::make(builder.build());
    EXPECT_EQ(many.keys().size(), 100);
    for (int number = 0; number < 100; ++number)
        EXPECT_EQ(many.integer(keyOf(number)), number);
}

// Another thread reads while this one changes: what it sees is one of the states, whole.
TEST(Record, SnapshotsOnAnotherThreadAreWhole)
{
    const auto set = [](Record& record, qint64 state) {
        const QString text = QString::number(state);
        Record next = Record::make({{keys::PlayCount, state}, {keys::Name, text}, {keys::Album, text}});
        record.set(keys::Data, next);
        record.set(keys::Index, state);
    };
    Record record = Record::make();
    set(record, 0);
    std::atomic<bool> done = false;
    std::thread reader([&done, &record] {
        while (!done) {
            const Record state = record.snapshot().value(keys::Data).get<Record>()->snapshot();
            ASSERT_EQ(state.string(keys::Name), QString::number(state.integer(keys::PlayCount)));
            ASSERT_EQ(state.utf8(keys::Album), state.utf8(keys::Name));
            const RecordFields fields = record.fields();
            ASSERT_EQ(fields.size(), 1U);
        }
    });
    for (qint64 state = 1; state < 20000; ++state)
        set(record, state);
    done = true;
    reader.join();
}

} // namespace
} // namespace zib
