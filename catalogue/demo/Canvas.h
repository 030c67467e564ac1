// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Random.h"

#include <QPainter>
#include <QStringList>

#include <array>

namespace zib::demo {

/// From the sky down: two of the ground, two shapes, one accent.
using Palette = std::array<QRgb, 5>;

/// That of the first tag.
const Palette& paletteOf(const QStringList& tags);

/// A brush, its colours and its chance.
struct Canvas {
    QPainter& painter;
    const Palette& palette;
    Random& random;

    double between(double low, double high)
    {
        return low + (high - low) * static_cast<double>(random.unit());
    }

    QColor colour(std::size_t index, double opacity = 1)
    {
        QColor result = QColor::fromRgb(palette.at(index));
        result.setAlphaF(static_cast<float>(opacity));
        return result;
    }

    void disc(double x, double y, double radius, const QBrush& brush)
    {
        painter.setBrush(brush);
        painter.drawEllipse(QPointF(x, y), radius, radius);
    }
};

} // namespace zib::demo
