// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/PictureScenes.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zib::demo {
namespace {

enum HairStyle { Crop, Bob, Long, Bun, Curls, Hat, Sweep };

QPainterPath ellipse(double x, double y, double rx, double ry)
{
    QPainterPath path;
    path.addEllipse(QPointF(x, y), rx, ry);
    return path;
}

/// What both paths have, or only the first. They are so small here that the outline would get corners, hence
/// the detour over larger ones.
enum class Cut { Both, FirstOnly };

QPainterPath cut(const QPainterPath& first, const QPainterPath& second, Cut how)
{
    constexpr double larger = 2000;
    const QTransform up = QTransform::fromScale(larger, larger);
    const QPainterPath result = how == Cut::Both ? up.map(first).intersected(up.map(second))
                                                 : up.map(first).subtracted(up.map(second));
    return QTransform::fromScale(1 / larger, 1 / larger).map(result);
}

/// The head, of which everything else is measured: the face is 0.8 wide and 1.06 high.
QPainterPath headPath()
{
    QPainterPath head(QPointF(-0.4, -0.1));
    head.cubicTo(-0.4, -0.72, 0.4, -0.72, 0.4, -0.1);
    head.cubicTo(0.4, 0.22, 0.2, 0.53, 0, 0.53);
    head.cubicTo(-0.2, 0.53, -0.4, 0.22, -0.4, -0.1);
    return head;
}

QPainterPath shouldersPath()
{
    QPainterPath body(QPointF(-0.19, 0.62));
    body.cubicTo(-0.28, 0.86, -0.98, 0.78, -1.1, 1.36);
    body.lineTo(-1.22, 4);
    body.lineTo(1.22, 4);
    body.lineTo(1.1, 1.36);
    body.cubicTo(0.98, 0.78, 0.28, 0.86, 0.19, 0.62);
    body.closeSubpath();
    return body;
}

void paintHairBehind(QPainter& painter, const Person& person)
{
    painter.setBrush(person.hair);
    switch (person.hairStyle) {
    case Bob:
        painter.drawRoundedRect(QRectF(-0.53, -0.66, 1.06, 1.14), 0.5, 0.46);
        break;
    case Long: {
        QPainterPath hair(QPointF(-0.46, -0.1));
        hair.cubicTo(-0.5, -0.86, 0.5, -0.86, 0.46, -0.1);
        hair.cubicTo(0.5, 0.5, 0.66, 0.7, 0.6, 1.3);
        hair.lineTo(-0.6, 1.3);
        hair.cubicTo(-0.66, 0.7, -0.5, 0.5, -0.46, -0.1);
        painter.drawPath(hair);
        break;
    }
    case Bun:
        painter.drawEllipse(QPointF(0.12, -0.78), 0.22, 0.2);
        break;
    case Curls:
        for (int i = 0; i < 13; ++i) {
            const double angle = (1.5 + 0.085 * (i - 6)) * std::numbers::pi;
            painter.drawEllipse(QPointF(0.43 * std::cos(angle), -0.12 + 0.5 * std::sin(angle)), 0.19, 0.19);
        }
        break;
    default:
        break;
    }
}

void paintHairBefore(QPainter& painter, const Person& person)
{
    painter.setBrush(person.hair);
    // The hair line: what of the head lies above a slanted curve.
    QPainterPath above(QPointF(-0.6, -0.9));
    above.lineTo(0.6, -0.9);
    above.lineTo(0.6, person.hairStyle == Bob || person.hairStyle == Long ? 0.06 : -0.02);
    if (person.hairStyle == Sweep || person.hairStyle == Long) {
        above.cubicTo(0.4, -0.12, 0.3, -0.36, 0.16, -0.44);
        above.cubicTo(-0.05, -0.3, -0.3, -0.22, -0.6, 0.06);
    } else if (person.hairStyle == Bob) {
        above.cubicTo(0.34, -0.16, 0.36, -0.2, 0.3, -0.22);
        above.cubicTo(0.1, -0.16, -0.1, -0.16, -0.3, -0.22);
        above.cubicTo(-0.36, -0.2, -0.34, -0.16, -0.6, 0.06);
    } else {
        above.cubicTo(0.36, -0.16, 0.36, -0.3, 0.26, -0.36);
        above.cubicTo(0.1, -0.42, -0.1, -0.42, -0.26, -0.36);
        above.cubicTo(-0.36, -0.3, -0.36, -0.16, -0.6, -0.02);
    }
    above.closeSubpath();
    const bool full = person.hairStyle == Bob || person.hairStyle == Long;
    const QPainterPath cap = ellipse(0, -0.1, full ? 0.5 : 0.425, full ? 0.56 : 0.52);
    if (person.hairStyle == Sweep)
        painter.drawEllipse(QPointF(-0.08, -0.5), 0.33, 0.2);
    painter.drawPath(cut(cap, above, Cut::Both));
    if (person.hairStyle == Hat) {
        painter.setBrush(person.coat.darker(125));
        QPainterPath crown(QPointF(-0.38, -0.36));
        crown.cubicTo(-0.36, -0.95, -0.12, -0.84, 0, -0.8);
        crown.cubicTo(0.12, -0.84, 0.36, -0.95, 0.38, -0.36);
        painter.drawPath(crown);
        painter.drawEllipse(QPointF(0, -0.36), 0.68, 0.1);
        painter.setBrush(person.shirt);
        painter.drawRect(QRectF(-0.375, -0.5, 0.75, 0.09));
    }
}

void paintFace(QPainter& painter, const Person& person, const QColor& shadow)
{
    const QPainterPath head = headPath();
    painter.setBrush(person.skin);
    painter.drawPath(head);
    // The light comes from the left.
    painter.setBrush(faded(shadow, 0.22));
    painter.drawPath(cut(head, ellipse(-0.3, -0.2, 0.5, 1.1), Cut::FirstOnly));
    if (person.beard) {
        painter.setBrush(person.hair);
        QPainterPath beard(QPointF(-0.42, 0.02));
        beard.cubicTo(-0.3, 0.2, -0.2, 0.2, 0, 0.2);
        beard.cubicTo(0.2, 0.2, 0.3, 0.2, 0.42, 0.02);
        beard.cubicTo(0.44, 0.4, 0.24, 0.68, 0, 0.68);
        beard.cubicTo(-0.24, 0.68, -0.44, 0.4, -0.42, 0.02);
        painter.drawPath(beard);
    }
    const QColor line = mixed(person.skin, shadow, 0.62);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(line, 0.026, Qt::SolidLine, Qt::RoundCap));
    QPainterPath lids; // closed eyes: they listen
    lids.moveTo(-0.25, -0.02);
    lids.quadTo(-0.165, 0.045, -0.08, -0.02);
    lids.moveTo(0.08, -0.02);
    lids.quadTo(0.165, 0.045, 0.25, -0.02);
    painter.drawPath(lids);
    QPainterPath nose(QPointF(0.0, -0.02));
    nose.quadTo(0.06, 0.12, 0.045, 0.17);
    nose.quadTo(0.02, 0.19, -0.03, 0.18);
    painter.drawPath(nose);
    painter.setPen(QPen(mixed(line, QColor(0xb0, 0x48, 0x40), 0.4), 0.03, Qt::SolidLine, Qt::RoundCap));
    QPainterPath mouth(QPointF(-0.085, 0.31));
    mouth.quadTo(0, 0.345, 0.085, 0.305);
    painter.drawPath(mouth);
    if (person.glasses) {
        painter.setPen(QPen(shadow, 0.022));
        painter.drawEllipse(QPointF(-0.165, 0.0), 0.135, 0.12);
        painter.drawEllipse(QPointF(0.165, 0.0), 0.135, 0.12);
        painter.drawLine(QPointF(-0.03, -0.01), QPointF(0.03, -0.01));
    }
    painter.setPen(Qt::NoPen);
}

/// @param x, y where the middle of the head is
/// @param size of a head's height, about
void paintPerson(Scene& scene, const Person& person, double x, double y, double size, bool headphones = false)
{
    QPainter& painter = scene.canvas.painter;
    const QColor shadow = scene.tones.ink;
    painter.save();
    painter.translate(x, y);
    painter.scale(size, size);
    paintHairBehind(painter, person);
    painter.setBrush(mixed(person.skin, shadow, 0.24));
    painter.drawRoundedRect(QRectF(-0.17, 0.2, 0.34, 0.66), 0.1, 0.1);
    const QPainterPath body = shouldersPath();
    painter.setBrush(person.coat);
    painter.drawPath(body);
    painter.setBrush(faded(shadow, 0.16));
    QPainterPath right;
    right.addRect(QRectF(0.1, 0.5, 2, 4));
    painter.drawPath(cut(body, right, Cut::Both));
    QPainterPath collar(QPointF(-0.24, 0.66));
    collar.lineTo(0, 1.14);
    collar.lineTo(0.24, 0.66);
    collar.quadTo(0.1, 0.82, 0, 0.84);
    collar.quadTo(-0.1, 0.82, -0.24, 0.66);
    painter.setBrush(person.shirt);
    painter.drawPath(collar);
    paintFace(painter, person, shadow);
    paintHairBefore(painter, person);
    if (headphones) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(scene.tones.ink, 0.075, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(QRectF(-0.5, -0.74, 1.0, 1.3), 8 * 16, 164 * 16);
        painter.setPen(Qt::NoPen);
        painter.setBrush(scene.tones.accent);
        painter.drawRoundedRect(QRectF(-0.58, -0.16, 0.2, 0.4), 0.09, 0.09);
        painter.drawRoundedRect(QRectF(0.38, -0.16, 0.2, 0.4), 0.09, 0.09);
    }
    painter.restore();
}

/// Somebody from afar, standing with the feet at that place.
void paintFigure(QPainter& painter, const QPointF& feet, double height, const QBrush& brush)
{
    painter.save();
    painter.translate(feet);
    painter.scale(height, height);
    painter.setBrush(brush);
    painter.drawEllipse(QPointF(0, -0.92), 0.062, 0.075);
    QPainterPath body(QPointF(-0.045, -0.85));
    body.cubicTo(-0.17, -0.82, -0.16, -0.66, -0.17, -0.44);
    body.lineTo(-0.115, -0.44);
    body.lineTo(-0.1, 0);
    body.lineTo(-0.025, 0);
    body.lineTo(0, -0.36);
    body.lineTo(0.035, 0);
    body.lineTo(0.11, 0);
    body.lineTo(0.115, -0.44);
    body.lineTo(0.17, -0.44);
    body.cubicTo(0.16, -0.66, 0.17, -0.82, 0.045, -0.85);
    body.closeSubpath();
    painter.drawPath(body);
    painter.restore();
}

void fillSky(Scene& scene, const QColor& top, const QColor& bottom)
{
    QLinearGradient sky(scene.frame.topLeft(), scene.frame.bottomLeft());
    sky.setColorAt(0, top);
    sky.setColorAt(1, bottom);
    scene.canvas.painter.fillRect(scene.frame, sky);
}

} // namespace

void paintPortrait(Scene& scene)
{
    Canvas& c = scene.canvas;
    const QRectF& f = scene.frame;
    fillSky(scene, scene.tones.paper, mixed(scene.tones.light, scene.tones.paper, 0.35));
    const double x = f.center().x();
    c.disc(x, 0.44 * f.height(), 0.36 * f.width(), mixed(scene.tones.accent, scene.tones.paper, 0.12));
    c.disc(x, 0.44 * f.height(), 0.27 * f.width(), faded(scene.tones.paper, 0.25));
    const auto count = std::min<std::size_t>(scene.people.size(), 5);
    if (count == 1) {
        paintPerson(scene, scene.people.front(), x, 0.42 * f.height(), 0.36 * f.height());
        return;
    }
    // Those behind first; the middle stands in front.
    const double step = f.width() / (static_cast<double>(count) + 0.35);
    const double size = std::min(0.3 * f.height(), 1.08 * step);
    std::vector<std::size_t> order(count);
    for (std::size_t i = 0; i < count; ++i)
        order[i] = i;
    std::ranges::sort(order,
                      [](std::size_t a, std::size_t b) { return a % 2 != b % 2 ? a % 2 > b % 2 : a < b; });
    for (const std::size_t i : order) {
        const bool behind = i % 2 == 1;
        const double place = x + (static_cast<double>(i) - (static_cast<double>(count) - 1) / 2) * step;
        const Person& person = scene.people[i];
        const double y = (behind ? 0.4 : 0.52) * f.height() - (person.height - 1) * 0.5 * f.height();
        paintPerson(scene, person, place, y, size * (behind ? 0.94 : 1));
    }
}

void paintCloseUp(Scene& scene)
{
    Canvas& c = scene.canvas;
    const QRectF& f = scene.frame;
    fillSky(scene, scene.tones.shade, scene.tones.ink);
    const QPointF sun(0.7 * f.width(), 0.3 * f.height());
    for (int i = 6; i > 0; --i)
        c.disc(sun.x(), sun.y(), 0.13 * i * f.width(), faded(scene.tones.light, 0.14));
    const auto who = static_cast<std::size_t>(c.random.below(static_cast<int>(scene.people.size())));
    paintPerson(scene, scene.people[who], 0.46 * f.width(), 0.5 * f.height(), 0.44 * f.height(), true);
}

void paintStage(Scene& scene)
{
    Canvas& c = scene.canvas;
    const QRectF& f = scene.frame;
    fillSky(scene, mixed(scene.tones.ink, Qt::black, 0.35), scene.tones.ink);
    const double floor = 0.72 * f.height();
    const int beams = 4 + c.random.below(3);
    for (int i = 0; i < beams; ++i) {
        const double top = (i + 0.5) / beams * f.width();
        const double bottom = 0.5 * f.width() + (top - 0.5 * f.width()) * c.between(-0.5, 0.6);
        QPainterPath beam(QPointF(top - 8, 0));
        beam.lineTo(top + 8, 0);
        beam.lineTo(bottom + 0.13 * f.width(), floor);
        beam.lineTo(bottom - 0.13 * f.width(), floor);
        QLinearGradient light(0, 0, 0, floor);
        const QColor colour = i % 2 == 0 ? scene.tones.accent : scene.tones.light;
        light.setColorAt(0, faded(colour, 0.75));
        light.setColorAt(1, faded(colour, 0.06));
        c.painter.setBrush(light);
        c.painter.drawPath(beam);
        c.disc(top, 4, 13, mixed(colour, Qt::white, 0.5));
    }
    c.painter.fillRect(QRectF(0, floor, f.width(), f.height() - floor),
                       mixed(scene.tones.shade, scene.tones.ink, 0.6));
    QRadialGradient pool(QPointF(f.center().x(), floor), 0.5 * f.width());
    pool.setColorAt(0, faded(scene.tones.accent, 0.5));
    pool.setColorAt(1, faded(scene.tones.accent, 0));
    c.painter.setBrush(pool);
    c.painter.drawEllipse(QPointF(f.center().x(), floor + 20), 0.46 * f.width(), 0.07 * f.height());
    const auto count = scene.people.size();
    const QColor dark = mixed(scene.tones.ink, Qt::black, 0.55);
    for (std::size_t i = 0; i < count; ++i) {
        const double place =
            f.center().x() + (static_cast<double>(i) - (static_cast<double>(count) - 1) / 2) *
                                 std::min(0.17 * f.width(), 0.7 * f.width() / static_cast<double>(count));
        const QPointF feet(place, floor + 0.03 * f.height());
        const double height = 0.4 * f.height() * scene.people[i].height;
        paintFigure(c.painter, feet, height, dark);
        c.painter.setPen(QPen(dark, 5, Qt::SolidLine, Qt::RoundCap)); // a microphone
        c.painter.drawLine(feet + QPointF(0.16 * height, 0), feet + QPointF(0.16 * height, -0.84 * height));
        c.painter.drawLine(feet + QPointF(0.16 * height, -0.84 * height),
                           feet + QPointF(0.07 * height, -0.9 * height));
        c.painter.setPen(Qt::NoPen);
    }
    c.painter.setBrush(mixed(scene.tones.ink, Qt::black, 0.75));
    for (int i = 0; i < 22; ++i) {
        const double x = (i + c.between(-0.3, 0.3)) / 21 * f.width();
        const double y = c.between(0.86, 0.97) * f.height();
        const double radius = c.between(0.034, 0.045) * f.height();
        c.painter.drawEllipse(QPointF(x, y), radius, 1.2 * radius);
        c.painter.drawRoundedRect(QRectF(x - 2.1 * radius, y + 1.15 * radius, 4.2 * radius, 9 * radius),
                                  1.6 * radius, 1.6 * radius);
    }
}

void paintWalk(Scene& scene)
{
    Canvas& c = scene.canvas;
    const QRectF& f = scene.frame;
    fillSky(scene, mixed(scene.tones.light, scene.tones.paper, 0.3), scene.tones.paper);
    const double ground = 0.74 * f.height();
    const QPointF sun(c.between(0.35, 0.65) * f.width(), ground - 0.16 * f.height());
    c.disc(sun.x(), sun.y(), 0.26 * f.height(), scene.tones.accent);
    QPainterPath far(QPointF(0, f.height()));
    for (int x = 0; x <= static_cast<int>(f.width()); x += 12)
        far.lineTo(x, ground - 0.07 * f.height() + 0.05 * f.height() * std::sin(x / f.width() * 5 + sun.x()));
    far.lineTo(f.width(), f.height());
    c.painter.setBrush(mixed(scene.tones.light, scene.tones.shade, 0.6));
    c.painter.drawPath(far);
    QLinearGradient sand(0, ground, 0, f.height());
    sand.setColorAt(0, scene.tones.shade);
    sand.setColorAt(1, scene.tones.ink);
    c.painter.fillRect(QRectF(0, ground, f.width(), f.height() - ground), sand);
    const auto count = static_cast<double>(scene.people.size());
    for (std::size_t i = 0; i < scene.people.size(); ++i) {
        const double height = 0.3 * f.height() * scene.people[i].height;
        const double x = f.center().x() + (static_cast<double>(i) - (count - 1) / 2) *
                                              std::min(0.13 * f.width(), 0.6 * f.width() / count);
        const QPointF feet(x, ground + 0.035 * f.height() + c.between(0, 0.02) * f.height());
        QPainterPath shadow(feet + QPointF(-0.1 * height, 0));
        const double lean = (x - sun.x()) * 0.9;
        shadow.lineTo(feet + QPointF(0.1 * height, 0));
        shadow.lineTo(feet + QPointF(lean + 0.14 * height, 0.75 * height));
        shadow.lineTo(feet + QPointF(lean - 0.14 * height, 0.75 * height));
        c.painter.setBrush(faded(mixed(scene.tones.ink, Qt::black, 0.4), 0.45));
        c.painter.drawPath(shadow);
        paintFigure(c.painter, feet, height, mixed(scene.tones.ink, Qt::black, 0.25));
    }
}

} // namespace zib::demo
