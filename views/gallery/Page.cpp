// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/gallery/Page.h"

#include "views/Theme.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>

namespace zib {

namespace {

constexpr int captionWidth = 132;

/// The pixels of that part of a picture, whole ones.
QRect pixelsOf(const QRect& part, qreal ratio)
{
    return QRectF(part.x() * ratio, part.y() * ratio, part.width() * ratio, part.height() * ratio)
        .toAlignedRect();
}

} // namespace

Page::Page(QWidget* parent)
    : QWidget(parent)
    , grid_(new QGridLayout)
{
    setAutoFillBackground(true);
    grid_->setContentsMargins(3 * Theme::between, 3 * Theme::between, 3 * Theme::between, 3 * Theme::between);
    grid_->setHorizontalSpacing(Theme::groups);
    grid_->setVerticalSpacing(Theme::groups);
    grid_->setColumnMinimumWidth(0, captionWidth);
    grid_->setColumnStretch(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(grid_);
    layout->addStretch();
}

void Page::add(const QString& caption, QWidget* shown, State state, QWidget* control)
{
    if (!control)
        control = shown;
    auto* label = new QLabel(caption, this);
    label->setProperty("role", QStringLiteral("time")); // the secondary text of the look
    const int row = int(samples_.size());
    grid_->addWidget(label, row, 0, Qt::AlignVCenter);
    const bool fills = shown->sizePolicy().expandingDirections().testFlag(Qt::Horizontal) &&
                       shown->maximumWidth() == QWIDGETSIZE_MAX;
    grid_->addWidget(shown, row, 1, fills ? Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    if (state == State::Disabled)
        control->setEnabled(false);
    if (auto* button = qobject_cast<QAbstractButton*>(control); button && state == State::Pressed)
        button->setDown(true);
    samples_.append({caption, shown, control, state});
}

/// What is hovered is so until a real mouse comes and goes.
void Page::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    for (const Sample& sample : qAsConst(samples_)) {
        if (sample.state != State::Hovered)
            continue;
        sample.control->setAttribute(Qt::WA_UnderMouse);
        if (qobject_cast<QPushButton*>(sample.control)) { // which looks where in it the mouse is
            const QPointF inside(4, sample.control->height() / 2.0);
            QMouseEvent move(QEvent::MouseMove, inside, sample.control->mapToGlobal(inside), Qt::NoButton,
                             Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(sample.control, &move);
        }
    }
}

void Page::focusSample()
{
    for (const Sample& sample : samples_)
        if (sample.state == State::Focused) {
            sample.control->setFocus(Qt::TabFocusReason);
            return;
        }
}

QPixmap Page::picture()
{
    if (QWidget* focused = focusWidget())
        focused->clearFocus();
    QPixmap whole = grab();
    const qreal ratio = whole.devicePixelRatio();
    whole.setDevicePixelRatio(1);
    QPainter painter(&whole);
    for (const Sample& sample : samples_) {
        if (sample.state != State::Focused)
            continue;
        sample.control->setFocus(Qt::TabFocusReason);
        // Of the whole page again: the part alone would lie otherwise on the pixels.
        QPixmap withFocus = grab();
        withFocus.setDevicePixelRatio(1);
        const QRect pixels = pixelsOf(sample.shown->geometry(), ratio);
        painter.drawPixmap(pixels, withFocus, pixels);
        sample.control->clearFocus();
    }
    painter.end();
    whole.setDevicePixelRatio(ratio);
    return whole;
}

} // namespace zib
