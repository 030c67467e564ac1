// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace zib {

class UserDefaults;

/// Something that the user did and may want to take back. It holds what that needs - records, places, names -
/// and whatever it works with outlives it. Main thread.
class UndoCommand {
  public:
    /// What it says of itself, whole sentences each.
    struct Texts {
        QString done; ///< for the status line: what happened, and how to take it back
        QString undo; ///< for the menu
        QString redo; ///< for the menu
    };

    UndoCommand() = default;
    virtual ~UndoCommand() = default;
    UndoCommand(const UndoCommand&) = delete;
    UndoCommand& operator=(const UndoCommand&) = delete;

    [[nodiscard]] virtual Texts texts() const = 0;
    /// Puts everything where it was. What cannot be put back is told the user, and the rest comes back.
    virtual void undo() = 0;
    /// Does it again.
    virtual void redo() = 0;
};

/// What the user did last, to be taken back and done again in that order. Only for this run of the program.
/// Main thread.
class UndoStack : public QObject {
    Q_OBJECT

  public:
    static constexpr std::size_t depth = 50; ///< older ones are forgotten

    /// @param defaults outlives this object; the status line is told of each step.
    explicit UndoStack(UserDefaults& defaults)
        : defaults_(defaults)
    {
    }

    /// That was just done. What was taken back before cannot be done again any more.
    void push(std::unique_ptr<UndoCommand> command);

    /// Nothing happens when there is nothing.
    /// @{
    void undo();
    void redo();
    /// @}
    /// For the menu; empty when there is nothing.
    /// @{
    [[nodiscard]] QString undoText() const;
    [[nodiscard]] QString redoText() const;
    /// @}

  Q_SIGNALS:
    /// The texts for the menu have changed.
    void changed();

  private:
    using Commands = std::vector<std::unique_ptr<UndoCommand>>;

    /// Takes the newest of one list over to the other.
    void step(Commands& from, Commands& to, void (UndoCommand::*action)());
    void setStatus(const QString& text);

    UserDefaults& defaults_;
    Commands done_;
    Commands undone_;
};

} // namespace zib
