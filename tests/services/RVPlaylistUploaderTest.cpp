// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a form that differs by one byte from what the playlist service reads, and a failure that is taken
// for a success.
#include "services/RVPlaylistUploader.h"

#include "platform/SettingsKeys.h"
#include "records/KeyedArchive.h"
#include "records/PropertyValue.h"
#include "services/ShareUserName.h"
#include "services/utilities/Base64.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeUrlLoader.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace zib {
namespace {

QList<Record> songsBy(const QStringList& artists)
{
    QList<Record> songs;
    for (const QString& artist : artists)
        songs.append(Record::make({{keys::Artist, artist}, {keys::Name, QStringLiteral("s")}}));
    return songs;
}

struct Told : RVPlaylistUploaderDelegate {
    void uploadCompletedWithResult(const QString& result, RVPlaylistUploader&) override
    {
        told += QLatin1String("completed: ") + result;
    }
    void uploadFailedWithError(const QString& error, RVPlaylistUploader&) override
    {
        told += QLatin1String("failed: ") + error;
    }
    QStringList told;
};

class RVPlaylistUploaderTest : public testing::Test {
  protected:
    std::unique_ptr<RVPlaylistUploader> upload(const Record& playlist)
    {
        return std::make_unique<RVPlaylistUploader>(WebServices{loader, defaults, clock}, playlist, told, 2);
    }
    /// The form that was sent, with the archive by its name.
    std::string formOf(const Record& playlist)
    {
        const auto client = upload(playlist);
        QByteArray form = loader.last().request.body->bytes;
        return form.replace(base64Encoding(archivedData(playlist)), "ARCHIVE").toStdString();
    }

    FakeUrlLoader loader;
    FakeUserDefaults defaults{{{settings::PlaylistHost, QStringLiteral("lists.example/at")}}};
    FakeClock clock;
    Told told;
};

TEST_F(RVPlaylistUploaderTest, TheFormIsWhatTheServiceReads)
{
    Record playlist = Record::make({{keys::Username, QStringLiteral("Ann-0123")},
                                    {keys::Name, QStringLiteral("R&B 100% \u00e9+")},
                                    {keys::Tracks, songsBy({QStringLiteral("Simon & Co")})}});
    EXPECT_EQ(formOf(playlist), "user=Ann-0123&name=R&B 100% \u00e9+&description=&hidden=1&data=ARCHIVE"
                                "&description=^1;Simon ^AMP; Co");
    playlist.set(keys::Description, QStringLiteral("slow & low"));
    playlist.set(keys::Tags, QStringLiteral("rock & roll,blues"));
    playlist.set(keys::Id, 1234);
    defaults.setValue(settings::WantsPublicShare, true);
    EXPECT_EQ(formOf(playlist),
              "user=Ann-0123&name=R&B 100% \u00e9+&description=slow & low&hidden=0&data=ARCHIVE&id=1234"
              "&tags=rock ^AMP; roll,blues&description=slow ^AMP; low^1;Simon ^AMP; Co");
    const UrlRequest& request = loader.last().request;
    EXPECT_EQ(request.url, "http://lists.example/at/playlists/addplaylist.php");
    EXPECT_EQ(request.body->contentType, "application/x-www-form-urlencoded");
    EXPECT_EQ(request.timeout, std::chrono::seconds(10));
    EXPECT_EQ(upload(playlist)->uid(), 1234);
}

TEST_F(RVPlaylistUploaderTest, WhatEverybodyCanFetchDoesNotHoldTheSecret)
{
    const QString name = makeShareUserName(QStringLiteral("Ann B"));
    const auto client = upload(Record::make({{keys::Username, name}, {keys::Name, QStringLiteral("n")}}));
    const QByteArray form = loader.last().request.body->bytes;
    EXPECT_TRUE(form.startsWith("user=" + name.toUtf8() + "&"));
    const qsizetype data = form.indexOf("&data=") + 6;
    const auto published =
        unarchivedValue(QByteArray::fromBase64(form.mid(data, form.indexOf('&', data) - data)));
    ASSERT_TRUE(published);
    EXPECT_EQ(published->get<Record>()->string(keys::Username), QStringLiteral("Ann_B"));
}

TEST(ArtistSummary, NamesFiveDifferentArtists)
{
    const std::pair<QString, QString> cases[] = {
        {QString(), QString()},
        {QStringLiteral("||"), QString()},
        {QStringLiteral("A|B|A|C"), QStringLiteral("A, B, C")},
        {QStringLiteral("A|B|C|D|E|F|G"), QStringLiteral("A, B, C, D, E")},
        {QStringLiteral("Big Band|BAND|Banda"), QStringLiteral("Big Band, Banda")},
        {QStringLiteral("Band|Big Band"), QStringLiteral("Band, Big Band")},
    };
    for (const auto& [artists, summary] : cases)
        EXPECT_EQ(artistSummary(songsBy(artists.split(QLatin1Char('|')))), summary)
            << qUtf8Printable(artists);
}

TEST_F(RVPlaylistUploaderTest, OnlyWhatBeginsWithOkIsASuccess)
{
    const Record playlist = Record::make({{keys::Name, QStringLiteral("n")}});
    for (const auto& [reply, expected] :
         {std::pair("OK 7 mine", "completed: OK 7 mine"), std::pair("OKAY", "completed: OKAY"),
          std::pair("Too large", "failed: Too large"), std::pair("ok", "failed: ok"),
          std::pair("", "failed: ")}) {
        told.told.clear();
        const auto client = upload(playlist);
        EXPECT_EQ(client->tag(), 2);
        EXPECT_EQ(client->uid(), 0);
        loader.last().reply(reply);
        EXPECT_EQ(told.told, QStringList{QString::fromLatin1(expected)});
    }
    told.told.clear();
    const auto failing = upload(playlist);
    loader.last().fail(QStringLiteral("unplugged"));
    loader.refuses = true;
    const auto refused = upload(playlist);
    const QString noServer = QStringLiteral("failed: Could not connect to server");
    EXPECT_EQ(told.told, (QStringList{noServer, noServer}));
}

TEST(ShareUserName, IsWhatIsShownAndASecret)
{
    for (const auto& [given, shown] :
         {std::pair(QStringLiteral(" Ann  B. O'Hara-Smith "), "Ann_B_OHaraSmith"),
          std::pair(QStringLiteral("Ju\u0308rgen"), "J\u00fcrgen"),
          std::pair(QStringLiteral("a&b=c%41"), "abc41"), std::pair(QStringLiteral("!!!"), "listener")}) {
        const QString name = makeShareUserName(given);
        EXPECT_EQ(name.section(QLatin1Char('-'), 0, 0).toStdString(), shown);
        const QRegularExpression secret(QStringLiteral("^[0-9a-f]{32}$"));
        EXPECT_TRUE(secret.match(name.section(QLatin1Char('-'), 1)).hasMatch()) << qUtf8Printable(name);
        EXPECT_NE(makeShareUserName(given), name);
    }
}

} // namespace
} // namespace zib
