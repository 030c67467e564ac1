// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/preferences/ServiceRow.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "services/ServiceHosts.h"
#include "views/IconLabel.h"
#include "views/Theme.h"
#include "views/preferences/SettingControls.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace zib {

namespace {

constexpr int markSize = 16;

} // namespace

ServiceRow::ServiceRow(const Service& service, UserDefaults& defaults, const WebServices& services)
    : service_(service)
    , defaults_(defaults)
    , services_(services)
    , mark_(new IconLabel(QStringLiteral("waiting"), Tint::Secondary, markSize))
    , state_(new QLabel)
    , host_(new QLineEdit)
    , wrong_(makeHint(tr("This is no host that can be spoken to over HTTP, such as music.example or "
                         "192.168.1.9:8080.")))
    , reset_(new QPushButton(tr("Reset")))
{
    host_->setAccessibleName(tr("Host of %1").arg(service_.name));
    host_->setPlaceholderText(tr("Bundled service, on this computer"));
    wrong_->setProperty("role", QStringLiteral("error"));
    wrong_->hide();
    reset_->setAutoDefault(false);
    reset_->setAccessibleName(tr("Reset the host of %1").arg(service_.name));
    reset_->setToolTip(tr("Back to the service that comes with the program"));
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::between);
    row->addWidget(host_, 1);
    row->addWidget(reset_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Theme::within);
    layout->addWidget(makeTitle());
    layout->addWidget(makeHint(service_.whatItIsSent));
    layout->addLayout(row);
    layout->addWidget(wrong_);

    connect(host_, &QLineEdit::editingFinished, this, &ServiceRow::takeHost);
    connect(reset_, &QPushButton::clicked, this, [this] { defaults_.remove(service_.hostKey); });
    connect(&defaults_, &UserDefaults::changed, this, [this](const QString& key) {
        if (key != service_.hostKey)
            return;
        showHost();
        if (isVisible())
            probe();
    });
    showHost();
}

QWidget* ServiceRow::makeTitle()
{
    auto* title = new QWidget(this);
    state_->setObjectName(QStringLiteral("hint"));
    auto* layout = new QHBoxLayout(title);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Theme::within);
    layout->addWidget(makeHeading(service_.name), 1);
    layout->addWidget(mark_);
    layout->addWidget(state_);
    return title;
}

void ServiceRow::probe()
{
    mark_->setIcon(QStringLiteral("waiting"), Tint::Secondary);
    say(tr("Asking…"));
    probe_ = std::make_unique<ServiceProbe>(
        services_, service_.hostKey,
        [this](ServiceProbe::Outcome outcome, const QString& reason) { showOutcome(outcome, reason); });
}

void ServiceRow::showOutcome(ServiceProbe::Outcome outcome, const QString& reason)
{
    switch (outcome) {
    case ServiceProbe::Outcome::Answers:
        mark_->setIcon(QStringLiteral("answers"), Tint::Accent);
        say(tr("Answers"));
        break;
    case ServiceProbe::Outcome::Fails:
        mark_->setIcon(QStringLiteral("warning"), Tint::Error);
        say(tr("Has an error of its own"), reason);
        break;
    case ServiceProbe::Outcome::Silent:
        mark_->setIcon(QStringLiteral("warning"), Tint::Error);
        say(tr("Does not answer"), reason);
        break;
    }
}

void ServiceRow::say(const QString& words, const QString& reason)
{
    state_->setText(words);
    state_->setAccessibleName(tr("%1: %2").arg(service_.name, words));
    state_->setToolTip(reason);
    mark_->setToolTip(reason);
}

void ServiceRow::takeHost()
{
    if (!host_->isModified())
        return;
    const QString typed = host_->text().trimmed();
    const auto host = serviceHostFrom(typed);
    wrong_->setVisible(!typed.isEmpty() && !host);
    if (typed.isEmpty())
        defaults_.remove(service_.hostKey);
    else if (host)
        defaults_.setValue(service_.hostKey, *host);
    if (typed.isEmpty() || host)
        showHost();
}

void ServiceRow::showHost()
{
    const bool bundled = isBundledService(defaults_, service_.hostKey);
    host_->setText(bundled ? QString() : defaults_.string(service_.hostKey));
    wrong_->hide();
    reset_->setEnabled(!bundled);
}

} // namespace zib
