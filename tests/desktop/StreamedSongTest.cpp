// SPDX-License-Identifier: GPL-3.0-or-later
// A song's whole way from the network to the ear. Hunts for what no part shows alone: sound lost or repeated
// where two parts meet, a seek that lands elsewhere, an end that nobody tells of.
#include "tests/desktop/StreamedSong.h"

#include <map>
#include <string>

namespace zib::test {
namespace {

constexpr Format kHighEfficiency{"M4aHighEfficiency", "/song.m4a",
                                 "-c:a aac -ar 22050 -b:a 64k -aac_pns 0 -movflags +faststart", 2048};

/// Every format that a song may come in, and the ways in which its file may be laid out.
constexpr Format kFormats[] = {
    kConstant,
    {"Mp3Tagged", "/song.mp3",
     "-f lavfi -i testsrc=s=300x300:d=0.04 -map 0:a -map 1:v -c:v png -disposition:v attached_pic -ac 2 "
     "-b:a 192k -metadata title=A -write_id3v1 1",
     1152},
    {"Mp3Bare", "/song.mp3", "-b:a 160k -write_xing 0 -id3v2_version 0", 1152},
    {"Mp3VariableRate", "/song.mp3", "-q:a 4", 1152, 44100, 0.5},
    {"Mp3Mono", "/song.mp3", "-ac 1 -b:a 64k", 1152},
    {"Mp3HalfRate", "/song.mp3", "-b:a 64k", 576, 22050},
    {"Mp3At48", "/song.mp3", "-b:a 320k", 1152, 48000},
    kWave,
    {"WaveLarge", "/song.wav", "-c:a pcm_s24le", 1, 96000},
    {"WaveMuLaw", "/song.wav", "-c:a pcm_mulaw -ac 1", 1, 22050},
    {"Aiff", "/song.aiff", "-c:a pcm_s16be", 1},
    {"AifcLittle", "/song.aifc", "-c:a pcm_s16le -f aiff", 1},
    {"AifcIma", "/song.aifc", "-c:a adpcm_ima_qt -f aiff", 64},
    {"Caf", "/song.caf", "-c:a pcm_s24be", 1, 48000},
    {"CafLossless", "/song.caf", "-c:a alac", 4096, 44100, 0.5, 0},
    {"AacAdts", "/song.aac", "-c:a aac -b:a 128k -aac_pns 0", 1024, 44100, 0.5},
    {"M4a", "/song.m4a", "-c:a aac -b:a 128k -aac_pns 0 -movflags +faststart", 1024},
    {"M4aIndexLast", "/song.m4a", "-c:a aac -b:a 128k -aac_pns 0", 1024, 44100, 0.1, 0},
    {"M4aLossless", "/song.m4a", "-c:a alac -movflags +faststart", 4096},
    {"Mp4Fragments", "/song.mp4",
     "-c:a aac -b:a 128k -aac_pns 0 -movflags dash+global_sidx -frag_duration 1000000", 1024},
    {"Mp4FragmentsWithoutIndex", "/song.mp4",
     "-c:a aac -b:a 128k -aac_pns 0 -movflags frag_keyframe+empty_moov -frag_duration 1500000", 1024, 44100,
     0.5},
    kHighEfficiency,
    // Their pages hold up to a second.
    {"OggVorbis", "/song.ogg", "-c:a libvorbis -q:a 4", 2048, 44100, 0.5, 2},
    {"OggOpus", "/song.opus", "-c:a libopus -b:a 96k", 960, 48000, 0.5, 1},
    {"OggFlac", "/song.oga", "-c:a flac", 4608, 44100, 0.5, 1},
    {"Flac", "/song.flac", "-c:a flac", 4608, 44100, 0.5},
};

/// The file, made once.
const QByteArray& fileOf(const Format& format)
{
    static std::map<std::string, QByteArray> files;
    QByteArray& file = files[format.name];
    if (file.isEmpty())
        file = encode(format);
    if (format.name == kHighEfficiency.name) {
        // No packaged encoder makes HE-AAC: a low rate that says that it is half of one is decoded alike.
        const auto plain = QByteArray::fromHex("139056e500");
        const qsizetype at = file.indexOf(plain);
        if (at >= 0)
            file.replace(at, plain.size(), QByteArray::fromHex("2b92080000"));
    }
    return file;
}

class WholeSongTest : public StreamedSongTest, public testing::WithParamInterface<Format> {
  protected:
    const QByteArray& file = fileOf(GetParam());
};
INSTANTIATE_TEST_SUITE_P(Formats, WholeSongTest, testing::ValuesIn(kFormats),
                         [](const auto& format) { return std::string(format.param.name); });

TEST_P(WholeSongTest, IsHeardToItsEnd)
{
    start(GetParam().path, {.body = file});
    ASSERT_TRUE(ends());
    EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    EXPECT_EQ(streamer->stopReason(), StopReason::StoppingEof);
    EXPECT_EQ(states.count(State::Buffering), 0);
    expectWhole(file, GetParam());
}

TEST_P(WholeSongTest, LosesNothingByAPauseAndStalls)
{
    start(GetParam().path,
          {.body = file, .pieceBytes = file.size() / 4 + 1, .piecePause = std::chrono::milliseconds(600)});
    ASSERT_TRUE(hears(1));
    streamer->pause();
    ASSERT_TRUE(streamer->isPaused());
    const auto heard = recorder.frames();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(recorder.frames(), heard);
    streamer->start();
    ASSERT_TRUE(ends());
    for (qsizetype at = 0, stall = 0; stall < GetParam().stalls; ++stall) {
        at = states.indexOf(State::Buffering, at);
        ASSERT_GE(at, 0) << stall;
        at = states.indexOf(State::Playing, at);
        ASSERT_GE(at, 0) << stall;
    }
    expectWhole(file, GetParam());
}

TEST_P(WholeSongTest, GoesOnFromThereAfterASeek)
{
    start(GetParam().path, {.body = file, .honoursRanges = true});
    seekAndListen();
    EXPECT_EQ(server.requests().size(), 2U);
    expectSoundAfterTheSeek(file, GetParam());
}

TEST_P(WholeSongTest, EndsWithASeekToItsEnd)
{
    // Lengths are estimates: what the slider takes for the end may lie beyond it.
    for (const double target : {0.99 * kSeconds, kSeconds, 2 * kSeconds}) {
        SCOPED_TRACE(target);
        start(GetParam().path, {.body = file, .honoursRanges = true});
        ASSERT_TRUE(eventually([this] { return streamer->isPlaying(); }));
        streamer->seekToTime(target);
        ASSERT_TRUE(ends());
        QCoreApplication::processEvents();
        EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
        EXPECT_EQ(streamer->stopReason(), StopReason::StoppingEof);
        EXPECT_TRUE(delegate.notFound.isEmpty());
    }
}

TEST_F(StreamedSongTest, EndsWithAnErrorWhereTheConnectionDoes)
{
    const QByteArray file = encode(kConstant);
    start(kConstant.path, {.body = file, .closeAt = file.size() / 2});
    expectFailure(ErrorCode::AudioDataNotFound);
    const auto heard = recorder.channel(0);
    EXPECT_LT(heard.size(), kSeconds * kToneRate * 0.55);
    expectOnePiece(heard, decode(file), -2 * 1152, 2 * 1152);
}

} // namespace
} // namespace zib::test
