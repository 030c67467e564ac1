// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/BusyIndicator.h"
#include "views/TextLabel.h"
#include "views/Theme.h"
#include "views/Ticker.h"
#include "views/ValueSlider.h"
#include "views/gallery/Demos.h"

#include <QProgressBar>

namespace zib {

namespace {

using State = Page::State;

template <typename Slider>
void fillSlider(Page& page)
{
    const std::tuple<QString, State, int> kinds[] = {{QStringLiteral("Empty"), State::Normal, 0},
                                                     {QStringLiteral("Normal"), State::Normal, 40},
                                                     {QStringLiteral("Full"), State::Normal, 100},
                                                     {QStringLiteral("Hovered"), State::Hovered, 40},
                                                     {QStringLiteral("Focused"), State::Focused, 40},
                                                     {QStringLiteral("Disabled"), State::Disabled, 40},
                                                     {QStringLiteral("Nothing to show"), State::Disabled, 0}};
    for (const auto& [caption, state, percent] : kinds) {
        auto* slider = new Slider;
        slider->setEnabled(true);
        slider->setFixedWidth(240);
        slider->setTip([](double at) { return QStringLiteral("%1%").arg(qRound(at)); });
        slider->showValue(percent);
        page.add(caption, slider, state);
    }
}

void fillProgressBar(Page& page)
{
    for (const int percent : {0, 3, 40, 100}) {
        auto* bar = new QProgressBar;
        bar->setFixedWidth(240);
        bar->setTextVisible(false);
        bar->setValue(percent);
        page.add(QStringLiteral("%1%").arg(percent), bar);
    }
}

void fillTicker(Page& page)
{
    const std::pair<QString, QString> texts[] = {
        {QStringLiteral("Short text"), QStringLiteral("Kestrel Motorway - Long Way Home")},
        {QStringLiteral("Long text"), longText},
        {QStringLiteral("From the right"),
         QStringLiteral("\u05e9\u05d9\u05e8 \u05e2\u05dd \u05e9\u05dd \u05d0\u05e8\u05d5\u05da "
                        "\u05de\u05d0\u05d5\u05d3, "
                        "\u05d0\u05e8\u05d5\u05da \u05de\u05d4\u05de\u05e7\u05d5\u05dd \u05e9\u05dc\u05d5")}};
    for (const auto& [caption, text] : texts) {
        auto* ticker = new Ticker;
        ticker->setObjectName(QStringLiteral("ticker"));
        ticker->setAccessibleName(caption);
        ticker->setFixedWidth(300);
        ticker->setText(text);
        page.add(caption, ticker);
    }
}

void fillBusy(Page& page)
{
    auto* busy = new BusyIndicator;
    busy->setBusy(true);
    page.add(QStringLiteral("Busy"), busy);
}

void fillLabels(Page& page)
{
    const std::tuple<QString, QString, Qt::TextElideMode> kinds[] = {
        {QStringLiteral("Normal"), QStringLiteral("Playing from disk"), Qt::ElideRight},
        {QStringLiteral("Long text"), longText, Qt::ElideRight},
        {QStringLiteral("Path"),
         QStringLiteral("/home/somebody/Music/Kestrel Motorway/Night Roads/01 Home.mp3"), Qt::ElideMiddle}};
    for (const auto& [caption, text, elide] : kinds) {
        auto* label = new TextLabel(caption);
        label->setFixedWidth(260);
        label->setElideMode(elide);
        label->setShownText(text);
        page.add(caption, surrounded(QStringLiteral("statusLine"), label));
    }
}

} // namespace

QList<Demo> valueDemos()
{
    return {{QStringLiteral("volume-slider"), QStringLiteral("Volume"), fillSlider<VolumeSlider>},
            {QStringLiteral("progress-slider"), QStringLiteral("Song progress"), fillSlider<ProgressSlider>},
            {QStringLiteral("progress-bar"), QStringLiteral("Progress of work"), fillProgressBar},
            {QStringLiteral("ticker"), QStringLiteral("Ticker"), fillTicker},
            {QStringLiteral("text-label"), QStringLiteral("Text label"), fillLabels},
            {QStringLiteral("busy-indicator"), QStringLiteral("Busy indicator"), fillBusy}};
}

} // namespace zib
