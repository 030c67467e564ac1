// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/Ticker.h"

#include "views/TextDrawing.h"
#include "views/Theme.h"

#include <QEvent>
#include <QPainter>

namespace zib {

namespace {

constexpr int pixelsPerSecond = 30;
constexpr int pauseMilliseconds = 2000;
constexpr int gap = 48; // between the end of the text and its next beginning

} // namespace

Ticker::Ticker(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    timer_.setInterval(1000 / pixelsPerSecond);
    connect(&timer_, &QTimer::timeout, this, [this] { update(); });
}

void Ticker::setText(const QString& text)
{
    if (text == text_)
        return;
    text_ = text;
    restart();
    textChanged(*this, text);
}

QSize Ticker::sizeHint() const
{
    return {textWidth(), fontMetrics().height()};
}

QSize Ticker::minimumSizeHint() const
{
    return {0, fontMetrics().height()};
}

void Ticker::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    if (!isScrolling()) {
        drawLine(painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, layoutDirection(), text_);
        return;
    }
    const int round = textWidth() + gap;
    const bool fromRight = text_.isRightToLeft();
    for (int begin = -offset(); begin < width(); begin += round) {
        const int left = fromRight ? width() - begin - textWidth() : begin;
        drawLine(painter, QRect(left, 0, textWidth(), height()), Qt::AlignLeft | Qt::AlignVCenter,
                 layoutDirection(), text_, Qt::ElideNone);
    }
}

void Ticker::resizeEvent(QResizeEvent*)
{
    restart();
}

void Ticker::showEvent(QShowEvent*)
{
    restart();
}

void Ticker::hideEvent(QHideEvent*)
{
    timer_.stop();
}

void Ticker::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        restart();
    QWidget::changeEvent(event);
}

void Ticker::restart()
{
    const bool fits = textWidth() <= width();
    setToolTip(fits ? QString() : text_);
    if (isVisible() && !fits && !motionReduced(*this)) {
        sinceStart_.start();
        timer_.start();
    } else {
        timer_.stop();
    }
    update();
}

int Ticker::offset() const
{
    const qint64 moving = qMax<qint64>(0, sinceStart_.elapsed() - pauseMilliseconds);
    const int round = textWidth() + gap;
    return int(moving * pixelsPerSecond / 1000 % round);
}

int Ticker::textWidth() const
{
    return fontMetrics().horizontalAdvance(text_);
}

} // namespace zib
