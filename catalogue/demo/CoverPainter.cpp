// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/CoverPainter.h"

#include "catalogue/demo/Canvas.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace zib::demo {
namespace {

constexpr double size = coverSize;

void ground(Canvas& c)
{
    QLinearGradient sky(0, 0, c.between(-0.3, 0.3) * size, size);
    sky.setColorAt(0, c.colour(0));
    sky.setColorAt(1, c.colour(1));
    c.painter.fillRect(QRectF(0, 0, size, size), sky);
}

void hills(Canvas& c)
{
    const double x = c.between(0.25, 0.75) * size;
    const double y = c.between(0.25, 0.42) * size;
    QRadialGradient glow(x, y, 0.5 * size);
    glow.setColorAt(0, c.colour(4, 0.7));
    glow.setColorAt(1, c.colour(4, 0));
    c.painter.fillRect(QRectF(0, 0, size, size), glow);
    c.disc(x, y, c.between(0.09, 0.16) * size, c.colour(4));
    constexpr int ranges = 5;
    for (int i = 0; i < ranges; ++i) {
        const double share = static_cast<double>(i) / (ranges - 1);
        const double level = (0.5 + 0.42 * share) * size;
        const double first = c.between(0, 1);
        const double second = c.between(0, 1);
        const double height = c.between(0.03, 0.075) * size;
        QPainterPath range(QPointF(0, size));
        for (int px = 0; px <= coverSize; px += 6) {
            const double t = px / size * 2 * std::numbers::pi;
            range.lineTo(px, level + height * (std::sin(1.3 * t + 6.28 * first) +
                                               0.5 * std::sin(3.1 * t + 6.28 * second)));
        }
        range.lineTo(size, size);
        range.closeSubpath();
        c.painter.setBrush(c.colour(i < 3 ? 2 : 3, 0.35 + 0.6 * share));
        c.painter.drawPath(range);
    }
}

void sunset(Canvas& c)
{
    const double horizon = c.between(0.6, 0.7) * size;
    const double radius = c.between(0.24, 0.3) * size;
    QLinearGradient sun(0, horizon - 2 * radius, 0, horizon);
    sun.setColorAt(0, c.colour(4));
    sun.setColorAt(1, c.colour(2));
    c.painter.save();
    c.painter.setClipRect(QRectF(0, 0, size, horizon));
    c.disc(size / 2, horizon - 0.5 * radius, radius, sun);
    for (int i = 0; i < 6; ++i) { // blinds that grow towards the horizon
        const double y = horizon - 0.05 * size * i;
        c.painter.fillRect(QRectF(0, y - 0.004 * size * (7 - i), size, 0.004 * size * (7 - i)), c.colour(1));
    }
    c.painter.restore();
    QLinearGradient sea(0, horizon, 0, size);
    sea.setColorAt(0, c.colour(2, 0.75));
    sea.setColorAt(1, c.colour(0));
    c.painter.fillRect(QRectF(0, horizon, size, size - horizon), sea);
    c.painter.setPen(QPen(c.colour(3, 0.7), 1.6));
    for (int i = 0; i < 9; ++i) {
        const double y = horizon + (size - horizon) * i * i / 64.0;
        c.painter.drawLine(QPointF(0, y), QPointF(size, y));
    }
    for (int i = -10; i <= 10; ++i)
        c.painter.drawLine(QPointF(size / 2 + i * 0.045 * size, horizon),
                           QPointF(size / 2 + i * 0.22 * size, size));
    c.painter.setPen(Qt::NoPen);
}

void tiles(Canvas& c)
{
    const int count = c.random.chance(0.5F) ? 4 : 5;
    const double edge = size / count;
    for (int row = 0; row < count; ++row) {
        for (int column = 0; column < count; ++column) {
            const QRectF tile(column * edge, row * edge, edge, edge);
            c.painter.fillRect(tile, c.colour(static_cast<std::size_t>(c.random.below(2)), 0.9));
            c.painter.save();
            c.painter.setClipRect(tile);
            const QColor colour =
                c.colour(static_cast<std::size_t>(c.random.chance(0.15F) ? 4 : 2 + c.random.below(2)));
            const int corner = c.random.below(5);
            const int right = corner % 2;
            const int down = corner / 2;
            const QPointF centre =
                corner == 4 ? tile.center() : QPointF(tile.x() + right * edge, tile.y() + down * edge);
            c.disc(centre.x(), centre.y(), corner == 4 ? 0.3 * edge : edge, colour);
            if (corner != 4 && c.random.chance(0.4F))
                c.disc(centre.x(), centre.y(), 0.5 * edge, c.colour(0));
            c.painter.restore();
        }
    }
}

void veils(Canvas& c)
{
    for (int i = 0; i < 9; ++i) {
        const double x = c.between(0.15, 0.85) * size;
        const double y = c.between(0.15, 0.85) * size;
        const double radius = c.between(0.1, 0.36) * size;
        QRadialGradient veil(x - 0.3 * radius, y - 0.3 * radius, 1.4 * radius);
        const auto index = static_cast<std::size_t>(i % 4 == 3 ? 4 : 2 + i % 2);
        veil.setColorAt(0, c.colour(index, 0.75));
        veil.setColorAt(1, c.colour(index, 0.12));
        c.disc(x, y, radius, veil);
    }
}

void strings(Canvas& c)
{
    const double phase = c.between(0, 6.28);
    const double bend = c.between(0.8, 1.6);
    c.disc(c.between(0.3, 0.7) * size, c.between(0.3, 0.6) * size, c.between(0.15, 0.22) * size,
           c.colour(4, 0.9));
    c.painter.setBrush(Qt::NoBrush);
    constexpr int lines = 26;
    for (int i = 0; i < lines; ++i) {
        const double share = static_cast<double>(i) / lines;
        QPainterPath line;
        for (int px = -6; px <= coverSize + 6; px += 6) {
            const double t = px / size;
            const double swell = std::sin(std::numbers::pi * t);
            const double y = size * (0.18 + 0.68 * share) +
                             size * 0.085 * swell * std::sin(bend * 6.28 * t + phase + 3.2 * share);
            if (px < 0)
                line.moveTo(px, y);
            else
                line.lineTo(px, y);
        }
        c.painter.setPen(QPen(c.colour(i % 2 == 0 ? 3 : 2, 0.85), 1.5 + 4.5 * share));
        c.painter.drawPath(line);
    }
    c.painter.setPen(Qt::NoPen);
}

void rings(Canvas& c)
{
    const double x = c.between(0.35, 0.65) * size;
    const double y = c.between(0.35, 0.65) * size;
    for (int i = 8; i > 0; --i) {
        const double radius = (0.055 * i + 0.02) * size;
        c.disc(x + 2.5 * i, y - 1.5 * i, radius,
               c.colour(static_cast<std::size_t>(i % 3 + 1), i % 3 == 0 ? 0.9 : 0.8));
    }
    c.disc(x, y, 0.045 * size, c.colour(4));
    QPainterPath half;
    half.addRect(QRectF(0, c.between(0.6, 0.75) * size, size, size));
    c.painter.setBrush(c.colour(3, 0.82));
    c.painter.drawPath(half);
}

void columns(Canvas& c)
{
    const int count = 7 + c.random.below(5);
    const double width = size / (count + 2);
    for (int i = 0; i < count; ++i) {
        const double height = c.between(0.18, 0.72) * size;
        const QRectF bar((i + 1) * width + 0.12 * width, 0.86 * size - height, 0.76 * width, height);
        QLinearGradient paint(bar.topLeft(), bar.bottomLeft());
        const bool accent = c.random.chance(0.14F);
        paint.setColorAt(0, c.colour(accent ? 4 : 2));
        paint.setColorAt(1, c.colour(3));
        c.painter.setBrush(paint);
        c.painter.drawRoundedRect(bar, 0.38 * width, 0.38 * width);
    }
    c.disc(c.between(0.2, 0.8) * size, 0.16 * size, 0.07 * size, c.colour(4));
}

using Layout = void (*)(Canvas&);

Layout layoutFor(const QStringList& tags, Random& random)
{
    if (tags.value(0) == QLatin1String("synthwave"))
        return sunset;
    constexpr std::array<Layout, 6> layouts = {hills, tiles, veils, strings, rings, columns};
    return random.pick(layouts);
}

} // namespace

QByteArray paintCover(const QStringList& tags, std::uint64_t seed)
{
    QImage image(coverSize, coverSize, QImage::Format_RGB32);
    Random random(seed);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        Canvas canvas{painter, paletteOf(tags), random};
        ground(canvas);
        layoutFor(tags, random)(canvas);
    }
    QByteArray file;
    QBuffer buffer(&file);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(88);
    return writer.write(image) ? file : QByteArray();
}

} // namespace zib::demo
