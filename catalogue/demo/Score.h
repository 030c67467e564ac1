// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/demo/Harmony.h"

#include <array>
#include <cstddef>
#include <vector>

namespace zib::demo {

enum class Instrument {
    FeltPiano,
    GrandPiano,
    ElectricPiano,
    Vibraphone,
    Kalimba,
    Celesta,
    GlassBell,
    NylonGuitar,
    SteelGuitar,
    Harp,
    CleanGuitar,
    DriveGuitar,
    WarmPad,
    StringSection,
    Choir,
    Organ,
    Flute,
    Clarinet,
    Violin,
    Cello,
    MutedTrumpet,
    Whistle,
    SawLead,
    SquareLead,
    AnalogPluck,
    SubBass,
    SawBass,
    UprightBass,
    FingerBass,
    count
};

enum class Drum { Kick, Snare, Rim, ClosedHat, OpenHat, Ride, Crash, Shaker, Clap, Tom, Brush, count };

enum class DrumKit { None, Acoustic, Brushes, Electronic, Dusty };

enum class Part { Lead, Counter, Chords, Pad, Bass, Drums, count };
constexpr std::size_t partCount = static_cast<std::size_t>(Part::count);

struct Note {
    double beat = 0;
    double length = 0;  ///< in beats
    int pitch = 0;      ///< MIDI key number; in Part::Drums a Drum
    float velocity = 0; ///< 0 to 1
    double delay = 0;   ///< seconds after the beat: the fingers' part
};

struct ChordSpan {
    double beat = 0;
    double length = 0;
    Chord chord;
};

/// Four bars of the form.
struct Section {
    char letter = 'A';  ///< i intro, A/a verse, B/b bridge (first and second half), k break, o ending
    int occurrence = 0; ///< how often the letter has been heard before
    double beat = 0;
    float intensity = 0; ///< 0 to 1
};

/// A whole song as a musician would write it down.
struct Score {
    int tonic = 0;
    Mode mode = Mode::Major;
    int beatsPerBar = 4;
    int bars = 0;
    double secondsPerBeat = 0;
    double slowing = 0;      ///< how much longer the last of the slowing beats is, as a share of a beat
    double slowingBeats = 0; ///< over how many beats at the end the song slows down
    int seconds = 0;         ///< with the fading of the last chord
    float roominess = 0.3F;  ///< 0 to 1, how much reverberation
    float warmth = 0;        ///< 0 to 1, how much an old tape recorder is between us and the music
    DrumKit kit = DrumKit::None;
    std::array<Instrument, partCount> instruments{};
    std::vector<Section> sections;
    std::vector<ChordSpan> chords;
    std::array<std::vector<Note>, partCount> parts;

    double beats() const { return static_cast<double>(bars * beatsPerBar); }

    double secondsAt(double beat) const
    {
        const double late = beat - (beats() - slowingBeats);
        const double held = late > 0 && slowingBeats > 0 ? slowing * late * late / (2 * slowingBeats) : 0;
        return secondsPerBeat * (beat + held);
    }

    const ChordSpan& chordAt(double beat) const
    {
        std::size_t i = 0;
        while (i + 1 < chords.size() && chords[i + 1].beat <= beat + 1e-6)
            ++i;
        return chords[i];
    }

    std::vector<Note>& part(Part name) { return parts.at(static_cast<std::size_t>(name)); }
    const std::vector<Note>& part(Part name) const { return parts.at(static_cast<std::size_t>(name)); }
};

} // namespace zib::demo
