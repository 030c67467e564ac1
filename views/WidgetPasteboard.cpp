// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/WidgetPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace zib {

void WidgetPasteboard::setString(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace zib
