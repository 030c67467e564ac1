// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CatalogueProcess.h"

#include <QDateTime>
#include <QLoggingCategory>
#include <QTimer>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.app.catalogue")

// A service that lived shorter than this has not served anybody; after so many in a row it is given up.
constexpr qint64 kQuickEndMs = 10'000;
constexpr int kMostQuickEnds = 3;
// Where the child finds the socket.
constexpr int kChildSocket = 3;

int listenOnLoopback(quint16 port)
{
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return -1;
    const int on = 1;
    ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        ::listen(fd, SOMAXCONN) == 0)
        return fd;
    ::close(fd);
    return -1;
}

quint16 portOf(int fd)
{
    sockaddr_in address{};
    socklen_t length = sizeof address;
    return ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length) == 0 ? ntohs(address.sin_port)
                                                                                  : 0;
}

} // namespace

CatalogueProcess::CatalogueProcess(Options options)
    : options_(std::move(options))
{
}

CatalogueProcess::~CatalogueProcess()
{
    if (process_) {
        process_->disconnect(this);
        process_->closeWriteChannel();
        if (!process_->waitForFinished(2000)) {
            process_->kill();
            process_->waitForFinished(1000);
        }
    }
    if (listeningSocket_ >= 0)
        ::close(listeningSocket_);
}

bool CatalogueProcess::listen()
{
    if (options_.preferredPort != 0)
        listeningSocket_ = listenOnLoopback(options_.preferredPort);
    if (listeningSocket_ < 0)
        listeningSocket_ = listenOnLoopback(0);
    if (listeningSocket_ < 0) {
        qCWarning(log, "no loopback socket for the catalogue service: %s", strerror(errno));
        return false;
    }
    port_ = portOf(listeningSocket_);
    return true;
}

bool CatalogueProcess::start()
{
    if (listeningSocket_ < 0 && !listen())
        return false;
    launch();
    return true;
}

void CatalogueProcess::launch()
{
    QStringList arguments{QStringLiteral("serve"),       QStringLiteral("--listen-fd"),
                          QString::number(kChildSocket), QStringLiteral("--until-stdin-closes"),
                          QStringLiteral("--data"),      options_.dataFolder};
    for (const QString& folder : options_.musicFolders)
        arguments << QStringLiteral("--music") << folder;

    process_ = std::make_unique<QProcess>();
    process_->setProcessChannelMode(QProcess::MergedChannels);
    process_->setChildProcessModifier([fd = listeningSocket_] {
        // dup2 leaves the copy open across exec; onto itself it would not.
        if (fd == kChildSocket)
            ::fcntl(fd, F_SETFD, 0);
        else
            ::dup2(fd, kChildSocket);
    });
    connect(process_.get(), &QProcess::readyRead, this, &CatalogueProcess::logOutput);
    connect(process_.get(), &QProcess::finished, this, &CatalogueProcess::ended);
    connect(process_.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            ended();
    });
    launchedAt_ = QDateTime::currentMSecsSinceEpoch();
    process_->start(options_.program, arguments);
}

void CatalogueProcess::ended()
{
    const bool quick = QDateTime::currentMSecsSinceEpoch() - launchedAt_ < kQuickEndMs;
    quickEnds_ = quick ? quickEnds_ + 1 : 0;
    qCWarning(log, "the catalogue service ended: %s", qUtf8Printable(process_->errorString()));
    if (quickEnds_ >= kMostQuickEnds) {
        // Nobody will answer: let connections be refused at once instead of waiting for their time-out.
        ::close(std::exchange(listeningSocket_, -1));
        Q_EMIT failed(tr("The song catalogue could not be started, so searches find nothing."));
        return;
    }
    QTimer::singleShot(0, this, &CatalogueProcess::launch);
}

void CatalogueProcess::logOutput()
{
    while (process_->canReadLine())
        qCInfo(log, "%s", process_->readLine().trimmed().constData());
}

} // namespace zib
