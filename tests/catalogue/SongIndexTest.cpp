// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts an index that differs from what lies in the folders: songs missed, kept after they went, read again
// though unchanged, or a walk that never ends.
#include "catalogue/SongIndex.h"

#include "catalogue/MusicCatalogue.h"
#include "catalogue/TextMatching.h"
#include "tests/catalogue/FakeDemoSongs.h"
#include "tests/catalogue/WavFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSet>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <taglib/tpropertymap.h>
#include <taglib/wavfile.h>

#include <sys/stat.h>
#include <unistd.h>

namespace zib {
namespace {

using namespace Qt::StringLiterals;

class SongIndexTest : public testing::Test {
  protected:
    SongIndexTest() { QDir(folder_.path()).mkpath(u"music"_s); }

    [[nodiscard]] QString path(const QString& name) const { return folder_.filePath(u"music/"_s + name); }
    [[nodiscard]] QByteArray root() const { return QFile::encodeName(folder_.filePath(u"music"_s)); }

    void write(const QString& name, const QByteArray& bytes = wavFile(1))
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    void tag(const QString& name, const TagLib::PropertyMap& properties)
    {
        TagLib::RIFF::WAV::File file(QFile::encodeName(path(name)).constData());
        file.setProperties(properties);
        ASSERT_TRUE(file.save());
    }

    SongIndex::Update update() { return index_.update({root()}, reader_); }

    [[nodiscard]] QStringList titles(const QString& artist) const
    {
        QStringList titles;
        for (const auto& song : index_.songs(folded(artist), 10000))
            titles.append(song.tags.title);
        return titles;
    }

    [[nodiscard]] QStringList artistNames() const
    {
        QStringList names;
        for (const auto& artist : *index_.artists())
            names.append(artist.name);
        return names;
    }

    QTemporaryDir folder_;
    TagFileReader reader_;
    SongIndex index_{*Database::open(folder_.filePath(u"index.sqlite"_s), SongIndex::schema())};
};

TEST_F(SongIndexTest, ReadsTagsAndFillsInFromTheFolders)
{
    write(u"any/where.wav"_s, wavFile(3));
    tag(u"any/where.wav"_s, {});
    TagLib::PropertyMap properties;
    properties["ARTIST"] = TagLib::String("Björn", TagLib::String::UTF8);
    properties["ALBUM"] = TagLib::String("Vor");
    properties["TITLE"] = TagLib::String("First");
    properties["GENRE"] = TagLib::String("Folk; Acoustic");
    properties["DATE"] = TagLib::String("2011-05-04T00:00:00");
    properties["TRACKNUMBER"] = TagLib::String("7");
    properties["DISCNUMBER"] = TagLib::String("2/3");
    properties["LABEL"] = TagLib::String("Quay");
    properties["RELEASECOUNTRY"] = TagLib::String("IS");
    properties["MUSICBRAINZ_ALBUMID"] = TagLib::String("0A1B2C3D-1111-2222-3333-444455556666");
    properties["LYRICS"] = TagLib::String("[00:01.50]One\r\n[00:02.00] [00:09.00]Two [2]\r\n");
    tag(u"any/where.wav"_s, properties);
    write(u"Amber Tide/Low/02 - Ebb.wav"_s);
    write(u"Amber Tide/01. Flow.wav"_s);
    write(u"loose.wav"_s);
    update();

    EXPECT_EQ(artistNames(), (QStringList{u"Amber Tide"_s, u"Björn"_s, u"Unknown Artist"_s}));
    const auto songs = index_.songs(u"bjorn"_s, 10);
    ASSERT_EQ(songs.size(), 1);
    const auto& tags = songs.first().tags;
    EXPECT_EQ(tags.album, u"Vor"_s);
    EXPECT_EQ(tags.title, u"First"_s);
    EXPECT_EQ(tags.year, 2011);
    EXPECT_EQ(tags.track, 7);
    EXPECT_EQ(tags.seconds, 3);
    EXPECT_EQ(tags.milliseconds, 3000);
    EXPECT_EQ(tags.disc, 2);
    EXPECT_EQ(tags.date, u"2011-05-04"_s);
    EXPECT_EQ(tags.label, u"Quay"_s);
    EXPECT_EQ(tags.country, u"IS"_s);
    EXPECT_FALSE(tags.hasPicture);
    EXPECT_EQ(index_.lyrics(songs.first().id), u"One\nTwo [2]"_s);
    const auto release = index_.songsOfRelease(u"0a1b2c3d-1111-2222-3333-444455556666"_s, 10);
    ASSERT_EQ(release.size(), 1);
    EXPECT_EQ(release.first().id, songs.first().id);
    EXPECT_EQ(index_.artists()->at(1).tags, (QStringList{u"acoustic"_s, u"folk"_s}));

    EXPECT_EQ(titles(u"Amber Tide"_s), (QStringList{u"Flow"_s, u"Ebb"_s}));
    EXPECT_EQ(index_.songs(u"amber tide"_s, 10).last().tags.album, u"Low"_s);
    EXPECT_EQ(titles(u"Unknown Artist"_s), QStringList{u"loose"_s});
}

TEST_F(SongIndexTest, ReadsWhatIsSungFromEveryKindOfFile)
{
    write(u"plain.wav"_s);
    const QStringList kinds{u"mp3"_s, u"m4a"_s, u"flac"_s, u"ogg"_s, u"opus"_s};
    for (const QString& kind : kinds)
        EXPECT_EQ(QProcess::execute(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, path(u"plain.wav"_s),
                                                  u"-ar"_s, u"48000"_s, u"-metadata"_s, u"lyrics=La\nla"_s,
                                                  u"-metadata"_s, u"artist=A"_s, path(u"song."_s + kind)}),
                  0);
    update();
    const auto songs = index_.songs(u"a"_s, 10);
    EXPECT_EQ(songs.size(), kinds.size());
    for (const auto& song : songs)
        EXPECT_EQ(index_.lyrics(song.id), u"La\nla"_s) << song.path.constData();
}

TEST_F(SongIndexTest, FollowsTheFolderAsItChanges)
{
    write(u"A/one.wav"_s);
    write(u"A/two.wav"_s);
    EXPECT_EQ(update().read, 2);
    const auto ids = index_.songs(u"a"_s, 10);
    EXPECT_EQ(ids.first().id, SongIndex::songId(QFile::encodeName(path(u"A/one.wav"_s))));
    EXPECT_EQ(ids.first().id.size(), 32);

    auto again = update();
    EXPECT_EQ(again.read, 0);
    EXPECT_TRUE(again.complete);

    write(u"A/two.wav"_s, wavFile(5)); // another size
    write(u"A/three.wav"_s);
    again = update();
    EXPECT_EQ(again.read, 2);
    EXPECT_EQ(again.removed, 0);
    EXPECT_EQ(index_.song(SongIndex::songId(QFile::encodeName(path(u"A/two.wav"_s))))->tags.seconds, 5);

    QFile one(path(u"A/one.wav"_s)); // the same size, another time
    ASSERT_TRUE(one.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        one.setFileTime(QDateTime::fromSecsSinceEpoch(1000000000), QFileDevice::FileModificationTime));
    one.close();
    EXPECT_EQ(update().read, 1);

    ASSERT_TRUE(QFile::remove(path(u"A/one.wav"_s)));
    EXPECT_EQ(update().removed, 1);
    EXPECT_EQ(titles(u"A"_s), (QStringList{u"three"_s, u"two"_s}));
    EXPECT_FALSE(index_.song(ids.first().id));

    index_.keepOnly({root()});
    EXPECT_EQ(index_.songCount(), 2);
    index_.keepOnly({"/elsewhere"});
    EXPECT_EQ(index_.songCount(), 0);
    EXPECT_TRUE(index_.artists()->isEmpty());
}

TEST_F(SongIndexTest, TakesAThousandFilesWithBrokenOnesAmongThem)
{
    const QList<QByteArray> broken{"", "ID3", "RIFF\xff\xff\xff\xffWAVE", QByteArray(500, '\0'),
                                   wavFile(1).left(20)};
    for (int i = 0; i < 1000; ++i) {
        const QString name = u"Artist %1/Song %2.wav"_s.arg(i % 50).arg(i);
        write(name, i % 20 == 0 ? broken.at(i / 20 % broken.size()) : wavFile(1));
    }
    write(u"notes.txt"_s, "no song");
    const auto first = update();
    EXPECT_EQ(first.read, 1000);
    EXPECT_EQ(first.unplayable, 50);
    EXPECT_EQ(index_.songCount(), 950);
    EXPECT_EQ(update().read, 0); // the broken ones are not tried again
}

TEST_F(SongIndexTest, EndsInLoopsAndPassesWhatCannotBeRead)
{
    write(u"A/song.wav"_s);
    write(u".hidden/secret.wav"_s);
    write(u"A/.part.wav"_s);
    QDir().mkpath(path(u"A/deeper"_s));
    ASSERT_TRUE(QFile::link(folder_.filePath(u"music"_s), path(u"A/deeper/loop"_s)));
    ASSERT_TRUE(QFile::link(path(u"A/song.wav"_s), path(u"A/deeper/same.wav"_s)));
    ASSERT_TRUE(QFile::link(path(u"nowhere"_s), path(u"A/dangling.wav"_s)));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(u"A/pipe.wav"_s)).constData(), 0600), 0);
    QString deep = u"deep"_s;
    for (int i = 0; i < 80; ++i)
        deep += u"/d"_s;
    write(deep + u"/bottom.wav"_s);
    const auto files = musicFiles({root(), "/no/such/folder"});
    ASSERT_EQ(files.size(), 1);
    EXPECT_TRUE(files.first().path.startsWith(root() + "/A/"));
}

TEST_F(SongIndexTest, KeepsNamesThatAreNoText)
{
    QFile source(path(u"A/a.wav"_s));
    write(u"A/a.wav"_s);
    const QByteArray odd = root() + "/A/\xff\xfe.wav";
    ASSERT_EQ(::rename(QFile::encodeName(source.fileName()).constData(), odd.constData()), 0);
    update();
    const auto song = index_.song(SongIndex::songId(odd));
    ASSERT_TRUE(song);
    EXPECT_EQ(song->path, odd);
    ::unlink(odd.constData()); // the temporary folder cannot name it
}

TEST_F(SongIndexTest, StopsWhenTold)
{
    for (int i = 0; i < 20; ++i)
        write(u"A/%1.wav"_s.arg(i));
    class StoppingReader final : public TagReader {
      public:
        std::optional<SongTags> read(const QByteArray&) override
        {
            if (++reads == 5)
                stop.request_stop();
            return SongTags();
        }
        int reads = 0;
        std::stop_source stop;
    } reader;
    EXPECT_FALSE(index_.update({root()}, reader, {}, reader.stop.get_token()).complete);
    EXPECT_EQ(reader.reads, 5);
    EXPECT_EQ(index_.songCount(), 5); // and goes on from there
    EXPECT_EQ(update().read, 15);
}

TEST_F(SongIndexTest, JoinsTheDemoSongs)
{
    FakeDemoSongs demo(folder_.path());
    demo.addArtist(u"Amber Tide"_s, {u"ambient"_s}, 0.4,
                   {{QString(32, u'a'), u"Demo"_s, 60, u"mp3"_s, u"audio/mpeg"_s}});
    const PlayCounts plays(*Database::open(folder_.filePath(u"index.sqlite"_s), SongIndex::schema()));
    const MusicCatalogue catalogue(demo, index_, plays);
    EXPECT_EQ(catalogue.artists()->size(), 1);
    write(u"AMBER TIDE/own.wav"_s);
    write(u"Other/own.wav"_s);
    update();
    const auto artists = catalogue.artists();
    ASSERT_EQ(artists->size(), 2);
    EXPECT_EQ(artists->first().name, u"Amber Tide"_s);
    QStringList titles;
    for (const auto& song : catalogue.songs(u"amber tide"_s, 10))
        titles.append(song.title);
    EXPECT_EQ(titles, (QStringList{u"Demo"_s, u"own"_s}));
    EXPECT_EQ(catalogue.songCount(), 3);
}

TEST(DatabaseFile, RefusesWhatItDoesNotKnow)
{
    const QTemporaryDir folder;
    const QString newer = folder.filePath(u"newer.sqlite"_s);
    {
        const auto database = Database::open(newer, SongIndex::schema());
        ASSERT_TRUE(database);
        QSqlQuery query(database->connection());
        ASSERT_TRUE(query.exec(u"PRAGMA user_version = 99"_s));
    }
    EXPECT_FALSE(Database::open(newer, SongIndex::schema()));

    QFile garbage(folder.filePath(u"garbage.sqlite"_s));
    ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
    garbage.write(QByteArray(5000, 'x'));
    garbage.close();
    EXPECT_FALSE(Database::open(garbage.fileName(), SongIndex::schema()));
    EXPECT_FALSE(Database::open(folder.filePath(u"no/such/folder.sqlite"_s), SongIndex::schema()));
}

} // namespace
} // namespace zib
