// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/SingleInstance.h"
#include "library/LibraryLoading.h"

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
    QString pages;         ///< folder of the pictures and scripts of pages
    QString webEngine;     ///< the library that shows pages
    QString meetingPlace;  ///< where a second start finds the first

    /// The places of this user and this installation.
    static Places standard();
};

/// The composition root: makes every part, hands each what it works with, and keeps them in the order in
/// which they need each other. The only place that knows all rooms. Main thread.
class Application {
  public:
    /// @param library begun before everything else.
    /// @param overrides settings that hold for this run only.
    Application(Places places, LibraryLoading library, const QVariantMap& overrides);
    ~Application();

    /// Shows the window, opens what the start was given and returns.
    void start(const StartRequest& request);
    /// A later start asks for the window, and gives what is to be opened.
    void reopen(const StartRequest& request);

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace zib
