// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/CurlReadStream.h"

#include "platform/desktop/CurlRunLoop.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cstring>
#include <optional>

namespace zib {

using std::chrono::milliseconds;

namespace {

Q_LOGGING_CATEGORY(lcHttp, "zib.http")

// A second and a half of the highest MP3 rate: enough to ride out what a kernel buffer does not.
constexpr size_t kBufferBytes = size_t{64} * 1024;
constexpr size_t kResumeBytes = kBufferBytes / 2;
static_assert(kResumeBytes >= CURL_MAX_WRITE_SIZE, "a resumed transfer must have room for what it held back");

/// The number behind "bytes=" or "bytes " with which a range begins; nothing when there is none.
std::optional<qint64> rangeBegin(const QByteArray& field)
{
    constexpr qsizetype unitLength = 6;
    bool readable = false;
    const qint64 begin = field.mid(unitLength).split('-').first().toLongLong(&readable);
    if (!field.startsWith("bytes") || !readable || begin < 0)
        return std::nullopt;
    return begin;
}

} // namespace

CurlReadStream::CurlReadStream(HttpReadRequest request, milliseconds patience,
                               std::shared_ptr<CurlShare> share)
    : request_(std::move(request))
    , patience_(patience)
    , share_(std::move(share))
{
}

CurlReadStream::~CurlReadStream()
{
    close();
}

bool CurlReadStream::open()
{
    easy_ = makeGetRequest(request_.url, request_.followRedirects, *share_);
    if (!easy_)
        return false;
    for (const auto& [name, value] : request_.headers) {
        curl_slist* const longer = curl_slist_append(headers_.get(), (name + ": " + value).constData());
        if (longer == nullptr)
            return false;
        static_cast<void>(headers_.release());
        headers_.reset(longer);
    }
    CURL* const handle = easy_.get();
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers_.get());
    if (request_.acceptAnyCertificate) {
        curl_easy_setopt(handle, CURLOPT_SSL_VERIFYPEER, 0L);
        curl_easy_setopt(handle, CURLOPT_SSL_VERIFYHOST, 0L);
    }
    curl_easy_setopt(handle, CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(patience_.count()));
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &CurlReadStream::onBytes);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, &CurlReadStream::onHeaderLine);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, this);
    curl_easy_setopt(handle, CURLOPT_PRIVATE, this);
    buffer_.resize(kBufferBytes);
    state_ = State::Running;
    return true;
}

void CurlReadStream::setClient(Client client)
{
    client_ = std::move(client);
}

void CurlReadStream::scheduleOn(RunLoop& loop)
{
    if (state_ != State::Running || loop_ != nullptr)
        return;
    loop_ = dynamic_cast<CurlRunLoop*>(&loop);
    Q_ASSERT_X(loop_ != nullptr, "CurlReadStream", "the run loop is of another make");
    loop_->add(*this);
}

bool CurlReadStream::hasBytesAvailable() const
{
    return end_ > begin_;
}

qint64 CurlReadStream::read(char* bytes, qint64 maximum)
{
    const size_t count = std::min(static_cast<size_t>(std::max<qint64>(maximum, 0)), end_ - begin_);
    if (count == 0)
        return state_ == State::Failed ? -1 : 0;
    std::memcpy(bytes, buffer_.data() + begin_, count);
    begin_ += count;
    if (begin_ == end_)
        begin_ = end_ = 0;
    bytesAnnounced_ = false;
    if (paused_ && end_ - begin_ <= kResumeBytes) {
        paused_ = false;
        curl_easy_pause(easy_.get(), CURLPAUSE_CONT);
    }
    return static_cast<qint64>(count);
}

QHash<QByteArray, QByteArray> CurlReadStream::responseHeaders() const
{
    QHash<QByteArray, QByteArray> fields;
    if (headIsFinal_) {
        for (const auto& [name, value] : head_.fields())
            fields.insert(name, value);
    }
    return fields;
}

void CurlReadStream::close()
{
    if (loop_ != nullptr)
        std::exchange(loop_, nullptr)->remove(*this);
    easy_.reset();
    state_ = State::Closed;
    begin_ = end_ = 0;
}

std::optional<CurlReadStream::Event> CurlReadStream::dueEvent() const
{
    if (hasBytesAvailable())
        return bytesAnnounced_ ? std::nullopt : std::optional(Event::HasBytesAvailable);
    if (endAnnounced_)
        return std::nullopt;
    if (state_ == State::Ended)
        return Event::EndEncountered;
    return state_ == State::Failed ? std::optional(Event::ErrorOccurred) : std::nullopt;
}

bool CurlReadStream::deliverEvent()
{
    const auto event = dueEvent();
    if (!event)
        return false;
    (*event == Event::HasBytesAvailable ? bytesAnnounced_ : endAnnounced_) = true;
    if (client_)
        client_(*this, *event);
    return true;
}

void CurlReadStream::transferDone(CURLcode result)
{
    if (state_ != State::Running)
        return; // it has lost patience before
    headIsFinal_ = true;
    paused_ = false;
    state_ = result == CURLE_OK ? State::Ended : State::Failed;
    if (result != CURLE_OK)
        qCInfo(lcHttp) << "stream failed:" << curl_easy_strerror(result) << request_.url;
}

bool CurlReadStream::isWaiting() const
{
    return state_ == State::Running && !hasBytesAvailable();
}

milliseconds CurlReadStream::patienceLeft() const
{
    return isWaiting() ? std::max(patience_ - waited_, milliseconds(1)) : patience_;
}

void CurlReadStream::countWaiting(milliseconds time)
{
    waited_ = std::exchange(progressed_, false) || !isWaiting() ? milliseconds::zero() : waited_ + time;
    if (waited_ < patience_)
        return;
    qCInfo(lcHttp) << "stream failed: no bytes for" << waited_.count() << "ms" << request_.url;
    state_ = State::Failed;
    // Nothing that still comes may be taken for a part of the song.
    curl_easy_pause(easy_.get(), CURLPAUSE_RECV);
}

/// How many of the answer's bytes come before those that were asked for: all of them where the server does
/// not know ranges and begins at the beginning.
size_t CurlReadStream::bytesBeforeRange() const
{
    const auto asked = std::ranges::find_if(request_.headers, [](const auto& field) {
        return field.first.compare("Range", Qt::CaseInsensitive) == 0;
    });
    const auto wanted = asked == request_.headers.end() ? std::nullopt : rangeBegin(asked->second);
    if (!wanted)
        return 0;
    constexpr long partialContent = 206;
    long status = 0;
    curl_easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &status);
    const qint64 begin =
        status == partialContent ? rangeBegin(head_.value("Content-Range")).value_or(*wanted) : 0;
    return static_cast<size_t>(std::max<qint64>(*wanted - begin, 0));
}

size_t CurlReadStream::storeBytes(const char* bytes, size_t count)
{
    progressed_ = true;
    if (!std::exchange(headIsFinal_, true))
        toSkip_ = bytesBeforeRange();
    if (state_ != State::Running)
        return 0;
    if (toSkip_ > 0) {
        const size_t skipped = std::min(toSkip_, count);
        toSkip_ -= skipped;
        // The buffer is empty as yet, so the rest is not held back and none of it comes twice.
        return skipped == count ? count : skipped + storeBytes(bytes + skipped, count - skipped);
    }
    if (buffer_.size() - end_ < count) {
        std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
        end_ -= std::exchange(begin_, 0);
    }
    if (buffer_.size() - end_ < count) {
        paused_ = true;
        return CURL_WRITEFUNC_PAUSE;
    }
    std::memcpy(buffer_.data() + end_, bytes, count);
    end_ += count;
    return count;
}

size_t CurlReadStream::onBytes(char* bytes, size_t size, size_t count, void* self)
{
    return static_cast<CurlReadStream*>(self)->storeBytes(bytes, size * count);
}

size_t CurlReadStream::onHeaderLine(char* bytes, size_t size, size_t count, void* self)
{
    auto* const stream = static_cast<CurlReadStream*>(self);
    stream->progressed_ = true;
    const QByteArrayView line(bytes, static_cast<qsizetype>(size * count));
    return stream->head_.addLine(line) ? size * count : 0;
}

} // namespace zib
