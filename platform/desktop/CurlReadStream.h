// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/HttpReadStream.h"
#include "platform/desktop/CurlHandles.h"

#include <optional>
#include <vector>

namespace zib {

class CurlRunLoop;

/// One transfer. Its loop moves bytes into the buffer; the reader takes them out, and a full buffer pauses
/// the transfer.
class CurlReadStream : public HttpReadStream {
  public:
    CurlReadStream(HttpReadRequest request, std::chrono::milliseconds patience,
                   std::shared_ptr<CurlShare> share);
    ~CurlReadStream() override;

    bool open() override;
    void setClient(Client client) override;
    void scheduleOn(RunLoop& loop) override;
    [[nodiscard]] bool hasBytesAvailable() const override;
    qint64 read(char* bytes, qint64 maximum) override;
    [[nodiscard]] QHash<QByteArray, QByteArray> responseHeaders() const override;
    void close() override;

    // For the loop.
    [[nodiscard]] CURL* handle() const { return easy_.get(); }
    /// What the client has not been told of.
    [[nodiscard]] std::optional<Event> dueEvent() const;
    /// @return whether there was an event. The stream may be closed afterwards.
    bool deliverEvent();
    void transferDone(CURLcode result);
    /// How long the loop may wait before the stream fails for want of progress.
    [[nodiscard]] std::chrono::milliseconds patienceLeft() const;
    void countWaiting(std::chrono::milliseconds time);

  private:
    enum class State { Idle, Running, Ended, Failed, Closed };

    [[nodiscard]] bool isWaiting() const;
    [[nodiscard]] size_t bytesBeforeRange() const;
    size_t storeBytes(const char* bytes, size_t count);
    static size_t onBytes(char* bytes, size_t size, size_t count, void* self);
    static size_t onHeaderLine(char* bytes, size_t size, size_t count, void* self);

    const HttpReadRequest request_;
    const std::chrono::milliseconds patience_;
    // Declared before the handles: they use both until they are gone.
    std::shared_ptr<CurlShare> share_;
    CurlList headers_;
    CurlEasy easy_;
    CurlRunLoop* loop_ = nullptr;
    Client client_;

    State state_ = State::Idle;
    ResponseHead head_;
    bool headIsFinal_ = false;
    size_t toSkip_ = 0;        ///< bytes of the answer that were not asked for
    std::vector<char> buffer_; ///< of fixed size; the bytes to read are those from begin_ to end_
    size_t begin_ = 0;
    size_t end_ = 0;
    bool paused_ = false;
    bool bytesAnnounced_ = false; ///< since the last read
    bool endAnnounced_ = false;
    bool progressed_ = false; ///< since time was last counted
    std::chrono::milliseconds waited_{0};
};

} // namespace zib
