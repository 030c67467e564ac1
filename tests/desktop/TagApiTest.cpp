// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: tags that other programs do not find, covers, comments or sound that an edit loses, a file that a
// failed write damages.
#include "platform/desktop/DesktopTagApi.h"
#include "tests/fakes/FakeTagApi.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>

#include <sys/resource.h>

namespace zib {
namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QByteArray run(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(text(program), arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0)
        << process.readAllStandardError().constData();
    return process.readAllStandardOutput();
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// What another program finds in a file: its tags by lower-case name, and how many pictures.
struct Found {
    explicit Found(const QString& path)
    {
        const QJsonObject probe =
            QJsonDocument::fromJson(run("ffprobe", {text("-v"), text("error"), text("-of"), text("json"),
                                                    text("-show_format"), text("-show_streams"), path}))
                .object();
        add(probe[QLatin1String("format")].toObject());
        const QJsonArray streams = probe[QLatin1String("streams")].toArray();
        for (const auto stream : streams) {
            if (stream.toObject()[QLatin1String("codec_type")] == QLatin1String("video"))
                ++pictures;
            else
                add(stream.toObject());
        }
        sound = run("ffmpeg", {text("-v"), text("error"), text("-i"), path, text("-map"), text("0:a"),
                               text("-c"), text("copy"), text("-f"), text("md5"), text("-")});
    }
    void add(const QJsonObject& part)
    {
        const QJsonObject object = part[QLatin1String("tags")].toObject();
        for (auto tag = object.begin(); tag != object.end(); ++tag)
            tags.insert(tag.key().toLower(), tag.value().toString());
    }

    QHash<QString, QString> tags;
    int pictures = 0;
    QByteArray sound; ///< a digest of its packets
};

class Songs {
  public:
    QString folder() const { return folder_.path(); }
    QString encode(const char* name, const QStringList& options = {}, bool withPicture = false) const
    {
        QStringList arguments{text("-v"),    text("error"), text("-f"),
                              text("lavfi"), text("-i"),    text("sine=duration=1")};
        if (withPicture)
            arguments << text("-f") << text("lavfi") << text("-i") << text("color=red:s=16x16:d=0.04")
                      << text("-frames:v") << text("1") << text("-c:v") << text("png")
                      << text("-disposition:v") << text("attached_pic") << text("-map") << text("0:a")
                      << text("-map") << text("1:v");
        for (const char* const tag : {"title=Old", "artist=Old", "comment=A comment", "date=1987-05-04"})
            arguments << text("-metadata") << text(tag);
        run("ffmpeg", arguments << options << folder_.filePath(text(name)));
        return folder_.filePath(text(name));
    }

  private:
    QTemporaryDir folder_;
};

template <typename Tags>
bool edit(Tags& tags, const QString& path)
{
    const auto opened = tags.open(path);
    if (!opened)
        return false;
    opened->setTitle(text("Tïtle 歌"));
    opened->setArtist(text("Ann"));
    opened->setAlbum(text("Album"));
    opened->setGenreList({text("Folk")});
    opened->setComposer(text("Composer"));
    opened->setYear(1987);
    opened->setTrack(7, 12);
    opened->setDisc(1, 2);
    return opened->write();
}

TEST(TagApiContract, WhatWasWrittenIsThereWhenOpenedAgain)
{
    const Songs songs;
    const QString path = songs.encode("a.mp3");
    FakeTagAPIs fake;
    fake.files.insert(path, {});
    DesktopTagAPIs desktop;
    for (TagAPIs* const tags : {static_cast<TagAPIs*>(&fake), static_cast<TagAPIs*>(&desktop)}) {
        {
            const auto unwritten = tags->open(path);
            ASSERT_NE(unwritten, nullptr);
            unwritten->setComposer(text("Nobody"));
        }
        EXPECT_EQ(tags->open(path)->composer(), QString());
        ASSERT_TRUE(edit(*tags, path));
        const auto opened = tags->open(path);
        EXPECT_EQ(opened->composer(), text("Composer"));
        EXPECT_EQ(opened->trackTotal(), 12);
        EXPECT_EQ(opened->discNumber(), 1);
        EXPECT_EQ(opened->discTotal(), 2);
        EXPECT_EQ(tags->open(songs.folder() + text("/none.mp3")), nullptr);
    }
}

TEST(DesktopTagAPIs, OtherProgramsFindTheTagsAndAllElseStays)
{
    struct Case {
        const char* name;
        QStringList options;
        bool picture;
        const char* start; ///< of the file, still after the edit
    };
    const Case cases[] = {
        {"a.mp3", {text("-id3v2_version"), text("3"), text("-write_id3v1"), text("1")}, true, "ID3\x03"},
        {"b.mp3", {text("-id3v2_version"), text("4")}, true, "ID3\x04"},
        {"c.mp3", {text("-id3v2_version"), text("0"), text("-write_xing"), text("0")}, false, "ID3\x04"},
        {"d.m4a", {text("-c:a"), text("aac")}, true, ""},
        {"e.flac", {}, true, "fLaC"},
        {"f.ogg", {text("-c:a"), text("libvorbis")}, false, "OggS"},
        {"g.opus", {}, false, "OggS"},
        {"h.wav", {}, false, "RIFF"},
        {"i.aiff", {text("-write_id3v2"), text("1")}, false, "FORM"},
    };
    const Songs songs;
    DesktopTagAPIs tags;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const QString path = songs.encode(c.name, c.options, c.picture);
        const Found before(path);
        EXPECT_EQ(before.pictures, c.picture ? 1 : 0);
        ASSERT_TRUE(edit(tags, path));
        const Found after(path);
        const QHash<QString, QString>& found = after.tags;
        EXPECT_EQ(found.value(text("title")), text("Tïtle 歌"));
        EXPECT_EQ(found.value(text("artist")), text("Ann"));
        EXPECT_EQ(found.value(text("album")), text("Album"));
        EXPECT_EQ(found.value(text("genre")), text("Folk"));
        EXPECT_TRUE(found.value(text("date")).startsWith(text("1987")))
            << qUtf8Printable(found.value(text("date")));
        EXPECT_EQ(found.value(text("track")).section(QLatin1Char('/'), 0, 0), text("7"));
        EXPECT_EQ(found.value(text("comment")), before.tags.value(text("comment")));
        if (QByteArray(c.start) != "RIFF") { // whose own tags have no place for them
            EXPECT_EQ(found.value(text("composer")), text("Composer"));
            const QString total =
                found.value(text("tracktotal"), found.value(text("track")).section(QLatin1Char('/'), 1));
            EXPECT_EQ(total, text("12"));
        }
        EXPECT_EQ(after.pictures, before.pictures);
        EXPECT_EQ(after.sound, before.sound);
        EXPECT_TRUE(contentOf(path).startsWith(c.start));
    }
    EXPECT_EQ(QDir(songs.folder()).entryList(QDir::Files | QDir::Hidden).size(), qsizetype(std::size(cases)));
}

TEST(DesktopTagAPIs, EmptyTextsAndZerosRemove)
{
    const Songs songs;
    const QString path = songs.encode("a.flac");
    DesktopTagAPIs tags;
    ASSERT_TRUE(edit(tags, path));
    const auto opened = tags.open(path);
    opened->setComposer({});
    opened->setGenreList({});
    opened->setYear(0);
    opened->setTrack(0, 0);
    opened->setDisc(3, 0);
    ASSERT_TRUE(opened->write());
    const Found found(path);
    for (const char* const gone : {"composer", "genre", "date", "track", "tracktotal", "disctotal"})
        EXPECT_FALSE(found.tags.contains(text(gone))) << gone;
    EXPECT_EQ(found.tags.value(text("disc")), text("3"));
    EXPECT_EQ(found.tags.value(text("album")), text("Album"));
}

TEST(DesktopTagAPIs, CoversAreReplacedAndRemovedWithoutTheSound)
{
    struct Case {
        const char* name;
        QStringList options;
        bool picture; ///< the file comes with one
    };
    const Case cases[] = {
        {"a.mp3", {text("-id3v2_version"), text("3")}, true},
        {"b.m4a", {text("-c:a"), text("aac")}, true},
        {"c.flac", {}, true},
        {"d.ogg", {text("-c:a"), text("libvorbis")}, false},
        {"e.opus", {}, false},
        {"f.wav", {}, false},
    };
    const Songs songs;
    const QByteArray jpeg = QByteArray("\xff\xd8\xff") + "a picture";
    DesktopTagAPIs tags;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const QString path = songs.encode(c.name, c.options, c.picture);
        const Found before(path);
        auto opened = tags.open(path);
        EXPECT_EQ(opened->cover().startsWith("\x89PNG"), c.picture);
        opened->setCover(QByteArray(TagAPI::maximumCoverBytes + 1, 'x'));
        EXPECT_EQ(opened->cover().startsWith("\x89PNG"), c.picture) << "too long, so left out";
        opened->setCover(jpeg);
        ASSERT_TRUE(opened->write());
        opened = tags.open(path);
        EXPECT_EQ(opened->cover(), jpeg);
        opened->setCover({});
        ASSERT_TRUE(opened->write());
        EXPECT_EQ(tags.open(path)->cover(), QByteArray());
        const Found after(path);
        EXPECT_EQ(after.pictures, 0);
        EXPECT_EQ(after.sound, before.sound);
        EXPECT_EQ(after.tags.value(text("title")), text("Old"));
    }
}

TEST(DesktopTagAPIs, AFailedWriteLeavesTheOldFile)
{
    const Songs songs;
    const QString path = songs.encode("a.mp3");
    const QString link = songs.folder() + text("/link.mp3");
    ASSERT_TRUE(QFile::link(path, link));
    const QByteArray before = contentOf(path);
    DesktopTagAPIs tags;
    const auto opened = tags.open(link);
    opened->setTitle(text("New"));
    {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit old{};
        ::getrlimit(RLIMIT_FSIZE, &old);
        const rlimit small{rlim_t(before.size()) / 2, old.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
        EXPECT_FALSE(opened->write());
        ::setrlimit(RLIMIT_FSIZE, &old);
    }
    EXPECT_EQ(contentOf(path), before);
    EXPECT_EQ(QDir(songs.folder()).entryList(QDir::Files | QDir::Hidden).size(), 2);
    EXPECT_TRUE(opened->write());
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(Found(path).tags.value(text("title")), text("New"));
}

} // namespace
} // namespace zib
