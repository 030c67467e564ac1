// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/gallery/GalleryWindow.h"

#include "views/Segments.h"
#include "views/Theme.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QStackedWidget>

namespace zib {

namespace {

constexpr int listWidth = 200;
constexpr int rowHeight = 32;

} // namespace

GalleryWindow::GalleryWindow(Scheme scheme)
    : demos_(allDemos())
    , list_(new QListWidget(this))
    , pages_(new QStackedWidget(this))
{
    setWindowTitle(QStringLiteral("Gallery of controls"));
    list_->setObjectName(QStringLiteral("sections"));
    list_->setAccessibleName(QStringLiteral("Controls"));
    list_->setFixedWidth(listWidth);
    for (const Demo& demo : demos_) {
        auto* row = new QListWidgetItem(demo.title, list_);
        row->setSizeHint({0, rowHeight});
    }
    pages_->setObjectName(QStringLiteral("pages"));
    auto* side = new QVBoxLayout;
    side->setSpacing(0);
    side->addWidget(pages_, 1);
    side->addWidget(makeWays(scheme));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(list_);
    layout->addLayout(side, 1);
    refill();
    connect(list_, &QListWidget::currentRowChanged, this, &GalleryWindow::showPage);
    list_->setCurrentRow(0);
    resize(1040, 720);
}

QWidget* GalleryWindow::makeWays(Scheme scheme)
{
    auto* line = new QWidget(this);
    line->setObjectName(QStringLiteral("statusLine"));
    line->setAttribute(Qt::WA_StyledBackground);
    auto* schemes = new Segments(QStringLiteral("Scheme"), line);
    for (const char* const name : {"Light", "Dark", "Light, high contrast", "Dark, high contrast"})
        schemes->addSegment(QString::fromLatin1(name));
    schemes->setChosen(int(scheme));
    auto* mirrored = new QCheckBox(QStringLiteral("From right to left"), line);
    mirrored->setChecked(QGuiApplication::isRightToLeft());
    auto* still = new QCheckBox(QStringLiteral("Keep moving texts still"), line);
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(12, Theme::between, 12, Theme::between);
    layout->setSpacing(Theme::groups);
    layout->addWidget(schemes);
    layout->addStretch();
    layout->addWidget(mirrored);
    layout->addWidget(still);
    connect(schemes, &Segments::chosenChanged, this, [this](int chosen) {
        useScheme(Scheme(chosen));
        refill();
    });
    connect(mirrored, &QCheckBox::toggled, this, [this, schemes](bool on) {
        QGuiApplication::setLayoutDirection(on ? Qt::RightToLeft : Qt::LeftToRight);
        useScheme(Scheme(schemes->chosen())); // the style sheet has sides
        refill();
    });
    connect(still, &QCheckBox::toggled, this, [](bool on) { useMotion(on); });
    return line;
}

void GalleryWindow::refill()
{
    const int shown = pages_->currentIndex();
    while (QWidget* old = pages_->widget(0)) {
        pages_->removeWidget(old);
        old->deleteLater();
    }
    for (const Demo& demo : qAsConst(demos_)) {
        auto* page = new Page;
        demo.fill(*page);
        auto* area = new QScrollArea(pages_);
        area->setFrameShape(QFrame::NoFrame);
        area->setWidgetResizable(true);
        area->setWidget(page);
        pages_->addWidget(area);
    }
    pages_->setCurrentIndex(shown);
}

void GalleryWindow::showPage(int row)
{
    pages_->setCurrentIndex(row);
    if (!list_->hasFocus()) // else the arrow keys go on in the list
        pages_->currentWidget()->findChild<Page*>()->focusSample();
}

} // namespace zib
