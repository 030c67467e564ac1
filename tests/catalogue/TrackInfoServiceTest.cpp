// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts replies about a song that the program's client cannot read or that are about another song, and covers
// that are missed, taken from elsewhere, or no pictures.
#include "catalogue/TrackInfoService.h"
#include "catalogue/SongPictures.h"
#include "services/SongInfoReply.h"
#include "tests/catalogue/FakeDemoSongs.h"
#include "tests/catalogue/WavFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>

#include <taglib/attachedpictureframe.h>
#include <taglib/id3v2tag.h>
#include <taglib/wavfile.h>

namespace zib {
namespace {

using namespace Qt::StringLiterals;

/// A picture of one pixel, as others make it too.
const QByteArray onePixel = QByteArray::fromBase64(
    "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNkYPhfDwAChwGA60e6kgAAAABJRU5ErkJggg==");
const QByteArray otherPicture = "\xff\xd8\xff other";

class TrackInfoServiceTest : public testing::Test {
  protected:
    TrackInfoServiceTest()
    {
        demo_.addArtist(u"Salt/Orchard"_s, {u"post-rock"_s, u"dream pop"_s}, 0.9,
                        {{QString(32, u'a'), u"Low & <High>"_s, 61, u"mp3"_s, u"audio/mpeg"_s,
                          u"They met by the sea & stayed."_s}});
        demo_.addArtist(u"Björn"_s, {u"post-rock"_s}, 0.5);
        catalogue_.emplace(demo_, index_, plays_);
        QDir(folder_.path()).mkpath(u"music/Own/Album"_s);
        write(u"music/Own/Album/Song.wav"_s, wavFile(1));
        update();
    }

    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    [[nodiscard]] QString path(const QString& name) const { return folder_.filePath(name); }
    [[nodiscard]] QByteArray encoded(const QString& name) const { return QFile::encodeName(path(name)); }
    void update() { index_.update({encoded(u"music"_s)}, reader_); }

    /// What the client makes of the reply.
    SongInfo ask(const QString& artist, const QString& track, const QByteArray& more = "&autocorrect=1")
    {
        HttpRequest request;
        request.host = "127.0.0.1:99";
        request.query =
            parsedQuery("method=track.getinfo&api_key=K&artist=" + QUrl::toPercentEncoding(artist) +
                        "&track=" + QUrl::toPercentEncoding(track) + more)
                .value();
        SongInfo info;
        const AlbumCatalogue albums(*catalogue_, index_);
        const ArtistPictures pictures(*catalogue_, albums, index_);
        const auto reply = TrackInfoService(*catalogue_, albums, pictures).answer(request);
        readSongInfoReply(reply.body, u"127.0.0.1:99"_s, info);
        return info;
    }

    QTemporaryDir folder_;
    FakeDemoSongs demo_{folder_.path()};
    TagFileReader reader_;
    SongIndex index_{*Database::open(folder_.filePath(u"index.sqlite"_s), SongIndex::schema())};
    PlayCounts plays_{*Database::open(folder_.filePath(u"index.sqlite"_s), SongIndex::schema())};
    std::optional<MusicCatalogue> catalogue_;
};

TEST_F(TrackInfoServiceTest, TheClientReadsEveryField)
{
    const auto info = ask(u"salt/orchard"_s, u"low & <high>"_s);
    EXPECT_EQ(info.artist, u"Salt/Orchard"_s);
    EXPECT_EQ(info.name, u"Low & <High>"_s);
    EXPECT_EQ(info.album, u"First Album"_s);
    EXPECT_EQ(info.tags, (QStringList{u"post-rock"_s, u"dream pop"_s}));
    EXPECT_EQ(info.artwork, u"http://127.0.0.1:99/cover/"_s + QString(32, u'a'));
    EXPECT_EQ(info.artworkLarge, info.artwork);
    EXPECT_EQ(info.wiki, u"They met by the sea &amp; stayed.<br><br>Filed under "
                         "<a href=\"zib://search/tag/post-rock\">post-rock</a> and "
                         "<a href=\"zib://search/tag/dream%20pop\">dream pop</a>. If you like this, try "
                         "<a href=\"zib://search/artist/Bj%C3%B6rn\">Björn</a>."_s);
}

TEST_F(TrackInfoServiceTest, KnowsTheUsersOwnSongs)
{
    EXPECT_EQ(ask(u"Own"_s, u"Song"_s).artwork, QString());
    write(u"music/Own/Album/Folder.JPG"_s, otherPicture);
    const auto info = ask(u"own"_s, u"song"_s);
    EXPECT_EQ(info.album, u"Album"_s);
    EXPECT_TRUE(info.artwork.startsWith(u"http://127.0.0.1:99/cover/"_s));
    EXPECT_TRUE(info.wiki.isEmpty()) << "nobody has tagged it";
}

TEST_F(TrackInfoServiceTest, SaysNothingOfAnotherSong)
{
    const std::pair<QString, QString> unknown[] = {{u"Salt/Orchard"_s, u"Song"_s},
                                                   {u"Own"_s, u"Low & <High>"_s},
                                                   {u"Salt/Orchard"_s, u""_s},
                                                   {u""_s, u"Song"_s},
                                                   {u"Nobody"_s, u"Song"_s}};
    for (const auto& [artist, track] : unknown)
        EXPECT_EQ(ask(artist, track).name, u"Unknown Song"_s) << artist.toStdString();
    EXPECT_EQ(ask(u"Salt Orchard"_s, u"Low & <High>"_s).name, u"Low & <High>"_s) << "nearly that name";
    EXPECT_EQ(ask(u"Salt Orchardd"_s, u"Low & <High>"_s, {}).name, u"Unknown Song"_s)
        << "not asked to correct";
}

TEST_F(TrackInfoServiceTest, FindsTheCoverBesideASong)
{
    const auto beside = [this] {
        return pictureBeside(encoded(u"music/Own/Album/Song.wav"_s), encoded(u"music"_s));
    };
    EXPECT_TRUE(beside().isEmpty());
    write(u"music/Own/Album/scan.png"_s, onePixel);
    EXPECT_EQ(beside(), onePixel) << "the only one";
    write(u"music/Own/Album/scan2.png"_s, onePixel);
    EXPECT_TRUE(beside().isEmpty()) << "who knows which";
    write(u"music/Own/Album/COVER.png"_s, "<html>");
    EXPECT_TRUE(beside().isEmpty()) << "no picture";
    write(u"music/Own/Album/front.jpg"_s, otherPicture);
    EXPECT_EQ(beside(), otherPicture);
    write(u"music/Own/Album/cover.jpg"_s, onePixel);
    EXPECT_EQ(beside(), onePixel);

    write(u"music/loose.wav"_s, wavFile(1));
    write(u"music/holiday.jpg"_s, otherPicture);
    EXPECT_TRUE(pictureBeside(encoded(u"music/loose.wav"_s), encoded(u"music"_s)).isEmpty());
}

TEST_F(TrackInfoServiceTest, FindsThePictureWithinEveryKindOfFile)
{
    write(u"picture.png"_s, onePixel);
    for (const QString& kind : {u"mp3"_s, u"m4a"_s, u"flac"_s, u"aiff"_s}) {
        QStringList arguments{u"-v"_s,
                              u"error"_s,
                              u"-i"_s,
                              path(u"music/Own/Album/Song.wav"_s),
                              u"-i"_s,
                              path(u"picture.png"_s),
                              u"-map"_s,
                              u"0:a"_s,
                              u"-map"_s,
                              u"1:v"_s,
                              u"-c:v"_s,
                              u"copy"_s,
                              u"-disposition:v"_s,
                              u"attached_pic"_s};
        if (kind == u"aiff")
            arguments += {u"-write_id3v2"_s, u"1"_s};
        EXPECT_EQ(QProcess::execute(u"ffmpeg"_s, arguments + QStringList{path(u"song."_s + kind)}), 0);
        EXPECT_EQ(embeddedPicture(encoded(u"song."_s + kind)), onePixel) << kind.toStdString();
    }
    const QByteArray wave = encoded(u"music/Own/Album/Song.wav"_s);
    EXPECT_TRUE(embeddedPicture(wave).isEmpty());
    {
        TagLib::RIFF::WAV::File file(wave.constData());
        for (const auto& [type, bytes] :
             {std::pair(TagLib::ID3v2::AttachedPictureFrame::BackCover, otherPicture),
              std::pair(TagLib::ID3v2::AttachedPictureFrame::FrontCover, onePixel)}) {
            auto* frame = new TagLib::ID3v2::AttachedPictureFrame;
            frame->setType(type);
            frame->setPicture({bytes.constData(), unsigned(bytes.size())});
            file.ID3v2Tag()->addFrame(frame);
        }
        ASSERT_TRUE(file.save());
    }
    EXPECT_EQ(embeddedPicture(wave), onePixel) << "the front cover";
    EXPECT_TRUE(embeddedPicture(encoded(u"picture.png"_s)).isEmpty());
    EXPECT_TRUE(embeddedPicture("/no/such/file.mp3").isEmpty());
}

} // namespace
} // namespace zib
