// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: tags and lengths that are not read from one kind of file, a file that breaks its reader and takes
// others or the program along, a wait without end.
#include "platform/desktop/DesktopFileMetadata.h"
#include "tests/fakes/FakeFileMetadata.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace zib {
namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class Files {
  public:
    QString at(const QString& name) const { return folder_.filePath(name); }
    QString make(const char* name, const QByteArray& content) const
    {
        QFile file(at(text(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return file.fileName();
    }
    /// A second and a half of sound with tags, by another program.
    QString encode(const QString& name, const QStringList& options, const QString& container = {}) const
    {
        QStringList arguments{text("-v"), text("error"),
                              text("-f"), text("lavfi"),
                              text("-i"), text("sine=frequency=440:sample_rate=44100:duration=1.5")};
        for (const char* const tag :
             {"artist=Ann Ä", "album=Album 歌", "title=Tïtle", "genre=Folk", "date=1987", "track=7/12"})
            arguments << text("-metadata") << text(tag);
        arguments << options;
        if (!container.isEmpty())
            arguments << text("-f") << container;
        arguments << at(name);
        EXPECT_EQ(QProcess::execute(text("ffmpeg"), arguments), 0);
        return at(name);
    }
    static QByteArray contentOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

  private:
    QTemporaryDir folder_;
};

template <typename Metadata>
std::unique_ptr<FileMetadata> make();
template <>
std::unique_ptr<FileMetadata> make<FakeFileMetadata>()
{
    auto fake = std::make_unique<FakeFileMetadata>();
    fake->addSound(text("a.wav"), text("a"));
    return fake;
}
template <>
std::unique_ptr<FileMetadata> make<DesktopFileMetadata>()
{
    return std::make_unique<DesktopFileMetadata>(text(ZIB_METADATA));
}

template <typename Metadata>
class FileMetadataContract : public testing::Test {
};
using Implementations = testing::Types<FakeFileMetadata, DesktopFileMetadata>;
TYPED_TEST_SUITE(FileMetadataContract, Implementations);

TYPED_TEST(FileMetadataContract, AnswersEachPathInItsPlace)
{
    const Files files;
    const QString sound = files.encode(text("a.wav"), {text("-metadata"), text("title=")});
    const QString letter = files.make("letter.txt", "Dear listener");
    QDir().mkdir(files.at(text("folder.mp3")));
    const auto metadata = make<TypeParam>();
    for (int round = 0; round < 2; ++round) {
        const auto known =
            metadata->attributes({files.at(text("folder.mp3")), sound, files.at(text("none.mp3")), letter});
        ASSERT_EQ(known.size(), 4);
        EXPECT_EQ(known[0].kind, folderKind);
        EXPECT_EQ(known[1].mediaTypes, QStringList(soundMedia));
        EXPECT_EQ(known[1].title, text("a")); // by its file's name, having no tags
        EXPECT_EQ(known[1].displayName, text("a"));
        for (const int place : {0, 2, 3})
            EXPECT_TRUE(known[place].mediaTypes.isEmpty()) << place;
        metadata->release();
    }
    EXPECT_TRUE(metadata->attributes({}).isEmpty());
}

TEST(DesktopFileMetadata, ReadsEveryKindOfFile)
{
    struct Case {
        const char* name;
        QStringList options;
        const char* container; ///< when the name does not tell
    };
    const QStringList aac{text("-c:a"), text("aac")};
    const QStringList flac{text("-c:a"), text("flac")};
    const Case cases[] = {
        {"a.mp3", {text("-id3v2_version"), text("3"), text("-write_id3v1"), text("1")}, ""},
        {"b.mp3", {text("-id3v2_version"), text("4")}, ""},
        {"c.m4a", aac, ""},
        {"d.flac", {}, ""},
        {"e.ogg", {text("-c:a"), text("libvorbis")}, ""},
        {"f.opus", {}, ""},
        {"g.wav", {}, ""},
        {"h.aiff", {text("-write_id3v2"), text("1")}, ""},
        {"FLAC called.mp3", flac, "flac"}, // as copies in the music folder are
        {"AAC called.mp3", aac, "ipod"},
    };
    const Files files;
    QStringList paths;
    for (const Case& c : cases)
        paths.append(files.encode(text(c.name), c.options, text(c.container)));
    DesktopFileMetadata metadata(text(ZIB_METADATA));
    const auto known = metadata.attributes(paths);
    for (qsizetype i = 0; i < known.size(); ++i) {
        const FileAttributes& attributes = known[i];
        SCOPED_TRACE(cases[i].name);
        EXPECT_EQ(attributes.authors, QStringList(text("Ann Ä")));
        EXPECT_EQ(attributes.album, text("Album 歌"));
        EXPECT_EQ(attributes.title, text("Tïtle"));
        EXPECT_EQ(attributes.musicalGenre, text("Folk"));
        EXPECT_EQ(attributes.recordingYear, 1987);
        EXPECT_EQ(attributes.audioTrackNumber, 7);
        EXPECT_NEAR(attributes.durationSeconds.value_or(0), 1.5, 0.1);
    }
}

TEST(DesktopFileMetadata, OldTagsAreReadToo)
{
    const Files files;
    const QString mp3 =
        files.encode(text("a.mp3"), {text("-map_metadata"), text("-1"), text("-id3v2_version"), text("0")});
    QByteArray tag("TAG");
    for (const auto& [value, size] :
         {std::pair("Caf\xe9", 30), std::pair("Ann", 30), std::pair("Album", 30), std::pair("1987", 4)})
        tag += QByteArray(value).leftJustified(size, '\0');
    tag += QByteArray(28, '\0') + '\0' + '\x05' + '\x08'; // track 5, jazz
    files.make("b.mp3", Files::contentOf(mp3) + tag);
    DesktopFileMetadata metadata(text(ZIB_METADATA));
    const FileAttributes known = metadata.attributes({files.at(text("b.mp3"))}).first();
    EXPECT_EQ(known.title, text("Café"));
    EXPECT_EQ(known.authors, QStringList(text("Ann")));
    EXPECT_EQ(known.musicalGenre, text("Jazz"));
    EXPECT_EQ(known.audioTrackNumber, 5);
}

/// A stand-in for the reader: its own program, which a file can crash, silence or set babbling at will.
class BreakableReader {
  public:
    BreakableReader()
        : path_(files_.make("reader", R"(#!/usr/bin/python3
import os, signal, sys
pending = b""
while True:
    data = os.read(0, 65536)
    if not data: break
    pending += data
    while b"\0" in pending:
        path, pending = pending.split(b"\0", 1)
        if b"crash" in path: os.kill(os.getpid(), signal.SIGKILL)
        if b"hang" in path: signal.pause()
        if b"babble" in path:
            while True: os.write(1, b"x" * 65536)
        os.write(1, b'no json\n' if b"odd" in path else b'{"media":["Sound"],"year":-5,"title":"a\\nb"}\n')
)"))
    {
        ::chmod(path_.toUtf8().constData(), 0755);
    }
    [[nodiscard]] QString path() const { return path_; }

  private:
    Files files_;
    QString path_;
};

TEST(DesktopFileMetadata, AFileThatBreaksItsReaderCostsNoOther)
{
    const BreakableReader reader;
    const Files files;
    QStringList paths;
    for (int number = 0; number < 60; ++number) {
        const char* const kind = number == 3                    ? "crash"
                                 : number == 20                 ? "hang"
                                 : number == 21                 ? "babble"
                                 : number == 40 || number == 41 ? "crash"
                                 : number == 50                 ? "odd"
                                                                : "fine";
        paths.append(
            files.make((QByteArray::number(100 + number) + kind + ".mp3").constData(), QByteArray("sound")));
    }
    DesktopFileMetadata metadata(reader.path(), std::chrono::milliseconds(1500));
    const auto known = metadata.attributes(paths);
    for (qsizetype i = 0; i < paths.size(); ++i) {
        const bool fine = paths[i].contains(text("fine"));
        EXPECT_EQ(known[i].mediaTypes.isEmpty(), !fine) << qUtf8Printable(paths[i]);
        if (fine) {
            EXPECT_EQ(known[i].title, text("a b"));
            EXPECT_FALSE(known[i].recordingYear);
        }
    }
}

TEST(DesktopFileMetadata, WhatIsNoSoundOrCannotBeReadIsNone)
{
    const Files files;
    const QByteArray mp3 = Files::contentOf(files.encode(text("a.mp3"), {}));
    // A tag that claims 256 MB, a box that claims more than there is, sizes at their limits.
    QStringList paths{
        files.make("empty.mp3", {}),
        files.make("noise.mp3", QByteArray(100'000, '\x55')),
        files.make("page.mp3", "<html>Not found</html>"),
        files.make("huge tag.mp3", QByteArray("ID3\x04\0\0\x7f\x7f\x7f\x7f", 10) + QByteArray(3000, '\0')),
        files.make("huge box.m4a", QByteArray("\0\0\0\x18"
                                              "ftypM4A \0\0\0\0M4A mp42\x7f\xff\xff\xffmoov",
                                              32)),
        files.make("huge chunk.wav", QByteArray("RIFF\xff\xff\xff\xffWAVE"
                                                "LIST\xff\xff\xff\xff",
                                                20)),
        files.make("cut.flac", QByteArray("fLaC\x04\xff\xff\xff", 8)),
    };
    const QByteArray pipe = files.at(text("pipe.mp3")).toUtf8();
    ASSERT_EQ(::mkfifo(pipe.constData(), 0600), 0);
    paths.append(QString::fromUtf8(pipe));
    DesktopFileMetadata metadata(text(ZIB_METADATA));
    const auto known = metadata.attributes(paths);
    for (qsizetype i = 0; i < paths.size(); ++i)
        EXPECT_TRUE(known[i].mediaTypes.isEmpty()) << qUtf8Printable(paths[i]);

    DesktopFileMetadata none(text("/no/such/program"));
    EXPECT_TRUE(none.attributes({files.make("b.mp3", mp3)}).first().mediaTypes.isEmpty());
}

} // namespace
} // namespace zib
