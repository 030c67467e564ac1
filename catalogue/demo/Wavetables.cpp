// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/demo/Wavetables.h"

#include "catalogue/demo/Maths.h"

#include <algorithm>
#include <cmath>

namespace zib::demo {
namespace {

constexpr std::size_t levels = 9; // 256, 128 … 1 partials
constexpr int mostPartials = 256;

using Period = std::array<float, tableSize + 1>;

struct Formant {
    double partial;
    double width;
    double level;
};

double peaks(double partial, std::initializer_list<Formant> formants)
{
    double sum = 0;
    for (const Formant& formant : formants) {
        const double distance = (partial - formant.partial) / formant.width;
        sum += formant.level / (1.0 + distance * distance);
    }
    return sum;
}

double partialOf(Wave wave, int number)
{
    const double n = number;
    const bool odd = number % 2 == 1;
    const auto upTo = [&](std::initializer_list<double> list) {
        return number <= static_cast<int>(list.size()) ? *(list.begin() + number - 1) : 0.0;
    };
    switch (wave) {
    case Wave::Sine:
        return number == 1 ? 1.0 : 0.0;
    case Wave::Saw:
        return 1.0 / n;
    case Wave::Square:
        return odd ? 1.0 / n : 0.0;
    case Wave::Pad:
        return number <= 24 ? 1.0 / (n * std::sqrt(n)) * (odd ? 1.0 : 0.7) : 0.0;
    case Wave::Strings:
        return number <= 40 ? peaks(n, {{1, 2.0, 1.0}, {4, 2.5, 0.45}, {9, 3.0, 0.16}}) / std::sqrt(n) : 0.0;
    case Wave::Choir:
        return number <= 30 ? peaks(n, {{1, 1.0, 1.0}, {3, 0.9, 0.4}, {6, 1.2, 0.12}}) / n : 0.0;
    case Wave::Organ:
        return upTo({1.0, 0.6, 0.35, 0.3, 0.0, 0.16, 0.0, 0.14});
    case Wave::Flute:
        return upTo({1.0, 0.34, 0.12, 0.04, 0.015, 0.008});
    case Wave::Clarinet:
        return number <= 20 ? (odd ? 1.0 : 0.08) / (n * std::sqrt(std::sqrt(n))) : 0.0;
    case Wave::Brass:
        return number <= 36 ? peaks(n, {{2.5, 2.0, 1.0}, {7, 2.5, 0.4}}) / std::sqrt(n) : 0.0;
    case Wave::count:
        break;
    }
    return 0;
}

std::array<Period, levels> build(Wave wave)
{
    std::array<float, tableSize> sine{};
    for (std::size_t i = 0; i < tableSize; ++i)
        sine.at(i) = static_cast<float>(sineOfTurns(static_cast<double>(i) / tableSize));
    std::array<Period, levels> periods{};
    // The richest level last, so that each one adds only its own partials to the one below.
    int from = 1;
    for (std::size_t level = levels; level-- > 0;) {
        Period& period = periods.at(level);
        if (level + 1 < levels)
            period = periods.at(level + 1);
        const int to = mostPartials >> level;
        for (int number = from; number <= to; ++number) {
            const auto weight = static_cast<float>(partialOf(wave, number));
            if (weight == 0)
                continue;
            for (std::size_t i = 0; i < tableSize; ++i)
                period[i] += weight * sine[(i * static_cast<std::size_t>(number)) & (tableSize - 1)];
        }
        period[tableSize] = period[0];
        from = to + 1;
    }
    return periods;
}

} // namespace

const float* periodOf(Wave wave, double frequency)
{
    static const auto tables = [] {
        std::vector<std::array<Period, levels>> all;
        for (std::size_t i = 0; i < static_cast<std::size_t>(Wave::count); ++i)
            all.push_back(build(static_cast<Wave>(i)));
        return all;
    }();
    std::size_t level = 0;
    while (level + 1 < levels && frequency * (mostPartials >> level) > 0.46 * sampleRate)
        ++level;
    return tables.at(static_cast<std::size_t>(wave)).at(level).data();
}

} // namespace zib::demo
