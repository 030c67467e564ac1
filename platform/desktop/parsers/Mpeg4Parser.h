// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/HeldAudio.h"
#include "platform/desktop/parsers/Mpeg4BoxReader.h"
#include "platform/desktop/parsers/Mpeg4Fragment.h"
#include "platform/desktop/parsers/Mpeg4SampleCutter.h"
#include "platform/desktop/parsers/Mpeg4SegmentIndex.h"
#include "platform/desktop/parsers/Mpeg4Track.h"
#include "platform/desktop/parsers/SeekPlaces.h"

namespace zib {

/// Plays the first sound track of MPEG-4 and QuickTime files, also of fragmented ones, past whatever lies
/// between its samples. Where the index follows the audio, the audio is kept until it has come; kIndexTooLate
/// when that is too much.
class Mpeg4Parser : public FormatParser, private Mpeg4BoxReader::Client {
  public:
    /// @param startOffset the byte of the file that the first byte fed is.
    Mpeg4Parser(ParserOutput& output, std::int64_t startOffset);

    AudioStatus parse(std::span<const std::byte> bytes, bool discontinuous) override;
    /// Exact where the file's index tells; a packet beyond the last is the last one, since listeners seek by
    /// an estimate of the length. In a fragmented file the place is that of the segment or, by the average,
    /// the fragment around the packet; the samples before it are left out where fragments tell their time.
    AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) override;

  private:
    using Treatment = Mpeg4BoxReader::Treatment;
    /// A stretch of the audio that is held.
    struct Stretch {
        std::int64_t offset; ///< byte of the file that begins it
        std::size_t held;    ///< and of what is held
    };

    Treatment boxBegins(std::uint32_t type, std::uint32_t parent, std::int64_t offset) override;
    Treatment topBoxBegins(std::uint32_t type, std::int64_t offset);
    AudioStatus boxGathered(std::uint32_t type, std::span<const std::byte> body,
                            std::int64_t offset) override;
    AudioStatus boxEnds(std::uint32_t type) override;
    AudioStatus bytesPass(std::span<const std::byte> bytes, std::int64_t offset) override;

    void beginAnew();
    AudioStatus hold(std::span<const std::byte> bytes, std::int64_t offset);
    void trackEnds();
    AudioStatus movieEnds();
    void audioBegins(std::int64_t offset);
    void releaseHeld();
    void fragmentEnds();
    void goToWanted(std::int64_t frame);
    AudioStatus searchFragment(std::span<const std::byte> bytes);

    Mpeg4BoxReader boxes_;
    std::int64_t offset_ = 0; ///< byte of the file that comes next, once the boxes are done with

    Mpeg4Track reading_;
    std::optional<Mpeg4Track> track_; ///< the best so far, then the one that is played
    bool indexed_ = false;            ///< the movie's description was read
    std::vector<std::pair<std::uint32_t, std::uint32_t>> defaultSizes_; ///< of samples, by track
    HeldAudio held_;
    std::vector<Stretch> stretches_;
    std::int64_t heldEnd_ = 0; ///< byte of the file that follows what is held

    bool fragmented_ = false;
    std::optional<Mpeg4Fragment> fragment_;
    Mpeg4SegmentIndex segments_;
    bool searching_ = false;             ///< for a fragment, after a break
    bool offsetsHold_ = true;            ///< no bytes of a fragmented file were left out
    std::vector<std::byte> searched_;    ///< what may be the beginning of one
    std::optional<std::int64_t> wanted_; ///< the frame that a seek asked for, until it comes
    SeekPlaces places_;                  ///< of fragments
    std::uint64_t samplesBeforeFragments_ = 0;
    std::optional<double> firstTime_;               ///< of the song, in frames, as fragments count
    std::int64_t fragmentOffset_ = 0;               ///< byte of the file that the last one begins at
    std::optional<std::int64_t> lastAudioFragment_; ///< and the last with samples of the track

    std::optional<AudioFileProperties> properties_; ///< until it is known where the audio begins
    std::optional<std::int64_t> dataOffset_;
    Mpeg4SampleCutter cutter_;
    std::uint64_t packetsBeforeBreak_ = 0;
    std::optional<std::uint64_t> sought_; ///< the packet whose bytes are expected after the next break
    bool lost_ = false;                   ///< it isn't known which bytes come
};

} // namespace zib
