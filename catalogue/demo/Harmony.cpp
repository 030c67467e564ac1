// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Harmony.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace zib::demo {
namespace {

int pitchClass(int pitch)
{
    return ((pitch % 12) + 12) % 12;
}

struct Numeral {
    std::string_view text;
    int degree;
};

constexpr std::array numerals = {
    Numeral{"VII", 6}, Numeral{"III", 2}, Numeral{"VI", 5},  Numeral{"IV", 3},  Numeral{"II", 1},
    Numeral{"V", 4},   Numeral{"I", 0},   Numeral{"vii", 6}, Numeral{"iii", 2}, Numeral{"vi", 5},
    Numeral{"iv", 3},  Numeral{"ii", 1},  Numeral{"v", 4},   Numeral{"i", 0},
};

struct Suffix {
    std::string_view text;
    std::vector<int> major;
    std::vector<int> minor;
};

const std::vector<Suffix>& suffixes()
{
    static const std::vector<Suffix> list = {
        {"", {0, 4, 7}, {0, 3, 7}},
        {"6", {0, 4, 7, 9}, {0, 3, 7, 9}},
        {"7", {0, 4, 7, 10}, {0, 3, 7, 10}},
        {"9", {0, 4, 7, 10, 14}, {0, 3, 7, 10, 14}},
        {"13", {0, 4, 10, 14, 21}, {0, 3, 10, 14, 21}},
        {"maj7", {0, 4, 7, 11}, {0, 3, 7, 11}},
        {"maj9", {0, 4, 7, 11, 14}, {0, 3, 7, 11, 14}},
        {"add9", {0, 4, 7, 14}, {0, 3, 7, 14}},
        {"sus2", {0, 2, 7}, {0, 2, 7}},
        {"sus4", {0, 5, 7}, {0, 5, 7}},
        {"7sus4", {0, 5, 7, 10}, {0, 5, 7, 10}},
        {"7b9", {0, 4, 7, 10, 13}, {0, 3, 7, 10, 13}},
        {"h7", {0, 3, 6, 10}, {0, 3, 6, 10}},
        {"o", {0, 3, 6}, {0, 3, 6}},
    };
    return list;
}

/// The chord's tones in the order of their worth when there are fewer voices: the fifth goes first, then the
/// root.
std::vector<int> chosenTones(const Chord& chord, int count)
{
    std::vector<int> tones = chord.tones;
    if (static_cast<int>(tones.size()) > count)
        std::erase(tones, 7);
    if (static_cast<int>(tones.size()) > count)
        std::erase(tones, 0);
    while (static_cast<int>(tones.size()) > count)
        tones.pop_back();
    std::vector<int> classes;
    classes.reserve(tones.size());
    for (const int tone : tones)
        classes.push_back(pitchClass(chord.root + tone));
    std::sort(classes.begin(), classes.end());
    return classes;
}

} // namespace

const std::array<int, 7>& scaleOf(Mode mode)
{
    static constexpr std::array<std::array<int, 7>, 5> scales = {{
        {0, 2, 4, 5, 7, 9, 11},
        {0, 2, 3, 5, 7, 8, 10},
        {0, 2, 3, 5, 7, 9, 10},
        {0, 2, 4, 5, 7, 9, 10},
        {0, 2, 4, 6, 7, 9, 11},
    }};
    return scales.at(static_cast<std::size_t>(mode));
}

bool Chord::contains(int pitch) const
{
    return std::any_of(tones.begin(), tones.end(),
                       [&](int tone) { return pitchClass(root + tone) == pitchClass(pitch); });
}

Chord chordFromNumeral(std::string_view numeral, int tonic, Mode mode)
{
    int shift = 0;
    if (numeral.starts_with('b') || numeral.starts_with('#')) {
        shift = numeral.front() == 'b' ? -1 : 1;
        numeral.remove_prefix(1);
    }
    const auto* const found = std::find_if(numerals.begin(), numerals.end(),
                                           [&](const Numeral& n) { return numeral.starts_with(n.text); });
    if (found == numerals.end())
        return {};
    const bool minor = numeral.front() == 'i' || numeral.front() == 'v';
    numeral.remove_prefix(found->text.size());
    // An altered degree is counted from the major scale, so that bVII means the same in every mode.
    const auto& scale = shift == 0 ? scaleOf(mode) : scaleOf(Mode::Major);
    Chord chord;
    chord.root = pitchClass(tonic + scale.at(static_cast<std::size_t>(found->degree)) + shift);
    for (const Suffix& suffix : suffixes())
        if (suffix.text == numeral)
            chord.tones = minor ? suffix.minor : suffix.major;
    return chord;
}

std::array<int, 7> scaleUnder(const Chord& chord, int tonic, Mode mode)
{
    std::array<int, 7> scale{};
    for (std::size_t i = 0; i < scale.size(); ++i)
        scale.at(i) = pitchClass(tonic + scaleOf(mode).at(i));
    for (const int tone : chord.tones) {
        const int wanted = pitchClass(chord.root + tone);
        if (std::find(scale.begin(), scale.end(), wanted) != scale.end())
            continue;
        // Thirds, sixths and ninths raise the degree below them, as a leading tone does; sevenths, minor
        // thirds and flattened roots lower the one above.
        const bool raises = tone == 4 || tone == 7 || tone == 9 || tone == 11 || tone == 14 || tone == 21;
        const auto degreeAt = [&](int distance) {
            return std::find_if(scale.begin(), scale.end(), [&](int degree) {
                return pitchClass(degree - wanted) == distance && !chord.contains(degree);
            });
        };
        auto bent = degreeAt(raises ? 11 : 1);
        if (bent == scale.end())
            bent = degreeAt(raises ? 1 : 11);
        if (bent != scale.end())
            *bent = wanted;
    }
    return scale;
}

int stepInScale(int pitch, int steps, const std::array<int, 7>& scale)
{
    const auto inScale = [&](int candidate) {
        return std::find(scale.begin(), scale.end(), pitchClass(candidate)) != scale.end();
    };
    while (!inScale(pitch))
        pitch += steps < 0 ? -1 : 1;
    const int direction = steps < 0 ? -1 : 1;
    for (int left = std::abs(steps); left > 0; --left) {
        do
            pitch += direction;
        while (!inScale(pitch));
    }
    return pitch;
}

int nearestChordTone(int pitch, const Chord& chord, int direction)
{
    for (int distance = 0; distance < 12; ++distance) {
        if (direction >= 0 && chord.contains(pitch + distance))
            return pitch + distance;
        if (direction <= 0 && chord.contains(pitch - distance))
            return pitch - distance;
    }
    return pitch;
}

std::vector<int> voiceLead(const Chord& chord, const std::vector<int>& previous, int low, int high, int count)
{
    const std::vector<int> classes = chosenTones(chord, count);
    std::vector<int> best;
    double bestCost = std::numeric_limits<double>::max();
    for (int bottom = low; bottom <= high; ++bottom) {
        if (std::find(classes.begin(), classes.end(), pitchClass(bottom)) == classes.end())
            continue;
        std::vector<int> voicing = {bottom};
        for (int pitch = bottom + 1; static_cast<int>(voicing.size()) < count; ++pitch)
            if (std::find(classes.begin(), classes.end(), pitchClass(pitch)) != classes.end())
                voicing.push_back(pitch);
        if (voicing.back() > high && !best.empty())
            break;
        double cost = 0.3 * std::abs((voicing.front() + voicing.back()) - (low + high));
        for (std::size_t i = 0; i < voicing.size() && i < previous.size(); ++i)
            cost += std::abs(voicing[i] - previous[i]);
        if (cost < bestCost) {
            bestCost = cost;
            best = voicing;
        }
    }
    return best;
}

} // namespace zib::demo
