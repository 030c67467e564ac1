// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Texts.h"

#include "catalogue/demo/Artists.h"

#include <QDir>
#include <QFile>

#include <algorithm>

// Outside of the namespace, as the macro declares a function.
static void makeTextsAvailable()
{
    Q_INIT_RESOURCE(demo);
}

namespace zib::demo {

namespace {

/// A line "@field value" and what stands below it.
struct Entry {
    QString field;
    QString value;
    QString body;
};

QList<Entry> entriesOf(const QString& text)
{
    QList<Entry> entries;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1Char('@')))
            entries.append(
                {line.mid(1).section(QLatin1Char(' '), 0, 0), line.section(QLatin1Char(' '), 1), {}});
        else if (!entries.isEmpty())
            entries.last().body += line + QLatin1Char('\n');
    }
    for (Entry& entry : entries)
        entry.body = entry.body.trimmed();
    return entries;
}

/// @param entry its value is "Title | Source | date"
DemoArticle articleOf(const Entry& entry, DemoArticle::Kind kind, const QString& artist)
{
    const QStringList parts = entry.value.split(QLatin1String(" | "));
    DemoArticle article;
    article.kind = kind;
    article.title = parts.value(0);
    article.source = parts.value(1);
    article.date = QDate::fromString(parts.value(2), Qt::ISODate);
    article.text = entry.body;
    article.id = digest({QStringLiteral("demo article"), artist, article.title});
    return article;
}

void readEntry(const Entry& entry, const QString& artist, QString& album, ArtistTexts& texts)
{
    if (entry.field == QLatin1String("members"))
        texts.members = entry.value.toInt();
    else if (entry.field == QLatin1String("label"))
        texts.label = entry.value;
    else if (entry.field == QLatin1String("country"))
        texts.country = entry.value;
    else if (entry.field == QLatin1String("portrait"))
        texts.portrait = entry.value;
    else if (entry.field == QLatin1String("biography"))
        texts.biography = texts.portrait + QLatin1Char('\n') + entry.body;
    else if (entry.field == QLatin1String("album"))
        album = entry.value;
    else if (entry.field == QLatin1String("released"))
        texts.albums[album].released = QDate::fromString(entry.value, Qt::ISODate);
    else if (entry.field == QLatin1String("about"))
        texts.albums[album].about = entry.value;
    else if (entry.field == QLatin1String("lyrics"))
        texts.lyrics.insert(entry.value, entry.body);
    else if (entry.field == QLatin1String("blog"))
        texts.articles.append(articleOf(entry, DemoArticle::Blog, artist));
    else if (entry.field == QLatin1String("news"))
        texts.articles.append(articleOf(entry, DemoArticle::News, artist));
    else if (entry.field == QLatin1String("review")) {
        texts.articles.append(articleOf(entry, DemoArticle::Review, artist));
        texts.articles.last().album = album;
    }
}

QHash<QString, ArtistTexts> read()
{
    makeTextsAvailable();
    QHash<QString, ArtistTexts> all;
    for (const QFileInfo& info : QDir(QStringLiteral(":/demo/texts")).entryInfoList()) {
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QList<Entry> entries = entriesOf(QString::fromUtf8(file.readAll()));
        if (entries.isEmpty())
            continue;
        const QString artist = entries.first().value;
        ArtistTexts texts;
        QString album;
        for (const Entry& entry : entries)
            readEntry(entry, artist, album, texts);
        std::ranges::sort(texts.articles,
                          [](const DemoArticle& a, const DemoArticle& b) { return a.date > b.date; });
        all.insert(artist, texts);
    }
    return all;
}

} // namespace

const QHash<QString, ArtistTexts>& artistTexts()
{
    static const QHash<QString, ArtistTexts> texts = read();
    return texts;
}

QString aboutTrack(const QString& title, int number, int tracks, const QString& album, int year)
{
    const QString sentence = number == 1        ? QStringLiteral("“%1” opens “%2” of %3.")
                             : number == tracks ? QStringLiteral("“%1” closes “%2” of %3.")
                                                : QStringLiteral("“%1” is at the heart of “%2” of %3.");
    return sentence.arg(title, album).arg(year);
}

} // namespace zib::demo
