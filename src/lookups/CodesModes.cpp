// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "lookups/CodesModes.h"

#include <array>

namespace obelmark {

namespace {

constexpr std::array modes{
    LookupMode{
        .table = Lookup::Categories,
        .caption = u"Maintain Coin Categories",
        .label = u"Coin Category Description",
        .helpTopic = 19,
        .deleteQuestion = u"Are you sure that you want to delete this category?",
        .deleteTitle = u"Delete Category",
        .inUseMessage = u"This category is in use in a Coin record",
        .noun = u"Coin Category",
    },
    LookupMode{
        .table = Lookup::Conditions,
        .caption = u"Maintain Conditions",
        .label = u"Condition Description",
        .helpTopic = 20,
        .deleteQuestion = u"Are you sure that you want to delete this Coin condition?",
        .deleteTitle = u"Delete Condition",
        .inUseMessage = u"This condition is in use in a Coin record",
        .noun = u"Coin condition",
    },
    LookupMode{
        .table = Lookup::Countries,
        .caption = u"Maintain Countries",
        .label = u"Country Description",
        .helpTopic = 49,
        .deleteQuestion = u"Are you sure that you want to delete this country?",
        .deleteTitle = u"Delete Country",
        .inUseMessage = u"This country is in use in a Coin record",
        .noun = u"country",
    },
    LookupMode{
        .table = Lookup::Formats,
        .caption = u"Maintain Formats",
        .label = u"Format Description",
        .helpTopic = 50,
        .deleteQuestion = u"Are you sure that you want to delete this format?",
        .deleteTitle = u"Delete Format",
        .inUseMessage = u"This format is in use in a Coin record",
        .noun = u"format",
    },
    LookupMode{
        .table = Lookup::Mints,
        .caption = u"Maintain Mints",
        .label = u"Mint Description",
        .helpTopic = 51,
        .deleteQuestion = u"Are you sure that you want to delete this mint?",
        .deleteTitle = u"Delete Mint",
        .inUseMessage = u"This mint is in use in a Coin record",
        .noun = u"mint",
    },
    LookupMode{
        .table = Lookup::Sellers,
        .caption = u"Maintain Sellers (Bought From)",
        .label = u"Seller Description",
        .helpTopic = 52,
        .deleteQuestion = u"Are you sure that you want to delete this seller?",
        .deleteTitle = u"Delete Seller (Bought From)",
        .inUseMessage = u"This seller is in use in a Coin record",
        .noun = u"Coin seller",
    },
    LookupMode{
        .table = Lookup::Types,
        .caption = u"Maintain Types",
        .label = u"Type Description",
        .helpTopic = 54,
        .deleteQuestion = u"Are you sure that you want to delete this type?",
        .deleteTitle = u"Delete Type",
        .inUseMessage = u"This type is in use in a Coin record",
        .noun = u"type",
    },
};

} // namespace

const LookupMode &lookupMode(Lookup table)
{
    return modes.at(size_t(table) - 1);
}

} // namespace obelmark
