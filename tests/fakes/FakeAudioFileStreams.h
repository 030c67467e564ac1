// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioFileStream.h"

#include <QByteArray>

#include <algorithm>
#include <atomic>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace zib {

/// What the fake parser says of the files that it is given, and what fails. Set before the first bytes come,
/// the atomic ones at any time.
struct FakeAudioFile {
    struct SeekAnswer {
        AudioStatus status = kAudioOk;
        std::int64_t byteOffset = 0;
        bool estimated = false;
    };

    AudioStreamDescription format{.sampleRate = 44100,
                                  .formatId = audioformat::MpegLayer3,
                                  .framesPerPacket = 1152,
                                  .channelsPerFrame = 2};
    bool announcesFormat = true;
    std::vector<AudioFormatListItem> formatList; ///< announced unless empty
    std::int64_t dataOffset = 0;                 ///< announced unless 0; so many bytes are no packets
    std::optional<std::uint64_t> audioDataByteCount;
    std::uint32_t packetSizeUpperBound = 4096; ///< 0 for not known
    std::uint32_t maximumPacketSize = 0;       ///< 0 for not known
    std::vector<std::byte> magicCookie;        ///< announced unless empty
    std::optional<SeekAnswer> seekAnswer;      ///< in place of the fake's own
    std::map<AudioFileStreamProperty, AudioStatus> propertyFailures;
    std::atomic<AudioStatus> openStatus = kAudioOk;
    std::atomic<AudioStatus> parseStatus = kAudioOk;
    std::atomic<AudioStatus> closeStatus = kAudioOk;

    /// A packet of the fake's format, that many bytes long (4 to 65535). With bytesPerPacket set in the
    /// format, any bytes are packets instead, and come without descriptions.
    static QByteArray packet(int bytes, char fill = 'x')
    {
        QByteArray packet(bytes, fill);
        packet[0] = '\xff';
        packet[1] = '\xfb';
        packet[2] = static_cast<char>(bytes >> 8);
        packet[3] = static_cast<char>(bytes);
        return packet;
    }
    static QByteArray packets(int count, int bytes) { return packet(bytes).repeated(count); }
};

/// Parses the fake's format: what begins with "<" is none.
class FakeAudioFileStream final : public AudioFileStream {
  public:
    static constexpr auto UnsupportedFile = static_cast<AudioStatus>(fourCharacters("typ?"));
    static constexpr auto NotKnown = static_cast<AudioStatus>(fourCharacters("what"));

    FakeAudioFileStream(const FakeAudioFile& file, AudioFileStreamClient& client, std::atomic<int>& alive,
                        std::atomic<int>& discontinuities)
        : file_(file)
        , client_(client)
        , alive_(alive)
        , discontinuities_(discontinuities)
    {
        ++alive_;
    }
    ~FakeAudioFileStream() override { --alive_; }

    AudioStatus parseBytes(std::span<const std::byte> bytes, bool discontinuous) override
    {
        if (file_.parseStatus != kAudioOk)
            return file_.parseStatus;
        if (discontinuous && std::exchange(deliveredSinceBreak_, false)) {
            ++discontinuities_;
            pending_.clear();
        }
        pending_.append(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
        if (!ready_) {
            if (pending_.startsWith('<'))
                return UnsupportedFile;
            if (pending_.size() <= file_.dataOffset)
                return kAudioOk;
            pending_.remove(0, static_cast<qsizetype>(file_.dataOffset));
            ready_ = true;
            announce();
        }
        if (file_.format.bytesPerPacket > 0)
            produceConstantPackets();
        else
            produceVariablePackets();
        return kAudioOk;
    }

    AudioStatus dataFormat(AudioStreamDescription& format) const override
    {
        return give(AudioFileStreamProperty::DataFormat, file_.format, format);
    }
    AudioStatus formatList(std::vector<AudioFormatListItem>& formats) const override
    {
        return give(AudioFileStreamProperty::FormatList, file_.formatList, formats);
    }
    AudioStatus dataOffset(std::int64_t& offset) const override
    {
        return give(AudioFileStreamProperty::DataOffset, file_.dataOffset, offset);
    }
    AudioStatus audioDataByteCount(std::uint64_t& count) const override
    {
        if (!file_.audioDataByteCount)
            return NotKnown;
        return give(AudioFileStreamProperty::AudioDataByteCount, *file_.audioDataByteCount, count);
    }
    AudioStatus packetSizeUpperBound(std::uint32_t& bytes) const override
    {
        bytes = file_.packetSizeUpperBound;
        return ready_ && bytes > 0 ? kAudioOk : NotKnown;
    }
    AudioStatus maximumPacketSize(std::uint32_t& bytes) const override
    {
        bytes = file_.maximumPacketSize;
        return ready_ && bytes > 0 ? kAudioOk : NotKnown;
    }
    AudioStatus magicCookie(std::vector<std::byte>& cookie) const override
    {
        return file_.magicCookie.empty()
                   ? NotKnown
                   : give(AudioFileStreamProperty::MagicCookie, file_.magicCookie, cookie);
    }

    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override
    {
        pending_.clear();
        if (file_.seekAnswer) {
            byteOffset = file_.seekAnswer->byteOffset;
            estimated = file_.seekAnswer->estimated;
            return file_.seekAnswer->status;
        }
        estimated = file_.format.bytesPerPacket == 0;
        const std::int64_t average = packets_ > 0 ? packetBytes_ / packets_ : 0;
        byteOffset = packet * (estimated ? average : file_.format.bytesPerPacket);
        return ready_ ? kAudioOk : NotKnown;
    }
    AudioStatus close() override { return file_.closeStatus; }

  private:
    template <typename Value>
    AudioStatus give(AudioFileStreamProperty property, const Value& value, Value& result) const
    {
        const auto failure = file_.propertyFailures.find(property);
        if (failure != file_.propertyFailures.end())
            return failure->second;
        if (!ready_)
            return NotKnown;
        result = value;
        return kAudioOk;
    }
    void announce()
    {
        const auto found = [this](AudioFileStreamProperty property, bool has) {
            if (has)
                client_.propertyFound(*this, property);
        };
        found(AudioFileStreamProperty::DataFormat, file_.announcesFormat);
        found(AudioFileStreamProperty::FormatList, !file_.formatList.empty());
        found(AudioFileStreamProperty::DataOffset, file_.dataOffset > 0);
        found(AudioFileStreamProperty::AudioDataByteCount, file_.audioDataByteCount.has_value());
        found(AudioFileStreamProperty::MagicCookie, !file_.magicCookie.empty());
        found(AudioFileStreamProperty::ReadyToProducePackets, true);
    }
    void produceConstantPackets()
    {
        const auto size = static_cast<qsizetype>(file_.format.bytesPerPacket);
        const qsizetype count = pending_.size() / size;
        if (count == 0)
            return;
        const QByteArray whole = pending_.left(count * size);
        pending_.remove(0, whole.size());
        deliveredSinceBreak_ = true;
        client_.packetsProduced(
            std::as_bytes(std::span(whole.constData(), static_cast<std::size_t>(whole.size()))),
            static_cast<std::uint32_t>(count), {});
    }
    void produceVariablePackets()
    {
        std::vector<AudioPacketDescription> descriptions;
        qsizetype at = 0;
        for (;;) {
            const qsizetype start = pending_.indexOf("\xff\xfb", at);
            if (start < 0 || start + 4 > pending_.size())
                break;
            const auto size =
                static_cast<quint8>(pending_[start + 2]) << 8 | static_cast<quint8>(pending_[start + 3]);
            if (start + size > pending_.size())
                break;
            descriptions.push_back({start, 0, static_cast<std::uint32_t>(size)});
            packetBytes_ += size;
            at = start + std::max(size, 4);
        }
        if (descriptions.empty())
            return;
        packets_ += static_cast<std::int64_t>(descriptions.size());
        const QByteArray whole = pending_.left(at);
        pending_.remove(0, at);
        deliveredSinceBreak_ = true;
        client_.packetsProduced(
            std::as_bytes(std::span(whole.constData(), static_cast<std::size_t>(whole.size()))),
            static_cast<std::uint32_t>(descriptions.size()), descriptions);
    }

    const FakeAudioFile& file_;
    AudioFileStreamClient& client_;
    std::atomic<int>& alive_;
    std::atomic<int>& discontinuities_;
    QByteArray pending_;
    bool ready_ = false;
    bool deliveredSinceBreak_ = false;
    std::int64_t packets_ = 0;
    std::int64_t packetBytes_ = 0;
};

class FakeAudioFileStreams final : public AudioFileStreams {
  public:
    FakeAudioFile file;

    std::unique_ptr<AudioFileStream> open(AudioFileType hint, AudioFileStreamClient& client,
                                          AudioStatus& status) override
    {
        lastHint_ = hint;
        status = file.openStatus;
        if (status != kAudioOk)
            return nullptr;
        return std::make_unique<FakeAudioFileStream>(file, client, alive_, discontinuities_);
    }

    [[nodiscard]] AudioFileType lastHint() const { return lastHint_; }
    [[nodiscard]] int alive() const { return alive_; }
    /// How often the bytes broke off.
    [[nodiscard]] int discontinuities() const { return discontinuities_; }

  private:
    std::atomic<AudioFileType> lastHint_{};
    std::atomic<int> alive_ = 0;
    std::atomic<int> discontinuities_ = 0;
};

} // namespace zib
