// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <sys/types.h>

namespace zib {

/// One process that reads the tags of files, at the other end of a socket. Started when it is first needed,
/// and anew after it was lost. One thread at a time.
class MetadataProcess {
  public:
    /// @param program zib-metadata's path
    explicit MetadataProcess(QString program);
    ~MetadataProcess() { end(); }
    MetadataProcess(const MetadataProcess&) = delete;
    MetadataProcess& operator=(const MetadataProcess&) = delete;

    /// Asks for one file. @return false when there is no process to ask.
    bool send(const QByteArray& path);
    /// To wait for its answers at; -1 while it does not run.
    [[nodiscard]] int descriptor() const { return socket_; }
    /// Appends the lines that have come. @return false when no more will: it ended, or it babbles.
    bool receive(QList<QByteArray>& lines);
    /// Ends it, whatever it is doing.
    void end();

  private:
    bool start();

    const QString program_;
    pid_t process_ = -1;
    int socket_ = -1;
    QByteArray partial_; // of a line
};

} // namespace zib
