// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/StatusLine.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "views/FilterField.h"
#include "views/TextLabel.h"
#include "views/Theme.h"

#include <QBoxLayout>

namespace zib {

namespace {

constexpr int filterWidth = 220;

} // namespace

StatusLine::StatusLine(UserDefaults& defaults, QWidget* parent)
    : QWidget(parent)
    , status_(new TextLabel(tr("Status"), this))
    , filter_(new FilterField(this))
    , urlField_(new TextLabel(tr("About the shown songs or link"), this))
{
    setObjectName(QStringLiteral("statusLine"));
    setAttribute(Qt::WA_StyledBackground);
    filter_->setFixedWidth(filterWidth);
    filter_->hide(); // until songs are shown
    urlField_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, Theme::within, 12, Theme::within);
    layout->addWidget(status_, 1);
    layout->addWidget(filter_);
    layout->addWidget(urlField_, 1);
    status_->setShownText(defaults.string(settings::BriefStatusMessage));
    connect(&defaults, &UserDefaults::changed, this, [this, &defaults](const QString& key) {
        if (key == settings::BriefStatusMessage)
            status_->setShownText(defaults.string(key));
    });
}

void StatusLine::setUrlFieldText(const QString& text)
{
    urlField_->setShownText(text);
}

} // namespace zib
