// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QPushButton;

namespace zib {

class UserDefaults;

/// Which of the messages that can be silenced are shown.
class NoticesPage : public QWidget {
    Q_OBJECT

  public:
    /// The settings outlive the page.
    explicit NoticesPage(UserDefaults& defaults);

  private:
    void showAll();
    void enableShowAll();

    UserDefaults& defaults_;
    QPushButton* showAll_;
};

} // namespace zib
