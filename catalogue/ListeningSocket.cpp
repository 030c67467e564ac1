// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/HttpServer.h"

#include <QCoreApplication>

#include <cerrno>
#include <cstring>
#include <utility>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zib {

namespace {

constexpr int longestQueue = 512;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ListeningSocket)
};

QString lastError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

} // namespace

tl::expected<ListeningSocket, QString> ListeningSocket::open(const QString& address, quint16 port)
{
    const QByteArray text = address.toLatin1();
    sockaddr_in ipv4 = {};
    ipv4.sin_family = AF_INET;
    ipv4.sin_port = htons(port);
    sockaddr_in6 ipv6 = {};
    ipv6.sin6_family = AF_INET6;
    ipv6.sin6_port = htons(port);
    const bool isIpv4 = ::inet_pton(AF_INET, text.constData(), &ipv4.sin_addr) == 1;
    if (!isIpv4 && ::inet_pton(AF_INET6, text.constData(), &ipv6.sin6_addr) != 1)
        return tl::unexpected(Texts::tr("%1 is no numeric address").arg(address));

    ListeningSocket socket(::socket(isIpv4 ? AF_INET : AF_INET6, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const int yes = 1;
    const bool bound =
        socket.descriptor_ >= 0 &&
        ::setsockopt(socket.descriptor_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes) == 0 &&
        (isIpv4 ? ::bind(socket.descriptor_, reinterpret_cast<const sockaddr*>(&ipv4), sizeof ipv4)
                : ::bind(socket.descriptor_, reinterpret_cast<const sockaddr*>(&ipv6), sizeof ipv6)) == 0 &&
        ::listen(socket.descriptor_, longestQueue) == 0;
    if (!bound)
        return tl::unexpected(
            Texts::tr("cannot listen on %1 port %2: %3").arg(address).arg(port).arg(lastError()));
    return adopt(std::exchange(socket.descriptor_, -1));
}

tl::expected<ListeningSocket, QString> ListeningSocket::adopt(int descriptor)
{
    int listening = 0;
    socklen_t length = sizeof listening;
    if (::getsockopt(descriptor, SOL_SOCKET, SO_ACCEPTCONN, &listening, &length) != 0 || listening == 0)
        return tl::unexpected(Texts::tr("descriptor %1 is no listening socket").arg(descriptor));
    ListeningSocket socket(descriptor);
    sockaddr_storage address = {};
    length = sizeof address;
    const int flags = ::fcntl(descriptor, F_GETFL);
    if (::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &length) != 0 || flags < 0 ||
        ::fcntl(descriptor, F_SETFL, flags | O_NONBLOCK) != 0 ||
        ::fcntl(descriptor, F_SETFD, FD_CLOEXEC) != 0)
        return tl::unexpected(lastError());

    char text[INET6_ADDRSTRLEN] = {};
    if (address.ss_family == AF_INET) {
        const auto& ipv4 = reinterpret_cast<const sockaddr_in&>(address);
        socket.port_ = ntohs(ipv4.sin_port);
        socket.loopback_ = ntohl(ipv4.sin_addr.s_addr) >> 24 == IN_LOOPBACKNET;
        socket.host_ = QLatin1String(::inet_ntop(AF_INET, &ipv4.sin_addr, text, sizeof text));
    } else if (address.ss_family == AF_INET6) {
        const auto& ipv6 = reinterpret_cast<const sockaddr_in6&>(address);
        socket.port_ = ntohs(ipv6.sin6_port);
        socket.loopback_ = IN6_IS_ADDR_LOOPBACK(&ipv6.sin6_addr);
        socket.host_ = u'[' + QLatin1String(::inet_ntop(AF_INET6, &ipv6.sin6_addr, text, sizeof text)) + u']';
    } else {
        return tl::unexpected(Texts::tr("descriptor %1 is no TCP socket").arg(descriptor));
    }
    return socket;
}

ListeningSocket::ListeningSocket(ListeningSocket&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1))
    , port_(other.port_)
    , loopback_(other.loopback_)
    , host_(std::move(other.host_))
{
}

ListeningSocket::~ListeningSocket()
{
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

QString ListeningSocket::url() const
{
    return QStringLiteral("http://%1:%2").arg(host_).arg(port_);
}

} // namespace zib
