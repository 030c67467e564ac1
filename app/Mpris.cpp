// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Mpris.h"

#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "platform/desktop/MessageBus.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QLoggingCategory>
#include <QMetaProperty>

#include <utility>

namespace zib {
namespace {

Q_LOGGING_CATEGORY(log, "zib.app.mpris")

QString interfaceOf(const QObject& adaptor)
{
    const QMetaObject* type = adaptor.metaObject();
    return QString::fromLatin1(type->classInfo(type->indexOfClassInfo("D-Bus Interface")).value());
}

/// All of them but the time, which changes by itself: whoever shows it counts along.
QVariantMap announcedProperties(const QObject& adaptor)
{
    QVariantMap values;
    const QMetaObject* type = adaptor.metaObject();
    for (int i = type->propertyOffset(); i < type->propertyCount(); ++i) {
        const QMetaProperty property = type->property(i);
        if (qstrcmp(property.name(), "Position") != 0)
            values.insert(QString::fromLatin1(property.name()), property.read(&adaptor));
    }
    return values;
}

} // namespace

MprisRoot::MprisRoot(QObject* parent, std::function<void()> raise, std::function<void()> quit)
    : QDBusAbstractAdaptor(parent)
    , raise_(std::move(raise))
    , quit_(std::move(quit))
{
}

QStringList MprisRoot::supportedUriSchemes() const
{
    return {QStringLiteral("file"), QStringLiteral("zib")};
}

QStringList MprisRoot::supportedMimeTypes() const
{
    return {QStringLiteral("audio/mpeg"), QStringLiteral("audio/mp4"),   QStringLiteral("audio/aac"),
            QStringLiteral("audio/flac"), QStringLiteral("audio/ogg"),   QStringLiteral("audio/x-vorbis+ogg"),
            QStringLiteral("audio/opus"), QStringLiteral("audio/x-wav"), QStringLiteral("audio/x-aiff")};
}

void MprisRoot::Raise()
{
    raise_();
}

void MprisRoot::Quit()
{
    quit_();
}

Mpris::Mpris(const Program& program, QString busAddress)
    : busAddress_(std::move(busAddress))
    , root_(this, program.raise, program.quit)
    , player_(this, program.playback, program.defaults, program.library, program.openUri)
{
    changes_.setSingleShot(true);
    changes_.setInterval(0);
    connect(&changes_, &QTimer::timeout, this, &Mpris::tellChanges);
    const auto changed = [this] { changes_.start(); };
    connect(&program.playback, &PlaybackQueue::trackChanged, this, changed);
    connect(&program.playback, &PlaybackQueue::stateChanged, this, changed);
    connect(&program.playback, &PlaybackQueue::songInformationCompleted, this, changed);
    connect(&program.library, &RVDataManager::itemsChanged, this, changed);
    connect(&program.defaults, &UserDefaults::changed, this, [changed](const QString& key) {
        if (key == settings::SoundLevel)
            changed();
    });
    // Comes often, and hardly ever with news.
    connect(&program.playback, &PlaybackQueue::progressUpdated, this,
            [this, changed, &playback = program.playback, duration = 0, canSeek = false]() mutable {
                const bool news = duration != playback.duration() || canSeek != playback.canSeek();
                duration = playback.duration();
                canSeek = playback.canSeek();
                if (news)
                    changed();
            });
    QMetaObject::invokeMethod(this, &Mpris::begin, Qt::QueuedConnection);
}

Mpris::~Mpris()
{
    if (ownedName_.isEmpty())
        return;
    QDBusConnection bus = sessionBus(busAddress_);
    bus.unregisterService(ownedName_);
    bus.unregisterObject(path);
}

void Mpris::apply(Transport transport)
{
    switch (transport) {
    case Transport::PlayPause:
        player_.PlayPause();
        break;
    case Transport::Next:
        player_.Next();
        break;
    case Transport::Previous:
        player_.Previous();
        break;
    case Transport::None:
        break;
    }
}

void Mpris::begin()
{
    QDBusConnection bus = sessionBus(busAddress_);
    if (!bus.isConnected() || !bus.registerObject(path, this))
        return;
    told_ = announcedProperties(player_);
    // Another library's program may have the plain name.
    const QString own = QStringLiteral("%1.instance%2").arg(name).arg(QCoreApplication::applicationPid());
    for (const QString& candidate : {name, own})
        if (ownedName_.isEmpty() && bus.registerService(candidate))
            ownedName_ = candidate;
    if (ownedName_.isEmpty())
        qCWarning(log, "remote controls cannot find the program: the bus gives it no name");
}

void Mpris::tellChanges()
{
    if (ownedName_.isEmpty())
        return;
    const QVariantMap now = announcedProperties(player_);
    QVariantMap changed;
    for (auto property = now.begin(); property != now.end(); ++property)
        if (property.value() != told_.value(property.key()))
            changed.insert(property.key(), property.value());
    if (changed.isEmpty())
        return;
    told_ = now;
    QDBusMessage signal = QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                                     QStringLiteral("PropertiesChanged"));
    signal << interfaceOf(player_) << changed << QStringList();
    sessionBus(busAddress_).send(signal);
}

} // namespace zib
