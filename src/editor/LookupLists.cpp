#include "editor/LookupLists.h"

#include "common/SharedState.h"
#include "editor/LookupList.h"
#include "store/CoinFile.h"

namespace obelmark {

namespace {

struct ListRow
{
    bool SharedState::*stale;
    const char16_t *control;
    const char16_t *sql;
    const char16_t *key;
    const char16_t *description;
};

constexpr ListRow listTable[] = {
    {&SharedState::ReloadConditions, u"cmbCon", u"Select * from condition order by Condesc", u"conid",
     u"Condesc"},
    {&SharedState::ReloadSellers, u"cmbBou", u"Select * from boughtfrom order by bouDesc", u"bouid",
     u"bouDesc"},
    {&SharedState::ReloadTypes, u"cmbTyp", u"Select * from type order by typDesc", u"typid", u"typdesc"},
    {&SharedState::ReloadCategories, u"cmbCat", u"Select * from category order by catdesc", u"catid",
     u"catdesc"},
    {&SharedState::ReloadCountries, u"cmbCou", u"Select * from country order by coudesc", u"couid",
     u"coudesc"},
    {&SharedState::ReloadMints, u"cmbMin", u"Select * from mint order by minDesc", u"minid", u"mindesc"},
    {&SharedState::ReloadFormats, u"cmbFor", u"Select * from format order by forDesc", u"forid", u"fordesc"},
};

void reload(LookupList &list, Database &database, const ListRow &row)
{
    const qint64 remembered = list.key().value_or(0);
    list.clear();
    int selected = -1;
    const auto entries = database.openSnapshot(QString::fromUtf16(row.sql));
    for (; !entries->eof(); entries->moveNext()) {
        const qint64 key = entries->value(row.key).toInt();
        if (key == remembered)
            selected = list.count();
        list.addItem(entries->value(row.description).toText(), QVariant::fromValue(key));
    }
    // The list selects its first entry by itself, which would turn a null key into a wrong one.
    list.setCurrentIndex(selected);
}

} // namespace

void markAllLookupListsStale(SharedState &shared)
{
    for (const ListRow &row : listTable)
        shared.*row.stale = true;
}

void reloadStaleLookupLists(QWidget &window, SharedState &shared)
{
    for (const ListRow &row : listTable) {
        if (!(shared.*row.stale))
            continue;
        auto *list = window.findChild<LookupList *>(QString::fromUtf16(row.control));
        Q_ASSERT(list);
        reload(*list, coinDatabase(shared), row);
        shared.*row.stale = false;
    }
}

} // namespace obelmark
