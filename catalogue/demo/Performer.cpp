// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Performer.h"

#include "catalogue/demo/Effects.h"
#include "catalogue/demo/Voices.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <tuple>

namespace zib::demo {
namespace {

constexpr std::size_t blockFrames = 4096;
constexpr double leadIn = 0.04; // seconds before the first beat, so that its attack is whole

using Sound = std::shared_ptr<const std::vector<float>>;

/// A note that is already sound: where it begins and how loud it is on each side.
struct Event {
    std::size_t start = 0;
    Sound sound;
    float left = 0;
    float right = 0;
};

struct Side {
    float left;
    float right;
};

/// Equal power from -1 (left) to 1 (right).
Side panned(float position, float gain)
{
    const float right = 0.5F + 0.5F * position;
    return {gain * std::sqrt(1.0F - right), gain * std::sqrt(right)};
}

struct PartMix {
    float gain;
    float pan;
    float width; ///< how far high and low keys lie apart
};

PartMix mixOf(Part part)
{
    switch (part) {
    case Part::Lead:
        return {0.23F, 0.06F, 0.1F};
    case Part::Counter:
        return {0.16F, -0.35F, 0.1F};
    case Part::Chords:
        return {0.165F, -0.1F, 0.7F};
    case Part::Pad:
        return {0.068F, 0, 0.5F};
    case Part::Bass:
        return {0.15F, 0, 0};
    default:
        return {0.5F, 0, 0};
    }
}

struct DrumMix {
    float gain;
    float pan;
};

DrumMix mixOf(Drum drum)
{
    switch (drum) {
    case Drum::Kick:
        return {0.62F, 0};
    case Drum::Snare:
        return {0.36F, 0.08F};
    case Drum::Rim:
        return {0.2F, -0.2F};
    case Drum::ClosedHat:
        return {0.13F, 0.35F};
    case Drum::OpenHat:
        return {0.11F, 0.3F};
    case Drum::Ride:
        return {0.12F, -0.4F};
    case Drum::Crash:
        return {0.16F, -0.3F};
    case Drum::Shaker:
        return {0.11F, 0.5F};
    case Drum::Clap:
        return {0.3F, -0.1F};
    case Drum::Tom:
        return {0.38F, 0.25F};
    default:
        return {0.14F, -0.15F};
    }
}

float drumsGain(DrumKit kit)
{
    switch (kit) {
    case DrumKit::Acoustic:
    case DrumKit::Electronic:
        return 1.4F;
    default:
        return 1.65F;
    }
}

/// The sounds of one part, each made once however often it is played.
class SoundBook {
  public:
    SoundBook(Instrument instrument, DrumKit kit)
        : instrument_(instrument)
        , kit_(kit)
    {
    }

    Sound note(int pitch, double seconds, float force)
    {
        // Lengths that the ear cannot tell apart share a sound; so do touches.
        const int length = std::max(1, static_cast<int>(std::lround(seconds * 50)));
        const int touch = static_cast<int>(force * 3.99F);
        Sound& sound = sounds_[{pitch, length, touch}];
        if (!sound)
            sound = std::make_shared<std::vector<float>>(playNote(patchOf(instrument_), pitch, length / 50.0,
                                                                  (static_cast<float>(touch) + 0.5F) / 4.0F));
        return sound;
    }

    Sound drum(Drum drum)
    {
        Sound& sound = sounds_[{static_cast<int>(drum), 0, 0}];
        if (!sound)
            sound = std::make_shared<std::vector<float>>(strikeDrum(drum, kit_));
        return sound;
    }

  private:
    Instrument instrument_;
    DrumKit kit_;
    std::map<std::tuple<int, int, int>, Sound> sounds_;
};

/// One part's notes, its effects and what it sends to the room.
class Track {
  public:
    Track(const Score& score, Part part);

    /// Adds the block that begins at `start` to the mix and to the effects' inputs.
    void play(std::size_t start, const std::vector<float>& duck, Stereo& mix, Stereo& toReverb,
              Stereo& toEcho);

  private:
    Event eventOf(const Score& score, const Note& note, SoundBook& book) const;

    Part part_;
    const Patch& patch_;
    std::vector<Event> events_; // in the order of their beginning
    std::vector<std::size_t> sounding_;
    std::size_t next_ = 0;
    Stereo block_{blockFrames};
    Chorus chorus_;
    Tremolo tremolo_;
    Drive drive_;
};

Track::Track(const Score& score, Part part)
    : part_(part)
    , patch_(patchOf(score.instruments.at(static_cast<std::size_t>(part))))
{
    SoundBook book(score.instruments.at(static_cast<std::size_t>(part)), score.kit);
    for (const Note& note : score.part(part))
        events_.push_back(eventOf(score, note, book));
    std::stable_sort(events_.begin(), events_.end(),
                     [](const Event& a, const Event& b) { return a.start < b.start; });
}

Event Track::eventOf(const Score& score, const Note& note, SoundBook& book) const
{
    const double begins = score.secondsAt(note.beat);
    Event event;
    event.start = static_cast<std::size_t>((leadIn + begins + note.delay) * sampleRate);
    const float strength = note.velocity * note.velocity;
    Side sides{};
    if (part_ == Part::Drums) {
        const auto drum = static_cast<Drum>(note.pitch);
        event.sound = book.drum(drum);
        const DrumMix mix = mixOf(drum);
        sides = panned(mix.pan, mix.gain * strength * drumsGain(score.kit));
    } else {
        event.sound = book.note(note.pitch, score.secondsAt(note.beat + note.length) - begins, note.velocity);
        const PartMix mix = mixOf(part_);
        const float key = std::clamp(static_cast<float>(note.pitch - 64) / 24.0F, -1.0F, 1.0F);
        sides = panned(std::clamp(mix.pan + mix.width * key, -0.9F, 0.9F), mix.gain * strength * 1.6F);
    }
    event.left = sides.left;
    event.right = sides.right;
    return event;
}

void Track::play(std::size_t start, const std::vector<float>& duck, Stereo& mix, Stereo& toReverb,
                 Stereo& toEcho)
{
    if (events_.empty())
        return;
    block_.clear();
    while (next_ < events_.size() && events_[next_].start < start + blockFrames)
        sounding_.push_back(next_++);
    for (const std::size_t index : sounding_) {
        const Event& event = events_[index];
        const std::size_t from = std::max(start, event.start);
        const std::size_t to = std::min(start + blockFrames, event.start + event.sound->size());
        const float* sound = event.sound->data() - event.start;
        for (std::size_t i = from; i < to; ++i) {
            block_.left[i - start] += event.left * sound[i];
            block_.right[i - start] += event.right * sound[i];
        }
    }
    std::erase_if(sounding_, [&](std::size_t index) {
        return events_[index].start + events_[index].sound->size() <= start + blockFrames;
    });
    if (part_ != Part::Drums) {
        if (patch_.drive > 0) {
            drive_.process(block_);
            drive_.speaker(block_);
        }
        if (patch_.chorus > 0)
            chorus_.process(block_, patch_.chorus);
        if (patch_.tremolo > 0)
            tremolo_.process(block_, patch_.tremolo);
        if (part_ != Part::Lead && !duck.empty())
            for (std::size_t i = 0; i < blockFrames; ++i) {
                block_.left[i] *= duck[i];
                block_.right[i] *= duck[i];
            }
    }
    mix.add(block_, 1);
    toReverb.add(block_, part_ == Part::Drums ? 0.1F : patch_.reverb);
    if (part_ != Part::Drums && patch_.echo > 0)
        toEcho.add(block_, patch_.echo);
}

/// Electronic kits breathe: the others step back at each kick of the drum.
class Ducking {
  public:
    explicit Ducking(const Score& score)
    {
        if (score.kit != DrumKit::Electronic)
            return;
        gains_.resize(blockFrames);
        for (const Note& note : score.part(Part::Drums))
            if (note.pitch == static_cast<int>(Drum::Kick))
                kicks_.push_back(
                    static_cast<std::size_t>((leadIn + score.secondsAt(note.beat)) * sampleRate));
        std::sort(kicks_.begin(), kicks_.end());
    }

    const std::vector<float>& gains(std::size_t start)
    {
        for (std::size_t i = 0; i < gains_.size(); ++i) {
            if (next_ < kicks_.size() && kicks_[next_] <= start + i) {
                ++next_;
                since_ = 0;
            }
            constexpr float recovery = 0.24F * sampleRate;
            const float target = since_ < recovery ? 0.5F + 0.5F * since_ / recovery : 1.0F;
            since_ += 1;
            gain_ += 0.01F * (target - gain_); // no click
            gains_[i] = gain_;
        }
        return gains_;
    }

  private:
    std::vector<std::size_t> kicks_;
    std::vector<float> gains_;
    std::size_t next_ = 0;
    float since_ = 1.0e6F;
    float gain_ = 1;
};

std::vector<std::int16_t> quantised(const Stereo& song)
{
    std::vector<std::int16_t> samples(song.frames() * 2);
    for (std::size_t i = 0; i < song.frames(); ++i) {
        samples[2 * i] = static_cast<std::int16_t>(std::lround(song.left[i] * 32767.0F));
        samples[2 * i + 1] = static_cast<std::int16_t>(std::lround(song.right[i] * 32767.0F));
    }
    return samples;
}

void place(const Stereo& block, std::size_t start, Stereo& song)
{
    const auto count = static_cast<long>(std::min(blockFrames, song.frames() - start));
    const auto at = static_cast<long>(start);
    std::copy_n(block.left.begin(), count, song.left.begin() + at);
    std::copy_n(block.right.begin(), count, song.right.begin() + at);
}

} // namespace

std::vector<std::int16_t> perform(const Score& score, const std::atomic<bool>& stop)
{
    std::vector<std::unique_ptr<Track>> tracks;
    for (std::size_t part = 0; part < partCount; ++part) {
        if (stop)
            return {};
        tracks.push_back(std::make_unique<Track>(score, static_cast<Part>(part)));
    }
    Ducking ducking(score);
    Reverb reverb(score.roominess);
    Echo echo(score.secondsPerBeat * 0.75);
    Stereo song(static_cast<std::size_t>(score.seconds) * sampleRate);
    Stereo mix(blockFrames);
    Stereo room(blockFrames);
    Stereo repeats(blockFrames);
    for (std::size_t start = 0; start < song.frames(); start += blockFrames) {
        if (stop)
            return {};
        mix.clear();
        room.clear();
        repeats.clear();
        const auto& duck = ducking.gains(start);
        for (const auto& track : tracks)
            track->play(start, duck, mix, room, repeats);
        echo.process(repeats);
        mix.add(repeats, 0.7F);
        room.add(repeats, 0.4F);
        reverb.process(room);
        mix.add(room, 0.3F + 0.5F * score.roominess);
        place(mix, start, song);
    }
    master(song, score.warmth);
    return quantised(song);
}

} // namespace zib::demo
