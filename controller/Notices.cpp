// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/Notices.h"

#include "platform/Alerts.h"
#include "platform/Desktop.h"
#include "platform/UserDefaults.h"

#include <QCoreApplication>

namespace zib {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Notices)
};

} // namespace

Notices::Notices(UserDefaults& defaults, Alerts& alerts, Desktop& desktop)
    : defaults_(defaults)
    , alerts_(alerts)
    , desktop_(desktop)
{
}

int Notices::runSuppressibleNotice(const QString& text, const QString& defaultsKey)
{
    return runSuppressible(text, defaultsKey, {Texts::tr("OK")});
}

int Notices::runSuppressibleConfirmation(const QString& text, const QString& defaultsKey)
{
    return runSuppressible(text, defaultsKey, {Texts::tr("OK"), Texts::tr("Cancel")});
}

void Notices::runErrorAlert(const QString& message, const QString& informativeText)
{
    desktop_.bringToFront();
    desktop_.beep();
    alerts_.runModal({.style = Alert::Style::Warning,
                      .messageText = message,
                      .informativeText = informativeText,
                      .buttons = {Texts::tr("OK")}});
}

bool Notices::runConfirmation(const QString& message, const QString& informativeText,
                              const QString& firstButton, const QString& defaultsKey)
{
    if (!defaultsKey.isEmpty() && defaults_.boolean(defaultsKey))
        return true;
    desktop_.bringToFront();
    desktop_.beep();
    const AlertResult result = alerts_.runModal({.style = Alert::Style::Warning,
                                                 .messageText = message,
                                                 .informativeText = informativeText,
                                                 .buttons = {firstButton, Texts::tr("Cancel")},
                                                 .showsSuppressionButton = !defaultsKey.isEmpty()});
    if (result.suppressed)
        defaults_.setValue(defaultsKey, true);
    return result.button == 0;
}

int Notices::runChoice(const QString& text, const QStringList& buttons)
{
    desktop_.bringToFront();
    return alerts_
        .runModal({.style = Alert::Style::Informational,
                   .messageText = Texts::tr("Zib!"),
                   .informativeText = text,
                   .buttons = buttons})
        .button;
}

int Notices::runSuppressible(const QString& text, const QString& defaultsKey, const QStringList& buttons)
{
    if (defaults_.boolean(defaultsKey))
        return 0;
    desktop_.bringToFront();
    const AlertResult result = alerts_.runModal({.style = Alert::Style::Warning,
                                                 .messageText = Texts::tr("Zib!"),
                                                 .informativeText = text,
                                                 .buttons = buttons,
                                                 .showsSuppressionButton = true});
    // Whichever button was pressed: who cancels and ticks the box is not asked again either.
    if (result.suppressed)
        defaults_.setValue(defaultsKey, true);
    return result.button;
}

} // namespace zib
