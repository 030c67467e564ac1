// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/WidgetBusyPanel.h"

#include "views/TextLabel.h"
#include "views/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace zib {

namespace {

constexpr int panelWidth = 460;
constexpr int appearsAfterMs = 300;
constexpr int refreshMs = 100;

} // namespace

WidgetBusyPanel::WidgetBusyPanel(QWidget* parent)
    : QDialog(parent)
    , title_(new QLabel(this))
    , text_(new TextLabel(tr("What is being done"), this))
    , bar_(new QProgressBar(this))
    , stop_(new QPushButton(tr("Stop"), this))
{
    setObjectName(QStringLiteral("busyPanel"));
    setFixedWidth(panelWidth);
    setAttribute(Qt::WA_ShowWithoutActivating); // whoever is typing goes on typing
    title_->setObjectName(QStringLiteral("busyTitle"));
    text_->setObjectName(QStringLiteral("busyText"));
    text_->setElideMode(Qt::ElideMiddle); // of a path both ends tell
    bar_->setAccessibleName(tr("Progress"));
    bar_->setTextVisible(false);
    stop_->setAutoDefault(false); // Return is for what the user does meanwhile

    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::groups);
    row->addWidget(bar_, 1);
    row->addWidget(stop_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Theme::groups, Theme::groups, Theme::groups, Theme::groups);
    layout->setSpacing(Theme::between);
    layout->addWidget(title_);
    layout->addWidget(text_);
    layout->addLayout(row);

    appearance_.setSingleShot(true);
    appearance_.setInterval(appearsAfterMs);
    refreshment_.setSingleShot(true);
    refreshment_.setInterval(refreshMs);
    connect(&appearance_, &QTimer::timeout, this, &QWidget::show);
    connect(&refreshment_, &QTimer::timeout, this, &WidgetBusyPanel::refresh);
    connect(stop_, &QPushButton::clicked, this, &WidgetBusyPanel::stopWork);
}

void WidgetBusyPanel::open(const QString& title, std::function<void()> stop)
{
    setWindowTitle(title);
    title_->setText(title);
    stopAction_ = std::move(stop);
    stop_->setVisible(bool(stopAction_));
    stop_->setEnabled(true);
    latestText_.clear();
    done_ = total_ = 0;
    refresh();
    if (!isVisible())
        appearance_.start();
}

void WidgetBusyPanel::close()
{
    appearance_.stop();
    refreshment_.stop();
    stopAction_ = {};
    hide();
}

void WidgetBusyPanel::setInformativeText(const QString& text)
{
    latestText_ = text;
    if (!refreshment_.isActive())
        refreshment_.start();
}

void WidgetBusyPanel::setProgress(int done, int total)
{
    done_ = done;
    total_ = total;
    if (!refreshment_.isActive())
        refreshment_.start();
}

void WidgetBusyPanel::refresh()
{
    text_->setShownText(latestText_);
    bar_->setRange(0, total_); // a range of nothing runs to and fro
    bar_->setValue(done_);
}

/// Escape, or the window's own button.
void WidgetBusyPanel::reject()
{
    if (stopAction_)
        stopWork();
}

void WidgetBusyPanel::stopWork()
{
    stop_->setEnabled(false);
    if (stopAction_)
        stopAction_(); // close() follows when the work has ended
}

} // namespace zib
