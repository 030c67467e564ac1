// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLineEdit;

namespace zib {

class PreferencesActions;
class UserDefaults;

/// Who sees the playlists that are shared, and under which name.
class SharingPage : public QWidget {
    Q_OBJECT

  public:
    /// Both outlive the page.
    SharingPage(UserDefaults& defaults, PreferencesActions& actions);

  protected:
    /// The name may have been chosen elsewhere meanwhile.
    void showEvent(QShowEvent* event) override;

  private:
    void takeName();

    PreferencesActions& actions_;
    QLineEdit* name_;
};

} // namespace zib
