// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QBoxLayout;

namespace zib {

/// What the program says of itself to a newcomer, in the window's main area: whatever else is chosen takes
/// its place, and Escape does too.
class WelcomePlace : public QWidget {
    Q_OBJECT

  public:
    explicit WelcomePlace(QWidget* parent = nullptr);

  Q_SIGNALS:
    void addMusicWanted();
    /// One of the offered tags was pressed.
    void tagChosen(const QString& tag);
    /// The user has seen enough.
    void closeWanted();

  private:
    QBoxLayout* makeLines();
    QBoxLayout* makeLine(const QString& picture, const QString& title, const QString& text);
    QBoxLayout* makeButtons();
};

} // namespace zib
