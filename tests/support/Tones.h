// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/ChildProcess.h"

#include <QByteArray>
#include <QTemporaryFile>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <span>
#include <vector>

namespace zib::test {

inline constexpr int kToneRate = 44100;

/// A sine of that many hertz at half of full scale, one channel.
inline std::vector<float> tone(double hertz, double seconds, int rate = kToneRate)
{
    std::vector<float> samples(static_cast<std::size_t>(seconds * rate));
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] =
            static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / rate));
    return samples;
}

/// The samples as 16-bit signed little-endian PCM, each in so many channels.
inline QByteArray pcm16(std::span<const float> samples, int channels = 1)
{
    QByteArray bytes;
    for (const float sample : samples) {
        const auto value = static_cast<std::uint16_t>(std::lround(sample * 32767));
        for (int channel = 0; channel < channels; ++channel) {
            bytes.append(static_cast<char>(value & 0xff));
            bytes.append(static_cast<char>(value >> 8));
        }
    }
    return bytes;
}

/// How loud the samples are on average (root mean square): 0.354 for a tone at half of full scale.
inline double loudness(std::span<const float> samples)
{
    double sum = 0;
    for (const float sample : samples)
        sum += static_cast<double>(sample) * sample;
    return samples.empty() ? 0 : std::sqrt(sum / static_cast<double>(samples.size()));
}

/// The frequency of a tone, by its upward crossings of zero.
inline double pitch(std::span<const float> samples, int rate = kToneRate)
{
    std::size_t first = 0;
    std::size_t last = 0;
    int crossings = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        if (samples[i - 1] < 0 && samples[i] >= 0) {
            (crossings++ == 0 ? first : last) = i;
        }
    }
    return crossings < 2 ? 0
                         : (crossings - 1) * static_cast<double>(rate) / static_cast<double>(last - first);
}

inline bool isAudible(float sample)
{
    return std::abs(sample) > 0.002F;
}

/// The samples from the first to the last that can be heard.
inline std::span<const float> sounding(std::span<const float> samples)
{
    const auto first = std::ranges::find_if(samples, isAudible);
    const auto last = std::find_if(samples.rbegin(), samples.rend(), isAudible).base();
    return first < last ? std::span(first, last) : std::span<const float>();
}

struct Silence {
    std::size_t begin = 0;
    std::size_t frames = 0;
};

/// The longest stretch that can't be heard.
inline Silence longestSilence(std::span<const float> samples)
{
    Silence longest;
    std::size_t run = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        run = isAudible(samples[i]) ? 0 : run + 1;
        if (run > longest.frames)
            longest = {i + 1 - run, run};
    }
    return longest;
}

/// Runs the packaged encoder on the input. @return what it wrote to its standard output.
inline QByteArray ffmpeg(const QStringList& arguments, const QByteArray& input = {})
{
    QTemporaryFile in;
    QTemporaryFile out;
    if (!in.open() || !out.open() || in.write(input) != input.size() || !in.seek(0))
        return {};
    const QStringList program{QStringLiteral("ffmpeg"), QStringLiteral("-v"), QStringLiteral("error"),
                              QStringLiteral("-y")};
    if (!ChildProcess(program + arguments, in.handle(), out.handle()).succeeds() || !out.seek(0))
        return {};
    return out.readAll();
}

/// The tone as MPEG layer 3 at 128 kbit/s without tags, split into its frames.
inline std::vector<QByteArray> mp3Packets(double hertz, double seconds)
{
    const QByteArray file =
        ffmpeg({QStringLiteral("-f"), QStringLiteral("s16le"), QStringLiteral("-ar"), QStringLiteral("44100"),
                QStringLiteral("-ac"), QStringLiteral("2"), QStringLiteral("-i"), QStringLiteral("-"),
                QStringLiteral("-b:a"), QStringLiteral("128k"), QStringLiteral("-write_xing"),
                QStringLiteral("0"), QStringLiteral("-id3v2_version"), QStringLiteral("0"),
                QStringLiteral("-f"), QStringLiteral("mp3"), QStringLiteral("-")},
               pcm16(tone(hertz, seconds), 2));
    std::vector<QByteArray> packets;
    for (qsizetype at = 0; at + 4 <= file.size();) {
        const bool padded = (static_cast<unsigned char>(file[at + 2]) & 2) != 0;
        const qsizetype size = 144 * 128000 / kToneRate + (padded ? 1 : 0);
        packets.push_back(file.mid(at, size));
        at += size;
    }
    return packets;
}

} // namespace zib::test
