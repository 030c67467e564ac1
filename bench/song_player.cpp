// SPDX-License-Identifier: GPL-3.0-or-later
// Streams songs without a window, as told on standard input: "play URL", "stop". Ends with its input.
#include "bench/NoServices.h"
#include "platform/desktop/CurlReadStreams.h"
#include "platform/desktop/DesktopAudioQueue.h"
#include "platform/desktop/DesktopSound.h"
#include "platform/desktop/parsers/AudioFileStreamParsers.h"
#include "platform/desktop/parsers/FittedFileStreams.h"
#include "playback/AudioStreamer.h"
#include "records/PropertyValue.h"
#include "records/RecordKeys.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <cstdio>

#include <unistd.h>

namespace zib {
namespace {

class SongPlayer {
  public:
    SongPlayer()
    {
        sound_.warmUp();
        QObject::connect(&sound_, &DesktopSound::noSoundServer, [] { qFatal("no sound server"); });
    }
    /// @return false at the end of the input
    bool obey()
    {
        std::array<char, 4096> bytes{};
        const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0)
            return false;
        input_.append(bytes.data(), count);
        for (qsizetype end = input_.indexOf('\n'); end >= 0; end = input_.indexOf('\n')) {
            const QByteArray line = input_.left(end);
            input_.remove(0, end + 1);
            streamer_.reset();
            if (line.startsWith("play "))
                play(QString::fromUtf8(line.sliced(5)));
        }
        return true;
    }

  private:
    void play(const QString& url)
    {
        streamer_ = AudioStreamer::initWithDict(
            Record::make({{keys::Name, QStringLiteral("Song")}, {keys::Location, url}}), nullptr,
            {web_, fileStreams_, queues_, alerts_, settings_});
        streamer_->start();
    }

    NoAlerts alerts_;
    NoSettings settings_;
    DesktopSound sound_;
    DesktopAudioQueues queues_{sound_};
    CurlReadStreams web_;
    AudioFileStreamParsers parsers_;
    FittedFileStreams fileStreams_{parsers_};
    QByteArray input_;
    std::unique_ptr<AudioStreamer> streamer_;
};

} // namespace
} // namespace zib

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    zib::SongPlayer player;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&player] {
        if (!player.obey())
            QCoreApplication::quit();
    });
    return QCoreApplication::exec();
}
