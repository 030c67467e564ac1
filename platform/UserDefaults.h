// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace zib {

/// The per-user settings store. Keys are listed in SettingsKeys.h. Reading is allowed on any thread,
/// everything else on the main thread. A failure to write to disk is logged; the value holds for this run all
/// the same.
class UserDefaults : public QObject {
    Q_OBJECT

  public:
    /// Values that hold while no other is set; a later call adds to and overrides an earlier one. Never
    /// stored.
    virtual void registerDefaults(const QVariantMap& defaults) = 0;

    /// The value that is set, else the registered default, else an invalid one.
    [[nodiscard]] virtual QVariant value(const QString& key) const = 0;
    virtual void setValue(const QString& key, const QVariant& value) = 0;
    /// Forgets the set value, so that the registered default shows again.
    virtual void remove(const QString& key) = 0;
    /// The keys that have a set value, in no order.
    [[nodiscard]] virtual QStringList storedKeys() const = 0;

    [[nodiscard]] bool boolean(const QString& key) const { return value(key).toBool(); }
    [[nodiscard]] int integer(const QString& key) const { return value(key).toInt(); }
    [[nodiscard]] double real(const QString& key) const { return value(key).toDouble(); }
    [[nodiscard]] QString string(const QString& key) const { return value(key).toString(); }

  Q_SIGNALS:
    /// The value that value(key) answers has changed. Main thread.
    void changed(const QString& key);
};

} // namespace zib
