#include "lookups/CodesModes.h"

#include "common/SharedState.h"
#include <array>

namespace obelmark {

namespace {

constexpr std::array modes{
    LookupMode{
        .sql = u"Select * from category order by CatDesc",
        .IDField = u"CatID",
        .DescField = u"CatDesc",
        .caption = u"Maintain Coin Categories",
        .label = u"Coin Category Description",
        .helpTopic = 19,
        .deleteQuestion = u"Are you sure that you want to delete this category?",
        .deleteTitle = u"Delete Category",
        .inUseQuery = u"Select CoinID from Coin where catid = ",
        .inUseMessage = u"This category is in use in a Coin record",
        .noun = u"Coin Category",
        .reload = &SharedState::ReloadCategories,
    },
    LookupMode{
        .sql = u"Select * from condition order by ConDesc",
        .IDField = u"ConID",
        .DescField = u"ConDesc",
        .caption = u"Maintain Conditions",
        .label = u"Condition Description",
        .helpTopic = 20,
        .deleteQuestion = u"Are you sure that you want to delete this Coin condition?",
        .deleteTitle = u"Delete Condition",
        .inUseQuery = u"Select CoinID from Coin where conid = ",
        .inUseMessage = u"This condition is in use in a Coin record",
        .noun = u"Coin condition",
        .reload = &SharedState::ReloadConditions,
    },
    LookupMode{
        .sql = u"Select * from country order by coudesc",
        .IDField = u"couID",
        .DescField = u"coudesc",
        .caption = u"Maintain Countries",
        .label = u"Country Description",
        .helpTopic = 49,
        .deleteQuestion = u"Are you sure that you want to delete this country?",
        .deleteTitle = u"Delete Country",
        .inUseQuery = u"Select CoinID from Coin where CouID = ",
        .inUseMessage = u"This country is in use in a Coin record",
        .noun = u"country",
        .reload = &SharedState::ReloadCountries,
    },
    LookupMode{
        .sql = u"Select * from format order by fordesc",
        .IDField = u"forID",
        .DescField = u"fordesc",
        .caption = u"Maintain Formats",
        .label = u"Format Description",
        .helpTopic = 50,
        .deleteQuestion = u"Are you sure that you want to delete this format?",
        .deleteTitle = u"Delete Format",
        .inUseQuery = u"Select CoinID from Coin where forID = ",
        .inUseMessage = u"This format is in use in a Coin record",
        .noun = u"format",
        .reload = &SharedState::ReloadFormats,
    },
    LookupMode{
        .sql = u"Select * from mint order by mindesc",
        .IDField = u"minID",
        .DescField = u"mindesc",
        .caption = u"Maintain Mints",
        .label = u"Mint Description",
        .helpTopic = 51,
        .deleteQuestion = u"Are you sure that you want to delete this mint?",
        .deleteTitle = u"Delete Mint",
        .inUseQuery = u"Select CoinID from Coin where minID = ",
        .inUseMessage = u"This mint is in use in a Coin record",
        .noun = u"mint",
        .reload = &SharedState::ReloadMints,
    },
    LookupMode{
        .sql = u"Select * from boughtfrom order by bouDesc",
        .IDField = u"bouID",
        .DescField = u"bouDesc",
        .caption = u"Maintain Sellers (Bought From)",
        .label = u"Seller Description",
        .helpTopic = 52,
        .deleteQuestion = u"Are you sure that you want to delete this seller?",
        .deleteTitle = u"Delete Seller (Bought From)",
        .inUseQuery = u"Select CoinID from Coin where bouid = ",
        .inUseMessage = u"This seller is in use in a Coin record",
        .noun = u"Coin seller",
        .reload = &SharedState::ReloadSellers,
        .hasSellerFields = true,
    },
    LookupMode{
        .sql = u"Select * from type order by typdesc",
        .IDField = u"typID",
        .DescField = u"typdesc",
        .caption = u"Maintain Types",
        .label = u"Type Description",
        .helpTopic = 54,
        .deleteQuestion = u"Are you sure that you want to delete this type?",
        .deleteTitle = u"Delete Type",
        .inUseQuery = u"Select CoinID from Coin where typID = ",
        .inUseMessage = u"This type is in use in a Coin record",
        .noun = u"type",
        .reload = &SharedState::ReloadTypes,
    },
};

} // namespace

const LookupMode &lookupMode(int mode)
{
    return modes.at(size_t(mode - 1));
}

} // namespace obelmark
