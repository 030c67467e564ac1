// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a service that outlives its program, a first request that is refused, a port that wanders, a crash
// that ends the searching.
#include "app/CatalogueProcess.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <csignal>

namespace zib {
namespace {

constexpr int kPatienceMs = 30'000;

QString fromEnvironment(const char* name)
{
    return QString::fromLocal8Bit(qgetenv(name));
}

/// The answer to a GET, empty when refused or none comes.
QByteArray ask(quint16 port, const QByteArray& path)
{
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), port);
    if (!socket.waitForConnected(kPatienceMs))
        return {};
    socket.write("GET " + path + " HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(port) +
                 "\r\nConnection: close\r\n\r\n");
    QByteArray answer;
    while (socket.waitForReadyRead(kPatienceMs))
        answer += socket.readAll();
    return answer;
}

bool eventually(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > kPatienceMs)
            return false;
        QEventLoop loop;
        QTimer::singleShot(20, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

class CatalogueProcessTest : public testing::Test {
  protected:
    CatalogueProcess::Options options() const
    {
        CatalogueProcess::Options result;
        result.program = fromEnvironment("ZIB_TEST_CATALOGUE");
        result.dataFolder = folder_.path();
        return result;
    }

    QTemporaryDir folder_;
};

TEST_F(CatalogueProcessTest, AnswersTheVeryFirstRequest)
{
    CatalogueProcess catalogue(options());
    ASSERT_TRUE(catalogue.start());
    EXPECT_TRUE(ask(catalogue.port(), "/health").startsWith("HTTP/1.1 200"));
}

TEST_F(CatalogueProcessTest, KeepsItsPortUnlessThatIsTaken)
{
    CatalogueProcess::Options wanted = options();
    {
        CatalogueProcess first(wanted);
        ASSERT_TRUE(first.start());
        wanted.preferredPort = first.port();
        EXPECT_FALSE(ask(first.port(), "/health").isEmpty());
    }
    {
        CatalogueProcess again(wanted);
        ASSERT_TRUE(again.start());
        EXPECT_EQ(again.port(), wanted.preferredPort);
    }
    QTcpServer stranger;
    ASSERT_TRUE(stranger.listen(QHostAddress::LocalHost, wanted.preferredPort));
    CatalogueProcess elsewhere(wanted);
    ASSERT_TRUE(elsewhere.start());
    EXPECT_NE(elsewhere.port(), wanted.preferredPort);
    EXPECT_NE(elsewhere.port(), 0);
}

TEST_F(CatalogueProcessTest, EndsWhenItsProgramIsKilled)
{
    QProcess holder;
    holder.start(fromEnvironment("ZIB_TEST_HOLDER"), {options().program, folder_.path()});
    ASSERT_TRUE(holder.waitForReadyRead(kPatienceMs));
    const quint16 port = holder.readLine().trimmed().toUShort();
    ASSERT_TRUE(ask(port, "/health").startsWith("HTTP/1.1 200"));
    holder.kill();
    ASSERT_TRUE(holder.waitForFinished(kPatienceMs));
    // Nobody has the socket any more only once the service is gone as well.
    EXPECT_TRUE(eventually([port] {
        QTcpSocket socket;
        socket.connectToHost(QStringLiteral("127.0.0.1"), port);
        return !socket.waitForConnected(1000);
    }));
}

TEST_F(CatalogueProcessTest, AServiceThatCannotRunIsReportedAndRefuses)
{
    CatalogueProcess::Options broken = options();
    broken.program = QStringLiteral("/bin/false");
    CatalogueProcess catalogue(broken);
    QString reported;
    QObject::connect(&catalogue, &CatalogueProcess::failed, &catalogue,
                     [&reported](const QString& message) { reported = message; });
    ASSERT_TRUE(catalogue.start());
    EXPECT_TRUE(eventually([&reported] { return !reported.isEmpty(); }));
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), catalogue.port());
    EXPECT_FALSE(socket.waitForConnected(1000));
}

} // namespace
} // namespace zib
