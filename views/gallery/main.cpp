// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the controls of the program in all their states, or writes a picture of each.
#include "views/AccessibleText.h"
#include "views/gallery/GalleryWindow.h"
#include "views/gallery/Shooting.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStyleFactory>
#include <QTextStream>

#include <algorithm>
#include <cstring>

namespace {

constexpr int kUsageError = 2;

const QStringList schemes{QStringLiteral("light"), QStringLiteral("dark"), QStringLiteral("contrast-light"),
                          QStringLiteral("contrast-dark")};

int fail(const QString& message, int code)
{
    QTextStream(stderr) << "zib-gallery: " << message << '\n';
    return code;
}

} // namespace

int main(int argc, char** argv)
{
    const bool shoots = std::any_of(argv + 1, argv + argc, [](const char* argument) {
        return std::strncmp(argument, "--shoot", 7) == 0;
    });
    if (shoots && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // pictures need no display
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zib-gallery"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Shows the controls of Zib in all their states.\n\n"
        "QT_SCALE_FACTOR=1.5 in the environment makes a pixel so many, -reverse mirrors all."));
    const QCommandLineOption shoot(QStringLiteral("shoot"),
                                   QStringLiteral("Write a picture per control to DIR and end."),
                                   QStringLiteral("DIR"));
    const QCommandLineOption scheme(
        QStringLiteral("scheme"), QStringLiteral("The colours: %1.").arg(schemes.join(QStringLiteral(", "))),
        QStringLiteral("NAME"), schemes.first());
    parser.addOptions({shoot, scheme});
    parser.addHelpOption();
    parser.process(application);
    const qsizetype chosen = schemes.indexOf(parser.value(scheme));
    if (chosen < 0)
        return fail(QStringLiteral("there is no scheme “%1”").arg(parser.value(scheme)), kUsageError);

    zib::useScheme(zib::Scheme(chosen));
    zib::installAccessibleTexts();
    if (parser.isSet(shoot)) {
        const int written = zib::shootAll(parser.value(shoot));
        if (written < 0)
            return fail(QStringLiteral("can't write pictures to “%1”").arg(parser.value(shoot)),
                        EXIT_FAILURE);
        QTextStream(stdout) << written << " pictures\n";
        return EXIT_SUCCESS;
    }
    zib::GalleryWindow window{zib::Scheme(chosen)};
    window.show();
    return QApplication::exec();
}
