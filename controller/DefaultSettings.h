// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zib {

class UserDefaults;

/// Registers the values that settings have until the user changes them. Once, before any other object reads a
/// setting.
void registerDefaultSettings(UserDefaults& defaults);

} // namespace zib
