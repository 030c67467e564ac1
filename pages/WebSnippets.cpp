// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/WebSnippets.h"

#include "pages/Page.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

// Outside the namespace, as the resource's own function is.
static void initialiseResources()
{
    Q_INIT_RESOURCE(pages);
}

namespace zib {
namespace {

/// What the templates hold within double braces for people to read.
const char* const templateTexts[] = {
    QT_TRANSLATE_NOOP("PageTemplates", "Now playing <b>%track</b> by"), // the artist's name follows, larger
    QT_TRANSLATE_NOOP("PageTemplates", "Familiarity"),
    QT_TRANSLATE_NOOP("PageTemplates", "Hotness"),
    QT_TRANSLATE_NOOP("PageTemplates", "Tags:"),
    QT_TRANSLATE_NOOP("PageTemplates", "Similar Artists:"),
    QT_TRANSLATE_NOOP("PageTemplates", "MORE MUSIC<br>LIKE THIS!"),
    QT_TRANSLATE_NOOP("PageTemplates", "by %artist"),
    QT_TRANSLATE_NOOP("PageTemplates", "Type: <b>%type</b>"),
    QT_TRANSLATE_NOOP("PageTemplates", "Released: <b>%date</b>"),
    QT_TRANSLATE_NOOP("PageTemplates", "Label: <b>%label</b>"),
    QT_TRANSLATE_NOOP("PageTemplates", "Artist"),
};

QString translated(QString pageTemplate)
{
    for (const char* const text : templateTexts)
        pageTemplate.replace(QStringLiteral("{{%1}}").arg(QString::fromUtf8(text)),
                             QCoreApplication::translate("PageTemplates", text));
    return pageTemplate;
}

QString embedded(const char* name)
{
    initialiseResources();
    QFile file(QLatin1String(":/zib/pages/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s is not embedded", name); // a mistake in the build
    return translated(QString::fromUtf8(file.readAll()));
}

QString scriptFile(const char* name)
{
    return QStringLiteral("<script type=\"text/javascript\" nonce=\"%mark\" src=\"js/[name]\"></script>\n")
        .replace(QLatin1String("[name]"), QLatin1String(name));
}

/// The frame that all pages with a menu share. Its own gaps are written in brackets, which no other text here
/// has.
QString framed(const QString& scripts, const QStringList& menu, const QString& wrap)
{
    return embedded("templates/frame.html")
        .replace(QLatin1String("[scripts]"), scripts)
        .replace(QLatin1String("[menu]"), menu.join(u'\n') + u'\n')
        .replace(QLatin1String("[wrap]"), wrap);
}

QString songPage(Page shown, const QString& scripts)
{
    QStringList menu;
    for (const Page page : songPages)
        menu += page == shown ? selectedMenuCell(page) : menuLink(page);
    for (const Page page : feedPages)
        menu += menuLink(page);
    return framed(scripts, menu,
                  embedded(("templates/" + QByteArray(pageName(shown).data()) + ".html").constData()));
}

QString makeArtistPage()
{
    const QString bars = QLatin1String("<script type=\"text/javascript\" nonce=\"%mark\">\n") +
                         embedded("templates/artist-bars.js") + QLatin1String("</script>\n");
    return songPage(Page::Artist, scriptFile("prototype.js") + scriptFile("jsProgressBarHandler.js") +
                                      scriptFile("fade.js") + bars);
}

QString makeFeedPage()
{
    QStringList menu;
    for (const Page page : songPages)
        menu += menuLink(page);
    menu += QStringLiteral("%menu");
    return framed(scriptFile("fade.js"), menu, embedded("templates/feed.html"));
}

QString makeBusyPage()
{
    QStringList menu;
    for (const Page page : songPages)
        menu += emptyMenuLink(page);
    for (const Page page : feedPages)
        menu += emptyMenuLink(page);
    return framed(scriptFile("fade.js"), menu, {});
}

} // namespace

const QString& WebSnippets::blueStyle()
{
    static const QString text = embedded("styles/blue.css");
    return text;
}

const QString& WebSnippets::grayStyle()
{
    static const QString text = embedded("styles/gray.css");
    return text;
}

const QString& WebSnippets::errorPage()
{
    static const QString text = embedded("templates/error.html");
    return text;
}

const QString& WebSnippets::busyPage()
{
    static const QString text = makeBusyPage();
    return text;
}

const QString& WebSnippets::startPage()
{
    static const QString text = embedded("templates/start.html");
    return text;
}

const QString& WebSnippets::artistPage()
{
    static const QString text = makeArtistPage();
    return text;
}

const QString& WebSnippets::albumPage()
{
    static const QString text = songPage(Page::Album, scriptFile("fade.js"));
    return text;
}

const QString& WebSnippets::trackPage()
{
    static const QString text = songPage(Page::Track, scriptFile("fade.js"));
    return text;
}

const QString& WebSnippets::imagesPage()
{
    static const QString text =
        songPage(Page::Images, scriptFile("thumbnailviewer.js") + scriptFile("fade.js"));
    return text;
}

const QString& WebSnippets::feedPage()
{
    static const QString text = makeFeedPage();
    return text;
}

} // namespace zib
