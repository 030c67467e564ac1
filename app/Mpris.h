// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MprisPlayer.h"
#include "app/SingleInstance.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariantMap>

#include <functional>

namespace zib {

/// The program as a whole on the session bus. A member with a property's name is documented by the
/// interface's own standard.
class MprisRoot : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ supportedUriSchemes)
    Q_PROPERTY(QStringList SupportedMimeTypes READ supportedMimeTypes)
    Q_PROPERTY(bool CanQuit READ yes)
    Q_PROPERTY(bool CanRaise READ yes)
    Q_PROPERTY(bool HasTrackList READ no)

  public:
    MprisRoot(QObject* parent, std::function<void()> raise, std::function<void()> quit);

    [[nodiscard]] QString identity() const { return QStringLiteral("Zib"); }
    [[nodiscard]] QString desktopEntry() const { return QStringLiteral("zib"); }
    [[nodiscard]] QStringList supportedUriSchemes() const;
    /// Those that the desktop entry names too.
    [[nodiscard]] QStringList supportedMimeTypes() const;
    [[nodiscard]] bool yes() const { return true; }
    [[nodiscard]] bool no() const { return false; }

  public Q_SLOTS:
    void Raise();
    void Quit();

  private:
    const std::function<void()> raise_;
    const std::function<void()> quit_;
};

/// The program on the session bus as the desktop's media keys and remote controls look for it (MPRIS). Main
/// thread.
class Mpris : public QObject {
    Q_OBJECT

  public:
    struct Program {
        PlaybackQueue& playback;
        UserDefaults& defaults;
        const RVDataManager& library;
        std::function<void()> raise;
        std::function<void()> quit;
        std::function<void(const QString& uri)> openUri;
    };
    /// What the program refers to outlives this.
    /// @param busAddress of the bus to be found on; empty for the session's. It is connected to from the
    /// event loop.
    explicit Mpris(const Program& program, QString busAddress = {});
    ~Mpris() override;

    /// Does what media keys do, for whoever else asks for it.
    void apply(Transport transport);

    inline static const QString name = QStringLiteral("org.mpris.MediaPlayer2.zib");
    inline static const QString path = QStringLiteral("/org/mpris/MediaPlayer2");

  private:
    void begin();
    void tellChanges();

    const QString busAddress_;
    QString ownedName_;
    MprisRoot root_;
    MprisPlayer player_;
    QVariantMap told_; // the player's properties as whoever listens knows them
    QTimer changes_;   // tells once of all that changes in one go
};

} // namespace zib
