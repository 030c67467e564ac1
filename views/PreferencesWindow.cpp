// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/PreferencesWindow.h"

#include "views/Icons.h"
#include "views/Theme.h"
#include "views/preferences/DesktopPage.h"
#include "views/preferences/GeneralPage.h"
#include "views/preferences/NoticesPage.h"
#include "views/preferences/ServicesPage.h"
#include "views/preferences/SharingPage.h"

#include <QBoxLayout>
#include <QListWidget>
#include <QScrollArea>
#include <QStackedWidget>

namespace zib {

namespace {

constexpr QSize comfortableSize(720, 520);
constexpr int sectionsWidth = 168;
constexpr int sectionHeight = 36;
constexpr int iconSize = 20;

} // namespace

PreferencesWindow::PreferencesWindow(UserDefaults& defaults, PreferencesActions& actions, Alerts& alerts,
                                     const WebServices& services)
    : sections_(new QListWidget(this))
    , pages_(new QStackedWidget(this))
{
    setWindowTitle(tr("Preferences"));
    sections_->setObjectName(QStringLiteral("sections"));
    sections_->setAccessibleName(tr("Sections"));
    sections_->setFixedWidth(sectionsWidth);
    sections_->setIconSize({iconSize, iconSize});
    sections_->setFrameShape(QFrame::NoFrame);
    sections_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    sections_->setResizeMode(QListView::Adjust);
    pages_->setObjectName(QStringLiteral("pages"));
    addSection(tr("General"), QStringLiteral("gear"), new GeneralPage(defaults, actions, alerts));
    addSection(tr("Sharing"), QStringLiteral("share"), new SharingPage(defaults, actions));
    addSection(tr("Notices"), QStringLiteral("notice"), new NoticesPage(defaults));
    addSection(tr("Desktop"), QStringLiteral("desktop"), new DesktopPage(defaults));
    addSection(tr("Services"), QStringLiteral("globe"), new ServicesPage(defaults, services));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(sections_);
    layout->addWidget(pages_, 1);
    connect(sections_, &QListWidget::currentRowChanged, pages_, &QStackedWidget::setCurrentIndex);
    sections_->setCurrentRow(0);
    resize(comfortableSize);
}

void PreferencesWindow::addSection(const QString& name, const QString& iconName, QWidget* page)
{
    auto* item = new QListWidgetItem(icon(iconName), name, sections_);
    item->setSizeHint({0, sectionHeight}); // as wide as the list
    auto* area = new QScrollArea(pages_);
    area->setAccessibleName(name);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus); // its controls have it
    area->setWidgetResizable(true);
    area->setWidget(page);
    pages_->addWidget(area);
}

} // namespace zib
