// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <benchmark/benchmark.h>
#include <functional>
#include <string>

namespace obelmark::bench {

/// What a measured amount has to keep to; 0 is no limit. Where both `ratio` and `more` are given, one is
/// enough.
struct Target
{
    double atMost = 0;
    double ratio = 0; ///< to the amount that it is compared with
    double more = 0;  ///< above that amount
};

/// The two sides of a comparison; each call of one answers one sample. They own what they work on.
struct Sides
{
    std::function<double()> ours;
    std::function<double()> other;
    std::function<void()> beforePair = [] {};
    std::function<void()> afterPair = [] {}; ///< throws when the sides have not both done what they should
};

struct Comparison
{
    std::string name; ///< each comparison has another
    std::function<Sides()> prepare;
    int pairs;
    Target target = {};
    std::string against = "plain";
    std::string unit = "ms";
};

/// Adds a benchmark that takes that many pairs, after one that does not count; each side goes first in every
/// other pair. The medians of both sides go into its counters.
void registerComparison(const Comparison &comparison);

/// The milliseconds that the action takes.
double milliseconds(const std::function<void()> &action);

/// Runs what has been registered, as Google Benchmark's main function would, and prints for each comparison
/// its medians, their difference and ratio, and whether the target is met. Answers the exit status: 1 for a
/// miss.
int runComparisons(int argc, char *argv[]);

} // namespace obelmark::bench
