// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Melody.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zib::demo {
namespace {

struct Range {
    int low;
    int high;
};

Range rangeOf(Instrument instrument)
{
    switch (instrument) {
    case Instrument::Celesta:
    case Instrument::GlassBell:
    case Instrument::Whistle:
        return {70, 91};
    case Instrument::Flute:
    case Instrument::Violin:
    case Instrument::Kalimba:
        return {67, 88};
    case Instrument::NylonGuitar:
    case Instrument::CleanGuitar:
    case Instrument::DriveGuitar:
    case Instrument::MutedTrumpet:
        return {60, 79};
    case Instrument::Clarinet:
    case Instrument::Choir:
        return {60, 81};
    default:
        return {64, 84};
    }
}

bool isWhole(double beat)
{
    return std::abs(beat - std::round(beat)) < 1e-6;
}

} // namespace

std::vector<RhythmStep> stepsOf(std::string_view rhythm, int beatsPerBar)
{
    std::vector<RhythmStep> steps;
    double beat = 0;
    while (!rhythm.empty()) {
        const std::string_view bar = rhythm.substr(0, rhythm.find('|'));
        rhythm.remove_prefix(std::min(rhythm.size(), bar.size() + 1));
        const double step = static_cast<double>(beatsPerBar) / static_cast<double>(bar.size());
        for (const char sign : bar) {
            if (sign == '-' && !steps.empty())
                steps.back().length += step;
            else if (sign != '.' && sign != '-')
                steps.push_back({beat, step, sign});
            beat += step;
        }
    }
    return steps;
}

Melodist::Melodist(const Style& style, const Score& score, Random& random)
    : score_(score)
    , random_(random)
    , low_(rangeOf(score.instruments.at(static_cast<std::size_t>(Part::Lead))).low)
    , high_(rangeOf(score.instruments.at(static_cast<std::size_t>(Part::Lead))).high)
    , middle_((2 * low_ + high_) / 3)
    , theme_(motifFrom(random.pick(style.motifs)))
    , answer_(motifFrom(random.pick(style.motifs)))
    , close_(motifFrom(random.pick(style.cadences)))
    , bridge_(motifFrom(random.pick(style.motifs)))
    , bridgeClose_(motifFrom(random.pick(style.cadences)))
{
}

Melodist::Motif Melodist::motifFrom(std::string_view rhythm)
{
    Motif motif;
    for (const RhythmStep& step : stepsOf(rhythm, score_.beatsPerBar))
        motif.onsets.push_back({step.beat, step.length});
    const int shape = random_.below(4); // arch, bowl, rising, falling
    const auto count = motif.onsets.size();
    for (std::size_t i = 0; i < count; ++i) {
        const bool firstHalf = i * 2 < count;
        const bool up = shape == 2 || (shape == 0 && firstHalf) || (shape == 1 && !firstHalf);
        const bool against = random_.chance(shape < 2 ? 0.2F : 0.35F);
        const int size = random_.chance(0.1F) ? 0 : (random_.chance(0.24F) ? 2 : 1);
        motif.moves.push_back((up != against) ? size : -size);
    }
    return motif;
}

bool Melodist::dwells(const Onset& onset, double start) const
{
    const double strong = score_.beatsPerBar == 3 ? 3.0 : 2.0;
    return onset.length >= 1.0 || isWhole((start + onset.beat) / strong);
}

int Melodist::withinReach(int pitch, const Chord& chord) const
{
    if (pitch > high_)
        return nearestChordTone(high_, chord, -1);
    return pitch < low_ ? nearestChordTone(low_, chord, 1) : pitch;
}

int Melodist::nextPitch(int previous, int move, const Chord& chord, bool dwells) const
{
    const auto scale = scaleUnder(chord, score_.tonic, score_.mode);
    int pitch = stepInScale(previous, move, scale);
    if (pitch > high_ || pitch < low_)
        pitch = stepInScale(previous, -move, scale);
    if (dwells) {
        pitch = nearestChordTone(pitch, chord);
        if (pitch == previous && move != 0) {
            const int direction = move > 0 ? 1 : -1;
            const int farther = nearestChordTone(pitch + direction, chord, direction);
            pitch = std::abs(farther - previous) <= 5 ? farther : pitch;
        }
    }
    return withinReach(pitch, chord);
}

std::vector<Note> Melodist::sing(const Motif& motif, double start, int anchor) const
{
    std::vector<Note> notes;
    for (std::size_t i = 0; i < motif.onsets.size(); ++i) {
        const Onset& onset = motif.onsets[i];
        const double beat = start + onset.beat;
        const Chord& chord = score_.chordAt(beat).chord;
        const bool strong = dwells(onset, start);
        Note note;
        note.beat = beat;
        note.length = onset.length;
        note.pitch = i == 0 ? withinReach(nearestChordTone(anchor, chord), chord)
                            : nextPitch(notes.back().pitch, motif.moves[i], chord, strong);
        note.velocity = strong ? 0.74F : 0.6F;
        notes.push_back(note);
    }
    return notes;
}

int Melodist::restFrom(int pitch, double beat) const
{
    const Chord& chord = score_.chordAt(beat).chord;
    if (!chord.contains(score_.tonic))
        return withinReach(nearestChordTone(pitch, chord), chord);
    return withinReach(nearestChordTone(pitch, Chord{score_.tonic, {0}}), Chord{score_.tonic, {0}});
}

void Melodist::comeToRest(std::vector<Note>& notes) const
{
    if (notes.size() < 2)
        return;
    Note& last = notes.back();
    last.pitch = restFrom(notes[notes.size() - 2].pitch, last.beat);
    Note& before = notes[notes.size() - 2];
    const Chord& under = score_.chordAt(before.beat).chord;
    const auto scale = scaleUnder(under, score_.tonic, score_.mode);
    const int above = stepInScale(last.pitch + 1, 0, scale);
    const bool fits = before.length < 1.0 || under.contains(above);
    const bool onBeat = isWhole(before.beat / (score_.beatsPerBar == 3 ? 3.0 : 2.0));
    if (fits && (!onBeat || under.contains(above)) && above - last.pitch <= 2)
        before.pitch = above;
}

void Melodist::vary(std::vector<Note>& notes)
{
    std::vector<Note> varied;
    for (std::size_t i = 0; i < notes.size(); ++i) {
        varied.push_back(notes[i]);
        const bool last = i + 1 == notes.size();
        if (last || notes[i].length < 1.0 || notes[i].length > 2.0 || !random_.chance(0.4F))
            continue;
        const double half = 0.5;
        Note passing = notes[i];
        passing.beat += notes[i].length - half;
        passing.length = half;
        passing.velocity *= 0.85F;
        const auto scale = scaleUnder(score_.chordAt(passing.beat).chord, score_.tonic, score_.mode);
        const int direction = notes[i + 1].pitch >= notes[i].pitch ? 1 : -1;
        passing.pitch = stepInScale(notes[i].pitch, direction, scale);
        if (score_.beatsPerBar != 3 && isWhole(passing.beat / 2.0))
            continue;
        varied.back().length -= half;
        varied.push_back(passing);
    }
    notes = std::move(varied);
}

std::vector<Note> Melodist::tuneOf(const Section& section)
{
    const double twoBars = 2.0 * score_.beatsPerBar;
    std::vector<Note> first;
    std::vector<Note> second;
    switch (section.letter) {
    case 'A':
        first = sing(theme_, section.beat, middle_);
        second = sing(answer_, section.beat + twoBars, first.empty() ? middle_ : first.back().pitch + 2);
        break;
    case 'a':
        first = sing(theme_, section.beat, middle_);
        second = sing(close_, section.beat + twoBars, first.empty() ? middle_ : first.back().pitch + 2);
        comeToRest(second);
        break;
    case 'B':
        first = sing(bridge_, section.beat, middle_ + 6);
        second = sing(bridge_, section.beat + twoBars, middle_ + 4);
        break;
    case 'b':
        first = sing(bridge_, section.beat, middle_ + 6);
        second = sing(bridgeClose_, section.beat + twoBars, middle_ + 3);
        comeToRest(second);
        break;
    case 'o':
        first = sing(close_, section.beat, middle_);
        if (!first.empty()) { // the very last note, over the chord that stays
            second = {first.back()};
            second.back().beat = section.beat + twoBars;
            second.back().length = 1.5 * score_.beatsPerBar;
            first.back().length = std::min(first.back().length, second.back().beat - first.back().beat);
            second.back().pitch = restFrom(first.back().pitch, second.back().beat);
        }
        break;
    default:
        break;
    }
    if (section.occurrence > 0)
        vary(first);
    first.insert(first.end(), second.begin(), second.end());
    float position = 0;
    for (Note& note : first) { // the phrase swells to its middle
        const float arch = 1.0F - std::abs(2.0F * position / static_cast<float>(first.size()) - 1.0F);
        note.velocity = std::min(1.0F, note.velocity * (0.86F + 0.16F * arch + 0.14F * section.intensity));
        position += 1;
    }
    return first;
}

std::vector<Note> Melodist::voiceUnder(const std::vector<Note>& tune) const
{
    std::vector<Note> voice;
    for (const Note& note : tune) {
        const ChordSpan& span = score_.chordAt(note.beat);
        if (note.length < 1.0 || !span.chord.contains(note.pitch))
            continue;
        Note second = note;
        second.pitch = nearestChordTone(note.pitch - 3, span.chord, -1);
        second.length = std::min(note.length, span.beat + span.length - note.beat);
        second.velocity *= 0.7F;
        if (second.length > 0.4)
            voice.push_back(second);
    }
    return voice;
}

} // namespace zib::demo
