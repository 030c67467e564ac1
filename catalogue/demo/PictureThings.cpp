// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/PictureScenes.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zib::demo {

namespace {

/// A plant on the sill.
void paintPlant(QPainter& p, const QPointF& place, const QColor& colour)
{
    p.setBrush(colour);
    for (int leaf = -2; leaf <= 2; ++leaf) {
        p.save();
        p.translate(place - QPointF(0, 26));
        p.rotate(leaf * 24);
        p.drawEllipse(QPointF(0, -40), 10, 40);
        p.restore();
    }
    p.drawRoundedRect(QRectF(place.x() - 20, place.y() - 34, 40, 34), 5, 5);
}

} // namespace

void paintRecord(Scene& scene)
{
    Canvas& c = scene.canvas;
    QPainter& p = c.painter;
    const QRectF& f = scene.frame;
    fillAcross(scene, scene.tones.light, mixed(scene.tones.light, scene.tones.shade, 0.5));
    const QPointF middle(0.46 * f.width(), 0.53 * f.height());
    const double radius = 0.41 * f.width();
    const QColor vinyl = mixed(scene.tones.ink, Qt::black, 0.55);
    layDown(p, circle(middle, radius), vinyl, scene.tones.ink, 30);
    p.setBrush(Qt::NoBrush);
    for (int i = 0; i < 34; ++i) {
        p.setPen(QPen(faded(mixed(vinyl, scene.tones.light, i % 9 == 0 ? 0.05 : 0.32), 0.75),
                      i % 9 == 0 ? 7 : 1.6));
        p.drawEllipse(middle, radius * (0.42 + 0.0165 * i), radius * (0.42 + 0.0165 * i));
    }
    p.setPen(Qt::NoPen);
    QConicalGradient sheen(middle, c.between(15, 75));
    for (const double at : {0.0, 0.5, 1.0})
        sheen.setColorAt(at, faded(scene.tones.paper, 0.34));
    for (const double at : {0.09, 0.41, 0.59, 0.91})
        sheen.setColorAt(at, faded(scene.tones.paper, 0));
    c.disc(middle.x(), middle.y(), radius, sheen);
    c.disc(middle.x(), middle.y(), 0.36 * radius, scene.tones.accent);
    c.disc(middle.x(), middle.y(), 0.27 * radius, mixed(scene.tones.accent, scene.tones.paper, 0.55));
    p.setBrush(mixed(scene.tones.accent, scene.tones.ink, 0.25));
    for (int i = 0; i < 3; ++i)
        p.drawRoundedRect(QRectF(middle.x() - 58 + 8 * i, middle.y() + 40 + 20 * i, 116 - 16 * i, 8), 4, 4);
    c.disc(middle.x(), middle.y(), 11, scene.tones.ink);
    const QPointF pivot(0.89 * f.width(), 0.16 * f.height()); // of the arm
    const QPointF elbow(0.87 * f.width(), 0.62 * f.height());
    const QPointF needle(0.7 * f.width(), 0.76 * f.height());
    for (const bool shadow : {true, false}) {
        const QPointF away = shadow ? QPointF(16, 20) : QPointF();
        const QColor metal = shadow ? faded(scene.tones.ink, 0.3) : mixed(scene.tones.paper, Qt::white, 0.3);
        p.setPen(QPen(metal, 20, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(Qt::NoBrush);
        QPainterPath arm(pivot + away);
        arm.lineTo(elbow + away);
        arm.lineTo(needle + away);
        p.drawPath(arm);
        p.setPen(Qt::NoPen);
    }
    layDown(p, circle(pivot, 74), mixed(scene.tones.shade, scene.tones.ink, 0.5), scene.tones.ink, 14);
    c.disc(pivot.x(), pivot.y(), 40, mixed(scene.tones.paper, Qt::white, 0.3));
    p.save();
    p.translate(needle);
    p.rotate(-35);
    p.setBrush(scene.tones.ink);
    p.drawRoundedRect(QRectF(-62, -25, 92, 50), 10, 10);
    p.restore();
}

void paintCassette(Scene& scene)
{
    Canvas& c = scene.canvas;
    QPainter& p = c.painter;
    const QRectF& f = scene.frame;
    fillAcross(scene, scene.tones.paper, scene.tones.light);
    p.setBrush(faded(scene.tones.accent, 0.75));
    for (int i = 0; i < 3; ++i) // stripes on the wall
        p.drawRect(QRectF(0, 0.18 * f.height() + 0.22 * f.height() * i, f.width(), 0.09 * f.height()));
    p.save();
    p.translate(f.center());
    p.rotate(c.between(-14, 10));
    const QRectF shell(-410, -262, 820, 524);
    layDown(p, rounded(shell, 34), mixed(scene.tones.ink, Qt::black, 0.12), scene.tones.ink, 40);
    p.setBrush(mixed(scene.tones.paper, Qt::white, 0.4));
    p.drawRoundedRect(QRectF(-360, -215, 720, 340), 20, 20);
    p.setBrush(scene.tones.accent);
    p.drawRect(QRectF(-360, -40, 720, 60));
    p.setBrush(scene.tones.shade);
    p.drawRect(QRectF(-360, 20, 720, 44));
    p.setPen(QPen(faded(scene.tones.ink, 0.45), 4, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(-310, -125), QPointF(310, -125));
    p.drawLine(QPointF(-310, -75), QPointF(310, -75));
    QPainterPath scribble(QPointF(-290, -138)); // what somebody wrote on it
    double x = -290;
    while (x < 120) {
        const double step = c.between(16, 38);
        scribble.cubicTo(x + 0.3 * step, -138 - c.between(20, 62), x + 0.6 * step, -138 + c.between(0, 14),
                         x + step, -138);
        x += step;
    }
    p.setPen(QPen(scene.tones.ink, 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(scribble);
    p.setPen(Qt::NoPen);
    p.setBrush(mixed(scene.tones.ink, Qt::black, 0.3));
    p.drawRoundedRect(QRectF(-240, -48, 480, 150), 75, 75);
    for (const double side : {-165.0, 165.0}) {
        p.setBrush(mixed(scene.tones.paper, Qt::white, 0.5));
        p.drawEllipse(QPointF(side, 27), 54, 54);
        p.setBrush(scene.tones.ink);
        p.drawEllipse(QPointF(side, 27), 30, 30);
        p.setBrush(mixed(scene.tones.paper, Qt::white, 0.5));
        const double turn = c.between(0, 1);
        for (int tooth = 0; tooth < 6; ++tooth) {
            const double angle = turn + tooth * std::numbers::pi / 3;
            p.drawEllipse(QPointF(side + 27 * std::cos(angle), 27 + 27 * std::sin(angle)), 8, 8);
        }
    }
    p.setBrush(mixed(scene.tones.ink, scene.tones.shade, 0.5));
    p.drawRoundedRect(QRectF(-90, -18, 180, 90), 10, 10);
    QPainterPath foot(QPointF(-270, 262));
    foot.lineTo(-235, 155);
    foot.lineTo(235, 155);
    foot.lineTo(270, 262);
    p.setBrush(mixed(scene.tones.ink, scene.tones.light, 0.14));
    p.drawPath(foot);
    p.restore();
}

void paintWindows(Scene& scene)
{
    Canvas& c = scene.canvas;
    QPainter& p = c.painter;
    const QRectF& f = scene.frame;
    fillAcross(scene, mixed(scene.tones.shade, scene.tones.ink, 0.35), scene.tones.ink);
    c.disc(c.between(0.15, 0.85) * f.width(), 0.1 * f.height(), 62,
           mixed(scene.tones.paper, scene.tones.accent, 0.3));
    const QRectF house(0.09 * f.width(), 0.2 * f.height(), 0.82 * f.width(), f.height());
    p.setBrush(mixed(scene.tones.shade, scene.tones.ink, 0.78));
    p.drawRect(house);
    p.setBrush(mixed(scene.tones.ink, Qt::black, 0.35));
    p.drawRect(QRectF(house.left() - 26, house.top() - 26, house.width() + 52, 34));
    p.drawRect(QRectF(house.left() + 0.68 * house.width(), house.top() - 120, 76, 100));
    constexpr int columns = 3;
    constexpr int rows = 3;
    const int heard = c.random.below(columns * rows); // where somebody plays
    const double wide = house.width() / columns;
    const double high = 0.27 * f.height();
    for (int i = 0; i < columns * rows; ++i) {
        const QRectF pane(house.left() + (i % columns) * wide + 0.18 * wide,
                          house.top() + 56 + i / columns * high, 0.64 * wide, 0.7 * high);
        const bool lit = i == heard || c.random.chance(0.3F);
        QLinearGradient light(pane.topLeft(), pane.bottomLeft());
        light.setColorAt(0, lit ? mixed(scene.tones.accent, scene.tones.paper, 0.45)
                                : mixed(scene.tones.ink, scene.tones.shade, 0.3));
        light.setColorAt(1, lit ? scene.tones.accent : mixed(scene.tones.ink, scene.tones.shade, 0.5));
        if (lit) {
            QRadialGradient glow(pane.center(), 0.9 * wide);
            glow.setColorAt(0, faded(scene.tones.accent, 0.35));
            glow.setColorAt(1, faded(scene.tones.accent, 0));
            p.setBrush(glow);
            p.drawEllipse(pane.center(), 0.9 * wide, 0.9 * wide);
        }
        p.setBrush(light);
        p.drawRect(pane);
        const QColor dark = mixed(scene.tones.ink, Qt::black, 0.35);
        if (i == heard) {
            p.save();
            p.setClipRect(pane);
            p.setBrush(dark);
            const QPointF head(pane.center().x(), pane.top() + 0.42 * pane.height());
            p.drawEllipse(head, 30, 36);
            p.drawRoundedRect(QRectF(head.x() - 66, head.y() + 44, 132, 300), 46, 46);
            p.restore();
        } else if (lit && c.random.chance(0.6F)) {
            paintPlant(p, QPointF(pane.left() + 0.3 * pane.width(), pane.bottom()), dark);
        }
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(dark, 9));
        p.drawRect(pane);
        p.drawLine(QPointF(pane.center().x(), pane.top()),
                   QPointF(pane.center().x(), i == heard ? pane.top() + 20 : pane.bottom()));
        p.setPen(Qt::NoPen);
        p.setBrush(dark);
        p.drawRect(QRectF(pane.left() - 16, pane.bottom(), pane.width() + 32, 14));
    }
}

void paintTable(Scene& scene)
{
    Canvas& c = scene.canvas;
    QPainter& p = c.painter;
    const QRectF& f = scene.frame;
    const QColor wood = mixed(scene.tones.shade, scene.tones.light, 0.4);
    fillAcross(scene, mixed(wood, scene.tones.paper, 0.2), wood);
    for (int i = 1; i < 5; ++i) { // boards
        p.setBrush(faded(scene.tones.ink, 0.22));
        p.drawRect(QRectF(0, i * f.height() / 5, f.width(), 5));
    }
    for (int sheet = 0; sheet < 3; ++sheet) {
        p.save();
        p.translate((0.24 + 0.2 * sheet) * f.width(), (0.52 + 0.05 * (sheet % 2)) * f.height());
        p.rotate(-16 + 13 * sheet + c.between(-4, 4));
        const QRectF page(-180, -250, 360, 500);
        layDown(p, rounded(page, 4), mixed(scene.tones.paper, Qt::white, 0.6), scene.tones.ink, 16);
        for (int stave = 0; stave < 5; ++stave) {
            const double y = -205 + 88 * stave;
            p.setPen(QPen(faded(scene.tones.ink, 0.55), 2.4));
            for (int line = 0; line < 5; ++line)
                p.drawLine(QPointF(-150, y + 10 * line), QPointF(150, y + 10 * line));
            p.setPen(QPen(scene.tones.ink, 4));
            p.setBrush(scene.tones.ink);
            for (double x = -130; x < 140; x += c.between(26, 56)) {
                const QPointF note(x, y + 5 * c.random.below(9));
                p.drawEllipse(note, 6.5, 5);
                p.drawLine(note + QPointF(6, 0), note + QPointF(6, -32));
            }
        }
        p.setPen(Qt::NoPen);
        p.restore();
    }
    const QPointF cup(0.84 * f.width(), 0.32 * f.height());
    layDown(p, circle(cup, 150), mixed(scene.tones.paper, Qt::white, 0.35), scene.tones.ink, 22);
    p.setBrush(mixed(scene.tones.accent, scene.tones.paper, 0.15));
    p.drawRoundedRect(QRectF(cup.x() + 60, cup.y() + 20, 110, 34), 17, 17);
    layDown(p, circle(cup, 100), mixed(scene.tones.accent, scene.tones.paper, 0.15), scene.tones.ink, 12);
    c.disc(cup.x(), cup.y(), 82, QColor(0x3b, 0x24, 0x18));
    c.disc(cup.x() - 14, cup.y() - 14, 52, faded(QColor(0x8a, 0x5a, 0x38), 0.55));
    p.save();
    p.translate(0.8 * f.width(), 0.78 * f.height());
    p.rotate(c.between(-40, -20));
    layDown(p, rounded(QRectF(-170, -13, 300, 26), 4), scene.tones.accent, scene.tones.ink, 10); // a pencil
    p.setBrush(scene.tones.ink);
    p.drawRect(QRectF(-170, -13, 40, 26));
    QPainterPath point(QPointF(130, -13));
    point.lineTo(182, 0);
    point.lineTo(130, 13);
    p.setBrush(QColor(0xe6, 0xc7, 0x9c));
    p.drawPath(point);
    p.setBrush(scene.tones.ink);
    p.drawEllipse(QPointF(176, 0), 5, 3);
    p.restore();
}

} // namespace zib::demo
