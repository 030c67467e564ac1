// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/ValueSlider.h"

#include "views/Theme.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QToolTip>
#include <QWheelEvent>

namespace zib {

namespace {

constexpr int knob = 12;  // diameter
constexpr int groove = 4; // thickness

} // namespace

ValueSlider::ValueSlider(QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
{
    setRange(0, 100);
    setSingleStep(2);
    setPageStep(10);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    connect(this, &QSlider::valueChanged, this, [this](int value) {
        if (!quiet_)
            Q_EMIT chosen(value);
    });
}

void ValueSlider::showValue(int value)
{
    if (isSliderDown())
        return;
    const QScopedValueRollback quiet(quiet_, true);
    setValue(value);
}

QSize ValueSlider::sizeHint() const
{
    return {120, 20};
}

QSize ValueSlider::minimumSizeHint() const
{
    return {60, 20};
}

void ValueSlider::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (isRightToLeft()) {
        painter.translate(width(), 0);
        painter.scale(-1, 1);
    }

    const QRectF track(knob / 2.0, (height() - groove) / 2.0, width() - knob, groove);
    const double filled = track.width() * value() / 100.0;
    if (!isEnabled() && value() == 0) // nothing to show the progress of
        return;
    painter.setBrush(isEnabled() ? theme.outline : theme.quiet);
    painter.drawRoundedRect(track, groove / 2.0, groove / 2.0);
    if (!isEnabled())
        return;
    painter.setBrush(theme.accent);
    painter.drawRoundedRect(QRectF(track.left(), track.top(), filled, groove), groove / 2.0, groove / 2.0);

    const QPointF centre(track.left() + filled, height() / 2.0);
    if (hasFocus()) {
        painter.setPen(QPen(theme.accent, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(centre, knob / 2.0 + 2.5, knob / 2.0 + 2.5);
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.accent);
    }
    const double radius = underMouse() || isSliderDown() || hasFocus() ? knob / 2.0 : knob / 2.0 - 1;
    painter.drawEllipse(centre, radius, radius);
}

void ValueSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    setSliderDown(true);
    moveTo(percentAt(event->position().x()), reportsWhileDragging_);
}

void ValueSlider::mouseMoveEvent(QMouseEvent* event)
{
    const double percent = percentAt(event->position().x());
    if (isSliderDown())
        moveTo(percent, reportsWhileDragging_);
    showTip(event->globalPosition().toPoint(), percent);
}

void ValueSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isSliderDown())
        return;
    setSliderDown(false);
    moveTo(percentAt(event->position().x()), !reportsWhileDragging_);
}

void ValueSlider::wheelEvent(QWheelEvent* event)
{
    event->accept();
    wheel_ += event->angleDelta().y();
    const int notches = wheel_ / 120;
    if (notches == 0)
        return;
    wheel_ %= 120;
    setValue(value() + notches * singleStep());
}

void ValueSlider::enterEvent(QEnterEvent* event)
{
    QSlider::enterEvent(event);
    update();
}

void ValueSlider::leaveEvent(QEvent* event)
{
    QSlider::leaveEvent(event);
    update();
}

double ValueSlider::percentAt(double x) const
{
    const double length = qMax(1, width() - knob);
    const double fromBegin = isRightToLeft() ? width() - x : x;
    return qBound(0.0, (fromBegin - knob / 2.0) / length * 100, 100.0);
}

void ValueSlider::moveTo(double percent, bool report)
{
    {
        const QScopedValueRollback quiet(quiet_, true);
        setValue(qRound(percent));
    }
    if (report)
        Q_EMIT chosen(percent);
}

void ValueSlider::showTip(const QPoint& globalPosition, double percent)
{
    if (tip_ && isEnabled())
        QToolTip::showText(globalPosition, tip_(percent), this);
}

ProgressSlider::ProgressSlider(QWidget* parent)
    : ValueSlider(parent)
{
    // Every jump fetches the stream anew, so only the place where a drag ends is worth one.
    reportsWhileDragging_ = false;
    setAccessibleName(tr("Song progress"));
    setEnabled(false);
}

VolumeSlider::VolumeSlider(QWidget* parent)
    : ValueSlider(parent)
{
    setSingleStep(5);
    setAccessibleName(tr("Volume"));
    setTip([](double percent) { return tr("Volume %1%").arg(qRound(percent)); });
}

} // namespace zib
