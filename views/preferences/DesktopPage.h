// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace zib {

class UserDefaults;

/// What the program does on the desktop beside its window.
class DesktopPage : public QWidget {
    Q_OBJECT

  public:
    /// The settings outlive the page.
    explicit DesktopPage(UserDefaults& defaults);
};

} // namespace zib
