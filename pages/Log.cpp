// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/Log.h"

namespace zib {

Q_LOGGING_CATEGORY(pagesLog, "zib.pages")

} // namespace zib
