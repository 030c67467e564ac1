// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/Icons.h"

#include "views/Theme.h"

#include <QAction>
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QLineEdit>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace zib {

namespace {

QColor colourOf(Tint tint)
{
    const Theme& theme = Theme::current();
    switch (tint) {
    case Tint::Text:
        return theme.text;
    case Tint::Secondary:
        return theme.secondary;
    case Tint::Accent:
        return theme.accent;
    case Tint::Loved:
        return theme.loved;
    case Tint::Error:
        return theme.error;
    case Tint::OnAccent:
        return theme.onAccent;
    }
    return theme.text;
}

/// Whether the drawing points along the reading, or along a time that goes the way of the reading.
bool isDirected(const QString& name)
{
    static const QStringList directed{
        QStringLiteral("back"),       QStringLiteral("next"),        QStringLiteral("play"),
        QStringLiteral("speaker"),    QStringLiteral("volume-high"), QStringLiteral("volume-low"),
        QStringLiteral("volume-off"), QStringLiteral("now-playing"), QStringLiteral("now-playing-active")};
    return directed.contains(name);
}

class TintedIcon : public QIconEngine {
  public:
    TintedIcon(QString name, Tint tint)
        : name_(std::move(name))
        , tint_(tint)
    {
    }

    QIconEngine* clone() const override { return new TintedIcon(name_, tint_); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1);
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const QColor colour = mode == QIcon::Disabled   ? Theme::current().disabled
                              : mode == QIcon::Selected ? Theme::current().onAccent
                                                        : colourOf(tint_);
        const qreal ratio = painter->device()->devicePixelRatio();
        const bool mirrored = QGuiApplication::isRightToLeft() && isDirected(name_);
        const QString key = QStringLiteral("zib-%1-%2-%3-%4-%5")
                                .arg(name_, colour.name())
                                .arg(rect.width() * ratio)
                                .arg(rect.height() * ratio)
                                .arg(mirrored);
        QPixmap pixmap;
        if (!QPixmapCache::find(key, &pixmap)) {
            pixmap = draw(colour, rect.size() * ratio);
            if (mirrored)
                pixmap = pixmap.transformed(QTransform::fromScale(-1, 1));
            QPixmapCache::insert(key, pixmap);
        }
        pixmap.setDevicePixelRatio(ratio);
        // At 1.5 pixels a pixel every other place lies between two, where the drawing would be blurred.
        const QTransform toDevice = painter->deviceTransform();
        const QPointF place =
            toDevice.inverted().map(QPointF(toDevice.map(QPointF(rect.topLeft())).toPoint()));
        painter->drawPixmap(place, pixmap);
    }

  private:
    [[nodiscard]] QPixmap draw(const QColor& colour, const QSize& size) const
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QFile file(QStringLiteral(":/zib/icons/%1.svg").arg(name_));
        if (!file.open(QIODevice::ReadOnly))
            return pixmap;
        QSvgRenderer renderer(file.readAll().replace("currentColor", colour.name().toLatin1()));
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        return pixmap;
    }

    QString name_;
    Tint tint_;
};

} // namespace

QIcon icon(const QString& name, Tint tint)
{
    return QIcon(new TintedIcon(name, tint));
}

void useOwnClearIcon(QLineEdit& field)
{
    if (auto* clear = field.findChild<QAction*>(QStringLiteral("_q_qlineeditclearaction"))) {
        clear->setIcon(icon(QStringLiteral("clear"), Tint::Secondary));
        clear->setText(QCoreApplication::translate("Icons", "Clear"));
    }
}

} // namespace zib
