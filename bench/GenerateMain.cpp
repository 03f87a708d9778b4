// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench_generate N FILE [mixed|ascii|other]: a collection of N coins.
#include "CollectionGenerator.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <map>
#include <string>

int main(int argc, char *argv[])
{
    using namespace obelmark::bench;
    const std::map<std::string, Letters> letters{
        {"mixed", Letters::Mixed}, {"ascii", Letters::Ascii}, {"other", Letters::Other}};
    const auto chosen = letters.find(argc > 3 ? argv[3] : "mixed");
    const long long coins = argc > 1 ? std::atoll(argv[1]) : 0;
    if (argc < 3 || argc > 4 || coins < 1 || chosen == letters.end()) {
        std::fputs("usage: bench_generate N FILE [mixed|ascii|other]\n", stderr);
        return 2;
    }
    try {
        generateCollection(QString::fromLocal8Bit(argv[2]), coins, chosen->second);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
