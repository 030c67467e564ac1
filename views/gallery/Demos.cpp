// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/gallery/Demos.h"

#include "views/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPalette>

namespace zib {

namespace {

/// As desktops of high contrast have it.
QPalette blackAndWhite(bool dark)
{
    const QColor ground = dark ? Qt::black : Qt::white;
    const QColor text = dark ? Qt::white : Qt::black;
    QPalette palette(text, ground, text, ground, ground, text, text, ground, ground);
    palette.setColor(QPalette::Highlight, dark ? QColor(0xffd800) : QColor(0x0037c8));
    palette.setColor(QPalette::HighlightedText, ground);
    return palette;
}

} // namespace

const QString longText = QStringLiteral(
    "A title that somebody gave to a song of fourteen minutes, in its live version, remastered");

QList<Demo> allDemos()
{
    return buttonDemos() + fieldDemos() + valueDemos() + tableDemos() + placeDemos();
}

QWidget* surrounded(const QString& name, QWidget* control)
{
    auto* around = new QWidget;
    around->setObjectName(name);
    around->setAttribute(Qt::WA_StyledBackground);
    around->setSizePolicy(control->sizePolicy());
    auto* layout = new QHBoxLayout(around);
    layout->setContentsMargins(Theme::within, Theme::within, Theme::within, Theme::within);
    layout->addWidget(control);
    return around;
}

void useScheme(Scheme scheme)
{
    switch (scheme) {
    case Scheme::Light:
        useTheme(*qApp, Theme::light());
        break;
    case Scheme::Dark:
        useTheme(*qApp, Theme::darkTheme());
        break;
    case Scheme::LightContrast:
    case Scheme::DarkContrast:
        useTheme(*qApp, Theme::highContrastOf(blackAndWhite(scheme == Scheme::DarkContrast)));
        break;
    }
}

} // namespace zib
