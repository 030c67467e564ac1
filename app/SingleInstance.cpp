// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SingleInstance.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QLoggingCategory>

#include <utility>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.app.instance")

constexpr int kPatienceMs = 2000;
constexpr qint64 kLongestRequest = qint64(8) << 20; // no command line is longer
const QByteArray kReopen = QByteArrayLiteral("reopen\n");
const QByteArray kOpen = QByteArrayLiteral("open "); // and the paths as a JSON array

bool askRunningInstance(const QString& name, const QStringList& files)
{
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(kPatienceMs))
        return false;
    socket.write(kReopen);
    if (!files.isEmpty())
        socket.write(kOpen + QJsonDocument(QJsonArray::fromStringList(files)).toJson(QJsonDocument::Compact) +
                     '\n');
    while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(kPatienceMs)) {
    }
    socket.disconnectFromServer();
    return true;
}

QStringList pathsOf(const QByteArray& json)
{
    QStringList paths;
    const QJsonArray array = QJsonDocument::fromJson(json).array();
    for (const auto path : array)
        paths.append(path.toString());
    return paths;
}

} // namespace

SingleInstance::SingleInstance(QString name)
    : name_(std::move(name))
{
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::claim(const QStringList& files)
{
    // Two starts at the same moment must not both find nobody and both take the place.
    QLockFile lock(name_ + QStringLiteral(".lock"));
    if (!lock.tryLock(kPatienceMs))
        qCWarning(log, "no lock at %s", qUtf8Printable(lock.fileName()));
    if (askRunningInstance(name_, files))
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
        while (connection->canReadLine()) {
            const QByteArray line = connection->readLine(kLongestRequest);
            if (line == kReopen)
                Q_EMIT reopenRequested();
            else if (line.startsWith(kOpen))
                Q_EMIT openRequested(pathsOf(line.mid(kOpen.size())));
        }
        if (connection->bytesAvailable() > kLongestRequest)
            connection->abort();
    };
    connect(connection, &QLocalSocket::readyRead, this, read);
    read();
}

} // namespace zib
