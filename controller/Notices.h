// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace zib {

class Alerts;
class Desktop;
class UserDefaults;

/// The modal messages of the main window. All of them bring the program to the front. Main thread.
class Notices {
  public:
    Notices(UserDefaults& defaults, Alerts& alerts, Desktop& desktop);

    /// A message with "OK" that the user can silence for good: the setting named by the key keeps that.
    /// @return the pressed button; 0, the first, when the message is silenced.
    int runSuppressibleNotice(const QString& text, const QString& defaultsKey);
    /// The same as a question with "OK" and "Cancel". Silenced, it counts as answered with "OK".
    int runSuppressibleConfirmation(const QString& text, const QString& defaultsKey);
    /// Asks, with a beep. @return whether anything but "Cancel" was pressed.
    /// @param defaultsKey the setting by which the user can silence the question for good, if any can.
    bool runConfirmation(const QString& message, const QString& informativeText, const QString& firstButton,
                         const QString& defaultsKey = {});
    /// Tells something and lets the user choose what comes next. @return the pressed button.
    int runChoice(const QString& text, const QStringList& buttons);
    /// Says, with a beep, that something went wrong.
    void runErrorAlert(const QString& message, const QString& informativeText = {});

  private:
    int runSuppressible(const QString& text, const QString& defaultsKey, const QStringList& buttons);

    UserDefaults& defaults_;
    Alerts& alerts_;
    Desktop& desktop_;
};

} // namespace zib
