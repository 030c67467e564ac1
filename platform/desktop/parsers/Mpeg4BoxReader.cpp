// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/Mpeg4BoxReader.h"

#include "platform/desktop/parsers/ByteReader.h"

#include <algorithm>
#include <limits>

namespace zib {

namespace {

constexpr std::size_t kHeaderBytes = 8;
constexpr std::size_t kLongHeaderBytes = 16;
constexpr std::int64_t kNoEnd = std::numeric_limits<std::int64_t>::max() / 2;

} // namespace

Mpeg4BoxReader::Mpeg4BoxReader(Client& client, std::int64_t offset)
    : client_(client)
    , offset_(offset)
{
}

void Mpeg4BoxReader::restart(std::int64_t offset)
{
    offset_ = offset;
    entered_.clear();
    headerBytes_ = 0;
    headerWanted_ = kHeaderBytes;
    inBody_ = false;
    gathered_ = {};
}

AudioStatus Mpeg4BoxReader::read(std::span<const std::byte>& bytes)
{
    AudioStatus status = kAudioOk;
    while (status == kAudioOk && !bytes.empty() && !stopped_) {
        status = inBody_ ? readBody(bytes) : readHeader(bytes);
        if (status == kAudioOk)
            status = closeEnded();
    }
    return status;
}

std::int64_t Mpeg4BoxReader::roomLeft() const
{
    return (entered_.empty() ? kNoEnd : entered_.back().end) - offset_;
}

AudioStatus Mpeg4BoxReader::closeEnded()
{
    while (!inBody_ && !entered_.empty() && roomLeft() <= 0) {
        const std::uint32_t type = entered_.back().type;
        entered_.pop_back();
        if (const AudioStatus status = client_.boxEnds(type); status != kAudioOk)
            return status;
    }
    return kAudioOk;
}

AudioStatus Mpeg4BoxReader::readHeader(std::span<const std::byte>& bytes)
{
    const auto missing = static_cast<std::int64_t>(headerWanted_ - headerBytes_);
    if (roomLeft() < missing) { // some programs end a list of boxes with zeros
        headerBytes_ = 0;
        inBody_ = true;
        treatment_ = {};
        bodyLeft_ = roomLeft();
        return kAudioOk;
    }
    const auto taken = bytes.first(std::min(static_cast<std::size_t>(missing), bytes.size()));
    std::copy(taken.begin(), taken.end(), header_.begin() + static_cast<std::ptrdiff_t>(headerBytes_));
    headerBytes_ += taken.size();
    offset_ += std::ssize(taken);
    bytes = bytes.subspan(taken.size());
    if (headerBytes_ < headerWanted_)
        return kAudioOk;
    constexpr std::uint32_t kLongSize = 1;
    if (headerWanted_ == kHeaderBytes && bigEndian32(header_) == kLongSize) {
        headerWanted_ = kLongHeaderBytes;
        return kAudioOk;
    }
    return beginBox();
}

AudioStatus Mpeg4BoxReader::beginBox()
{
    const std::span<const std::byte> header = header_;
    const auto headerBytes = static_cast<std::int64_t>(headerWanted_);
    std::uint64_t size =
        headerWanted_ == kLongHeaderBytes ? bigEndian64(header.subspan(kHeaderBytes)) : bigEndian32(header);
    if (headerWanted_ == kHeaderBytes && size == 0) // to the end of what it is in
        size = static_cast<std::uint64_t>(roomLeft() + headerBytes);
    if (size < headerWanted_ || size > static_cast<std::uint64_t>(kNoEnd))
        return kInvalidFile;
    headerBytes_ = 0;
    headerWanted_ = kHeaderBytes;

    type_ = bigEndian32(header.subspan(4));
    bodyLeft_ = std::min(static_cast<std::int64_t>(size) - headerBytes, roomLeft());
    treatment_ = client_.boxBegins(type_, entered_.empty() ? 0 : entered_.back().type, offset_ - headerBytes);
    if (treatment_.handling == Handling::Enter) {
        entered_.push_back({type_, offset_ + bodyLeft_});
        return kAudioOk;
    }
    inBody_ = true;
    return bodyLeft_ == 0 ? endBody() : kAudioOk;
}

AudioStatus Mpeg4BoxReader::readBody(std::span<const std::byte>& bytes)
{
    const auto taken =
        bytes.first(static_cast<std::size_t>(std::min<std::int64_t>(bodyLeft_, std::ssize(bytes))));
    bytes = bytes.subspan(taken.size());
    const std::int64_t begin = offset_;
    offset_ += std::ssize(taken);
    bodyLeft_ -= std::ssize(taken);
    if (treatment_.handling == Handling::Gather) {
        const auto kept = taken.first(std::min(taken.size(), treatment_.most - gathered_.size()));
        gathered_.insert(gathered_.end(), kept.begin(), kept.end());
    } else if (treatment_.handling == Handling::Pass) {
        if (const AudioStatus status = client_.bytesPass(taken, begin); status != kAudioOk)
            return status;
    }
    return bodyLeft_ == 0 ? endBody() : kAudioOk;
}

AudioStatus Mpeg4BoxReader::endBody()
{
    inBody_ = false;
    if (treatment_.handling != Handling::Gather)
        return kAudioOk;
    const AudioStatus status = client_.boxGathered(type_, gathered_, offset_);
    gathered_ = {}; // a table of a long song is not held twice
    return status;
}

} // namespace zib
