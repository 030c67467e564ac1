// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/gallery/Shooting.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QPixmap>

namespace zib {

namespace {

constexpr int pageWidth = 760;
constexpr int settlingMs = 700; // busy indicators show after half a second; tickers begin after two

void handleEventsFor(int milliseconds)
{
    QElapsedTimer since;
    since.start();
    while (!since.hasExpired(milliseconds))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, milliseconds);
}

} // namespace

ShownPages::ShownPages()
{
    QApplication::setCursorFlashTime(0); // the cursor is in every picture
    const QList<Demo> demos = allDemos();
    for (const Demo& demo : demos) {
        auto* page = new Page(&window_);
        demo.fill(*page);
        page->hide();
        pages_.append({demo, page});
    }
    window_.resize(pageWidth, pageWidth);
    window_.show();
    window_.activateWindow();
    handleEventsFor(settlingMs);
}

ShownPages::~ShownPages() = default;

QPixmap ShownPages::shoot(Page& page)
{
    for (const Shown& other : qAsConst(pages_))
        other.page->setVisible(other.page == &page);
    page.resize(pageWidth, page.sizeHint().height());
    window_.resize(page.size());
    QCoreApplication::processEvents();
    return page.picture();
}

int shootAll(const QString& folder)
{
    if (!QDir().mkpath(folder))
        return -1;
    ShownPages shown;
    for (const auto& [demo, page] : shown.pages())
        if (!shown.shoot(*page).save(QDir(folder).filePath(demo.name + QStringLiteral(".png"))))
            return -1;
    return int(shown.pages().size());
}

} // namespace zib
