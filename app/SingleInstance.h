// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class QLocalServer;
class QLocalSocket;

namespace zib {

/// What a start of the program can ask of the song that plays.
enum class Transport { None, PlayPause, Next, Previous };

/// What a start of the program asks for beside its window.
struct StartRequest {
    QStringList files;       ///< absolute paths
    QStringList addresses;   ///< of the program's own scheme
    QString activationToken; ///< by which the desktop lets the window come to the front; empty without one
    Transport transport = Transport::None; ///< asked for from a menu of the desktop, which shows no window
};

/// Lets one program run for each user and library: a later start finds the first, tells it and ends. Main
/// thread.
class SingleInstance : public QObject {
    Q_OBJECT

  public:
    /// @param name of the meeting place, a path or a name unique to the user.
    explicit SingleInstance(QString name);
    ~SingleInstance() override;

    /// @return true when this is the first; it then receives what later ones say. False when another runs,
    /// which has been told the request; this one is to end.
    bool claim(const StartRequest& request = {});

  Q_SIGNALS:
    /// A later start asks for the window, and for what else stands in the request.
    void requested(const zib::StartRequest& request);

  private:
    void receive(QLocalSocket* connection);

    QString name_;
    std::unique_ptr<QLocalServer> server_;
};

} // namespace zib
