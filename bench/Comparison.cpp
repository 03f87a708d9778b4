// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "Comparison.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>
#include <vector>

namespace obelmark::bench {

namespace {

std::map<std::string, Comparison> registered;

double quantile(std::vector<double> samples, double share)
{
    const auto at = samples.begin() + std::ptrdiff_t(double(samples.size() - 1) * share + 0.5);
    std::nth_element(samples.begin(), at, samples.end());
    return *at;
}

void run(benchmark::State &state, const Comparison &comparison)
try {
    const Sides sides = comparison.prepare();
    std::vector<double> ours, other;
    const auto takePair = [&](bool oursFirst) {
        sides.beforePair();
        if (oursFirst)
            ours.push_back(sides.ours());
        other.push_back(sides.other());
        if (!oursFirst)
            ours.push_back(sides.ours());
        sides.afterPair();
    };
    takePair(true);
    ours.clear();
    other.clear();
    for (auto _ : state) {
        takePair(ours.size() % 2 == 0);
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["ours"] = quantile(ours, 0.5);
    state.counters["ours_p99"] = quantile(ours, 0.99);
    state.counters["other"] = quantile(other, 0.5);
} catch (const std::exception &error) {
    state.SkipWithError(error.what());
}

bool isMet(const Target &target, double ours, double other)
{
    const bool isRelative = target.ratio > 0 || target.more > 0;
    return (target.atMost <= 0 || ours <= target.atMost) &&
           (!isRelative || (target.ratio > 0 && ours <= target.ratio * other) ||
            (target.more > 0 && ours <= other + target.more));
}

std::string textOf(const Target &target, const std::string &unit)
{
    std::string text;
    const auto add = [&text](double limit, const char *joint, const char *before, const std::string &after) {
        char number[32];
        std::snprintf(number, sizeof number, "%s%g", before, limit);
        if (limit > 0)
            text += (text.empty() ? "" : joint) + std::string(number) + after;
    };
    add(target.atMost, "", "", " " + unit);
    add(target.ratio, ", ", "", "x");
    add(target.more, " or ", "+", " " + unit);
    return text.empty() ? "none" : text;
}

class Lines : public benchmark::BenchmarkReporter
{
public:
    bool allMet = true;

    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            const Comparison &comparison = registered.at(run.run_name.function_name);
            const Target &target = comparison.target;
            const char *name = comparison.name.c_str(), *unit = comparison.unit.c_str();
            if (run.error_occurred) {
                std::printf("%-55s FAILED: %s\n", name, run.error_message.c_str());
                allMet = false;
                continue;
            }
            const double ours = run.counters.at("ours"), other = run.counters.at("other");
            const bool met = isMet(target, ours, other);
            allMet = allMet && met;
            std::printf("%-55s %9.4f %s (99 %%: %9.4f)  %s %9.4f %s  %+9.4f %s %6.2fx  (target %s)  %s\n",
                        name, ours, unit, double(run.counters.at("ours_p99")), comparison.against.c_str(),
                        other, unit, ours - other, unit, ours / other, textOf(target, unit).c_str(),
                        met ? "pass" : "MISS");
            std::fflush(stdout);
        }
    }
};

} // namespace

void registerComparison(const Comparison &comparison)
{
    registered.emplace(comparison.name, comparison);
    benchmark::RegisterBenchmark(comparison.name.c_str(), run, comparison)
        ->Iterations(comparison.pairs)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

double milliseconds(const std::function<void()> &action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

int runComparisons(int argc, char *argv[])
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    Lines lines;
    benchmark::RunSpecifiedBenchmarks(&lines);
    benchmark::Shutdown();
    return lines.allMet ? 0 : 1;
}

} // namespace obelmark::bench
