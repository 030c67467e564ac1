// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

namespace zib {

class RVMainController;

/// Keeps of the shown songs those that hold what is typed here. Escape shows all of them again; Return and
/// the down key go on to what is left.
class FilterField : public QLineEdit {
    Q_OBJECT

  public:
    explicit FilterField(QWidget* parent = nullptr);

    void attach(RVMainController& controller);

  Q_SIGNALS:
    /// The user wants to go on in the songs.
    void left();

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    RVMainController* controller_ = nullptr;
};

} // namespace zib
