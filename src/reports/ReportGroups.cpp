#include "reports/ReportGroups.h"

#include "runtime/NumberedError.h"
#include <algorithm>

namespace obelmark {

namespace {

constexpr ReportGroup groups[] = {
    {
        .mode = 1,
        .title = u"Coins by Category",
        .heading = u"Category",
        .DescField = u"catdesc",
        .KeyField = u"catid",
        .caption = u"Category Report",
        .optAll = u"All Categories",
        .optSelected = u"Selected Categories",
        .listQuery = u"select * from category order by catdesc",
        .helpTopic = 35,
        .query = u"Select descr, CatNum, Quantity, face, year, catdesc from Coin left join category on "
                 u"Coin.CatID = category.CatID",
        .condition = u"and Coin.CatID = ",
        .order = u" order by catdesc, descr",
    },
    {
        .mode = 3,
        .title = u"Coins by Country",
        .heading = u"Country",
        .DescField = u"coudesc",
        .KeyField = u"couid",
        .caption = u"Country Report",
        .optAll = u"All Countries",
        .optSelected = u"Selected Country",
        .listQuery = u"select * from country order by coudesc",
        .helpTopic = 60,
        .query = u"Select descr, CatNum, Quantity, face, year, coudesc from Coin left join country on "
                 u"Coin.couID = country.couID",
        .condition = u"and Coin.couID = ",
        .order = u" order by coudesc, descr",
    },
    {
        .mode = 5,
        .title = u"Coins by Mint",
        .heading = u"Mint",
        .DescField = u"mindesc",
        .KeyField = u"minid",
        .caption = u"Mint Report",
        .optAll = u"All Mints",
        .optSelected = u"Selected Mint",
        .listQuery = u"select * from Mint order by mindesc",
        .helpTopic = 37,
        .query = u"Select descr, CatNum, Quantity, face, year, mindesc from Coin left join mint on "
                 u"Coin.minID = mint.minID",
        .condition = u"and Coin.minID = ",
        .order = u" order by mindesc, descr",
    },
    {
        .mode = 4,
        .title = u"Coins by Format",
        .heading = u"Format",
        .DescField = u"fordesc",
        .KeyField = u"forid",
        .caption = u"Format Report",
        .optAll = u"All Formats",
        .optSelected = u"Selected Format",
        .listQuery = u"select * from format order by fordesc",
        .helpTopic = 63,
        .query = u"Select descr, CatNum, Quantity, face, year, fordesc from Coin left join format on "
                 u"Coin.forID = format.forID",
        .condition = u"and Coin.forID = ",
        .order = u" order by fordesc, descr",
    },
    {
        .mode = 7,
        .title = u"Coins by Type",
        .heading = u"Type",
        .DescField = u"typdesc",
        .KeyField = u"typid",
        .caption = u"Type Report",
        .optAll = u"All Types",
        .optSelected = u"Selected Type",
        .listQuery = u"select * from type order by typdesc",
        .helpTopic = 62,
        .query = u"Select descr, CatNum, Quantity, face, year, typdesc from Coin left join type on "
                 u"Coin.typID = type.typID",
        .condition = u"and Coin.typID = ",
        .order = u" order by typdesc, descr",
    },
    {
        .mode = 6,
        .title = u"Coins by Seller",
        .heading = u"Seller",
        .DescField = u"bouDesc",
        .KeyField = u"bouid",
        .caption = u"Seller Report",
        .optAll = u"All Sellers",
        .optSelected = u"Selected Seller",
        .listQuery = u"select * from boughtfrom order by bouDesc",
        .helpTopic = 53,
        .query = u"Select descr, CatNum, face, year, Quantity, boudesc from Coin left join boughtfrom on "
                 u"Coin.bouid = boughtfrom.bouid",
        .condition = u"and Coin.bouid = ",
        .order = u" order by boudesc, descr",
    },
};

} // namespace

std::span<const ReportGroup> reportGroups()
{
    return groups;
}

const ReportGroup &reportGroup(int mode)
{
    const auto *const found = std::ranges::find(groups, mode, &ReportGroup::mode);
    if (found == std::end(groups))
        throw runtimeError(SubscriptOutOfRange);
    return *found;
}

} // namespace obelmark
