// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"

#include <QString>

#include <tl/expected.hpp>

namespace zib {

class RVDataManager;
class UserDefaults;

/// Writes a playlist's songs to a file in the format that its extension names. A failure yields a sentence
/// for the person, and leaves a file that was there as it was. Main thread.
tl::expected<void, QString> exportPlaylist(const RVDataManager& dataManager, const UserDefaults& defaults,
                                           const Record& playlist, const QString& path);

} // namespace zib
