// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

namespace zib {

/// Tags to begin with: a newcomer need not know any artist's name. They are asked of the service, so they are
/// not translated.
inline constexpr std::array suggestedTags{"ambient", "folk", "jazz", "lo-fi", "piano", "synthwave"};

} // namespace zib
