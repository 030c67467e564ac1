// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QBoxLayout;

namespace zib {

class Alerts;
class PreferencesActions;
class TextLabel;
class UserDefaults;

/// Where the music lies, how it plays, how the program looks.
class GeneralPage : public QWidget {
    Q_OBJECT

  public:
    /// All of them outlive the page.
    GeneralPage(UserDefaults& defaults, PreferencesActions& actions, Alerts& alerts);

  private:
    void addMusicFolder(QBoxLayout& layout);
    void addAppearance(QBoxLayout& layout);
    void changeMusicFolder();
    void showMusicFolder();

    UserDefaults& defaults_;
    PreferencesActions& actions_;
    Alerts& alerts_;
    TextLabel* folder_;
};

} // namespace zib
