// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SingleInstance.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QLoggingCategory>

#include <utility>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.app.instance")

constexpr int kPatienceMs = 2000;
const QByteArray kReopen = QByteArrayLiteral("reopen\n");

bool askRunningInstance(const QString& name)
{
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(kPatienceMs))
        return false;
    socket.write(kReopen);
    socket.waitForBytesWritten(kPatienceMs);
    socket.disconnectFromServer();
    return true;
}

} // namespace

SingleInstance::SingleInstance(QString name)
    : name_(std::move(name))
{
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::claim()
{
    // Two starts at the same moment must not both find nobody and both take the place.
    QLockFile lock(name_ + QStringLiteral(".lock"));
    if (!lock.tryLock(kPatienceMs))
        qCWarning(log, "no lock at %s", qUtf8Printable(lock.fileName()));
    if (askRunningInstance(name_))
        return false;

    server_ = std::make_unique<QLocalServer>();
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    QLocalServer::removeServer(name_); // what a killed program left behind
    if (!server_->listen(name_))
        qCWarning(log, "cannot listen at %s: %s", qUtf8Printable(name_),
                  qUtf8Printable(server_->errorString()));
    connect(server_.get(), &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* connection = server_->nextPendingConnection())
            receive(connection);
    });
    return true;
}

void SingleInstance::receive(QLocalSocket* connection)
{
    connect(connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
    const auto read = [this, connection] {
        if (connection->canReadLine() && connection->readLine(64) == kReopen)
            Q_EMIT reopenRequested();
    };
    connect(connection, &QLocalSocket::readyRead, this, read);
    read();
}

} // namespace zib
