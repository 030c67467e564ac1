// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Accompaniment.h"

#include "catalogue/demo/Melody.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace zib::demo {
namespace {

constexpr int barsOfSection = 4;
constexpr int chordsLow = 52;
constexpr int chordsHigh = 74;
constexpr int padLow = 50;
constexpr int padHigh = 72;
constexpr int bassLow = 31;
constexpr int bassHigh = 48;

int bassNear(int pitchClass, int near)
{
    int best = 0;
    int bestDistance = 1000;
    for (int pitch = bassLow; pitch <= bassHigh; ++pitch) {
        const int distance = std::abs(pitch - near);
        if ((pitch - pitchClass) % 12 == 0 && distance < bestDistance) {
            best = pitch;
            bestDistance = distance;
        }
    }
    return best;
}

int fifthOf(const Chord& chord)
{
    for (const int tone : chord.tones)
        if (tone >= 6 && tone <= 8)
            return tone;
    return 7;
}

float loudness(char step)
{
    switch (step) {
    case 'X':
        return 0.95F;
    case 'x':
        return 0.75F;
    case 'o':
        return 0.42F;
    default:
        return 0;
    }
}

} // namespace

Accompanist::Accompanist(const Style& style, Score& score, Random& random)
    : style_(style)
    , score_(score)
    , random_(random)
{
}

void Accompanist::playStep(char sign, double beat, double length, float velocity)
{
    auto& out = score_.part(Part::Chords);
    const auto count = voicing_.size();
    if (sign >= '0' && sign <= '9') {
        const auto index = static_cast<std::size_t>(sign - '0');
        const int octave = index >= count ? 12 : 0;
        // One string or key at a time rings on into the next ones.
        out.push_back({beat, length * 1.6, voicing_[index % count] + octave, velocity, 0});
        return;
    }
    const std::size_t first = sign == 't' && count > 2 ? 1 : 0;
    for (std::size_t i = first; i < count; ++i)
        out.push_back(
            {beat, length * 0.96, voicing_[i], velocity * 0.82F, style_.strum * static_cast<double>(i)});
}

template <typename Play>
void Accompanist::walk(std::string_view pattern, const Section& section, Play play)
{
    const auto bars = 1 + std::count(pattern.begin(), pattern.end(), '|');
    const double patternBeats = static_cast<double>(bars * score_.beatsPerBar);
    const double end = section.beat + barsOfSection * score_.beatsPerBar;
    for (double start = section.beat; start < end; start += patternBeats) {
        for (const RhythmStep& step : stepsOf(pattern, score_.beatsPerBar)) {
            double beat = start + step.beat;
            const double until = std::min(end, beat + step.length);
            bool first = true;
            while (beat < until - 1e-6) { // a held note is struck again where the harmony moves on
                const ChordSpan& span = score_.chordAt(beat);
                const double length = std::min(until, span.beat + span.length) - beat;
                play(Stroke{step.sign, beat, length, std::exchange(first, false)}, span);
                beat += length;
            }
        }
    }
}

void Accompanist::chords(const Section& section)
{
    const auto& patterns = style_.chordPatterns;
    const auto& pattern = section.intensity < 0.5F ? patterns.front() : patterns.back();
    walk(pattern, section, [&](const Stroke& stroke, const ChordSpan& span) {
        if (&span != voiced_) {
            voicing_ = voiceLead(span.chord, voicing_, chordsLow, chordsHigh, style_.chordVoices);
            voiced_ = &span;
        }
        const float accent = stroke.beat == span.beat ? 0.1F : 0.0F;
        playStep(stroke.sign, stroke.beat, stroke.length, 0.5F + accent + 0.16F * section.intensity);
    });
}

void Accompanist::pad(const Section& section)
{
    const double end = section.beat + barsOfSection * score_.beatsPerBar;
    for (const ChordSpan& span : score_.chords) {
        if (span.beat < section.beat || span.beat >= end)
            continue;
        padVoicing_ = voiceLead(span.chord, padVoicing_, padLow, padHigh, 4);
        for (const int pitch : padVoicing_)
            score_.part(Part::Pad).push_back(
                {span.beat, span.length, pitch, 0.45F + 0.3F * section.intensity, 0});
    }
}

int Accompanist::bassPitch(char sign, double beat, const ChordSpan& span)
{
    const int root = bassNear(span.chord.root, lastBass_);
    switch (sign) {
    case 'f': {
        const int fifth = root + fifthOf(span.chord);
        return fifth > bassHigh ? fifth - 12 : fifth;
    }
    case 'o':
        return root + 12;
    case 'w': {
        const int direction = random_.chance(0.5F) ? 1 : -1;
        const int next = nearestChordTone(lastBass_ + 2 * direction, span.chord, direction);
        return next < bassLow || next > bassHigh + 2
                   ? nearestChordTone(lastBass_ - 2 * direction, span.chord, -direction)
                   : next;
    }
    case 'a': {
        const int nextBar = (static_cast<int>(beat) / score_.beatsPerBar + 1) * score_.beatsPerBar;
        const Chord& target = score_.chordAt(nextBar).chord;
        const int goal = bassNear(target.root, lastBass_);
        return target == span.chord ? root + fifthOf(span.chord) - (root > 40 ? 12 : 0)
                                    : goal + (lastBass_ < goal ? -1 : 1);
    }
    default:
        return root;
    }
}

void Accompanist::bass(const Section& section)
{
    const auto& patterns = style_.bassPatterns;
    const auto& pattern = section.intensity < 0.6F ? patterns.front() : patterns.back();
    walk(pattern, section, [&](const Stroke& stroke, const ChordSpan& span) {
        const bool changes = stroke.beat == span.beat;
        const int pitch = bassPitch(changes || !stroke.first ? 'r' : stroke.sign, stroke.beat, span);
        const float accent = changes ? 0.08F : 0.0F;
        score_.part(Part::Bass)
            .push_back(
                {stroke.beat, stroke.length * 0.95, pitch, 0.66F + accent + 0.1F * section.intensity, 0});
        if (stroke.sign != 'o')
            lastBass_ = pitch;
    });
}

void Accompanist::drums(const Section& section)
{
    const DrumPattern& patterns = style_.drums;
    auto& out = score_.part(Part::Drums);
    for (int bar = 0; bar < barsOfSection; ++bar) {
        const bool closes = bar == barsOfSection - 1 && (section.letter == 'a' || section.letter == 'b');
        const bool full = section.intensity >= 0.6F;
        const auto& lines = closes && full && !patterns.fill.empty()
                                ? patterns.fill
                                : (full ? patterns.full : patterns.light);
        const double start = section.beat + bar * score_.beatsPerBar;
        for (const DrumLine& line : lines) {
            const double step =
                static_cast<double>(score_.beatsPerBar) / static_cast<double>(line.steps.size());
            for (std::size_t i = 0; i < line.steps.size(); ++i)
                if (const float velocity = loudness(line.steps[i]); velocity > 0)
                    out.push_back({start + step * static_cast<double>(i), step, static_cast<int>(line.drum),
                                   velocity * (0.8F + 0.2F * section.intensity), 0});
        }
        if (bar == 0 && section.intensity >= 0.8F && section.letter != 'a' && section.letter != 'b')
            out.push_back({start, 4, static_cast<int>(Drum::Crash), 0.5F, 0});
    }
}

void Accompanist::lastChord()
{
    // The final bar holds one chord with the tonic beneath, and lets it ring on into the fading room.
    const double start = score_.beats() - score_.beatsPerBar;
    const double held = score_.beatsPerBar + 1.4 / score_.secondsPerBeat;
    const Chord& chord = score_.chordAt(start).chord;
    for (const Part part : {Part::Chords, Part::Bass, Part::Drums})
        std::erase_if(score_.part(part), [&](const Note& note) { return note.beat >= start - 1e-6; });
    voicing_ = voiceLead(chord, voicing_, chordsLow, chordsHigh, style_.chordVoices);
    double delay = 0;
    for (const int pitch : voicing_) {
        score_.part(Part::Chords).push_back({start, held, pitch, 0.5F, delay});
        delay += style_.human ? 0.03 : 0.0;
    }
    score_.part(Part::Bass).push_back({start, held, bassNear(score_.tonic, lastBass_), 0.62F, 0});
    if (score_.kit != DrumKit::None)
        score_.part(Part::Drums).push_back({start, held, static_cast<int>(Drum::Kick), 0.5F, 0});
}

} // namespace zib::demo
