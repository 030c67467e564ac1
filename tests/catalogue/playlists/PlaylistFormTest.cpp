// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts forms that are read otherwise than their sender meant them: values that hold what separates fields.
#include "catalogue/playlists/PlaylistForm.h"

#include <gtest/gtest.h>

namespace zib {
namespace {

using namespace Qt::StringLiterals;

const QString user = u"Ann_Lee-0123456789abcdef0123456789abcdef"_s;
const QByteArray archive("\xfb\xff\xbe every kind of sign \x00\x80", 24);

/// As the program writes it.
QString form(const QString& name, const QString& description, const QString& id = {},
             const QString& tags = {}, const QString& artists = {})
{
    const auto marked = [](QString text) { return text.replace(u"&"_s, u"^AMP;"_s); };
    QString text = u"user="_s + user + u"&name="_s + name + u"&description="_s + description +
                   u"&hidden=0&data="_s + QString::fromLatin1(archive.toBase64());
    if (!id.isNull())
        text += u"&id="_s + id;
    if (!tags.isNull())
        text += u"&tags="_s + marked(tags);
    return text + u"&description="_s + marked(description + u"^1;"_s + artists);
}

TEST(PlaylistForm, ReadsEveryTextBack)
{
    const QStringList texts{
        u"Plain"_s,
        u"Rock & Roll = 100% + more"_s,
        u"a&description=b"_s,
        u"&hidden=1&data=AAAA&id=7&tags=x&description=y"_s,
        u"user=x-0123456789abcdef0123456789abcdef&name=z"_s,
        u"“Größe” 歌 😀 <b>bold</b> %3Cb%3E"_s,
        u"two ^1; markers"_s,
    };
    for (const auto& name : texts) {
        for (const auto& description : texts + QStringList{u""_s, u"several\nlines"_s}) {
            const auto read =
                parsedPlaylistForm(form(name, description, u"7"_s, u"rock & roll"_s, u"A & B, C"_s).toUtf8());
            ASSERT_TRUE(read) << qUtf8Printable(name + u" / "_s + description);
            EXPECT_EQ(read->user, user);
            EXPECT_EQ(read->name, name);
            EXPECT_EQ(read->description, description);
            EXPECT_EQ(read->artists, u"A & B, C"_s);
            EXPECT_EQ(read->tags, QStringList{u"rock & roll"_s});
            EXPECT_EQ(read->archive, archive);
            EXPECT_EQ(read->id, 7);
            EXPECT_FALSE(read->hidden);
        }
    }
    const auto bare = parsedPlaylistForm(form(u"N"_s, u""_s).replace(u"hidden=0"_s, u"hidden=1"_s).toUtf8());
    ASSERT_TRUE(bare);
    EXPECT_TRUE(bare->hidden && !bare->id && bare->tags.isEmpty() && bare->artists.isEmpty());
}

TEST(PlaylistForm, ReadsDataThatWasEscapedOnItsWay)
{
    const QString raw = QString::fromLatin1(archive.toBase64());
    ASSERT_TRUE(raw.contains(u'+') && raw.contains(u'/'));
    for (QString data :
         {QString(raw).replace(u'+', u' '), QString(raw).replace(u'+', u"%2B"_s).replace(u'/', u"%2f"_s)}) {
        const auto read = parsedPlaylistForm(form(u"N"_s, u"D"_s).replace(raw, data).toUtf8());
        ASSERT_TRUE(read) << qUtf8Printable(data);
        EXPECT_EQ(read->archive, archive);
    }
}

TEST(PlaylistForm, BoundsWhatItTakes)
{
    const auto many =
        parsedPlaylistForm(form(u" N \x01 "_s, u"\x02 D\r\n"_s, {}, u"a,b,,A, c ,d,e,f"_s).toUtf8());
    ASSERT_TRUE(many);
    EXPECT_EQ(many->name, u"N"_s);
    EXPECT_EQ(many->description, u"D"_s);
    EXPECT_EQ(many->tags, (QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s}));

    const QString good = form(u"N"_s, u"D"_s, u"7"_s);
    const QList<std::pair<const char*, QByteArray>> refused{
        {"nothing", ""},
        {"no UTF-8", form(u"N"_s, u"D"_s).toUtf8().replace("name=N", "name=\xff")},
        {"no name", form(u""_s, u"D"_s).toUtf8()},
        {"a long name", form(QString(longestPlaylistName + 1, u'n'), u"D"_s).toUtf8()},
        {"a long description", form(u"N"_s, QString(longestPlaylistDescription + 1, u'd')).toUtf8()},
        {"no secret", QString(good).replace(user, u"Ann"_s).toUtf8()},
        {"no data", QString(good).replace(QString::fromLatin1(archive.toBase64()), u""_s).toUtf8()},
        {"data that is none", QString(good).replace(u"data="_s, u"data=*"_s).toUtf8()},
        {"id 0", QString(good).replace(u"id=7"_s, u"id=0"_s).toUtf8()},
        {"a large id", QString(good).replace(u"id=7"_s, u"id=2147483648"_s).toUtf8()},
        {"neither hidden nor not", QString(good).replace(u"hidden=0"_s, u"hidden=2"_s).toUtf8()},
        {"another order", QByteArray("name=N&") + good.toUtf8()},
    };
    for (const auto& [name, body] : refused)
        EXPECT_FALSE(parsedPlaylistForm(body)) << name;
}

TEST(PlaylistForm, MakesNamesForAddressesAndPages)
{
    const QList<std::pair<QString, QString>> names{{u"Rock & Roll, Vol. 2"_s, u"rock-roll-vol-2"_s},
                                                   {u"Björk's Größte"_s, u"bjorks-grosste"_s},
                                                   {u"歌"_s, u"playlist"_s},
                                                   {u"--"_s, u"playlist"_s},
                                                   {u"歌 of 2020"_s, u"of-2020"_s}};
    for (const auto& [name, address] : names)
        EXPECT_EQ(addressName(name), address);
    EXPECT_LE(addressName(QString(500, u'x')).size(), 60);
    EXPECT_EQ(shownUserName(user), u"Ann Lee"_s);
    EXPECT_EQ(shownUserName(u"a-b-0123"_s), u"a-b"_s);
}

} // namespace
} // namespace zib
