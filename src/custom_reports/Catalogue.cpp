// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "custom_reports/Catalogue.h"

#include "common/TextHelpers.h"
#include "engine/language/EngineError.h"
#include "engine/language/NameIndex.h"
#include "engine/language/TextFold.h"
#include "engine/rows/Database.h"
#include <QHash>
#include <algorithm>
#include <limits>

namespace obelmark {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostSpecid = 32767;
/// No caption or name that could be shown is longer.
constexpr qsizetype mostLetters = 255;
constexpr QChar linkSeparator = u';';

/// What is no number that an id or a kind could be becomes one that is out of their range.
int smallNumber(const Value &value)
{
    return value.isNull() ? 0 : int(std::clamp<qint64>(value.toInt(), 0, std::numeric_limits<int>::max()));
}

CatalogueField readField(const Recordset &rows)
{
    const Value width = rows.value(u"defwidth");
    CatalogueField field{
        .specid = smallNumber(rows.value(u"specid")),
        .usewith = rows.value(u"usewith").toText(),
        .desc = rows.value(u"Desc").toText(),
        .fieldname = rows.value(u"fieldname").toText(),
        .datatype = FieldKind(smallNumber(rows.value(u"datatype"))),
        .defwidth = width.isNull() ? 1 : width.toText().toFloat(),
        .IsCurrency = rows.value(u"IsCurrency").toBool(),
        .FileName = rows.value(u"FileName").toText(),
        .linkfield = rows.value(u"linkfield").toText(),
        .ismemo = rows.value(u"ismemo").toBool(),
    };
    if (sameName(field.FileName, field.usewith))
        field.FileName.clear();
    return field;
}

} // namespace

QString CatalogueField::mainKey() const
{
    return GetField(linkfield, linkSeparator, 1);
}

QString CatalogueField::lookupKey() const
{
    return CountFields(linkfield, linkSeparator) == 2 ? GetField(linkfield, linkSeparator, 2) : linkfield;
}

CatalogueError::CatalogueError(const QString &message)
    : std::runtime_error(message.toStdString()), m_message(message)
{
}

Catalogue Catalogue::read(const QString &folder)
{
    Catalogue catalogue;
    catalogue.m_path = pathInAnyCase(folder, u"rptspec.mdb"_s);
    try {
        const auto database = Database::open(catalogue.m_path, Database::Access::Shared, {u"RptSpec"_s});
        const auto rows = database->openSnapshot(u"Select * from RptSpec"_s);
        for (; !rows->eof(); rows->moveNext())
            catalogue.add(readField(*rows));
    } catch (const NumberedError &error) {
        const QString reason = error.number() == UnknownColumn
                                   ? u"A column of its table RptSpec is missing."_s
                                   : error.description();
        throw CatalogueError(
            u"The report field catalogue '%1' cannot be read.\n\n%2"_s.arg(catalogue.m_path, reason));
    }
    std::ranges::sort(catalogue.m_fields, {}, [](const CatalogueField &field) {
        return std::pair(foldText(field.desc).toUtf8(), field.specid);
    });
    return catalogue;
}

void Catalogue::add(const CatalogueField &field)
{
    for (const QString &text :
         {field.usewith, field.desc, field.fieldname, field.FileName, field.linkfield}) {
        if (text.size() > mostLetters)
            throw fault(field, u"one of its texts is longer than %1 letters"_s.arg(mostLetters));
    }
    m_fields << field;
}

CatalogueError Catalogue::fault(const CatalogueField &field, const QString &what) const
{
    return CatalogueError(
        u"The report field catalogue '%1' cannot be used.\n\nThere is a fault in its field '%2': %3."_s.arg(
            m_path, field.desc.left(mostLetters), what));
}

template<class Test>
QList<CatalogueField> Catalogue::select(const QString &usewith, Test belongs) const
{
    QList<CatalogueField> selected;
    std::ranges::copy_if(m_fields, std::back_inserter(selected), belongs);
    if (selected.isEmpty())
        throw CatalogueError(
            u"The report field catalogue '%1' has no fields for '%2'."_s.arg(m_path, usewith));
    check(selected);
    return selected;
}

void Catalogue::check(const QList<CatalogueField> &fields) const
{
    QHash<int, QString> captions;
    for (const CatalogueField &field : fields) {
        QString what;
        if (field.specid < 1 || field.specid > mostSpecid)
            what = u"its number (specid) is not from 1 to 32767"_s;
        else if (captions.contains(field.specid))
            what = u"it has the same number (specid) as the field '%1'"_s.arg(captions[field.specid]);
        else if (field.datatype < FieldKind::Text || field.datatype > FieldKind::Time)
            what = u"its kind (datatype) is not from 1 to 5"_s;
        if (!what.isEmpty())
            throw fault(field, what);
        captions.insert(field.specid, field.desc);
    }
}

QList<CatalogueField> Catalogue::fieldsOf(const QString &usewith) const
{
    return select(usewith, [&](const CatalogueField &field) { return sameName(field.usewith, usewith); });
}

QList<CatalogueField> Catalogue::fieldsContaining(const QString &usewith) const
{
    return select(usewith, [&](const CatalogueField &field) {
        return field.usewith.contains(usewith, Qt::CaseInsensitive);
    });
}

bool Catalogue::knows(const QString &usewith) const
{
    return std::ranges::any_of(m_fields,
                               [&](const CatalogueField &field) { return sameName(field.usewith, usewith); });
}

} // namespace obelmark
