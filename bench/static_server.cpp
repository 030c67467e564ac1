// SPDX-License-Identifier: GPL-3.0-or-later
// static_server SIZE: answers every request with the same so many bytes, by the service's own server and
// threads, until its standard input closes. The yardstick of the service's benchmarks.
#include "catalogue/HttpServer.h"
#include "catalogue/WorkerPool.h"

#include <cstdio>
#include <cstdlib>

namespace {

using namespace zib;

class StaticHandler final : public HttpHandler {
  public:
    explicit StaticHandler(qsizetype size)
        : reply_{.contentType = "text/plain",
                 .body = QByteArray(size, 'x'),
                 .headers = {{"Cache-Control", "no-store"}}}
    {
    }

    void answer(const HttpRequest&, Respond respond) override
    {
        answering_.start([this, respond = std::move(respond)] { respond(reply_); });
    }

  private:
    const HttpReply reply_;
    WorkerPool answering_{4};
};

} // namespace

int main(int argc, char** argv)
{
    auto socket = ListeningSocket::open(QStringLiteral("127.0.0.1"), 0);
    if (argc != 2 || !socket)
        return 1;
    const QByteArray url = socket->url().toLatin1();
    StaticHandler handler(std::atoll(argv[1]));
    const auto server = HttpServer::start(std::move(*socket), handler, {});
    if (!server)
        return 1;
    std::printf("listening %s\n", url.constData());
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}
