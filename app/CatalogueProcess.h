// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <memory>

namespace zib {

/// The bundled catalogue service as a child of this program, for services without a host of their own.
///
/// This process itself opens the listening socket, on loopback, and hands it to the child. So the address is
/// known at once, a request that comes before the child is up waits in the socket's queue, and a child that
/// crashed is replaced without anybody noticing. The child ends when its standard input closes, and that
/// happens however this process ends. Main thread.
class CatalogueProcess : public QObject {
    Q_OBJECT

  public:
    struct Options {
        QString program;           ///< path of zib-catalogue
        QString dataFolder;        ///< where the service keeps its index and demo songs
        QStringList musicFolders;  ///< the user's own music
        quint16 preferredPort = 0; ///< the port that song addresses already name; 0 for any
    };

    explicit CatalogueProcess(Options options);
    /// Ends the child and waits for it, 2 s at most before it is killed.
    ~CatalogueProcess() override;

    /// Opens the socket: requests wait in its queue from now on. @return false, with a log line, when none
    /// can be opened.
    bool listen();
    /// Starts the child, and opens the socket unless that was done. @return as listen() does.
    bool start();

    /// The port that the service answers on: the preferred one, or another when that was taken. 0 before
    /// listen.
    [[nodiscard]] quint16 port() const { return port_; }

  Q_SIGNALS:
    /// The service could not be started, or ended again and again; the line is for the user.
    void failed(const QString& message);

  private:
    void launch();
    void ended();
    void logOutput();

    Options options_;
    int listeningSocket_ = -1;
    quint16 port_ = 0;
    int quickEnds_ = 0; // in a row
    qint64 launchedAt_ = 0;
    std::unique_ptr<QProcess> process_;
};

} // namespace zib
