// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Canvas.h"
#include "catalogue/demo/PicturePainter.h"

#include <QPainterPath>
#include <QRectF>

#include <vector>

namespace zib::demo {

/// The palette by lightness, so that a scene's light is the same in dark palettes and in bright ones.
struct Tones {
    explicit Tones(const Palette& palette);

    QColor paper; ///< the lightest
    QColor light;
    QColor shade;
    QColor ink; ///< the darkest
    QColor accent;
};

/// One colour with some of the other in it.
QColor mixed(const QColor& one, const QColor& other, double share);
QColor faded(QColor colour, double opacity);

struct Person {
    QColor skin;
    QColor hair;
    QColor coat;
    QColor shirt;
    int hairStyle = 0;
    bool glasses = false;
    bool beard = false;
    double height = 1;
};

/// What a scene is painted with.
struct Scene {
    Canvas& canvas;
    const Tones& tones;
    const Sitters& sitters;
    QRectF frame;
    std::vector<Person> people;
};

/// Fills the frame from one corner to the other.
void fillAcross(Scene& scene, const QColor& top, const QColor& bottom);
/// The shadow that a thing throws on what it lies on, then the thing.
void layDown(QPainter& painter, const QPainterPath& thing, const QBrush& brush, const QColor& shadow,
             double depth);
QPainterPath rounded(const QRectF& rect, double radius);
QPainterPath circle(const QPointF& middle, double radius);

/// Scenes with people in them.
void paintPortrait(Scene& scene);
void paintCloseUp(Scene& scene);
void paintStage(Scene& scene);
void paintWalk(Scene& scene);

/// Scenes with things in them.
void paintGuitar(Scene& scene);
void paintKeys(Scene& scene);
void paintMachine(Scene& scene);
void paintRecord(Scene& scene);
void paintCassette(Scene& scene);
void paintMicrophone(Scene& scene);
void paintWindows(Scene& scene);
void paintTable(Scene& scene);

} // namespace zib::demo
