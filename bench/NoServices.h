// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Alerts.h"
#include "platform/UserDefaults.h"

namespace zib {

/// No setting is stored, and none is kept.
class NoSettings : public UserDefaults {
  public:
    void registerDefaults(const QVariantMap&) override {}
    [[nodiscard]] QVariant value(const QString&) const override { return {}; }
    void setValue(const QString&, const QVariant&) override {}
    void remove(const QString&) override {}
    [[nodiscard]] QStringList storedKeys() const override { return {}; }
};

/// What would ask the user ends the benchmark.
class NoAlerts : public Alerts {
  public:
    AlertResult runModal(const Alert& alert) override { qFatal("%s", qUtf8Printable(alert.messageText)); }
};

} // namespace zib
