// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

namespace zib {

/// The window "About": name, version, licence, and what the program is built on.
class AboutWindow : public QDialog {
    Q_OBJECT

  public:
    AboutWindow();
    /// Shows the window in the middle of its screen.
    void showCentred();

  Q_SIGNALS:
    /// The link to the product's home page was pressed.
    void websiteWanted();

  private:
    QWidget* makeHead();
    QWidget* makeLibraries();
};

} // namespace zib
