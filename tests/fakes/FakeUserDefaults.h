// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/UserDefaults.h"

#include <QMutex>
#include <QMutexLocker>

namespace zib {

/// Settings that live as long as this object.
class FakeUserDefaults : public UserDefaults {
  public:
    FakeUserDefaults() = default;
    explicit FakeUserDefaults(QVariantMap values)
        : values_(std::move(values))
    {
    }

    void registerDefaults(const QVariantMap& defaults) override
    {
        for (auto entry = defaults.begin(); entry != defaults.end(); ++entry)
            change(entry.key(), [&] { defaults_.insert(entry.key(), entry.value()); });
    }
    QVariant value(const QString& key) const override
    {
        const QMutexLocker lock(&mutex_);
        return lookUp(key);
    }
    void setValue(const QString& key, const QVariant& value) override
    {
        change(key, [&] { values_.insert(key, value); });
    }
    void remove(const QString& key) override
    {
        change(key, [&] { values_.remove(key); });
    }
    QStringList storedKeys() const override
    {
        const QMutexLocker lock(&mutex_);
        return values_.keys();
    }

  private:
    QVariant lookUp(const QString& key) const { return values_.value(key, defaults_.value(key)); }
    template <typename Action>
    void change(const QString& key, Action action)
    {
        {
            const QMutexLocker lock(&mutex_);
            const QVariant before = lookUp(key);
            action();
            if (lookUp(key) == before)
                return;
        }
        Q_EMIT changed(key);
    }

    mutable QMutex mutex_;
    QVariantMap defaults_;
    QVariantMap values_;
};

} // namespace zib
