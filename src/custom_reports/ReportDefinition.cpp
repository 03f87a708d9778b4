// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "custom_reports/ReportDefinition.h"

#include <algorithm>

namespace obelmark {

using namespace Qt::StringLiterals;

SpecRows::SpecRows(const QList<CatalogueField> &rows) : m_rows(rows)
{
    for (qsizetype place = 0; place < rows.size(); ++place) {
        const auto specid = size_t(rows[place].specid);
        if (specid >= m_places.size())
            m_places.resize(specid + 1, -1);
        m_places[specid] = int(place);
    }
}

const CatalogueField *SpecRows::find(int specid) const
{
    const bool isInRange = specid > 0 && specid <= MaxSpecID();
    const int place = isInRange ? m_places[size_t(specid)] : -1;
    return place < 0 ? nullptr : &m_rows[place];
}

ReportDefinition::ReportDefinition(const Catalogue &catalogue, const QString &useWith)
    : ReportDefinition(catalogue.fieldsContaining(useWith), useWith)
{
}

ReportDefinition::ReportDefinition(const QList<CatalogueField> &catalogueRows, const QString &useWith)
    : SpecUseWith(useWith), rows(catalogueRows), title(u"Obelmark Report"_s),
      options(size_t(rows.MaxSpecID()) + 1)
{
    for (const CatalogueField &row : rows.all()) {
        options[size_t(row.specid)].ColWidth = row.defwidth;
        options[size_t(row.specid)].CurrencyField = row.IsCurrency;
    }
}

QList<const CatalogueField *> ReportDefinition::reportFields() const
{
    QList<const CatalogueField *> found;
    for (const int specid : fields) {
        if (const CatalogueField *row = rows.find(specid))
            found << row;
    }
    return found;
}

QList<const CatalogueField *> ReportDefinition::printedFields() const
{
    QList<const CatalogueField *> printed = reportFields();
    printed.removeIf([this](const CatalogueField *field) { return optionsOf(*field).HideField; });
    return printed;
}

const CatalogueField *ReportDefinition::sortField(int position) const
{
    return position >= 0 && position < rows.all().size() ? &rows.all()[position] : nullptr;
}

} // namespace obelmark
