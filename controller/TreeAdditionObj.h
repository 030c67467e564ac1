// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/OutlineView.h"

#include <QString>

#include <optional>

namespace zib {

/// The request to add a row to the source list.
struct TreeAdditionObj {
    std::optional<QString> nodeURL; ///< the kind tag; a separator has none
    std::optional<QString> nodeName;
    bool selectItsParent =
        false;               ///< so that the next row comes into the same group; else the row is selected
    NodePath indexPath = {}; ///< empty for the end of the selected group
    bool enabled = true;
};

} // namespace zib
