// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QtGlobal>

#include <mutex>

namespace zib {

/// Keeps what is logged while it lives.
class LogCapture {
  public:
    LogCapture()
    {
        current() = this;
        previous_ = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
            LogCapture& capture = *current();
            const std::scoped_lock lock(capture.mutex_);
            capture.lines_.append(text);
        });
    }
    ~LogCapture() { qInstallMessageHandler(previous_); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    [[nodiscard]] QStringList lines() const
    {
        const std::scoped_lock lock(mutex_);
        return lines_;
    }
    [[nodiscard]] qsizetype count(const QString& text) const { return lines().count(text); }

  private:
    static LogCapture*& current()
    {
        static LogCapture* capture = nullptr;
        return capture;
    }
    mutable std::mutex mutex_;
    QStringList lines_;
    QtMessageHandler previous_;
};

} // namespace zib
