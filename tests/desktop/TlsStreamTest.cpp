// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for a song that does not play because its server's certificate is no good, and for trust that spreads
// to the requests that ask for none of it.
#include "platform/desktop/CurlReadStreams.h"
#include "tests/desktop/StreamReader.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/QueueListener.h"

#include <QFile>
#include <QTemporaryDir>

#include <thread>

namespace zib::test {
namespace {

using Event = HttpReadStream::Event;

/// A certificate that signs itself.
struct Certificate {
    const char* name;
    const char* host;
    const char* from; ///< year, month, day and time of day
    const char* to;
};

constexpr Certificate kCertificates[] = {
    {"self-signed", "IP:127.0.0.1", "20200101000000Z", "20990101000000Z"},
    {"expired", "IP:127.0.0.1", "20200101000000Z", "20210101000000Z"},
    {"not valid yet", "IP:127.0.0.1", "20980101000000Z", "20990101000000Z"},
    {"of another host", "DNS:music.example", "20200101000000Z", "20990101000000Z"},
};

/// Serves one file over TLS at a loopback port.
class TlsServer {
  public:
    TlsServer(const Certificate& certificate, const QByteArray& song)
    {
        write("song.mp3",
              "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(song.size()) + "\r\n\r\n" + song);
        write("index.txt", {});
        write("ca.cnf",
              "[ca]\ndefault_ca=self\n"
              "[self]\ndatabase=index.txt\nnew_certs_dir=.\nserial=serial\ndefault_md=sha256\npolicy=any\n"
              "copy_extensions=copy\n"
              "[any]\ncommonName=supplied\n"
              "[req]\ndistinguished_name=name\n[name]\n");
        openssl("req -new -config ca.cnf -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -subj /CN=song "
                "-keyout key.pem -out request.pem -addext subjectAltName=" +
                QByteArray(certificate.host));
        openssl("ca -config ca.cnf -batch -selfsign -rand_serial -notext -keyfile key.pem -in request.pem "
                "-out certificate.pem -startdate " +
                QByteArray(certificate.from) + " -enddate " + certificate.to);
        log_.setFileName(folder_.filePath(QStringLiteral("log")));
        EXPECT_TRUE(log_.open(QIODevice::ReadWrite));
        server_.emplace(words("s_server -accept 127.0.0.1:0 -HTTP -http_server_binmode -key key.pem "
                              "-cert certificate.pem"),
                        ChildProcess::kNothing, log_.handle(), folder_.path());
    }

    /// The address of the song; empty when the server does not come up.
    [[nodiscard]] QByteArray url()
    {
        const auto limit = std::chrono::steady_clock::now() + kPatience;
        while (std::chrono::steady_clock::now() < limit) {
            QFile log(log_.fileName());
            if (log.open(QIODevice::ReadOnly)) {
                while (!log.atEnd()) {
                    const QByteArray line = log.readLine();
                    if (line.startsWith("ACCEPT ") && line.endsWith('\n'))
                        return "https://" + line.mid(7).trimmed() + "/song.mp3";
                }
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return {};
    }

  private:
    static QStringList words(const QByteArray& arguments)
    {
        return QString::fromLatin1("openssl " + arguments).split(QLatin1Char(' '));
    }
    void openssl(const QByteArray& arguments) const
    {
        ChildProcess tool(words(arguments), ChildProcess::kNothing, ChildProcess::kNothing, folder_.path());
        EXPECT_TRUE(tool.succeeds()) << arguments.constData();
    }
    void write(const char* name, const QByteArray& bytes) const
    {
        QFile file(folder_.filePath(QLatin1String(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    QTemporaryDir folder_;
    QFile log_;
    std::optional<ChildProcess> server_; ///< ends before its folder goes
};

class TlsStreamTest : public testing::TestWithParam<Certificate> {};
INSTANTIATE_TEST_SUITE_P(EveryFault, TlsStreamTest, testing::ValuesIn(kCertificates), [](const auto& fault) {
    return QString::fromLatin1(fault.param.name)
        .remove(QLatin1Char(' '))
        .remove(QLatin1Char('-'))
        .toStdString();
});

TEST_P(TlsStreamTest, IsAcceptedWhenAskedForAndAtNoOtherTime)
{
    QByteArray song(300'000, Qt::Uninitialized);
    for (qsizetype i = 0; i < song.size(); ++i)
        song[i] = static_cast<char>(i * 131 + i / 251);
    TlsServer server(GetParam(), song);
    HttpReadRequest request = get(server.url());
    ASSERT_FALSE(request.url.isEmpty());
    // What the streams share among them, sessions too, must not carry the trust over.
    CurlReadStreams streams(std::chrono::duration_cast<std::chrono::milliseconds>(kPatience));
    for (const bool accepts : {false, true, false, true}) {
        SCOPED_TRACE(accepts);
        request.acceptAnyCertificate = accepts;
        StreamReader reader(streams);
        ASSERT_TRUE(reader.open(request));
        reader.run();
        EXPECT_EQ(reader.last, accepts ? Event::EndEncountered : Event::ErrorOccurred);
        EXPECT_TRUE(reader.received == (accepts ? song : QByteArray())) << reader.received.size();
    }
}

} // namespace
} // namespace zib::test
