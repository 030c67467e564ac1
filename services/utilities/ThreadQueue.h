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
    QMetaObject::invokeMethod(&context, std::move(action), Qt::QueuedConnection);
}

} // namespace zib
