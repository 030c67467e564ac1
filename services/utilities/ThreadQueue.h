// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMetaObject>
#include <QObject>

#include <utility>

namespace zib {

/// Has the thread of the context do that when its events are next run, unless the context dies before.
template <typename Action>
void queueOnThreadOf(QObject& context, Action action)
{
    // The action is wrapped so that Qt's object for it bears this function's name, by which the thread
    // sanitizer is told of a hand-over that it cannot see.
    QMetaObject::invokeMethod(
        &context, [action = std::move(action)]() mutable { action(); }, Qt::QueuedConnection);
}

} // namespace zib
