// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QTemporaryDir>

#include <map>
#include <vector>

namespace zib::test {

/// A sound server of the test's own, with a sink that nobody hears, and the means to record what is played.
/// While it lives, PULSE_SERVER names it, so that clients of this process find it and no other.
class PrivatePulse {
  public:
    /// The sink that it begins with.
    static inline const QString kEar = QStringLiteral("ear");

    PrivatePulse();
    PrivatePulse(const PrivatePulse&) = delete;
    PrivatePulse& operator=(const PrivatePulse&) = delete;
    ~PrivatePulse();

    /// @return whether the server answers
    bool start();
    /// Ends the server, as a crash does.
    void kill();
    /// The server does nothing from now on, as one that hangs; its connections stay.
    void freeze() const;
    void thaw() const;
    /// Runs pactl with the arguments. @return its output
    QByteArray control(const QStringList& arguments) const;

    void startRecording(const QString& sink = kEar);
    /// What was played there since startRecording: mono, 44,100 frames a second.
    std::vector<float> stopRecording(const QString& sink = kEar);
    /// How many frames the recorder has got so far.
    [[nodiscard]] std::size_t recordedFrames(const QString& sink = kEar) const;

  private:
    [[nodiscard]] QString recordingOf(const QString& sink) const;
    [[nodiscard]] QProcessEnvironment environment() const;

    QTemporaryDir folder_;
    QProcess server_;
    std::map<QString, QProcess> recorders_; ///< by their sink
};

} // namespace zib::test
