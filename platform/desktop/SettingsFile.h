// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/UserDefaults.h"

#include <QSet>
#include <QTimer>

#include <optional>
#include <shared_mutex>

namespace zib {

/// The settings in one JSON file that people can read and mend.
///
/// A change is on disk soon after, and at the latest when this object is destroyed; the file is replaced as a
/// whole, so a crash leaves the old or the new one. Of several processes each writes only what it changed
/// itself and takes over what the others wrote. A file that can't be read is set aside beside its place, and
/// the defaults hold.
class SettingsFile : public UserDefaults {
    Q_OBJECT

  public:
    /// @param path the file; its folder is made when there is something to write.
    /// @param overrides values that hold for this run instead of the stored ones and are never stored;
    /// setting or removing a key ends its override.
    explicit SettingsFile(QString path = defaultPath(), QVariantMap overrides = {});
    ~SettingsFile() override;

    /// "zib/settings.json" in the user's configuration folder.
    static QString defaultPath();

    void registerDefaults(const QVariantMap& defaults) override;
    [[nodiscard]] QVariant value(const QString& key) const override;
    /// A value that isStorable() refuses holds for this run only, with a line in the log.
    void setValue(const QString& key, const QVariant& value) override;
    void remove(const QString& key) override;
    [[nodiscard]] QStringList storedKeys() const override;

  private:
    template <typename Action>
    void change(const QString& key, Action action);
    [[nodiscard]] QVariant lookUp(const QString& key) const;
    [[nodiscard]] std::optional<QVariantMap> read();
    void setAside();
    void noteChange(const QString& key);
    void write();
    void takeOver(const QVariantMap& onDisk);

    const QString path_;
    mutable std::shared_mutex lock_; // guards the three maps; they are written on the main thread only
    QVariantMap defaults_;
    QVariantMap values_;
    QVariantMap overrides_;
    QSet<QString> changedKeys_; // what is to be written: set or removed since the last time
    QTimer writeTimer_;
    bool mayWrite_ = true;
};

} // namespace zib
