// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Composer.h"

#include "catalogue/demo/Accompaniment.h"
#include "catalogue/demo/Melody.h"
#include "catalogue/demo/Random.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zib::demo {
namespace {

/// The form by its length in sections of four bars.
constexpr std::array<std::string_view, 17> forms = {
    "o",
    "o",
    "Ao",
    "Aao",
    "Aabo",
    "iAabo",
    "iAaBbo",
    "iAaBbao",
    "iAaBbAao",
    "iAaBbkAao",
    "iAaAaBbAao",
    "iAaAaBbkAao",
    "iAaAaBbkAabo",
    "iAaAaBbkAaBbo",
    "iAaAaBbkAaBbao",
    "iiAaAaBbkAaBbao",
    "iiAaAaBbkAaBbAao",
};
constexpr int barsOfSection = 4;
constexpr std::array<int, 9> comfortableTonics = {0, 2, 3, 4, 5, 7, 8, 9, 10};

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(separator));
        text.remove_prefix(std::min(text.size(), word.size() + 1));
        if (word.find_first_not_of(' ') != std::string_view::npos)
            words.push_back(word);
    }
    return words;
}

std::string_view trimmed(std::string_view word)
{
    const auto first = word.find_first_not_of(' ');
    return word.substr(first, word.find_last_not_of(' ') - first + 1);
}

void choosePlayers(Score& score, const Style& style, std::uint64_t artistSeed)
{
    Random random(artistSeed);
    const auto set = [&](Part part, const std::vector<Instrument>& choices) {
        score.instruments.at(static_cast<std::size_t>(part)) =
            choices.empty() ? Instrument::WarmPad : random.pick(choices);
    };
    set(Part::Lead, style.leads);
    set(Part::Chords, style.chordInstruments);
    set(Part::Pad, style.pads);
    set(Part::Bass, style.basses);
    set(Part::Counter, style.counters);
    score.kit = style.kit;
    score.roominess = style.roominess * random.between(0.85F, 1.15F);
    score.warmth = style.warmth;
}

/// Fits a whole number of sections into the length by bending the tempo a little.
void chooseTime(Score& score, const Style& style, int seconds, Random& random)
{
    score.beatsPerBar = style.beatsPerBar;
    score.seconds = seconds;
    const double tail = 2.2 + 2.6 * score.roominess;
    const double tempo = random.between(static_cast<float>(style.slowest), static_cast<float>(style.fastest));
    const double wantedBars = (seconds - tail) * tempo / 60.0 / score.beatsPerBar;
    const int sections = std::clamp(static_cast<int>(std::lround(wantedBars / barsOfSection)), 2,
                                    static_cast<int>(forms.size()) - 1);
    score.bars = sections * barsOfSection;
    if (style.human) {
        score.slowingBeats = 2.0 * score.beatsPerBar;
        score.slowing = 0.45;
    }
    score.secondsPerBeat = (seconds - tail) / (score.beats() + score.slowing * score.slowingBeats / 2);
}

float intensityOf(char letter, int occurrence, bool afterBridge)
{
    switch (letter) {
    case 'i':
        return 0.3F;
    case 'A':
    case 'a':
        return afterBridge ? 1.0F : (occurrence == 0 ? 0.52F : 0.7F);
    case 'B':
    case 'b':
        return afterBridge && occurrence > 0 ? 0.95F : 0.84F;
    case 'k':
        return 0.35F;
    default:
        return 0.45F;
    }
}

void layOutForm(Score& score)
{
    const std::string_view form = forms.at(static_cast<std::size_t>(score.bars / barsOfSection));
    bool bridgeHeard = false;
    for (std::size_t i = 0; i < form.size(); ++i) {
        Section section;
        section.letter = form[i];
        section.occurrence =
            static_cast<int>(std::count(form.begin(), form.begin() + static_cast<long>(i), form[i]));
        section.beat = static_cast<double>(i) * barsOfSection * score.beatsPerBar;
        section.intensity = intensityOf(section.letter, section.occurrence, bridgeHeard);
        bridgeHeard = bridgeHeard || section.letter == 'b';
        score.sections.push_back(section);
    }
}

void layOutChords(Score& score, const Progression& progression)
{
    const auto verse = split(progression.verse, '|');
    const auto bridge = split(progression.bridge, '|');
    const auto ending = split(progression.ending, '|');
    for (const Section& section : score.sections) {
        const bool ofBridge = section.letter == 'B' || section.letter == 'b' || section.letter == 'k';
        const auto& source = section.letter == 'o' ? ending : (ofBridge ? bridge : verse);
        const std::size_t first =
            section.letter == 'a' || section.letter == 'b' || section.letter == 'k' ? 4 : 0;
        for (std::size_t bar = 0; bar < barsOfSection; ++bar) {
            const auto chords = split(source.at(first + bar), ' ');
            const double length = static_cast<double>(score.beatsPerBar) / static_cast<double>(chords.size());
            double beat = section.beat + static_cast<double>(bar) * score.beatsPerBar;
            for (const std::string_view numeral : chords) {
                const Chord chord = chordFromNumeral(trimmed(numeral), score.tonic, score.mode);
                const bool held = !score.chords.empty() && score.chords.back().chord == chord && bar > 0;
                if (held)
                    score.chords.back().length += length;
                else
                    score.chords.push_back({beat, length, chord});
                beat += length;
            }
        }
    }
}

/// Players neither keep a machine's time nor strike twice the same; the off-beats swing.
void humanise(Score& score, const Style& style, Random& random)
{
    for (auto& part : score.parts) {
        for (Note& note : part) {
            const double within = note.beat - std::floor(note.beat);
            const double half = 0.5;
            const double swing = style.swing;
            const double swung =
                within <= half ? within * 2 * swing : swing + (within - half) * 2 * (1 - swing);
            note.beat += swung - within;
            if (style.human) {
                note.delay += random.between(0.0F, 0.012F);
                note.velocity *= random.between(0.9F, 1.06F);
            } else {
                note.velocity *= random.between(0.96F, 1.03F);
            }
            note.velocity = std::min(note.velocity, 1.0F);
        }
    }
}

void write(Score& score, const Style& style, Random& random)
{
    Melodist melodist(style, score, random);
    Accompanist accompanist(style, score, random);
    const bool hasPad = !style.pads.empty();
    for (const Section& section : score.sections) {
        const float intensity = section.intensity;
        accompanist.chords(section);
        if (hasPad && (intensity < 0.5F || intensity >= 0.7F || style.roominess >= 0.45F))
            accompanist.pad(section);
        if (section.letter != 'i' || section.occurrence > 0 || style.kit == DrumKit::None)
            accompanist.bass(section);
        if (style.kit != DrumKit::None && section.letter != 'i' && section.letter != 'o')
            accompanist.drums(section);
        const std::vector<Note> tune = melodist.tuneOf(section);
        auto& lead = score.part(Part::Lead);
        lead.insert(lead.end(), tune.begin(), tune.end());
        if (intensity >= 0.95F || section.letter == 'b') {
            const std::vector<Note> second = melodist.voiceUnder(tune);
            auto& counter = score.part(Part::Counter);
            counter.insert(counter.end(), second.begin(), second.end());
        }
    }
    accompanist.lastChord();
}

} // namespace

Score compose(const Commission& commission)
{
    const Style& style = styleOf(commission.tag);
    Random random(commission.songSeed);
    Score score;
    choosePlayers(score, style, commission.artistSeed);
    chooseTime(score, style, commission.seconds, random);
    const Progression& progression = random.pick(style.progressions);
    score.mode = progression.mode;
    score.tonic = random.pick(comfortableTonics);
    layOutForm(score);
    layOutChords(score, progression);
    write(score, style, random);
    humanise(score, style, random);
    return score;
}

} // namespace zib::demo
