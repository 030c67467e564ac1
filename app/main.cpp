// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppDelegate.h"
#include "app/Application.h"
#include "app/SingleInstance.h"
#include "app/TerminationSignals.h"
#include "library/LibraryExport.h"
#include "library/LibraryFile.h"
#include "library/LibraryLoading.h"
#include "services/ServiceHosts.h"
#include "translations/Translations.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QIcon>
#include <QLocale>
#include <QTextStream>
#include <QThread>
#include <QUrl>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <utility>

namespace {

constexpr int kUsageError = 2;

int fail(const QString& message, int code)
{
    QTextStream(stderr) << "zib: " << message << '\n';
    return code;
}

void introduceApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("zib"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZIB_VERSION));
    zib::installTranslations(QLocale::system().uiLanguages());
}

struct Options {
    QCommandLineOption services{
        QStringLiteral("services"),
        QCoreApplication::translate("main",
                                    "Speak to the services at this base address (http://HOST[:PORT])."),
        QStringLiteral("URL")};
    QCommandLineOption exportLibrary{
        QStringLiteral("export-library"),
        QCoreApplication::translate("main",
                                    "Write the library as a property list to FILE (- for standard output) "
                                    "and end."),
        QStringLiteral("FILE")};
    QCommandLineOption playPause{
        QStringLiteral("play-pause"),
        QCoreApplication::translate("main", "Play, or pause what plays, without showing the window.")};
    QCommandLineOption next{QStringLiteral("next"),
                            QCoreApplication::translate("main", "Go to the next song.")};
    QCommandLineOption previous{
        QStringLiteral("previous"),
        QCoreApplication::translate("main",
                                    "Go to the beginning of the song, from there to the one before.")};
};

/// The program's result when the arguments end it already. It never exits from within: a library may be on
/// its way into memory on another thread.
std::optional<int> parse(QCommandLineParser& parser, const Options& options)
{
    parser.setApplicationDescription(QCoreApplication::translate("main", "Finds, plays and keeps music."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QCoreApplication::translate("main", "Show the options and end."));
    parser.addOption(help);
    const QCommandLineOption version = parser.addVersionOption();
    parser.addPositionalArgument(
        QStringLiteral("FILE"),
        QCoreApplication::translate("main",
                                    "Sound files and folders to add to the library, or zib:// addresses."),
        QStringLiteral("[FILE…]"));
    parser.addOption(options.services);
    parser.addOptions({options.exportLibrary, options.playPause, options.next, options.previous});
    if (!parser.parse(QCoreApplication::arguments()))
        return fail(parser.errorText(), EXIT_FAILURE);
    if (parser.isSet(help)) {
        QTextStream(stdout) << parser.helpText();
        return EXIT_SUCCESS;
    }
    if (parser.isSet(version)) {
        QTextStream(stdout) << QCoreApplication::applicationName() << ' '
                            << QCoreApplication::applicationVersion() << '\n';
        return EXIT_SUCCESS;
    }
    return std::nullopt;
}

/// The absolute path of an argument, which may be an address as desktops hand them over.
QString pathOf(const QString& argument)
{
    return argument.startsWith(QLatin1String("file://")) ? QUrl(argument).toLocalFile()
                                                         : QFileInfo(argument).absoluteFilePath();
}

/// Needs no window, so it must not need a display either.
int exportLibrary(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    introduceApplication();
    const Options options;
    QCommandLineParser parser;
    if (const auto ended = parse(parser, options))
        return *ended;
    const auto exported =
        zib::exportLibrary(zib::LibraryFile::standardPath(), parser.value(options.exportLibrary));
    return exported ? 0 : fail(exported.error(), 1);
}

int runProgram(int argc, char** argv)
{
    // The toolkit takes the first thread that it meets for the main one.
    static_cast<void>(QThread::currentThread());
    // First of all: it takes about as long as everything up to the window.
    zib::LibraryLoading library(zib::LibraryFile::standardPath());
    zib::StartRequest request;
    request.activationToken = qEnvironmentVariable("XDG_ACTIVATION_TOKEN"); // before the window takes it
    QApplication application(argc, argv);
    introduceApplication();
    QGuiApplication::setDesktopFileName(QStringLiteral("zib"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/zib/zib.svg")));
    QApplication::setApplicationDisplayName(QStringLiteral("Zib"));
    // The window's button closes the window; the music plays on.
    QApplication::setQuitOnLastWindowClosed(false);

    const Options options;
    QCommandLineParser parser;
    if (const auto ended = parse(parser, options))
        return *ended;
    const QStringList arguments = parser.positionalArguments();
    for (const QString& argument : arguments) {
        if (zib::AppDelegate::isAddress(argument)) {
            request.addresses.append(argument);
            continue;
        }
        request.files.append(pathOf(argument));
        if (!QFileInfo::exists(request.files.last()))
            return fail(QCoreApplication::translate("main", "there is no file “%1”").arg(argument),
                        kUsageError);
    }
    for (const auto& [option, transport] : {std::pair{&options.playPause, zib::Transport::PlayPause},
                                            std::pair{&options.next, zib::Transport::Next},
                                            std::pair{&options.previous, zib::Transport::Previous}})
        if (parser.isSet(*option))
            request.transport = transport;
    QVariantMap overrides;
    if (parser.isSet(options.services)) {
        const auto hosts = zib::hostsAtBase(parser.value(options.services));
        if (!hosts)
            return fail(
                QCoreApplication::translate("main", "“%1” is no address such as http://127.0.0.1:8080")
                    .arg(parser.value(options.services)),
                kUsageError);
        overrides = *hosts;
    }

    const zib::Places places = zib::Places::standard();
    zib::SingleInstance instance(places.meetingPlace);
    if (!instance.claim(request))
        return 0;
    zib::Application program(places, std::move(library), overrides);
    QObject::connect(&instance, &zib::SingleInstance::requested, &application,
                     [&](const zib::StartRequest& later) { program.reopen(later); });
    const zib::TerminationSignals signalHandler([] { QCoreApplication::quit(); });
    program.start(request);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    const bool exports = std::any_of(argv + 1, argv + argc, [](const char* argument) {
        return std::strncmp(argument, "--export-library", 16) == 0;
    });
    return exports ? exportLibrary(argc, argv) : runProgram(argc, argv);
}
