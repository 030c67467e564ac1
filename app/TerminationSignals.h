// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace zib {

/// Turns SIGTERM, SIGINT and SIGHUP (log-out, Ctrl+C) into a call from the event loop. One at a time; main
/// thread.
class TerminationSignals {
  public:
    explicit TerminationSignals(const std::function<void()>& handler);
    ~TerminationSignals();

  private:
    int readEnd_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace zib
