// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: an archive that other programs cannot read, one of theirs that this program cannot, and one that was
// made to crash it, to hang it or to fill its memory.
// A program of its own: starting a process blinds the thread sanitizer for the tests that come after.
#include "records/KeyedArchive.h"
#include "tests/records/EveryKindOfValue.h"

#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace zib {
namespace {

/// What a Python script answers to those bytes.
QByteArray python(const char* script, const QByteArray& input = {})
{
    QProcess process;
    process.start(QStandardPaths::findExecutable(QStringLiteral("python3")),
                  {QStringLiteral("-c"), QString::fromUtf8(script)});
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return process.readAllStandardOutput();
}

Record playlist()
{
    const Record shared =
        Record::make({{keys::Name, QStringLiteral("Ünder 歌")},
                      {keys::Artist, QStringLiteral("Ann")},
                      {keys::Duration, 215},
                      {keys::Favorite, true},
                      {keys::Hotness, 0.5},
                      {keys::FoundDate, QDateTime(QDate(2010, 5, 1), QTime(12, 0), Qt::UTC)}});
    return Record::make({{keys::Name, QStringLiteral("Ann")},
                         {keys::ShareId, qint64(1) << 40U},
                         {keys::Year, -1},
                         {keys::Tracks, PropertyArray{shared, shared}}});
}

TEST(KeyedArchive, TheGraphIsWhatAnotherReaderExpects)
{
    const QByteArray answer = python(R"(
import datetime, plistlib, sys
archive = plistlib.loads(sys.stdin.buffer.read(), fmt=plistlib.FMT_BINARY)
assert set(archive) == {'$archiver', '$version', '$top', '$objects'}, archive
assert archive['$archiver'] == 'NSKeyedArchiver' and archive['$version'] == 100000
objects = archive['$objects']
assert objects[0] == '$null'
assert archive['$top'] == {'root': plistlib.UID(1)}
assert sum(1 for o in objects if o == 'Ann') == 1 and sum(1 for o in objects if o == 'Name') == 1
classes = [o for o in objects if isinstance(o, dict) and '$classname' in o]
assert all(o['$classes'][0] == o['$classname'] and o['$classes'][-1] == 'NSObject' for o in classes)
assert sorted(o['$classname'] for o in classes) == ['NSDate', 'NSMutableArray', 'NSMutableDictionary']
def at(uid):
    assert isinstance(uid, plistlib.UID)
    o = objects[uid.data]
    if not isinstance(o, dict):
        return o
    name = objects[o['$class'].data]['$classname']
    if name == 'NSDate':
        assert type(o['NS.time']) is float
        return datetime.datetime(2001, 1, 1) + datetime.timedelta(seconds=o['NS.time'])
    if name == 'NSMutableArray':
        return [at(e) for e in o['NS.objects']]
    return dict(zip([at(k) for k in o['NS.keys']], [at(v) for v in o['NS.objects']], strict=True))
tracks = objects[next(v for k, v in zip(objects[1]['NS.keys'], objects[1]['NS.objects']) if at(k) == 'Tracks').data]
assert tracks['NS.objects'][0] == tracks['NS.objects'][1]
song = {'Name': 'Ünder 歌', 'Artist': 'Ann', 'Duration': 215, 'Favorite': True, 'Hotness': 0.5,
        'Found Date': datetime.datetime(2010, 5, 1, 12)}
assert at(plistlib.UID(1)) == {'Name': 'Ann', 'Share ID': 2**40, 'Year': -1, 'Tracks': [song, song]}
assert at(plistlib.UID(1))['Tracks'][0]['Favorite'] is True
print('agreed')
)",
                                     archivedData(playlist()));
    EXPECT_EQ(answer, "agreed\n");
}

TEST(KeyedArchive, EveryValueComesBackAndWhatIsSharedStaysShared)
{
    const auto every = unarchivedValue(archivedData(everyKindOfValue()));
    ASSERT_TRUE(every) << qUtf8Printable(every.error());
    EXPECT_EQ(*every, PropertyValue(everyKindOfValue()));

    const auto read = unarchivedValue(archivedData(playlist()));
    ASSERT_TRUE(read) << qUtf8Printable(read.error());
    const QList<Record> tracks = read->get<Record>()->records(keys::Tracks);
    ASSERT_EQ(tracks.size(), 2);
    EXPECT_TRUE(tracks[0].isSame(tracks[1]));

    PropertyValue deep = QStringLiteral("bottom");
    for (int level = 0; level < keyedArchiveDepth; ++level)
        deep = PropertyArray{deep};
    const auto deepest = unarchivedValue(archivedData(deep));
    ASSERT_TRUE(deepest);
    EXPECT_EQ(*deepest, deep);
    EXPECT_TRUE(archivedData(PropertyArray{deep}).isNull());
    EXPECT_TRUE(archivedData(PropertyArray{PropertyValue()}).isNull());
}

/// Archives by another hand, a line each: a name, a tab, base64. Those called "ok..." hold the list
/// [{"Name": "Song", "Year": 1999}, "Song", 2010-05-01], all others are broken.
constexpr const char* archivesOfAnotherHand = R"(
import base64, plistlib
from plistlib import UID
def cls(*names): return {'$classname': names[0], '$classes': [*names, 'NSObject']}
def dump(name, objects, root=UID(1), fmt=plistlib.FMT_BINARY, **more):
    archive = {'$archiver': 'NSKeyedArchiver', '$version': 100000, '$top': {'root': root}, '$objects': objects} | more
    print(name, base64.b64encode(plistlib.dumps(archive, fmt=fmt)).decode(), sep='\t')
def good(prefix=''):
    mutable = bool(prefix)
    return ['$null', {'NS.objects': [UID(2), UID(4), UID(6)], '$class': UID(8)},
            {'NS.keys': [UID(3), UID(9)], 'NS.objects': [UID(4), UID(10)], '$class': UID(7)}, 'Name',
            {'NS.string': 'Song', '$class': UID(11)} if mutable else 'Song', UID(0),
            {'NS.time': 294408000.25, '$class': UID(12)},
            cls(prefix and 'NSMutableDictionary' or 'NSDictionary', 'NSDictionary'),
            cls(prefix and 'NSMutableArray' or 'NSArray', 'NSArray'), 'Year', 1999,
            cls(prefix and 'NSMutableString' or 'NSString', 'NSString'), cls('NSDate')]
def changed(place, value):
    objects = good()
    objects[place] = value
    return objects
dump('ok', good())
dump('ok changeable', good('Mutable'))
objects = good()
objects[2]['NS.keys'].append(UID(13)); objects[2]['NS.objects'].append(UID(14))
dump('ok null', objects + ['Genre', {'$class': UID(15)}, cls('NSNull')])
objects = good()
objects[2]['NS.keys'].append(UID(13)); objects[2]['NS.objects'].append(UID(0))
dump('ok nothing', objects + ['Genre'])

dump('another archiver', good(), **{'$archiver': 'Archiver'})
dump('another version', good(), **{'$version': 99999})
dump('no top', good(), **{'$top': []})
dump('no root', good(), root=1)
dump('no objects', {})
dump('root beyond', good(), root=UID(99))
dump('itself', changed(2, {'NS.objects': [UID(1)], '$class': UID(8)}))
dump('its own class', changed(1, {'NS.objects': [], '$class': UID(1)}))
dump('no class', changed(1, {'NS.objects': []}))
dump('null class', changed(1, {'NS.objects': [], '$class': UID(0)}))
dump('unknown class', changed(8, cls('Zombie', 'NSArray')))
dump('class is text', changed(8, 'NSArray'))
dump('bare list', changed(1, [UID(2)]))
dump('part is no reference', changed(1, {'NS.objects': ['Song'], '$class': UID(8)}))
dump('parts missing', changed(1, {'$class': UID(8)}))
dump('uneven', changed(2, {'NS.keys': [UID(3)], 'NS.objects': [], '$class': UID(7)}))
dump('key is number', changed(3, 7))
dump('date is text', changed(6, {'NS.time': 'now', '$class': UID(12)}))
dump('date not finite', changed(6, {'NS.time': float('nan'), '$class': UID(12)}))
dump('string is number', changed(4, {'NS.string': 7, '$class': UID(11)}))
dump('string without', changed(4, {'$class': UID(11)}))
dump('deep', ['$null', *[{'NS.objects': [UID(i + 2)], '$class': UID(100)} for i in range(98)], 'x', cls('NSArray')])
dump('unfolds', ['$null', *[{'NS.objects': [UID(i + 2)] * 10, '$class': UID(21)} for i in range(19)], 'x', cls('NSArray')])
dump('long text often', ['$null', {'NS.objects': [UID(2)] * 1000, '$class': UID(3)}, 'x' * 100000, cls('NSArray')])
dump('many', ['$null', {'NS.objects': [], '$class': UID(2)}, cls('NSArray')] + [1] * 100000)
dump('large', changed(4, 'x' * 2000000))
)";

TEST(KeyedArchive, ArchivesOfAnotherHandAreReadAndHostileOnesRefused)
{
    const PropertyValue expected =
        PropertyArray{Record::make({{keys::Name, QStringLiteral("Song")}, {keys::Year, 1999}}),
                      QStringLiteral("Song"), QDateTime(QDate(2010, 5, 1), QTime(12, 0), Qt::UTC)};
    int good = 0;
    int broken = 0;
    for (const QByteArray& line : python(archivesOfAnotherHand).trimmed().split('\n')) {
        const QByteArray name = line.split('\t').value(0);
        SCOPED_TRACE(name.constData());
        const QByteArray archive = QByteArray::fromBase64(line.split('\t').value(1));
        const auto value = unarchivedValue(archive);
        if (name.startsWith("ok")) {
            ++good;
            ASSERT_TRUE(value) << qUtf8Printable(value.error());
            EXPECT_EQ(*value, expected);
        } else {
            ++broken;
            ASSERT_FALSE(value);
            EXPECT_TRUE(value.error().startsWith(QLatin1String("keyed archive: ")))
                << qUtf8Printable(value.error());
        }
    }
    EXPECT_EQ(good, 4);
    EXPECT_EQ(broken, 26);
}

TEST(KeyedArchive, CutOrAlteredAnywhereItIsAnErrorOrAnotherValue)
{
    const QByteArray archive = archivedData(playlist());
    for (qsizetype length = 0; length < archive.size(); ++length)
        EXPECT_FALSE(unarchivedValue(QByteArrayView(archive).first(length)));
    for (qsizetype place = 0; place < archive.size(); ++place) {
        for (const int change : {1, 0x80, 0xff}) {
            QByteArray altered = archive;
            altered[place] = static_cast<char>(altered[place] ^ change);
            static_cast<void>(unarchivedValue(altered));
        }
    }
}

} // namespace
} // namespace zib
