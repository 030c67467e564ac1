// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;

namespace zib {

/// What stands where there are no songs: what is the case, what to do, and a few tags that find something.
class EmptyPlace : public QWidget {
    Q_OBJECT

  public:
    explicit EmptyPlace(QWidget* parent = nullptr);
    void say(const QString& title, const QString& text);

  Q_SIGNALS:
    /// One of the offered tags was pressed.
    void tagChosen(const QString& tag);

  private:
    QLabel* title_;
    QLabel* text_;
};

} // namespace zib
