// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/UndoStack.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"

namespace zib {

void UndoStack::push(std::unique_ptr<UndoCommand> command)
{
    undone_.clear();
    done_.push_back(std::move(command));
    if (done_.size() > depth)
        done_.erase(done_.begin());
    setStatus(done_.back()->texts().done);
    Q_EMIT changed();
}

void UndoStack::undo()
{
    if (done_.empty())
        return;
    step(done_, undone_, &UndoCommand::undo);
    setStatus(tr("Undone. Press Ctrl+Shift+Z to do it again."));
}

void UndoStack::redo()
{
    if (undone_.empty())
        return;
    step(undone_, done_, &UndoCommand::redo);
    setStatus(done_.back()->texts().done);
}

/// The command is in neither list while it works: it may show an alert, and the event loop runs meanwhile.
void UndoStack::step(Commands& from, Commands& to, void (UndoCommand::*action)())
{
    std::unique_ptr<UndoCommand> command = std::move(from.back());
    from.pop_back();
    ((*command).*action)();
    to.push_back(std::move(command));
    Q_EMIT changed();
}

QString UndoStack::undoText() const
{
    return done_.empty() ? QString() : done_.back()->texts().undo;
}

QString UndoStack::redoText() const
{
    return undone_.empty() ? QString() : undone_.back()->texts().redo;
}

void UndoStack::setStatus(const QString& text)
{
    defaults_.setValue(settings::BriefStatusMessage, text);
}

} // namespace zib
