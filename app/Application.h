// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <memory>

namespace zib {

/// Where the program keeps things.
struct Places {
    QString library;       ///< the library file
    QString settings;      ///< the settings file
    QString cache;         ///< folder of cached replies
    QString catalogueData; ///< folder of the bundled service
    QString music;         ///< folder of the user's own music
    QString readMe;        ///< the text for people that comes with the program
    QString metadata;      ///< the program that reads the tags of files
    QString catalogue;     ///< the bundled service's program
    QString meetingPlace;  ///< where a second start finds the first

    /// The places of this user and this installation.
    static Places standard();
};

/// The composition root: makes every part, hands each what it works with, and keeps them in the order in
/// which they need each other. The only place that knows all rooms. Main thread.
class Application {
  public:
    /// @param overrides settings that hold for this run only.
    Application(Places places, const QVariantMap& overrides);
    ~Application();

    /// Shows the window and returns.
    void start();
    /// A later start asks for the window.
    void reopen();
    /// Opens documents; see AppDelegate.
    void openFiles(const QStringList& paths);

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace zib
