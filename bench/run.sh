#!/bin/sh
# SPDX-FileCopyrightText: The Obelmark developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the benchmarks and measures everything in one go: one line for each figure, with its target.
#   bench/run.sh [--benchmark_filter=REGEX]
# The collections are made once, in the build folder or the one that OBELMARK_BENCH_DATA names (3 GB, on a disk).
set -eu

cd "$(dirname "$0")/.."
cmake --preset bench
cmake --build --preset bench
bin=build/bench/bin

missed=0
"$bin/bench_engine" "$@" || missed=1
QT_QPA_PLATFORM=offscreen "$bin/bench_preview" "$@" || missed=1
"$bin/bench_coin_sets" "$@" || missed=1
"$bin/bench_reports" "$@" || missed=1
"$bin/bench_custom_report" "$@" || missed=1

# A screen of its own, with nothing else on it.
work=$(mktemp -d)
mkfifo "$work/screen"
Xvfb -displayfd 3 -screen 0 1920x1200x24 -nolisten tcp -noreset 3>"$work/screen" 2>"$work/log" &
trap 'kill $!; rm -rf "$work"' EXIT
read -r screen <"$work/screen"
export DISPLAY=":$screen" QT_QPA_PLATFORM=xcb LC_ALL=en_US.UTF-8 XDG_RUNTIME_DIR="$work"
"$bin/bench_start" "$@" || missed=1
"$bin/bench_pictures" "$@" || missed=1
exit $missed
