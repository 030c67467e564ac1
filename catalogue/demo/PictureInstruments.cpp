// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/PictureScenes.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zib::demo {

void paintGuitar(Scene& scene)
{
    Canvas& c = scene.canvas;
    QPainter& p = c.painter;
    const QRectF& f = scene.frame;
    fillAcross(scene, scene.tones.paper, scene.tones.light);
    c.disc(0.3 * f.width(), 0.3 * f.height(), 0.3 * f.width(), faded(scene.tones.accent, 0.85));
    p.save();
    p.translate(0.44 * f.width(), 0.72 * f.height());
    p.rotate(c.between(12, 20));
    p.scale(0.86, 0.86);
    const QColor wood = mixed(QColor(0xc6, 0x83, 0x45), scene.tones.accent, 0.25);
    QPainterPath body(QPointF(0, -290));
    body.cubicTo(190, -300, 215, -130, 150, -60);
    body.cubicTo(130, -20, 290, 20, 275, 170);
    body.cubicTo(260, 330, 110, 335, 0, 335);
    body.cubicTo(-110, 335, -260, 330, -275, 170);
    body.cubicTo(-290, 20, -130, -20, -150, -60);
    body.cubicTo(-215, -130, -190, -300, 0, -290);
    QRadialGradient lacquer(QPointF(-60, 20), 380);
    lacquer.setColorAt(0, mixed(wood, Qt::white, 0.25));
    lacquer.setColorAt(1, mixed(wood, scene.tones.ink, 0.3));
    layDown(p, body, lacquer, scene.tones.ink, 34);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(mixed(wood, scene.tones.ink, 0.65), 9));
    p.drawPath(body);
    p.setPen(Qt::NoPen);
    p.setBrush(mixed(wood, scene.tones.ink, 0.75));
    p.drawEllipse(QPointF(0, -50), 84, 84);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(mixed(wood, scene.tones.paper, 0.6), 7));
    p.drawEllipse(QPointF(0, -50), 98, 98);
    p.setPen(Qt::NoPen);
    const QColor neck = mixed(scene.tones.ink, QColor(0x3a, 0x24, 0x18), 0.5);
    layDown(p, rounded(QRectF(-36, -820, 72, 740), 8), neck, scene.tones.ink, 14);
    layDown(p, rounded(QRectF(-50, -950, 100, 150), 18), mixed(wood, scene.tones.ink, 0.45), scene.tones.ink,
            14);
    p.setPen(QPen(mixed(scene.tones.paper, neck, 0.35), 4));
    for (int fret = 0; fret < 12; ++fret) {
        const double y = -800 + 640 * (1 - std::pow(0.92, fret + 1)) / (1 - std::pow(0.92, 12.0));
        p.drawLine(QPointF(-35, y), QPointF(35, y));
    }
    p.setPen(Qt::NoPen);
    p.setBrush(scene.tones.paper);
    for (int i = 0; i < 3; ++i) {
        p.drawEllipse(QPointF(-58, -925 + 44 * i), 13, 10);
        p.drawEllipse(QPointF(58, -925 + 44 * i), 13, 10);
    }
    p.setBrush(mixed(wood, scene.tones.ink, 0.7));
    p.drawRoundedRect(QRectF(-95, 150, 190, 32), 12, 12);
    for (int string = 0; string < 6; ++string) {
        p.setPen(QPen(faded(scene.tones.paper, 0.9), 1.6 + 0.45 * (5 - string)));
        p.drawLine(QPointF(-24 + 9.6 * string, -900), QPointF(-44 + 17.6 * string, 164));
    }
    p.setPen(Qt::NoPen);
    p.restore();
}

void paintKeys(Scene& scene)
{
    Canvas& c = scene.canvas;
    QPainter& p = c.painter;
    const QRectF& f = scene.frame;
    fillAcross(scene, scene.tones.shade, scene.tones.ink);
    QRadialGradient lamp(QPointF(c.between(0.2, 0.8) * f.width(), 0), 0.8 * f.width());
    lamp.setColorAt(0, faded(scene.tones.accent, 0.75));
    lamp.setColorAt(1, faded(scene.tones.accent, 0));
    p.fillRect(f, lamp);
    p.save();
    p.translate(f.center());
    p.rotate(c.between(-9, -4));
    p.translate(-f.center());
    constexpr int count = 15;
    constexpr double width = 100;
    const double left = f.center().x() - count * width / 2;
    const double top = 0.36 * f.height();
    const double bottom = 1.02 * f.height();
    p.setBrush(mixed(scene.tones.ink, Qt::black, 0.45));
    p.drawRect(QRectF(left - 200, top - 70, count * width + 400, 72));
    p.setBrush(mixed(scene.tones.accent, scene.tones.ink, 0.15));
    p.drawRect(QRectF(left - 200, top - 10, count * width + 400, 14)); // the felt
    const int pressed = 3 + c.random.below(3);
    for (int i = 0; i < count; ++i) {
        const bool down = i == pressed || i == pressed + 2 || i == pressed + 4;
        const QRectF key(left + i * width + 2, top, width - 4, bottom - top + (down ? -14 : 0));
        QLinearGradient ivory(key.topLeft(), key.bottomLeft());
        const QColor base = down ? mixed(scene.tones.paper, scene.tones.accent, 0.45)
                                 : mixed(scene.tones.paper, Qt::white, 0.55);
        ivory.setColorAt(0, mixed(base, scene.tones.ink, 0.28));
        ivory.setColorAt(0.3, base);
        ivory.setColorAt(1, mixed(base, scene.tones.ink, 0.1));
        p.setBrush(ivory);
        p.drawRoundedRect(key, 9, 9);
    }
    for (int i = 0; i < count; ++i) {
        if (i % 7 == 2 || i % 7 == 6)
            continue;
        const QRectF key(left + (i + 1) * width - 29, top, 58, 0.6 * (bottom - top));
        p.setBrush(faded(scene.tones.ink, 0.3));
        p.drawRoundedRect(key.translated(14, 12), 8, 8);
        QLinearGradient ebony(key.topLeft(), key.topRight());
        ebony.setColorAt(0, mixed(scene.tones.ink, Qt::black, 0.6));
        ebony.setColorAt(0.25, mixed(scene.tones.ink, scene.tones.light, 0.16));
        ebony.setColorAt(1, mixed(scene.tones.ink, Qt::black, 0.7));
        p.setBrush(ebony);
        p.drawRoundedRect(key, 8, 8);
    }
    p.restore();
}

void paintMachine(Scene& scene)
{
    Canvas& c = scene.canvas;
    QPainter& p = c.painter;
    const QRectF& f = scene.frame;
    fillAcross(scene, mixed(scene.tones.light, scene.tones.shade, 0.3), scene.tones.shade);
    const QRectF box = f.adjusted(110, 110, -110, -110);
    layDown(p, rounded(box, 34), mixed(scene.tones.ink, Qt::black, 0.2), scene.tones.ink, 36);
    p.setBrush(mixed(scene.tones.ink, scene.tones.light, 0.1));
    p.drawRoundedRect(box.adjusted(18, 18, -18, -18), 22, 22);
    // Eight knobs over sixteen pads.
    constexpr int knobs = 8;
    const double step = (box.width() - 120) / knobs;
    for (int i = 0; i < knobs; ++i) {
        const QPointF middle(box.left() + 60 + step * (i + 0.5), box.top() + 125);
        const double angle = c.between(-2.4, 2.4) - std::numbers::pi / 2;
        p.setBrush(mixed(scene.tones.ink, Qt::black, 0.6));
        p.drawEllipse(middle + QPointF(5, 8), 42, 42);
        p.setBrush(i % 4 == 3 ? scene.tones.accent : scene.tones.paper);
        p.drawEllipse(middle, 40, 40);
        p.setPen(QPen(scene.tones.ink, 7, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(middle + 12 * QPointF(std::cos(angle), std::sin(angle)),
                   middle + 33 * QPointF(std::cos(angle), std::sin(angle)));
        p.setPen(Qt::NoPen);
    }
    constexpr int columns = 8;
    constexpr int rows = 3;
    const double edge = (box.width() - 120) / columns;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const QRectF pad(box.left() + 60 + column * edge + 9, box.top() + 215 + row * 112, edge - 18, 94);
            const bool lit = c.random.chance(column % 4 == 0 ? 0.7F : 0.26F);
            const QColor colour = lit ? (row == 1 ? scene.tones.paper : scene.tones.accent)
                                      : mixed(scene.tones.ink, scene.tones.shade, 0.55);
            if (lit) {
                QRadialGradient glow(pad.center(), 110);
                glow.setColorAt(0, faded(colour, 0.5));
                glow.setColorAt(1, faded(colour, 0));
                p.setBrush(glow);
                p.drawEllipse(pad.center(), 110, 110);
            }
            p.setBrush(colour);
            p.drawRoundedRect(pad, 12, 12);
        }
    }
}

void paintMicrophone(Scene& scene)
{
    Canvas& c = scene.canvas;
    QPainter& p = c.painter;
    const QRectF& f = scene.frame;
    fillAcross(scene, scene.tones.shade, scene.tones.ink);
    const QPointF middle(f.center().x(), 0.4 * f.height());
    p.save();
    p.translate(middle);
    p.setBrush(faded(scene.tones.accent, 0.2));
    constexpr int rays = 18;
    for (int i = 0; i < rays; ++i) {
        const double angle = (i + 0.2) * 2 * std::numbers::pi / rays;
        QPainterPath ray(QPointF(0, 0));
        ray.lineTo(1400 * std::cos(angle), 1400 * std::sin(angle));
        ray.lineTo(1400 * std::cos(angle + 0.17), 1400 * std::sin(angle + 0.17));
        p.drawPath(ray);
    }
    p.restore();
    c.disc(middle.x(), middle.y(), 0.37 * f.width(), mixed(scene.tones.accent, scene.tones.shade, 0.1));
    const QColor metal = mixed(scene.tones.paper, Qt::white, 0.25);
    p.setBrush(mixed(scene.tones.ink, Qt::black, 0.4)); // the stand
    p.drawRect(QRectF(middle.x() - 18, middle.y() + 250, 36, f.height()));
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(mixed(scene.tones.ink, Qt::black, 0.4), 30, Qt::SolidLine, Qt::RoundCap));
    p.drawArc(QRectF(middle.x() - 215, middle.y() - 190, 430, 450), 180 * 16, 180 * 16);
    p.setPen(Qt::NoPen);
    const QRectF head(middle.x() - 150, middle.y() - 260, 300, 480);
    QLinearGradient shine(head.topLeft(), head.topRight());
    shine.setColorAt(0, mixed(metal, scene.tones.ink, 0.45));
    shine.setColorAt(0.3, metal);
    shine.setColorAt(1, mixed(metal, scene.tones.ink, 0.6));
    p.setBrush(shine);
    p.drawRoundedRect(head, 150, 150);
    p.setClipPath(rounded(head.adjusted(22, 22, -22, -22), 128));
    p.setBrush(mixed(scene.tones.ink, Qt::black, 0.2));
    for (int i = -4; i <= 4; ++i)
        p.drawRoundedRect(QRectF(middle.x() + 30.0 * i - 8, head.top(), 16, head.height()), 8, 8);
    p.setBrush(shine);
    p.drawRect(QRectF(head.left(), middle.y() - 64, head.width(), 26));
    p.drawRect(QRectF(head.left(), middle.y() + 2, head.width(), 26));
    p.setClipping(false);
    p.setBrush(scene.tones.accent);
    p.drawRoundedRect(QRectF(middle.x() - 44, middle.y() - 46, 88, 56), 12, 12);
}

} // namespace zib::demo
