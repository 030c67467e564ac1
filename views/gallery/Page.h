// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QWidget>

class QGridLayout;

namespace zib {

/// A control in the states that people meet it in, each with a caption.
class Page : public QWidget {
    Q_OBJECT

  public:
    enum class State { Normal, Hovered, Focused, Pressed, Disabled };

    struct Sample {
        QString caption;
        QWidget* shown;   ///< with what is around the control
        QWidget* control; ///< that has the state
        State state;
    };

    explicit Page(QWidget* parent = nullptr);

    /// Takes the widget over. Of one that only surrounds the control, the control is told apart.
    void add(const QString& caption, QWidget* shown, State state = State::Normal, QWidget* control = nullptr);
    [[nodiscard]] const QList<Sample>& samples() const { return samples_; }
    /// Gives the keyboard to the first sample that is to have it.
    void focusSample();
    /// A picture of the page, every sample in its state, at the ratio of its screen. It has to be shown, in
    /// the active window.
    [[nodiscard]] QPixmap picture();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QGridLayout* grid_;
    QList<Sample> samples_;
};

} // namespace zib
