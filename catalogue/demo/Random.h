// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>

namespace zib::demo {

/// Pseudo-random numbers that are the same on every machine and with every standard library.
class Random {
  public:
    explicit Random(std::uint64_t seed)
        : state_(seed)
    {
    }

    std::uint64_t next()
    {
        std::uint64_t mixed = (state_ += 0x9e3779b97f4a7c15U);
        mixed = (mixed ^ (mixed >> 30U)) * 0xbf58476d1ce4e5b9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94d049bb133111ebU;
        return mixed ^ (mixed >> 31U);
    }

    /// 0 to `count` - 1.
    int below(int count) { return static_cast<int>((next() >> 33U) % static_cast<std::uint64_t>(count)); }

    /// 0 to just under 1.
    float unit() { return static_cast<float>(next() >> 40U) * (1.0F / 16777216.0F); }

    float between(float low, float high) { return low + (high - low) * unit(); }

    bool chance(float probability) { return unit() < probability; }

    template <typename List>
    const auto& pick(const List& list)
    {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
    }

  private:
    std::uint64_t state_;
};

} // namespace zib::demo
