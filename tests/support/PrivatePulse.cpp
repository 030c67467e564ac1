// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/PrivatePulse.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QThread>

#include <signal.h>

#include <cstring>

namespace zib::test {

PrivatePulse::PrivatePulse()
{
    qputenv("PULSE_SERVER", "unix:" + folder_.filePath(QStringLiteral("native")).toUtf8());
}

PrivatePulse::~PrivatePulse()
{
    for (auto& [sink, recorder] : recorders_) {
        recorder.kill();
        recorder.waitForFinished();
    }
    kill();
    qunsetenv("PULSE_SERVER");
}

QProcessEnvironment PrivatePulse::environment() const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH", "HOME"})
        environment.insert(QLatin1String(name), folder_.path());
    environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    return environment;
}

bool PrivatePulse::start()
{
    auto own = environment();
    own.remove(QStringLiteral("PULSE_SERVER")); // a server that is told of another refuses to start
    server_.setProcessEnvironment(own);
    server_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    server_.start(QStringLiteral("pulseaudio"),
                  {QStringLiteral("--daemonize=no"), QStringLiteral("--exit-idle-time=-1"),
                   QStringLiteral("-n"), QStringLiteral("--use-pid-file=no"),
                   QStringLiteral("--log-level=error"),
                   QStringLiteral("--load=module-native-protocol-unix auth-anonymous=1 socket=") +
                       folder_.filePath(QStringLiteral("native")),
                   QStringLiteral("--load=module-null-sink sink_name=ear rate=44100 channels=2")});
    const QDeadlineTimer patience(20000);
    while (!patience.hasExpired() && server_.state() != QProcess::NotRunning) {
        if (control({QStringLiteral("info")}).contains("ear"))
            return true;
        QThread::msleep(20);
    }
    return false;
}

void PrivatePulse::kill()
{
    server_.kill();
    server_.waitForFinished();
}

void PrivatePulse::freeze() const
{
    ::kill(static_cast<pid_t>(server_.processId()), SIGSTOP);
}

void PrivatePulse::thaw() const
{
    ::kill(static_cast<pid_t>(server_.processId()), SIGCONT);
}

QByteArray PrivatePulse::control(const QStringList& arguments) const
{
    QProcess pactl;
    pactl.setProcessEnvironment(environment());
    pactl.start(QStringLiteral("pactl"), arguments);
    pactl.waitForFinished(10000);
    return pactl.readAllStandardOutput();
}

QString PrivatePulse::recordingOf(const QString& sink) const
{
    return folder_.filePath(QStringLiteral("recorded-") + sink);
}

void PrivatePulse::startRecording(const QString& sink)
{
    // Into a file, because a pipe that nobody empties holds the recorder up.
    QFile::remove(recordingOf(sink));
    QProcess& recorder = recorders_[sink];
    recorder.setProcessEnvironment(environment());
    recorder.setStandardOutputFile(recordingOf(sink));
    recorder.start(QStringLiteral("parec"), {QStringLiteral("--device=") + sink + QStringLiteral(".monitor"),
                                             QStringLiteral("--format=float32le"),
                                             QStringLiteral("--rate=44100"), QStringLiteral("--channels=1"),
                                             QStringLiteral("--latency-msec=20"), QStringLiteral("--raw")});
    const QDeadlineTimer patience(20000);
    while (recordedFrames(sink) == 0 && !patience.hasExpired())
        QThread::msleep(5); // it records silence first
}

std::size_t PrivatePulse::recordedFrames(const QString& sink) const
{
    return static_cast<std::size_t>(QFileInfo(recordingOf(sink)).size()) / sizeof(float);
}

std::vector<float> PrivatePulse::stopRecording(const QString& sink)
{
    QProcess& recorder = recorders_[sink];
    recorder.terminate();
    recorder.waitForFinished();
    QFile file(recordingOf(sink));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray recorded = file.readAll();
    std::vector<float> samples(static_cast<std::size_t>(recorded.size()) / sizeof(float));
    std::memcpy(samples.data(), recorded.constData(), samples.size() * sizeof(float));
    return samples;
}

} // namespace zib::test
