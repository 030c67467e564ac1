// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/UrlConnection.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <optional>
#include <vector>

namespace zib {

/// What a delegate was told, and what it does when it is.
struct UrlRecorder : UrlConnectionDelegate {
    enum class Told { Response, Data, Failure, Finish };

    void didReceiveResponse(const UrlResponse& received) override
    {
        response = received;
        body.clear();
        note(Told::Response);
    }
    void didReceiveData(QByteArrayView data) override
    {
        body += data;
        note(Told::Data);
    }
    void didFailWithError(const QString& description) override
    {
        failure = description;
        note(Told::Failure);
    }
    void didFinishLoading() override { note(Told::Finish); }

    void note(Told event)
    {
        if (told.empty() || told.back() != event || event != Told::Data)
            told.push_back(event); // how the body is cut is not ours to say
        if (cancelsAt == event)
            connection.reset();
    }
    [[nodiscard]] bool ended() const
    {
        return !told.empty() && (told.back() == Told::Failure || told.back() == Told::Finish);
    }
    /// Runs the event loop until the end came; a minute is for machines under load.
    void wait() const
    {
        const QDeadlineTimer limit(std::chrono::minutes(1));
        while (connection && !ended() && !limit.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }

    std::optional<Told> cancelsAt;
    std::unique_ptr<UrlConnection> connection;
    std::vector<Told> told;
    UrlResponse response;
    QByteArray body;
    QString failure;
};
inline UrlRequest get(const QByteArray& url)
{
    UrlRequest request;
    request.url = url;
    return request;
}

/// Lets everything happen that is due.
inline void settle(std::chrono::milliseconds time = std::chrono::milliseconds(50))
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace zib
