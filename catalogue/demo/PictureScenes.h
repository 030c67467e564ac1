// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Canvas.h"
#include "catalogue/demo/PicturePainter.h"

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
