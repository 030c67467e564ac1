// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a library file that other versions of the program cannot read, a damaged one that is taken for whole
// or crashes the program, and an export that harms the library.
#include "library/LibraryFile.h"
#include "library/LibraryEnvelope.h"
#include "library/LibraryExport.h"
#include "tests/library/Library.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <openssl/evp.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <span>

using namespace std::literals;

namespace zib {
namespace {

QByteArray sealed(const QByteArray& content)
{
    QByteArray bytes;
    EnvelopeWriter writer([&bytes](std::string_view piece) {
        bytes.append(piece.data(), static_cast<qsizetype>(piece.size()));
    });
    // in odd pieces, for the cipher works in blocks
    for (qsizetype place = 0; place < content.size(); place += 7) {
        const QByteArray piece = content.mid(place, 7);
        writer.write({piece.constData(), static_cast<std::size_t>(piece.size())});
    }
    EXPECT_TRUE(writer.finish());
    return bytes;
}

std::optional<QByteArray> opened(const QByteArray& bytes)
{
    EnvelopeReader reader(std::uint64_t(bytes.size()),
                          [&bytes](std::uint64_t offset, std::span<char> target) {
                              const std::span whole(bytes.constData(), std::size_t(bytes.size()));
                              std::ranges::copy(whole.subspan(offset, target.size()), target.begin());
                              return true;
                          });
    QByteArray content;
    std::array<char, 40> piece{}; // no whole number of blocks
    while (const std::size_t count = reader.read(piece))
        content.append(piece.data(), qsizetype(count));
    return reader.hasFailed() ? std::nullopt : std::optional(content);
}

/// AES-128-CBC without padding, an independent hand on the format.
QByteArray crypt(const QByteArray& vector, const QByteArray& bytes, bool encipher,
                 const char* word = "zibmusic")
{
    const QByteArray key = QCryptographicHash::hash(word, QCryptographicHash::Sha1).left(16);
    const auto data = [](const QByteArray& array) {
        return reinterpret_cast<const unsigned char*>(array.data());
    };
    QByteArray result(bytes.size(), '\0');
    int length = 0;
    EVP_CIPHER_CTX* context = EVP_CIPHER_CTX_new();
    EVP_CipherInit_ex(context, EVP_aes_128_cbc(), nullptr, data(key), data(vector), encipher ? 1 : 0);
    EVP_CIPHER_CTX_set_padding(context, 0);
    EVP_CipherUpdate(context, reinterpret_cast<unsigned char*>(result.data()), &length, data(bytes),
                     int(bytes.size()));
    EVP_CIPHER_CTX_free(context);
    return result;
}

TEST(LibraryEnvelope, FramesContentOfEveryLength)
{
    for (const int length : {0, 1, 3, 4, 15, 16, 17, 31, 32, 33, 1000, 4096}) {
        QByteArray content(length, 'x');
        const QByteArray bytes = sealed(content);
        EXPECT_EQ(bytes.size(), 16 * (length / 16) + 48) << length;
        EXPECT_EQ(opened(bytes), content) << length;

        const QByteArray framed = crypt(bytes.left(16), bytes.mid(16), false);
        QByteArray expected = content + QByteArray(16 * (length / 16) + 32 - length, '\0');
        expected[expected.size() - 1] = static_cast<char>(length);
        expected[expected.size() - 2] = static_cast<char>(length >> 8);
        EXPECT_EQ(framed, expected) << length;
    }
}

TEST(LibraryEnvelope, TellsWhatIsNone)
{
    const QByteArray vector(16, 'v');
    const auto framed = [&vector](const QByteArray& frame, const char* word = "zibmusic") {
        return vector + crypt(vector, frame, true, word);
    };
    const QByteArray content(20, 'x');
    const QByteArray zeros(12, '\0');
    const auto length = [](const char* bytes) { return QByteArray(bytes, 4); };
    const QByteArray good = content + zeros + zeros + length("\0\0\0\x14");
    EXPECT_EQ(opened(framed(good)), content);

    QByteArray unclean = good;
    unclean[good.size() - 5] = 1;
    QByteArray uncleanFirst = good;
    uncleanFirst[good.size() - 16] = 1;
    const struct {
        const char* name;
        QByteArray bytes;
    } cases[] = {
        {"empty", {}},
        {"a vector alone", vector},
        {"too short", vector + QByteArray(16, '\0')},
        {"cut off", framed(good).chopped(16)},
        {"cut off within a block", framed(good).chopped(1)},
        {"the last byte before the length", framed(unclean)},
        {"the first byte before the length", framed(uncleanFirst)},
        {"length beyond the data", framed(content + zeros + zeros + length("\0\0\0\x30"))},
        {"length into the framing", framed(content + zeros + zeros + length("\0\0\0\x20"))},
        {"a huge length", framed(content + zeros + zeros + length("\xff\xff\xff\xff"))},
        {"another key", framed(good, "zibmusik")},
        {"plain text", QByteArray("<?xml version=\"1.0\"?>").repeated(16)},
    };
    for (const auto& test : cases)
        EXPECT_FALSE(opened(test.bytes)) << test.name;
}

class LibraryFileTest : public testing::Test {
  protected:
    [[nodiscard]] QString path() const { return folder_.filePath(QStringLiteral("deep/er/Library.zib")); }
    [[nodiscard]] LibraryFile file() const { return LibraryFile(path()); }
    [[nodiscard]] QStringList filesBeside() const
    {
        return QDir(QFileInfo(path()).path()).entryList(QDir::Files | QDir::Hidden);
    }
    void writeRaw(const QByteArray& bytes, const QString& name = {}) const
    {
        QDir().mkpath(QFileInfo(path()).path());
        QFile raw(name.isEmpty() ? path() : name);
        ASSERT_TRUE(raw.open(QIODevice::WriteOnly));
        raw.write(bytes);
    }
    static LibraryContents sample()
    {
        LibraryContents contents;
        contents.library.insert("a"sv, song(QStringLiteral("a"), {{keys::Year, 1999}}));
        contents.library.insert(
            "b"sv,
            song(QStringLiteral("b"),
                 {{keys::Progress, 0.5}, {keys::CanAbort, true}, {keys::Abort, false}, {keys::Index, 4}}));
        contents.playlists = {
            Record::make({{keys::Name, QStringLiteral("P")},
                          {keys::ShareId, QByteArray("raw")},
                          {keys::Tracks, QStringList{QStringLiteral("a"), QStringLiteral("a")}}})};
        contents.searches = {
            Record::make({{keys::Kind, 1}, {keys::Tracks, QList<Record>{song(QStringLiteral("c"))}}})};
        contents.userInfo.set(RecordKey::named("Something else"sv), PropertyArray{1.5, true});
        return contents;
    }

    QTemporaryDir folder_;
};

TEST_F(LibraryFileTest, LoadsWhatWasSavedButWhatLivesOnlyNow)
{
    LibraryContents contents = sample();
    ASSERT_TRUE(file().save(snapshotOf(contents)));
    const auto loaded = file().load();
    ASSERT_TRUE(loaded) << qUtf8Printable(loaded.error());
    EXPECT_EQ(loaded->library.records(),
              (QList<Record>{song(QStringLiteral("a"), {{keys::Year, 1999}}), song(QStringLiteral("b"))}));
    EXPECT_EQ(loaded->playlists, contents.playlists);
    EXPECT_EQ(loaded->searches, contents.searches);
    EXPECT_EQ(loaded->userInfo, contents.userInfo);
    EXPECT_EQ(filesBeside(), QStringList{QStringLiteral("Library.zib")});
}

TEST_F(LibraryFileTest, FollowsALinkWhenSaving)
{
    LibraryContents contents = sample();
    ASSERT_TRUE(file().save(snapshotOf(contents)));
    const QString real = folder_.filePath(QStringLiteral("real.zib"));
    ASSERT_TRUE(QFile::rename(path(), real));
    ASSERT_TRUE(QFile::link(real, path()));
    contents.library.clear();
    ASSERT_TRUE(file().save(snapshotOf(contents)));
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_TRUE(LibraryFile(real).load()->library.isEmpty());
}

TEST_F(LibraryFileTest, AFailedSaveLeavesTheOldFile)
{
    LibraryContents contents = sample();
    ASSERT_TRUE(file().save(snapshotOf(contents)));
    contents.library.clear();
    contents.playlists.append(Record()); // has no form in a property list
    EXPECT_FALSE(file().save(snapshotOf(contents)));
    EXPECT_EQ(file().load()->library.size(), 2);
    EXPECT_EQ(filesBeside(), QStringList{QStringLiteral("Library.zib")});

    const QString inTheWay = folder_.filePath(QStringLiteral("file"));
    writeRaw("x", inTheWay);
    EXPECT_FALSE(LibraryFile(inTheWay + QStringLiteral("/Library.zib")).save(snapshotOf(contents)));
}

TEST_F(LibraryFileTest, RefusesDamagedFiles)
{
    const auto plist = [](const QByteArray& content) {
        return sealed("<plist version=\"1.0\">" + content + "</plist>");
    };
    const QByteArray deep =
        QByteArray("<dict><key>a</key>").repeated(10000) + "<true/>" + QByteArray("</dict>").repeated(10000);
    const struct {
        const char* name;
        QByteArray bytes;
    } cases[] = {
        {"nothing", {}},
        {"not a property list", sealed("hello")},
        {"an array", plist("<array/>")},
        {"a library that is an array", plist("<dict><key>Library</key><array/></dict>")},
        {"a record that is a string",
         plist("<dict><key>Library</key><dict><key>a</key><string>b</string></dict></dict>")},
        {"playlists that are a dictionary", plist("<dict><key>Playlists</key><dict/></dict>")},
        {"a search that is a number",
         plist("<dict><key>Recent Searches</key><array><integer>1</integer></array></dict>")},
        {"user information that is a string", plist("<dict><key>Data</key><string/></dict>")},
        {"10,000 levels", plist("<dict><key>Library</key>" + deep + "</dict>")},
    };
    for (const auto& test : cases) {
        writeRaw(test.bytes);
        const auto loaded = file().load();
        ASSERT_FALSE(loaded) << test.name;
        EXPECT_FALSE(loaded.error().isEmpty()) << test.name;
    }
    writeRaw(plist("<dict/>"));
    EXPECT_TRUE(file().load()) << "an empty library is one";

    // Any flipped bit or cut gives an error or a library, never a crash.
    LibraryContents contents = sample();
    ASSERT_TRUE(file().save(snapshotOf(contents)));
    QFile raw(path());
    ASSERT_TRUE(raw.open(QIODevice::ReadOnly));
    const QByteArray good = raw.readAll();
    for (qsizetype place = 0; place < good.size(); ++place) {
        QByteArray flipped = good;
        flipped[place] = static_cast<char>(flipped[place] ^ (1 << (place % 8)));
        static_cast<void>(LibraryFile::parse(std::span(flipped.constData(), std::size_t(flipped.size()))));
        QByteArray cut = good.left(place);
        EXPECT_FALSE(LibraryFile::parse(std::span(cut.constData(), std::size_t(cut.size())))) << place;
    }
}

TEST_F(LibraryFileTest, ExportsThePlainListAndSparesTheLibrary)
{
    const QString target = folder_.filePath(QStringLiteral("plain.xml"));
    EXPECT_FALSE(exportLibrary(path(), target)) << "no library";
    EXPECT_FALSE(QFile::exists(target));

    LibraryContents contents = sample();
    ASSERT_TRUE(file().save(snapshotOf(contents)));
    ASSERT_TRUE(exportLibrary(path(), target));
    QFile exported(target);
    ASSERT_TRUE(exported.open(QIODevice::ReadOnly));
    const QByteArray xml = exported.readAll();
    EXPECT_TRUE(xml.startsWith("<?xml")) << xml.left(100).constData();
    EXPECT_EQ(sealed(xml).size(), QFileInfo(path()).size());

    const QString link = folder_.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(path(), link));
    EXPECT_FALSE(exportLibrary(path(), path()));
    EXPECT_FALSE(exportLibrary(path(), link));
    EXPECT_TRUE(file().load()) << "still whole";
    EXPECT_FALSE(exportLibrary(path(), folder_.filePath(QStringLiteral("no/such/folder"))));

    writeRaw("damaged");
    EXPECT_FALSE(exportLibrary(path(), target));
    ASSERT_TRUE(exported.seek(0));
    EXPECT_EQ(exported.readAll(), xml) << "the last export stays";
}

} // namespace
} // namespace zib
