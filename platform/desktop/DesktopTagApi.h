// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/TagApi.h"

namespace zib {

/// Tags by the tag library, in any kind of file that it can write. A file is read in this process, so only
/// what DesktopFileMetadata has read without harm belongs here. Written is a copy that then takes the file's
/// place, so a full disk or a kill leaves the old file.
class DesktopTagAPIs : public TagAPIs {
  public:
    [[nodiscard]] std::unique_ptr<TagAPI> open(const QString& path) override;
};

} // namespace zib
