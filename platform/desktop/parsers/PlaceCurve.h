// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zib {

/// Where packets of a stream of variable rate begin: known for some, in between at the rate of their
/// neighbours.
class PlaceCurve {
  public:
    /// The next known place; one before those that are known is not taken.
    void add(double packet, double byteOffset);
    /// None before the first known packet and after the last.
    [[nodiscard]] std::optional<std::int64_t> at(std::int64_t packet) const;

    [[nodiscard]] std::size_t size() const { return places_.size(); }

  private:
    struct Place {
        double packet;
        double byteOffset;
    };
    std::vector<Place> places_; ///< ascending in both
};

} // namespace zib
