// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for differences between what the streamer was tested with and what it plays with: the promises of a
// parser, kept by the real ones and by the fake.
#include "platform/desktop/parsers/AudioFileStreamParsers.h"
#include "tests/desktop/AudioFiles.h"
#include "tests/fakes/FakeAudioFileStreams.h"

namespace zib {
namespace {

using namespace audiofiles;

/// A maker of parsers, a file for them, and the audio in it.
struct Kind {
    std::unique_ptr<AudioFileStreams> streams;
    QByteArray file;
    QByteArray audio;
};

Kind mpeg()
{
    const QByteArray audio = mp3Frame().repeated(300);
    return {std::make_unique<AudioFileStreamParsers>(), id3Tag(900) + audio, audio};
}

Kind wave()
{
    const QByteArray audio = noise(48'000);
    return {std::make_unique<AudioFileStreamParsers>(),
            waveFile(chunk("fmt ", waveFormat(1, 2, 44100, 16)) + chunk("data", audio)), audio};
}

Kind fake()
{
    auto streams = std::make_unique<FakeAudioFileStreams>();
    const QByteArray audio = FakeAudioFile::packets(200, 417);
    return {std::move(streams), audio, audio};
}

class AudioFileStreamContract : public testing::TestWithParam<Kind (*)()> {
  protected:
    Kind kind = GetParam()();
    Listener listener;
    AudioStatus status = -1;
    std::unique_ptr<AudioFileStream> stream = kind.streams->open(AudioFileType::Mp3, listener, status);
};
std::string nameOf(const testing::TestParamInfo<Kind (*)()>& kind)
{
    return kind.param == mpeg ? "Mpeg" : kind.param == wave ? "Wave" : "Fake";
}
INSTANTIATE_TEST_SUITE_P(RealAndFake, AudioFileStreamContract, testing::Values(mpeg, wave, fake), nameOf);

TEST_P(AudioFileStreamContract, GivesTheAudioWhateverThePieces)
{
    for (const qsizetype piece : {1, 7, 2048, 1'000'000}) {
        SCOPED_TRACE(piece);
        Listener each;
        const auto parser = kind.streams->open(AudioFileType::Wave, each, status);
        ASSERT_EQ(status, kAudioOk);
        EXPECT_EQ(feed(*parser, kind.file, piece), kAudioOk);
        EXPECT_EQ(each.allBytes(), kind.audio);
        EXPECT_GT(each.format.sampleRate, 0);
        EXPECT_GT(each.format.framesPerPacket, 0U);
        EXPECT_GT(each.format.channelsPerFrame, 0U);
        EXPECT_EQ(parser->close(), kAudioOk);
    }
}

TEST_P(AudioFileStreamContract, GoesOnFromWhereASeekSays)
{
    ASSERT_EQ(feed(*stream, kind.file, 2048), kAudioOk);
    std::int64_t offset = -1;
    bool estimated = false;
    ASSERT_EQ(stream->seek(50, offset, estimated), kAudioOk);
    ASSERT_GT(offset, 0);
    ASSERT_LT(offset, kind.audio.size());
    listener.packets.clear();
    listener.constantBytes.clear();
    EXPECT_EQ(feed(*stream, kind.audio.mid(offset), 2048, true), kAudioOk);
    // A frame's length of tolerance where the place is that of an average.
    EXPECT_GE(listener.allBytes().size(), kind.audio.size() - offset - 2 * 418);
    EXPECT_TRUE(kind.audio.endsWith(listener.allBytes()));
}

TEST_P(AudioFileStreamContract, RefusesAPage)
{
    EXPECT_NE(feed(*stream, QByteArray("<html><p>Not found</p></html>").repeated(10'000), 2048), kAudioOk);
    EXPECT_TRUE(listener.found.empty());
}

} // namespace
} // namespace zib
