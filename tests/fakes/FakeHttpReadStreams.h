// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/HttpReadStream.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace zib {

class FakeRunLoop;

/// The server's end of one request, for the test, on any thread. It lives as long as someone holds it.
class FakeHttpExchange {
  public:
    explicit FakeHttpExchange(HttpReadRequest request)
        : request_(std::move(request))
    {
    }

    [[nodiscard]] const HttpReadRequest& request() const { return request_; }
    [[nodiscard]] QByteArray requestHeader(const QByteArray& name) const
    {
        for (const auto& [key, value] : request_.headers)
            if (key.compare(name, Qt::CaseInsensitive) == 0)
                return value;
        return {};
    }

    void respond(const QHash<QByteArray, QByteArray>& headers)
    {
        change([&] { headers_ = headers; });
    }
    void send(const QByteArray& bytes)
    {
        change([&] {
            bytesDue_ = bytesDue_ || (bytes_.empty() && !bytes.isEmpty());
            bytes_.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
        });
    }
    /// What was asked for of those bytes: all, or those from the beginning of the range. A real stream gives
    /// the same, whether its server honours ranges or not.
    void sendAsked(const QByteArray& file) { send(file.mid(rangeBegin())); }
    /// 0 without a range.
    [[nodiscard]] qint64 rangeBegin() const
    {
        const QByteArray range = requestHeader("Range");
        return range.startsWith("bytes=") ? range.mid(6).split('-').first().toLongLong() : 0;
    }
    void end()
    {
        change([&] { ended_ = true; });
    }
    void fail()
    {
        change([&] { failed_ = true; });
    }
    /// What each read answers from now on, in place of bytes.
    void answerReadsWith(qint64 result)
    {
        change([&] { readAnswer_ = result; });
    }

    [[nodiscard]] qsizetype unreadBytes() const
    {
        const std::scoped_lock lock(mutex_);
        return static_cast<qsizetype>(bytes_.size());
    }
    [[nodiscard]] bool isClosed() const
    {
        const std::scoped_lock lock(mutex_);
        return closed_;
    }

  private:
    friend class FakeHttpReadStream;
    friend class FakeRunLoop;
    enum class Due { Nothing, Bytes, Error, End };

    template <typename Action>
    void change(Action action);

    /// The next event that the client has not been told of; marks it as told.
    Due takeDueEvent()
    {
        const std::scoped_lock lock(mutex_);
        if (closed_ || terminalToldOf_)
            return Due::Nothing;
        if (std::exchange(bytesDue_, false))
            return Due::Bytes;
        if (failed_ || (ended_ && bytes_.empty())) {
            terminalToldOf_ = true;
            return failed_ ? Due::Error : Due::End;
        }
        return Due::Nothing;
    }

    const HttpReadRequest request_;
    mutable std::mutex mutex_; // guards all below
    QHash<QByteArray, QByteArray> headers_;
    std::string bytes_; // its memory is never shared between threads, as that of a QByteArray is
    bool bytesDue_ = false;
    bool ended_ = false;
    bool failed_ = false;
    bool closed_ = false;
    bool terminalToldOf_ = false;
    std::optional<qint64> readAnswer_;
    FakeRunLoop* loop_ = nullptr;
};

class FakeHttpReadStream;

/// Delivers what the exchanges have due; waits for it without polling.
class FakeRunLoop final : public RunLoop {
  public:
    explicit FakeRunLoop(std::atomic<int>& alive)
        : alive_(alive)
    {
        ++alive_;
    }
    ~FakeRunLoop() override { --alive_; }

    bool runFor(std::chrono::milliseconds time) override;
    void wake() override
    {
        const std::scoped_lock lock(mutex_);
        woken_ = true;
        changed_.notify_all();
    }
    void schedule(FakeHttpReadStream& stream) { streams_.push_back(&stream); }
    void unschedule(FakeHttpReadStream& stream) { std::erase(streams_, &stream); }

  private:
    bool deliverOne();

    std::atomic<int>& alive_;
    std::vector<FakeHttpReadStream*> streams_; // the loop's own thread only
    std::mutex mutex_;                         // guards woken_
    std::condition_variable changed_;
    bool woken_ = false;
};

class FakeHttpReadStream final : public HttpReadStream {
  public:
    FakeHttpReadStream(std::shared_ptr<FakeHttpExchange> exchange, bool opens, std::function<void()> opened)
        : exchange_(std::move(exchange))
        , opens_(opens)
        , opened_(std::move(opened))
    {
    }
    ~FakeHttpReadStream() override { closeNow(); }

    bool open() override
    {
        if (opens_ && opened_)
            opened_();
        return opens_;
    }
    void setClient(Client client) override { client_ = std::move(client); }
    void scheduleOn(RunLoop& loop) override
    {
        loop_ = &static_cast<FakeRunLoop&>(loop);
        loop_->schedule(*this);
        const std::scoped_lock lock(exchange_->mutex_);
        exchange_->loop_ = loop_;
    }
    bool hasBytesAvailable() const override { return exchange_->unreadBytes() > 0; }
    qint64 read(char* bytes, qint64 maximum) override
    {
        const std::scoped_lock lock(exchange_->mutex_);
        if (exchange_->readAnswer_)
            return *exchange_->readAnswer_;
        if (exchange_->closed_)
            return 0;
        const std::size_t count = exchange_->bytes_.copy(bytes, static_cast<std::size_t>(maximum));
        exchange_->bytes_.erase(0, count);
        exchange_->bytesDue_ = !exchange_->bytes_.empty();
        return static_cast<qint64>(count);
    }
    QHash<QByteArray, QByteArray> responseHeaders() const override
    {
        const std::scoped_lock lock(exchange_->mutex_);
        return exchange_->headers_;
    }
    void close() override { closeNow(); }

    /// Tells the client the next event that is due. @return whether there was one.
    bool deliverOne()
    {
        switch (exchange_->takeDueEvent()) {
        case FakeHttpExchange::Due::Nothing:
            return false;
        case FakeHttpExchange::Due::Bytes:
            return tell(Event::HasBytesAvailable);
        case FakeHttpExchange::Due::Error:
            return tell(Event::ErrorOccurred);
        case FakeHttpExchange::Due::End:
            return tell(Event::EndEncountered);
        }
        return false;
    }

  private:
    bool tell(Event event)
    {
        if (client_)
            client_(*this, event);
        return true;
    }
    void closeNow()
    {
        if (loop_ != nullptr)
            std::exchange(loop_, nullptr)->unschedule(*this);
        const std::scoped_lock lock(exchange_->mutex_);
        exchange_->closed_ = true;
        exchange_->loop_ = nullptr;
    }

    const std::shared_ptr<FakeHttpExchange> exchange_;
    const bool opens_;
    const std::function<void()> opened_;
    Client client_;
    FakeRunLoop* loop_ = nullptr;
};

template <typename Action>
void FakeHttpExchange::change(Action action)
{
    const std::scoped_lock lock(mutex_);
    action();
    if (loop_ != nullptr)
        loop_->wake();
}

inline bool FakeRunLoop::deliverOne()
{
    const std::vector<FakeHttpReadStream*> streams = streams_; // a client may close its stream
    return std::any_of(streams.begin(), streams.end(), [this](FakeHttpReadStream* stream) {
        return std::find(streams_.begin(), streams_.end(), stream) != streams_.end() && stream->deliverOne();
    });
}

inline bool FakeRunLoop::runFor(std::chrono::milliseconds time)
{
    if (streams_.empty())
        return false;
    if (deliverOne())
        return true;
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, time, [this] { return woken_; });
    woken_ = false;
    return true;
}

/// A web where the test is the server. By default requests open and nothing ever comes.
class FakeHttpReadStreams final : public HttpReadStreams {
  public:
    using Exchange = std::shared_ptr<FakeHttpExchange>;

    /// Called with each request as it is opened, on its thread.
    std::function<void(FakeHttpExchange&)> onOpen;
    std::atomic<bool> makesStreams = true;
    std::atomic<bool> opensStreams = true;

    std::unique_ptr<RunLoop> makeRunLoop() override { return std::make_unique<FakeRunLoop>(runLoopsAlive_); }
    std::unique_ptr<HttpReadStream> makeReadStream(const HttpReadRequest& request) override
    {
        const auto exchange = std::make_shared<FakeHttpExchange>(request);
        std::function<void()> opened;
        if (onOpen)
            opened = [this, exchange] { onOpen(*exchange); };
        {
            const std::scoped_lock lock(mutex_);
            exchanges_.push_back(exchange);
        }
        if (!makesStreams)
            return nullptr;
        return std::make_unique<FakeHttpReadStream>(exchange, opensStreams, std::move(opened));
    }

    /// All requests so far, in order.
    [[nodiscard]] std::vector<Exchange> exchanges() const
    {
        const std::scoped_lock lock(mutex_);
        return exchanges_;
    }
    [[nodiscard]] int runLoopsAlive() const { return runLoopsAlive_; }

    /// For onOpen: answers with those bytes as a server of files does, byte ranges included.
    static void serve(FakeHttpExchange& exchange, const QByteArray& file)
    {
        exchange.respond({{"Content-Length", QByteArray::number(file.size() - exchange.rangeBegin())}});
        exchange.sendAsked(file);
        exchange.end();
    }

  private:
    std::atomic<int> runLoopsAlive_ = 0;
    mutable std::mutex mutex_; // guards exchanges_
    std::vector<Exchange> exchanges_;
};

} // namespace zib
