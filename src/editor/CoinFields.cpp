#include "editor/CoinFields.h"

#include "common/CatalogueSort.h"
#include "common/SharedState.h"
#include "dates/DateField.h"
#include "editor/LookupList.h"
#include "store/CoinFile.h"
#include "store/ErrorHandling.h"
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

enum class Kind { Text, Notes, Money, Total, Year, Quantity, Date, IssueDate, YesNo, Lookup };

struct FieldRow
{
    const char16_t *column;
    const char16_t *control;
    Kind kind;
};

constexpr FieldRow fieldTable[] = {
    {u"descr", u"txtDescr", Kind::Text},
    {u"catnum", u"txtCatNum", Kind::Text},
    {u"face", u"txtFace", Kind::Money},
    {u"Year", u"txtYear", Kind::Year},
    {u"wantlist", u"chkWantList", Kind::YesNo},
    {u"quantity", u"txtQuantity", Kind::Quantity},
    {u"conid", u"cmbCon", Kind::Lookup},
    {u"couid", u"cmbCou", Kind::Lookup},
    {u"minid", u"cmbMin", Kind::Lookup},
    {u"catid", u"cmbCat", Kind::Lookup},
    {u"typid", u"cmbTyp", Kind::Lookup},
    {u"forid", u"cmbFor", Kind::Lookup},
    {u"SerNum", u"txtSerNum", Kind::Text},
    {u"Metal", u"txtMetal", Kind::Text},
    {u"Errors", u"txtErrors", Kind::Text},
    {u"issuedate", u"dcIssueDate", Kind::IssueDate},
    {u"bouid", u"cmbBou", Kind::Lookup},
    {u"pricepaid", u"txtPricePaid", Kind::Money},
    {u"totalpaid", u"txtTotalPaid", Kind::Total},
    {u"PurchaseDate", u"dcPurchaseDate", Kind::Date},
    {u"catvalue", u"txtCatValue", Kind::Money},
    {u"totalval", u"txtTotalVal", Kind::Total},
    {u"SoldDate", u"dcSoldDate", Kind::Date},
    {u"forsale", u"chkForSale", Kind::YesNo},
    {u"sold", u"chkSold", Kind::YesNo},
    {u"priceask", u"txtPriceAsk", Kind::Money},
    {u"totalsales", u"txtTotalSales", Kind::Total},
    {u"notes", u"txtNotes", Kind::Notes},
    {u"misc1", u"txtMisc1", Kind::Text},
    {u"misc2", u"txtMisc2", Kind::Text},
};

template<class Widget>
Widget *control(QWidget &window, const QString &name)
{
    auto *widget = window.findChild<Widget *>(name);
    Q_ASSERT(widget);
    return widget;
}

std::unique_ptr<FieldControl> makeControl(Kind kind, QWidget &window, const QString &name,
                                          const SharedState &shared)
{
    using Size = NumberControl::Size;
    switch (kind) {
    case Kind::Text:
        return std::make_unique<TextControl>(control<QLineEdit>(window, name));
    case Kind::Notes:
        return std::make_unique<NotesControl>(control<QPlainTextEdit>(window, name));
    case Kind::Money:
    case Kind::Total:
        return std::make_unique<MoneyControl>(control<QLineEdit>(window, name), shared);
    case Kind::Year:
        return std::make_unique<NumberControl>(control<QLineEdit>(window, name), Size::Bits16, QString(),
                                               shared);
    case Kind::Quantity:
        return std::make_unique<NumberControl>(control<QLineEdit>(window, name), Size::Bits32, u"1"_s,
                                               shared);
    case Kind::Date:
        return std::make_unique<DateControl>(control<DateField>(window, name), shared);
    case Kind::IssueDate:
        return std::make_unique<IssueDateControl>(control<DateField>(window, name),
                                                  control<QLineEdit>(window, u"txtYear"_s), shared);
    case Kind::YesNo:
        return std::make_unique<YesNoControl>(control<QCheckBox>(window, name));
    case Kind::Lookup:
        return std::make_unique<LookupControl>(control<LookupList>(window, name));
    }
    Q_UNREACHABLE();
}

} // namespace

CoinFields::CoinFields(QWidget &window, SharedState &shared) : m_shared(shared)
{
    for (const FieldRow &row : fieldTable) {
        m_fields.push_back({QString::fromUtf16(row.column), row.kind != Kind::Total,
                            makeControl(row.kind, window, QString::fromUtf16(row.control), shared)});
    }
}

CoinFields::~CoinFields() = default;

void CoinFields::showRow()
{
    for (const Field &field : m_fields)
        field.control->show(coinRecordset(m_shared).value(field.column));
}

void CoinFields::clear()
{
    for (const Field &field : m_fields)
        field.control->clear();
}

void CoinFields::setEnabled(bool enabled)
{
    for (const Field &field : m_fields) {
        if (field.isEntry)
            field.control->widget()->setEnabled(enabled);
    }
}

void CoinFields::onChange(QObject *context, const std::function<void()> &changed) const
{
    for (const Field &field : m_fields) {
        if (field.isEntry)
            field.control->onChange(context, changed);
    }
}

void CoinFields::forEach(const std::function<void(const FieldControl &)> &act) const
{
    for (const Field &field : m_fields)
        act(*field.control);
}

void CoinFields::writeRow()
{
    for (const Field &field : m_fields) {
        attempt(m_shared, [&] { coinRecordset(m_shared).setValue(field.column, field.control->value()); });
        if (field.column == u"catnum") {
            attempt(m_shared, [&] {
                coinRecordset(m_shared).setValue(u"catsort", MakeCatSort(field.control->value().toText()));
            });
        }
    }
}

MoneyControl &CoinFields::money(const QString &controlName)
{
    const auto field = std::find_if(m_fields.begin(), m_fields.end(), [&](const Field &candidate) {
        return candidate.control->widget()->objectName() == controlName;
    });
    Q_ASSERT(field != m_fields.end());
    return dynamic_cast<MoneyControl &>(*field->control);
}

} // namespace obelmark
