// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/BusyIndicator.h"

#include "views/Theme.h"

#include <QPainter>

namespace zib {

namespace {

constexpr int stepsPerTurn = 24;

} // namespace

BusyIndicator::BusyIndicator(QWidget* parent)
    : QWidget(parent)
{
    setFixedSize(20, 20);
    setAccessibleName(tr("Busy"));
    delay_.setSingleShot(true);
    delay_.setInterval(500);
    turn_.setInterval(40);
    connect(&delay_, &QTimer::timeout, this, [this] {
        shown_ = true;
        if (!motionReduced(*this))
            turn_.start();
        update();
    });
    connect(&turn_, &QTimer::timeout, this, [this] {
        step_ = (step_ + 1) % stepsPerTurn;
        update();
    });
}

void BusyIndicator::setBusy(bool busy)
{
    if (busy) {
        if (!shown_ && !delay_.isActive())
            delay_.start();
        return;
    }
    delay_.stop();
    turn_.stop();
    shown_ = false;
    update();
}

void BusyIndicator::paintEvent(QPaintEvent*)
{
    if (!shown_)
        return;
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), theme.window);
    const QRectF ring = QRectF(rect()).adjusted(3, 3, -3, -3);
    painter.setPen(QPen(theme.quiet, 2));
    painter.drawEllipse(ring);
    painter.setPen(QPen(theme.accent, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, -step_ * 16 * 360 / stepsPerTurn, 100 * 16);
}

} // namespace zib
