// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a published playlist that does not come back as it was, or one that reaches for this machine's
// files.
#include "services/SharedPlaylist.h"

#include "platform/SettingsKeys.h"
#include "records/KeyedArchive.h"
#include "records/PropertyValue.h"
#include "services/utilities/Base64.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

Record song(const QString& id)
{
    return Record::make({{keys::Id, id},
                         {keys::Name, QStringLiteral("\u6b4c")},
                         {keys::Location, QStringLiteral("http://songs.example/a.mp3")},
                         {keys::Duration, 215},
                         {keys::FoundDate, QDateTime(QDate(2010, 5, 1), QTime(12, 0), Qt::UTC)}});
}

QByteArray replyOf(const PropertyValue& archived)
{
    return base64Encoding(archivedData(archived));
}

QByteArray replyOf(const QList<Record>& tracks)
{
    return replyOf(Record::make({{keys::Name, QStringLiteral("Mine >>??")}, {keys::Tracks, tracks}}));
}

TEST(SharedPlaylist, ComesBackHoweverTheServiceSendsIt)
{
    const QList<Record> songs{song(QStringLiteral("a")), song(QStringLiteral("b"))};
    const QByteArray reply = replyOf(songs);
    ASSERT_TRUE(reply.contains('='));
    QByteArray blanks = reply;
    blanks.replace('+', ' ');
    for (const QByteArray& sent : {reply, blanks, reply.toPercentEncoding(), blanks + "\n"}) {
        const auto playlist = readSharedPlaylist(sent);
        ASSERT_TRUE(playlist) << qUtf8Printable(playlist.error());
        EXPECT_EQ(playlist->name, QStringLiteral("Mine >>??"));
        EXPECT_EQ(playlist->tracks, songs);
    }
    const FakeUserDefaults defaults{{{settings::PlaylistHost, QStringLiteral("lists.example")}}};
    const UrlRequest request = sharedPlaylistRequest(defaults, QStringLiteral("12"));
    EXPECT_EQ(request.url, "http://lists.example/playlists/getplaylist.php?id=12");
    EXPECT_TRUE(request.returnCacheDataElseLoad);
    EXPECT_EQ(request.timeout, std::chrono::seconds(10));
}

TEST(SharedPlaylist, BringsSongsOfTheWebAndNothingElse)
{
    Record marked = song(QStringLiteral("marked"));
    for (const RecordKey key :
         {keys::Favorite, keys::Downloaded, keys::BrokenLink, keys::ITunes, keys::Abort})
        marked.set(key, true);
    marked.set(keys::PlayCount, 9);
    marked.set(keys::Genre, Record::make({{keys::Name, QStringLiteral("a text belongs here")}}));
    Record local = song(QStringLiteral("local"));
    local.set(keys::Location, QStringLiteral("file:///etc/hostname"));
    Record nameless = song(QStringLiteral("x"));
    nameless.remove(keys::Id);
    const auto playlist = readSharedPlaylist(replyOf({marked, local, nameless, Record::make()}));
    ASSERT_TRUE(playlist);
    EXPECT_EQ(playlist->tracks, QList<Record>{song(QStringLiteral("marked"))});

    for (const QByteArray& sent :
         {QByteArray(), QByteArray("No such playlist"), QByteArray("%zz"),
          replyOf(PropertyArray{QStringLiteral("a list")}),
          replyOf(Record::make({{keys::Name, QStringLiteral("n")}, {keys::Tracks, QStringLiteral("text")}})),
          replyOf(Record::make({{keys::Name, 7}, {keys::Tracks, PropertyArray()}}))})
        EXPECT_FALSE(readSharedPlaylist(sent)) << sent.constData();
}

} // namespace
} // namespace zib
