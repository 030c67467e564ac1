// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/WebServiceClient.h"

#include <QDialog>

class QListWidget;
class QStackedWidget;

namespace zib {

class Alerts;
class PreferencesActions;
class UserDefaults;

/// The window "Preferences": a list of sections, and the chosen one's settings, each of which acts at once.
class PreferencesWindow : public QDialog {
    Q_OBJECT

  public:
    /// All of them, and what the services need, outlive the window.
    PreferencesWindow(UserDefaults& defaults, PreferencesActions& actions, Alerts& alerts,
                      const WebServices& services);

  private:
    void addSection(const QString& name, const QString& iconName, QWidget* page);

    QListWidget* sections_;
    QStackedWidget* pages_;
};

} // namespace zib
