// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/StreamReports.h"

#include "controller/ControllerContext.h"
#include "library/RVDataManager.h"

namespace zib {

void StreamReports::fileNotFound(const Record& track)
{
    context_.dataManager.fileNotFound(track);
}

void StreamReports::exportedFile(const Record& track)
{
    context_.dataManager.exportedFile(track);
}

} // namespace zib
