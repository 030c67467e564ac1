// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/PlaceCurve.h"

#include <algorithm>

namespace zib {

void PlaceCurve::add(double packet, double byteOffset)
{
    if (places_.empty() || (packet > places_.back().packet && byteOffset >= places_.back().byteOffset))
        places_.push_back({packet, byteOffset});
}

std::optional<std::int64_t> PlaceCurve::at(std::int64_t packet) const
{
    const auto wanted = static_cast<double>(packet);
    const auto next = std::ranges::lower_bound(places_, wanted, {}, &Place::packet);
    if (next == places_.end() || (next == places_.begin() && next->packet > wanted))
        return std::nullopt;
    if (next->packet == wanted)
        return static_cast<std::int64_t>(next->byteOffset);
    const Place& before = *(next - 1);
    const double part = (wanted - before.packet) / (next->packet - before.packet);
    return static_cast<std::int64_t>(before.byteOffset + part * (next->byteOffset - before.byteOffset));
}

} // namespace zib
