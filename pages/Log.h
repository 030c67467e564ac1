// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace zib {

Q_DECLARE_LOGGING_CATEGORY(pagesLog)

} // namespace zib
