// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QPainter;
class QRect;

namespace zib {

/// Draws a line of text, in the painter's font and pen; what does not fit gives way to "…". It stands on the
/// side where the window's reading begins (or ends, as its alignment says), but is itself read the way of its
/// own writing: a name in Latin letters keeps its full stop at its end in a window that is read from the
/// right.
void drawLine(QPainter& painter, const QRect& area, Qt::Alignment alignment, Qt::LayoutDirection ofWindow,
              const QString& text, Qt::TextElideMode elide = Qt::ElideRight);

} // namespace zib
