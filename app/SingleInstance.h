// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class QLocalServer;
class QLocalSocket;

namespace zib {

/// Lets one program run for each user and library: a later start finds the first, tells it and ends. Main
/// thread.
class SingleInstance : public QObject {
    Q_OBJECT

  public:
    /// @param name of the meeting place, a path or a name unique to the user.
    explicit SingleInstance(QString name);
    ~SingleInstance() override;

    /// @return true when this is the first; it then receives what later ones say. False when another runs,
    /// which has been asked to come to the front and to open the files; this one is to end.
    /// @param files absolute paths.
    bool claim(const QStringList& files = {});

  Q_SIGNALS:
    /// A later start asks for the window.
    void reopenRequested();
    /// A later start was given files.
    void openRequested(const QStringList& files);

  private:
    void receive(QLocalSocket* connection);

    QString name_;
    std::unique_ptr<QLocalServer> server_;
};

} // namespace zib
