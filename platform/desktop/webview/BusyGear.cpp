// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/webview/BusyGear.h"

#include <QPainter>

namespace zib {
namespace {

constexpr int kSize = 32;
constexpr int kSpokes = 12;
constexpr int kStepMs = 80;

} // namespace

BusyGear::BusyGear(bool motionReduced, QWidget* parent)
    : QWidget(parent)
    , motionReduced_(motionReduced)
{
    setFixedSize(kSize, kSize);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName(tr("Busy"));
}

void BusyGear::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect().center() + QPointF(0.5, 0.5));
    QColor color = palette().color(QPalette::Highlight);
    for (int spoke = 0; spoke < kSpokes; ++spoke) {
        // The spoke before the front one is the brightest of the others, the one behind it the faintest.
        const int behind = (step_ - spoke + kSpokes) % kSpokes;
        color.setAlphaF(float(1.0 - 0.85 * behind / (kSpokes - 1)));
        painter.setPen(QPen(color, 2.5, Qt::SolidLine, Qt::RoundCap));
        painter.save();
        painter.rotate(360.0 * spoke / kSpokes);
        painter.drawLine(QPointF(0, -7.5), QPointF(0, -13.5));
        painter.restore();
    }
}

void BusyGear::timerEvent(QTimerEvent*)
{
    step_ = (step_ + 1) % kSpokes;
    update();
}

void BusyGear::showEvent(QShowEvent*)
{
    if (!motionReduced_)
        turn_.start(kStepMs, this);
}

void BusyGear::hideEvent(QHideEvent*)
{
    turn_.stop();
}

} // namespace zib
