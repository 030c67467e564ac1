// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace zib {

constexpr int rounds = 11; // the machine drifts; the median holds

inline double milliseconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

inline double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

inline bool allWithinBars = true;

inline void report(const char* name, double ratio, double bar, const char* yardstick)
{
    allWithinBars = allWithinBars && ratio <= bar;
    std::printf("bench %s %.3f %.1f %s\n", name, ratio, bar, yardstick);
}

/// The main function of a benchmark program of those measurements.
inline int runBenchmarks(int argc, char** argv,
                         std::span<const std::pair<const char*, void (*)()>> benchmarks)
{
    const QCoreApplication application(argc, argv);
    const QByteArray wanted(argc > 1 ? argv[1] : "");
    for (const auto& [name, run] : benchmarks) {
        if (wanted == "--list")
            std::printf("%s\n", name);
        else if (wanted.isEmpty() || wanted == name)
            run();
    }
    return allWithinBars ? 0 : 1;
}

} // namespace zib
