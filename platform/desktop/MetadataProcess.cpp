// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/MetadataProcess.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zib {

namespace {

constexpr qsizetype longestLine = 256 * 1024;

pid_t spawn(const QString& program, int socket)
{
    QByteArray path = QFile::encodeName(program);
    char* const arguments[] = {path.data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, socket, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, socket, STDOUT_FILENO);
    pid_t process = -1;
    const int failure = ::posix_spawn(&process, path.constData(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    return failure == 0 ? process : -1;
}

} // namespace

MetadataProcess::MetadataProcess(QString program)
    : program_(std::move(program))
{
}

bool MetadataProcess::start()
{
    int sockets[2] = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0)
        return false;
    process_ = spawn(program_, sockets[1]);
    ::close(sockets[1]);
    if (process_ < 0) {
        ::close(sockets[0]);
        return false;
    }
    socket_ = sockets[0];
    return true;
}

bool MetadataProcess::send(const QByteArray& path)
{
    if (socket_ < 0 && !start())
        return false;
    const qsizetype size = path.size() + 1; // with the zero byte
    qsizetype sent = 0;
    while (sent < size) {
        const ssize_t count =
            ::send(socket_, path.constData() + sent, std::size_t(size - sent), MSG_NOSIGNAL);
        if (count < 0 && errno != EINTR)
            return true; // it has just ended, which receiving will tell
        sent += std::max<ssize_t>(count, 0);
    }
    return true;
}

bool MetadataProcess::receive(QList<QByteArray>& lines)
{
    std::array<char, 65536> buffer{};
    const ssize_t count = ::recv(socket_, buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (count < 0)
        return errno == EAGAIN || errno == EINTR;
    partial_.append(buffer.data(), count);
    qsizetype begin = 0;
    for (qsizetype end = 0; (end = partial_.indexOf('\n', begin)) >= 0; begin = end + 1)
        lines.append(partial_.mid(begin, end - begin));
    partial_.remove(0, begin);
    return count > 0 && partial_.size() <= longestLine;
}

void MetadataProcess::end()
{
    if (socket_ >= 0)
        ::close(std::exchange(socket_, -1));
    if (process_ > 0) {
        ::kill(process_, SIGKILL); // it keeps nothing that would be lost
        while (::waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
        }
        process_ = -1;
    }
    partial_.clear();
}

} // namespace zib
