// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QButtonGroup;

namespace zib {

/// A row of texts of which one is chosen. The Tab key leads to the chosen one, and the arrows on from there.
/// Segments are numbered from 0 in the order of their addition; the first is chosen at the beginning.
class Segments : public QWidget {
    Q_OBJECT

  public:
    explicit Segments(const QString& accessibleName, QWidget* parent = nullptr);

    void addSegment(const QString& title, const QString& tip = {});
    /// Chooses for the program; a number that no segment has changes nothing.
    void setChosen(int number);
    [[nodiscard]] int chosen() const;

  Q_SIGNALS:
    /// The user has pressed that one.
    void pressed(int number);
    /// Another one is chosen, by whomever.
    void chosenChanged(int number);

  private:
    QButtonGroup* buttons_;
};

} // namespace zib
