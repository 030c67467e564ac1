// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace zib::demo {

/// Two channels of the same length.
struct Stereo {
    std::vector<float> left;
    std::vector<float> right;

    explicit Stereo(std::size_t frames = 0)
        : left(frames)
        , right(frames)
    {
    }
    std::size_t frames() const { return left.size(); }
    void clear();
    void add(const Stereo& other, float gain);
};

// Each effect works on a block and keeps its state for the next one.

/// A room: eight delay lines that feed each other, their highs dying sooner.
class Reverb {
  public:
    /// @param size 0 a chamber, 1 a cathedral
    explicit Reverb(float size);
    /// Replaces the block by the room's answer to it.
    void process(Stereo& block);

  private:
    struct Line {
        std::vector<float> samples;
        std::size_t position = 0;
    };
    static float diffuse(Line& line, float in);

    static constexpr std::size_t lineCount = 8;
    std::array<Line, lineCount> lines_;
    std::array<float, lineCount> gains_{};
    std::array<float, lineCount> damped_{};
    std::array<Line, 4> diffusers_;
    Line before_;
    float damping_;
};

/// Two slowly moving copies, one a side: width.
class Chorus {
  public:
    Chorus();
    void process(Stereo& block, float amount);

  private:
    std::array<std::vector<float>, 2> lines_;
    std::size_t position_ = 0;
    double phase_ = 0;
};

/// Repeats that wander from side to side.
class Echo {
  public:
    explicit Echo(double seconds);
    /// Replaces the block by its repeats.
    void process(Stereo& block);

  private:
    std::array<std::vector<float>, 2> lines_;
    std::size_t position_ = 0;
    std::array<float, 2> soft_{};
};

/// Loudness that swings between the sides.
class Tremolo {
  public:
    void process(Stereo& block, float depth);

  private:
    double phase_ = 0;
};

/// An overdriven amplifier and its loudspeaker.
class Drive {
  public:
    void process(Stereo& block) const;
    void speaker(Stereo& block);

  private:
    std::array<float, 4> state_{};
};

/// Takes away what lies below hearing, warms, sets the loudness of the whole song and holds its peaks.
void master(Stereo& song, float warmth);

} // namespace zib::demo
