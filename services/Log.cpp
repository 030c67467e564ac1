// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/Log.h"

namespace zib {

Q_LOGGING_CATEGORY(servicesLog, "zib.services")

} // namespace zib
