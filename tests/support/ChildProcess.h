// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

namespace zib::test {

/// A program that runs beside the test, and ends with this object. Not by QProcess, whose kind of fork leaves
/// the thread sanitizer blind to every lock taken afterwards.
class ChildProcess {
  public:
    static constexpr int kNothing = -1;

    /// @param command the program, found on the path, and its arguments
    /// @param in, out what its standard input and output are; kNothing reads the end and forgets what is
    /// written
    /// @param folder where it runs; the test's own when empty
    explicit ChildProcess(const QStringList& command, int in = kNothing, int out = kNothing,
                          const QString& folder = {})
    {
        std::vector<std::string> words;
        for (const QString& word : command)
            words.push_back(word.toStdString());
        std::vector<char*> pointers;
        for (std::string& word : words)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);

        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        const auto connect = [&actions](int file, int standard, int flags) {
            if (file == kNothing)
                posix_spawn_file_actions_addopen(&actions, standard, "/dev/null", flags, 0);
            else
                posix_spawn_file_actions_adddup2(&actions, file, standard);
        };
        connect(in, STDIN_FILENO, O_RDONLY);
        connect(out, STDOUT_FILENO, O_WRONLY);
        if (!folder.isEmpty())
            posix_spawn_file_actions_addchdir_np(&actions, folder.toStdString().c_str());
        if (posix_spawnp(&process_, pointers.front(), &actions, nullptr, pointers.data(), environ) != 0)
            process_ = 0;
        posix_spawn_file_actions_destroy(&actions);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess()
    {
        if (process_ == 0)
            return;
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }

    /// Waits for its end. @return whether it ran and succeeded
    bool succeeds()
    {
        int status = 0;
        const pid_t process = std::exchange(process_, 0);
        return process != 0 && ::waitpid(process, &status, 0) == process && status == 0;
    }

  private:
    pid_t process_ = 0; ///< 0 when it does not run
};

} // namespace zib::test
