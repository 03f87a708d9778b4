#!/usr/bin/env bash
# SPDX-FileCopyrightText: The Obelmark developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Tests are few and strong: no more than a third of the code, counted as lines of .cpp and .h that are not blank.
set -euo pipefail
most=33

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
lines() {
    find "$root/$1" \( -name '*.cpp' -o -name '*.h' \) -exec cat {} + | grep -c '[^[:space:]]'
}
src=$(lines src)
tests=$(lines tests)
per_mille=$((1000 * tests / (src + tests)))
echo "$tests lines of tests, $src of the program: $((per_mille / 10)).$((per_mille % 10)) % are tests"
((per_mille <= 10 * most))
