// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QCheckBox;
class QLabel;

namespace zib {

class Alerts;
class UserDefaults;

/// What the preferences do to the music folder; the library's side of it.
class MusicFolderActions {
  public:
    virtual ~MusicFolderActions() = default;
    /// Moves the music into the picked folder. @return a localized description of the failure, empty on
    /// success.
    virtual QString changeTo(const QString& pickedFolder) = 0;
    /// Moves it back to the default place.
    virtual void reset() = 0;
};

/// The window "Preferences": where the music is stored, and what happens beside playing it.
class PreferencesWindow : public QDialog {
    Q_OBJECT

  public:
    PreferencesWindow(UserDefaults& defaults, MusicFolderActions& musicFolder, Alerts& alerts);

  private:
    /// A box that stands for a setting, both ways.
    QCheckBox* makeBox(const QString& text, const QString& key);
    void changeMusicFolder();
    void showMusicFolder();

    UserDefaults& defaults_;
    MusicFolderActions& musicFolder_;
    Alerts& alerts_;
    QLabel* folderLabel_;
};

} // namespace zib
