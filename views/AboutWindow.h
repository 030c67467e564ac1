// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

namespace zib {

/// The window "About": name, version and licence.
class AboutWindow : public QDialog {
    Q_OBJECT

  public:
    AboutWindow();
    /// Shows the window in the middle of its screen.
    void showCentred();
};

} // namespace zib
