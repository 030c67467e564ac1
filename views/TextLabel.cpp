// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/TextLabel.h"

#include "views/TextDrawing.h"

#include <QPainter>

namespace zib {

TextLabel::TextLabel(const QString& accessibleName, QWidget* parent)
    : QLabel(parent)
{
    setAccessibleName(accessibleName);
    setTextFormat(Qt::PlainText);
}

void TextLabel::setShownText(const QString& text)
{
    if (text == text_)
        return;
    text_ = text;
    setText(text); // for the size hint
    updateTip();
    textChanged(*this, text);
}

QSize TextLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void TextLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    drawLine(painter, contentsRect(), alignment(), layoutDirection(), text_, elideMode_);
}

void TextLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    updateTip();
}

void TextLabel::updateTip()
{
    const bool fits = fontMetrics().horizontalAdvance(text_) <= contentsRect().width();
    setToolTip(fits ? QString() : text_);
}

} // namespace zib
