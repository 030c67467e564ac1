// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SingleInstance.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
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
const QString kFiles = QStringLiteral("files");
const QString kAddresses = QStringLiteral("addresses");
const QString kActivationToken = QStringLiteral("activation");
const QString kTransport = QStringLiteral("transport");

// A request is a line with a JSON object.

QByteArray lineOf(const StartRequest& request)
{
    const QJsonObject object{{kFiles, QJsonArray::fromStringList(request.files)},
                             {kAddresses, QJsonArray::fromStringList(request.addresses)},
                             {kActivationToken, request.activationToken},
                             {kTransport, int(request.transport)}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

StartRequest requestOf(const QByteArray& line)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    const auto strings = [&object](const QString& key) {
        QStringList list;
        const QJsonArray array = object.value(key).toArray();
        for (const auto item : array)
            list.append(item.toString());
        return list;
    };
    const int transport = object.value(kTransport).toInt();
    const bool known = transport >= int(Transport::None) && transport <= int(Transport::Previous);
    return {strings(kFiles), strings(kAddresses), object.value(kActivationToken).toString(),
            known ? Transport(transport) : Transport::None};
}

bool askRunningInstance(const QString& name, const StartRequest& request)
{
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(kPatienceMs))
        return false;
    socket.write(lineOf(request));
    while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(kPatienceMs)) {
    }
    socket.disconnectFromServer();
    return true;
}

} // namespace

SingleInstance::SingleInstance(QString name)
    : name_(std::move(name))
{
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::claim(const StartRequest& request)
{
    // Two starts at the same moment must not both find nobody and both take the place.
    QLockFile lock(name_ + QStringLiteral(".lock"));
    if (!lock.tryLock(kPatienceMs))
        qCWarning(log, "no lock at %s", qUtf8Printable(lock.fileName()));
    if (askRunningInstance(name_, request))
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
        while (connection->canReadLine())
            Q_EMIT requested(requestOf(connection->readLine(kLongestRequest)));
        if (connection->bytesAvailable() > kLongestRequest)
            connection->abort();
    };
    connect(connection, &QLocalSocket::readyRead, this, read);
    read();
}

} // namespace zib
