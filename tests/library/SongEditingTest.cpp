// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: an edit that reaches the record but not the file, its tags or its address, a file that is lost or
// overwritten, and names that lead out of the music folder.
#include "library/SongEditing.h"
#include "platform/SettingsKeys.h"
#include "records/PropertyValue.h"
#include "tests/fakes/FakeTagApi.h"
#include "tests/library/BrowserFixture.h"

#include <QDir>
#include <QFile>
#include <QUrl>

namespace zib {
namespace {

class SongEditingTest : public BrowserFixture {
  protected:
    SongEditingTest() { defaults.setValue(settings::MusicFolder, music()); }
    [[nodiscard]] QString music() const { return QDir(folder.path()).canonicalPath() + text("/Music"); }
    [[nodiscard]] QString at(const char* path) const { return music() + u'/' + text(path); }
    [[nodiscard]] static QString url(const QString& path)
    {
        return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
    }
    /// A song of the library whose file is at its place.
    void addLocal(const char* id, const char* artist, const char* album, const char* name)
    {
        Record track = add(id, artist, album, name);
        track.set(keys::Location, QString(text("file:///x.mp3")));
        const QString path = SongPaths(defaults).filePath(track);
        track.set(keys::Location, url(path));
        write(path, id);
        tags.files.insert(path, {});
    }
    static void write(const QString& path, const QByteArray& content)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    Record stored(const char* id) { return library.library().find(text(id)); }

    FakeTagAPIs tags;
    SongEditing editing{library, tags, defaults, alerts};
};

TEST_F(SongEditingTest, TheFileItsTagsAndItsAddressFollow)
{
    addLocal("1", "Old", "Album", "Song");
    addLocal("2", "Other", "Album", "B");
    library.setSource(SourceType::Library);
    controller.play(library.items()[0], library);
    editing.setObjectValue(text("New"), SongColumn::Artist, 0);
    EXPECT_TRUE(alerts.shown.isEmpty());
    EXPECT_EQ(read(at("New/Album/Song.mp3")), "1");
    EXPECT_FALSE(QFileInfo::exists(at("Old"))) << "nothing is left in it";
    EXPECT_EQ(tags.files.value(at("Old/Album/Song.mp3")).value(text("artist")), text("New"));
    EXPECT_EQ(stored("1").string(keys::Artist), text("New"));
    EXPECT_EQ(stored("1").string(keys::Location), url(at("New/Album/Song.mp3")));
    EXPECT_EQ(controller.updated.string(keys::Artist), text("New"));
    EXPECT_EQ(library.currentIndexPath(), (IndexPath{1, 0, 0})) << "the new name is chosen, and the song";
    EXPECT_EQ(shown(), text("1"));

    editing.setObjectValue(text("50% #1?"), SongColumn::Album, 0);
    EXPECT_EQ(read(at("New/50% #1?/Song.mp3")), "1");
    EXPECT_EQ(stored("1").string(keys::Location), url(at("New/50% #1?/Song.mp3")));
    EXPECT_EQ(library.currentIndexPath(), (IndexPath{1, 1, 0}));

    library.waitForSaves();
    EXPECT_EQ(LibraryFile(folder.filePath(text("l.zib"))).load()->library.find(text("1")), stored("1"));
}

TEST_F(SongEditingTest, OnlyTextsChangeAnything)
{
    addLocal("1", "A", "X", "Song");
    library.setSource(SourceType::Library);
    const Record before = stored("1").copy();
    const std::pair<SongColumn, const char*> cases[] = {{SongColumn::Name, ""},
                                                        {SongColumn::Year, "1999"},
                                                        {SongColumn::Index, "3"},
                                                        {SongColumn::Name, "Song"}};
    for (const auto& [column, value] : cases) {
        editing.setObjectValue(text(value), column, 0);
        EXPECT_EQ(stored("1"), before) << value;
    }
    editing.setObjectValue(text("x"), SongColumn::Name, 7);
    editing.setObjectValue(text("Jazz"), SongColumn::Genre, 0);
    EXPECT_EQ(stored("1").string(keys::Genre), text("Jazz"));
    EXPECT_TRUE(tags.files.value(at("A/X/Song.mp3")).isEmpty());
}

TEST_F(SongEditingTest, ASongFromTheWebIsKeptWithItsNewName)
{
    Record web = song(text("w"), {{keys::Location, text("http://h/w.mp3")}});
    library.addPlaylistWithTitle(text("S"), {web}, 1);
    library.setSource(SourceType::RecentSearches);
    library.setCurrentPlaylistIndex(0);
    editing.setObjectValue(text("Better"), SongColumn::Name, 0);
    EXPECT_EQ(stored("w").string(keys::Name), text("Better"));
    EXPECT_EQ(stored("w").string(keys::Location), text("http://h/w.mp3"));
    EXPECT_EQ(library.searches()[0].records(keys::Tracks)[0].string(keys::Name), text("Better"));
    EXPECT_EQ(library.items()[0].string(keys::Name), text("Better"));
    EXPECT_EQ(view.songs.selectedRows(), QList<int>{0});
}

TEST_F(SongEditingTest, WhatTheFileCannotFollowIsRefusedWhole)
{
    addLocal("1", "A", "X", "Song");
    addLocal("2", "A", "X", "Taken");
    write(QDir(folder.path()).filePath(text("secret.mp3")), "secret");
    library.setSource(SourceType::Library);
    const Record before = stored("1").copy();
    const QString tooLong(300, u'x');
    int refused = 0;
    for (const QString& name : {text("Taken"), text("../../../secret"), text("../../../new/song"),
                                QString(u'a') + QChar(0), tooLong}) {
        editing.setObjectValue(name, SongColumn::Name, 0);
        EXPECT_EQ(alerts.shown.size(), ++refused) << qUtf8Printable(name);
        EXPECT_EQ(stored("1"), before);
        EXPECT_EQ(read(at("A/X/Song.mp3")), "1");
        EXPECT_EQ(read(at("A/X/Taken.mp3")), "2");
        EXPECT_TRUE(tags.files.value(at("A/X/Song.mp3")).isEmpty());
    }
    EXPECT_FALSE(QFileInfo::exists(QDir(folder.path()).filePath(text("new"))));

    // A name that came that way, from a tag or from the web: its file is nobody's to write to.
    Record hostile = add("3", "A", "X", "../../../secret");
    hostile.set(keys::Location, text("http://h/x.mp3"));
    library.reloadData();
    editing.setObjectValue(text("Tame"), SongColumn::Name, 2);
    EXPECT_EQ(alerts.shown.size(), ++refused);
    EXPECT_EQ(read(QDir(folder.path()).filePath(text("secret.mp3"))), "secret");
}

} // namespace
} // namespace zib
