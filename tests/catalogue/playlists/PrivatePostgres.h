// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <pwd.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace zib::test {

/// A PostgreSQL server of the test's own: a fresh cluster in a private folder, reached through a socket
/// there, gone with this object. It refuses to run as root, who starts it as the user "nobody".
class PrivatePostgres {
  public:
    PrivatePostgres()
    {
        const QString data = folder_.filePath(QStringLiteral("data"));
        makeOwned();
        if (finished(spawned({program("initdb"), "-D", data.toStdString(), "-U", "zib", "-A", "trust", "-E",
                              "UTF8", "--locale=C.UTF-8", "--no-sync"})) != 0)
            qFatal("initdb failed");
        server_ = spawned({program("postgres"), "-D", data.toStdString(), "-k", folder_.path().toStdString(),
                           "-c", "listen_addresses=", "-c", "fsync=off"});
        while (finished(spawned({program("pg_isready"), "-q", "-h", folder_.path().toStdString()})) != 0 &&
               ::waitpid(server_, nullptr, WNOHANG) == 0)
            ::usleep(20000);
    }
    PrivatePostgres(const PrivatePostgres&) = delete;
    PrivatePostgres& operator=(const PrivatePostgres&) = delete;
    ~PrivatePostgres()
    {
        ::kill(server_, SIGINT); // ends its connections and itself
        ::waitpid(server_, nullptr, 0);
    }

    /// Of the database that every cluster has.
    [[nodiscard]] QString location() const
    {
        return QStringLiteral("postgresql://zib@localhost/postgres?host=") + folder_.path();
    }

    /// Ends all connections, as a restart of the server does.
    void endConnections() const
    {
        finished(spawned({program("psql"), "-qAt", "-h", folder_.path().toStdString(), "-U", "zib", "-o",
                          "/dev/null", "-c",
                          "SELECT pg_terminate_backend(pid) FROM pg_stat_activity"
                          " WHERE backend_type = 'client backend' AND pid <> pg_backend_pid()",
                          "postgres"}));
    }

  private:
    static std::string program(const char* name)
    {
        const QDir versions(QStringLiteral("/usr/lib/postgresql"));
        const auto installed = versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        if (installed.isEmpty())
            qFatal("no PostgreSQL is installed");
        return versions.filePath(installed.last() + QStringLiteral("/bin/") + QLatin1String(name))
            .toStdString();
    }

    void makeOwned()
    {
        if (::getuid() != 0)
            return;
        const auto* nobody = ::getpwnam("nobody");
        if (!nobody ||
            ::chown(QFile::encodeName(folder_.path()).constData(), nobody->pw_uid, nobody->pw_gid) != 0)
            qFatal("the folder cannot be given away");
    }

    static pid_t spawned(std::vector<std::string> words)
    {
        if (::getuid() == 0) {
            const std::vector<std::string> prefix{"setpriv", "--reuid=nobody", "--regid=nogroup",
                                                  "--clear-groups"};
            words.insert(words.begin(), prefix.begin(), prefix.end());
        }
        std::vector<char*> arguments;
        for (auto& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addchdir_np(&actions, "/");
        pid_t process = 0;
        if (posix_spawnp(&process, arguments.front(), &actions, nullptr, arguments.data(), environ) != 0)
            qFatal("%s cannot be started", arguments.front());
        posix_spawn_file_actions_destroy(&actions);
        return process;
    }

    static int finished(pid_t process)
    {
        int status = -1;
        ::waitpid(process, &status, 0);
        return status;
    }

    QTemporaryDir folder_{QStringLiteral("/tmp/zib-postgres-XXXXXX")}; // a socket's path must be short
    pid_t server_ = 0;
};

} // namespace zib::test
