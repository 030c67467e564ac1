// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/SettingsFile.h"

#include "platform/desktop/SettingsJson.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QLoggingCategory>
#include <QSaveFile>
#include <QStandardPaths>

#include <chrono>
#include <mutex>
#include <shared_mutex>

using namespace std::chrono_literals;

namespace zib {
namespace {

Q_LOGGING_CATEGORY(settingsLog, "zib.settings")

/// A slider that is dragged changes its setting many times a second; the disk need not follow each step.
constexpr auto writeDelay = 500ms;
/// Another process holds the lock for as long as it takes to write a small file.
constexpr auto lockTimeout = 1000ms;
/// A settings file is some kilobytes; whatever is longer than this is none.
constexpr qint64 maximumBytes = 4'000'000;

} // namespace

SettingsFile::SettingsFile(QString path, QVariantMap overrides)
    : path_(std::move(path))
    , overrides_(std::move(overrides))
{
    writeTimer_.setSingleShot(true);
    connect(&writeTimer_, &QTimer::timeout, this, &SettingsFile::write);
    values_ = read().value_or(QVariantMap());
}

SettingsFile::~SettingsFile()
{
    blockSignals(true); // what other processes wrote is of no use to anybody now
    write();
}

QString SettingsFile::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/zib/settings.json");
}

void SettingsFile::registerDefaults(const QVariantMap& defaults)
{
    for (auto entry = defaults.begin(); entry != defaults.end(); ++entry)
        change(entry.key(), [&] { defaults_.insert(entry.key(), entry.value()); });
}

QVariant SettingsFile::value(const QString& key) const
{
    const std::shared_lock locker(lock_);
    return lookUp(key);
}

void SettingsFile::setValue(const QString& key, const QVariant& value)
{
    noteChange(key);
    change(key, [&] {
        overrides_.remove(key);
        values_.insert(key, value);
    });
}

void SettingsFile::remove(const QString& key)
{
    noteChange(key);
    change(key, [&] {
        overrides_.remove(key);
        values_.remove(key);
    });
}

QStringList SettingsFile::storedKeys() const
{
    const std::shared_lock locker(lock_);
    return values_.keys();
}

/// Does it, and tells when the value that shows is another one afterwards.
template <typename Action>
void SettingsFile::change(const QString& key, Action action)
{
    {
        const std::unique_lock locker(lock_);
        const QVariant before = lookUp(key);
        action();
        if (lookUp(key) == before)
            return;
    }
    Q_EMIT changed(key);
}

QVariant SettingsFile::lookUp(const QString& key) const
{
    return overrides_.value(key, values_.value(key, defaults_.value(key)));
}

/// What is on disk; nothing when it is unreadable, which also sets it aside.
std::optional<QVariantMap> SettingsFile::read()
{
    QFile file(path_);
    if (!file.exists())
        return QVariantMap();
    if (file.open(QIODevice::ReadOnly) && file.size() <= maximumBytes) {
        const QByteArray json = file.readAll();
        if (file.error() == QFile::NoError)
            if (auto values = settingsFromJson(json))
                return values;
    }
    file.close();
    setAside();
    return std::nullopt;
}

void SettingsFile::setAside()
{
    QString aside = path_ + QStringLiteral(".bad");
    for (int i = 2; QFileInfo::exists(aside); ++i)
        aside = path_ + QStringLiteral(".bad%1").arg(i);
    if (QFile::rename(path_, aside)) {
        qCWarning(settingsLog, "Settings file %s can't be read; it is kept as %s and the defaults hold",
                  qUtf8Printable(path_), qUtf8Printable(aside));
    } else {
        mayWrite_ = false; // rather than over what somebody may still mend
        qCWarning(settingsLog,
                  "Settings file %s can neither be read nor moved; changes hold for this run only",
                  qUtf8Printable(path_));
    }
}

void SettingsFile::noteChange(const QString& key)
{
    changedKeys_.insert(key);
    if (!writeTimer_.isActive())
        writeTimer_.start(writeDelay);
}

void SettingsFile::write()
{
    if (changedKeys_.isEmpty() || !mayWrite_)
        return;
    QDir().mkpath(QFileInfo(path_).path());
    QLockFile processLock(path_ + QStringLiteral(".lock"));
    // Without the lock another process's change of this very moment may be lost, with nothing written ours
    // is.
    if (!processLock.tryLock(lockTimeout))
        qCWarning(settingsLog, "Settings file %s can't be locked", qUtf8Printable(path_));
    const auto onDisk = read();
    if (!mayWrite_)
        return;
    takeOver(onDisk.value_or(values_));

    QVariantMap storable;
    for (auto entry = values_.constBegin(); entry != values_.constEnd(); ++entry) {
        if (isStorable(*entry))
            storable.insert(entry.key(), *entry);
        else if (changedKeys_.contains(entry.key()))
            qCWarning(settingsLog, "Setting %s holds for this run only", qUtf8Printable(entry.key()));
    }
    QSaveFile file(path_);
    if (file.open(QIODevice::WriteOnly) && file.write(settingsToJson(storable)) >= 0 && file.commit())
        changedKeys_.clear();
    else // the next change tries again
        qCWarning(settingsLog, "Settings file %s can't be written: %s", qUtf8Printable(path_),
                  qUtf8Printable(file.errorString()));
}

/// Makes the stored values those on disk, save for what this process changed itself.
void SettingsFile::takeOver(const QVariantMap& onDisk)
{
    QSet<QString> keys(onDisk.keyBegin(), onDisk.keyEnd());
    keys += QSet<QString>(values_.keyBegin(), values_.keyEnd());
    for (const QString& key : keys - changedKeys_) {
        change(key, [&] {
            if (onDisk.contains(key))
                values_.insert(key, onDisk.value(key));
            else if (isStorable(values_.value(key)))
                values_.remove(key);
        });
    }
}

} // namespace zib
