// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>
#include <QString>

class QWidget;

namespace zib {

/// What hangs at the pointer while rows of a list are dragged: the text, shortened where it is long.
[[nodiscard]] QPixmap dragPicture(const QWidget& list, const QString& text);

} // namespace zib
