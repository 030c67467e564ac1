// SPDX-License-Identifier: GPL-3.0-or-later
#include "translations/Translations.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QTranslator>

#include <memory>

// Outside the namespace, as the resource's own function is.
static void initialiseResources()
{
    Q_INIT_RESOURCE(translations);
}

namespace zib {
namespace {

QString fileFor(const QString& language)
{
    return QStringLiteral(":/zib/translations/zib_%1.qm").arg(language);
}

void install(const QString& file)
{
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (translator->load(file))
        QCoreApplication::installTranslator(translator.release());
}

} // namespace

QString spokenLanguage(const QStringList& wanted)
{
    initialiseResources();
    for (const QString& locale : wanted) {
        const QString language = locale.section(QLatin1Char('-'), 0, 0);
        if (QFile::exists(fileFor(language)))
            return language;
    }
    return QStringLiteral("en");
}

void installTranslations(const QStringList& wanted)
{
    const QString language = spokenLanguage(wanted);
    // The toolkit's in the same language: it may know one that comes first but that the program does not.
    install(
        QStringLiteral("%1/qtbase_%2.qm").arg(QLibraryInfo::path(QLibraryInfo::TranslationsPath), language));
    install(fileFor(language));
}

} // namespace zib
