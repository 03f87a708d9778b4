// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "custom_reports/Catalogue.h"
#include "runtime/Dates.h"
#include <QList>
#include <QString>
#include <vector>

namespace obelmark {

/// The catalogue rows that a report is made from, in the order of their captions.
class SpecRows
{
public:
    SpecRows() = default;
    explicit SpecRows(const QList<CatalogueField> &rows);

    const QList<CatalogueField> &all() const { return m_rows; }
    /// nullptr when no row has that id
    const CatalogueField *find(int specid) const;
    int MaxSpecID() const { return int(m_places.size()) - 1; }

private:
    QList<CatalogueField> m_rows;
    std::vector<int> m_places{-1}; ///< by specid: where in m_rows, -1 for none
};

/// What the user has set for one field, whether or not it is in the report.
struct FieldOptions
{
    bool SelTrue = false;  ///< yes/no field: only rows where it is true
    bool SelFalse = false; ///< only rows where it is not
    QString StartsWith;    ///< text field: how the value begins; empty: no criterion
    Date StartValue;       ///< first date or earliest time; serial 0: no criterion
    Date EndValue;         ///< last date or latest time; serial 0: no criterion
    QString LessThan; ///< number field: a number in the regional form that the value is below; may be empty
    QString GreaterThan;        ///< and one that it is above
    float ColWidth = 0;         ///< in the report's unit of width
    bool HideField = false;     ///< used for criteria and joins but not printed
    bool ShowTotal = false;     ///< the report ends with the column's total
    bool CurrencyField = false; ///< printed as money; the catalogue says so

    bool operator==(const FieldOptions &) const = default;
};

/// A custom report as the user has composed it. Choices are numbers as the report file holds them; sorts are
/// positions in SpecRows.
struct ReportDefinition
{
    /// The report that the designer begins with. \throws CatalogueError when there is nothing to choose from
    ReportDefinition(const Catalogue &catalogue, const QString &useWith);
    ReportDefinition(const QList<CatalogueField> &catalogueRows, const QString &useWith);

    QString SpecUseWith; ///< the main table, and the key of its catalogue rows
    SpecRows rows;
    QString title;
    int reportTo = 1;     ///< 1 preview, 2 text file, 3 web table
    int orient = 0;       ///< 0 portrait, 1 landscape
    int dateInHeader = 1; ///< 0 or 1
    int pageNum = 0;      ///< 0 at the bottom, 1 in the header, 2 none
    int width = 0;        ///< unit of ColWidth: 0 inches, 1 centimetres
    int sort1 = -1;       ///< -1 none
    int sort2 = -1;
    QList<int> fields;                 ///< the specids of the report's fields in their order
    std::vector<FieldOptions> options; ///< by specid; the first, of 0, is nobody's

    const FieldOptions &optionsOf(const CatalogueField &field) const
    {
        return options.at(size_t(field.specid));
    }
    /// The report's fields in their order, and those of them that are printed.
    QList<const CatalogueField *> reportFields() const;
    QList<const CatalogueField *> printedFields() const;
    /// The row at a position of the sort lists; nullptr for none.
    const CatalogueField *sortField(int position) const;
};

} // namespace obelmark
