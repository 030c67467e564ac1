// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: settings lost between two runs or two processes, a broken file that takes the program or itself with
// it.
#include "platform/desktop/SettingsFile.h"
#include "tests/desktop/Eventually.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>

namespace zib {
namespace {

class SettingsFileTest : public testing::Test {
  protected:
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("deep/er/settings.json"));

    void put(const QByteArray& bytes) const
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray bytesOf(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList filesBeside() const
    {
        return QFileInfo(path).dir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
};

TEST_F(SettingsFileTest, ValuesComeBackWithTheirTypes)
{
    const QVariantMap values{
        {QStringLiteral("bool"), true},
        {QStringLiteral("no"), false},
        {QStringLiteral("int"), -3},
        {QStringLiteral("big"), std::numeric_limits<qint64>::max() - 1},
        {QStringLiteral("whole real"), 1.0},
        {QStringLiteral("real"), 0.1},
        {QStringLiteral("string"), QStringLiteral("~/M\u00fcsik \"\\\n\U0001F3B5")},
        {QStringLiteral("digits"), QStringLiteral("12")},
        {QStringLiteral("empty"), QStringLiteral("")},
    };
    {
        SettingsFile settings(path);
        for (auto entry = values.begin(); entry != values.end(); ++entry)
            settings.setValue(entry.key(), entry.value());
    }
    const SettingsFile settings(path);
    EXPECT_EQ(settings.storedKeys(), values.keys());
    for (auto entry = values.begin(); entry != values.end(); ++entry) {
        EXPECT_EQ(settings.value(entry.key()), entry.value()) << entry.key().toStdString();
        EXPECT_EQ(settings.value(entry.key()).typeId(), entry.value().typeId()) << entry.key().toStdString();
    }
    EXPECT_EQ(filesBeside(), QStringList{QStringLiteral("settings.json")}); // no lock, no half-written file
}

TEST_F(SettingsFileTest, IsWrittenSoonAfterAChange)
{
    SettingsFile settings(path);
    settings.setValue(QStringLiteral("Key"), 1);
    EXPECT_TRUE(eventually([&] { return bytesOf(path).contains("\"Key\": 1"); }));
    settings.remove(QStringLiteral("Key"));
    EXPECT_TRUE(eventually([&] { return !bytesOf(path).contains("Key"); }));
}

TEST_F(SettingsFileTest, NothingIsWrittenWithoutAChange)
{
    {
        SettingsFile settings(path, {{QStringLiteral("Override"), 1}});
        settings.registerDefaults({{QStringLiteral("Default"), 1}});
    }
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(SettingsFileTest, OverridesHoldForThisRun)
{
    const QString host = QStringLiteral("Host");
    const QString folderKey = QStringLiteral("Folder");
    put(R"({"Host": "stored", "Folder": "old"})");
    {
        SettingsFile settings(path,
                              {{host, QStringLiteral("override")}, {folderKey, QStringLiteral("override")}});
        settings.registerDefaults({{host, QStringLiteral("default")}});
        EXPECT_EQ(settings.string(host), QStringLiteral("override"));
        settings.setValue(folderKey, QStringLiteral("chosen")); // what a person sets afterwards counts
        EXPECT_EQ(settings.string(folderKey), QStringLiteral("chosen"));
        EXPECT_EQ(settings.storedKeys(), (QStringList{folderKey, host}));
    }
    const SettingsFile settings(path);
    EXPECT_EQ(settings.string(host), QStringLiteral("stored"));
    EXPECT_EQ(settings.string(folderKey), QStringLiteral("chosen"));
}

TEST_F(SettingsFileTest, TwoProcessesKeepEachOthersChanges)
{
    put(R"({"Both": 0, "Gone": 1})");
    auto first = std::make_unique<SettingsFile>(path);
    auto second = std::make_unique<SettingsFile>(path);
    QStringList told;
    QObject::connect(second.get(), &UserDefaults::changed, [&](const QString& key) { told += key; });

    first->setValue(QStringLiteral("First"), 1);
    first->setValue(QStringLiteral("Both"), 1);
    first->remove(QStringLiteral("Gone"));
    first.reset();
    second->setValue(QStringLiteral("Second"), 2);
    second->setValue(QStringLiteral("Both"), 2);
    EXPECT_TRUE(eventually([&] { return second->integer(QStringLiteral("First")) == 1; }));
    EXPECT_EQ(second->storedKeys(),
              (QStringList{QStringLiteral("Both"), QStringLiteral("First"), QStringLiteral("Second")}));
    EXPECT_TRUE(told.contains(QStringLiteral("First")));
    EXPECT_TRUE(told.contains(QStringLiteral("Gone")));
    second.reset();

    const SettingsFile third(path);
    EXPECT_EQ(third.integer(QStringLiteral("First")), 1);
    EXPECT_EQ(third.integer(QStringLiteral("Second")), 2);
    EXPECT_EQ(third.integer(QStringLiteral("Both")), 2); // whoever wrote last
}

TEST_F(SettingsFileTest, ABrokenFileIsKeptAsideAndTheDefaultsHold)
{
    const QByteArray broken[] = {"",
                                 "{",
                                 "[1]",
                                 "\"x\"",
                                 "{\"a\": 1} x",
                                 QByteArray("\0\1\2", 3),
                                 "{\"a\": \"" + QByteArray(5'000'000, 'x') + "\"}"};
    QStringList kept;
    for (const QByteArray& bytes : broken) {
        put(bytes);
        kept +=
            path + QStringLiteral(".bad") + (kept.isEmpty() ? QString() : QString::number(kept.size() + 1));
        SettingsFile settings(path);
        settings.registerDefaults({{QStringLiteral("a"), 5}});
        EXPECT_EQ(settings.integer(QStringLiteral("a")), 5);
        EXPECT_EQ(bytesOf(kept.last()), bytes);
        EXPECT_FALSE(QFile::exists(path));
        settings.setValue(QStringLiteral("b"), 1);
    }
    EXPECT_EQ(SettingsFile(path).integer(QStringLiteral("b")), 1); // a new file took its place
}

TEST_F(SettingsFileTest, ValuesOfAnotherKindAreLeftOut)
{
    put(R"({"list": [1], "map": {"x": 1}, "null": null, "odd": {"real": "1"}, "good": 1})");
    const SettingsFile settings(path);
    EXPECT_EQ(settings.storedKeys(), QStringList{QStringLiteral("good")});
}

TEST_F(SettingsFileTest, WhatCannotBeStoredHoldsForThisRun)
{
    const QString list = QStringLiteral("list");
    {
        SettingsFile settings(path);
        settings.setValue(list, QStringList{QStringLiteral("x")});
        settings.setValue(QStringLiteral("nan"), std::numeric_limits<double>::quiet_NaN());
        settings.setValue(QStringLiteral("good"), 1);
        EXPECT_TRUE(eventually([&] { return QFile::exists(path); }));
        EXPECT_EQ(settings.value(list).toStringList().size(), 1);
    }
    EXPECT_EQ(SettingsFile(path).storedKeys(), QStringList{QStringLiteral("good")});
}

TEST_F(SettingsFileTest, AFolderThatCannotBeMadeLosesNoValueOfThisRun)
{
    QFile inTheWay(folder.filePath(QStringLiteral("deep")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    {
        SettingsFile settings(path);
        settings.setValue(QStringLiteral("Key"), 1);
        EXPECT_EQ(settings.integer(QStringLiteral("Key")), 1);
    }
    EXPECT_TRUE(inTheWay.remove());
    SettingsFile settings(path);
    settings.setValue(QStringLiteral("Key"), 2);
    EXPECT_TRUE(eventually([&] { return QFile::exists(path); }));
}

TEST_F(SettingsFileTest, ALinkedFileStaysLinked)
{
    const QString target = folder.filePath(QStringLiteral("dotfiles.json"));
    put("{}");
    ASSERT_TRUE(QFile::rename(path, target));
    ASSERT_TRUE(QFile::link(target, path));
    {
        SettingsFile settings(path);
        settings.setValue(QStringLiteral("Key"), 1);
    }
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_TRUE(bytesOf(target).contains("\"Key\": 1"));
}

} // namespace
} // namespace zib
