// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/language/ColumnType.h"
#include "engine/language/NameIndex.h"

namespace obelmark {

namespace {

struct DeclaredType
{
    QStringView name;
    ColumnKind kind;
};

constexpr DeclaredType declaredTypes[] = {
    {u"smallint", ColumnKind::Int16}, {u"integer", ColumnKind::Int32}, {u"boolean", ColumnKind::Boolean},
    {u"real", ColumnKind::Real},      {u"single", ColumnKind::Real},   {u"double", ColumnKind::Real},
    {u"float", ColumnKind::Real},     {u"money", ColumnKind::Money},   {u"date", ColumnKind::Date},
    {u"varchar", ColumnKind::Text},   {u"text", ColumnKind::Text},
};

} // namespace

ColumnType columnTypeFromDeclaration(QStringView declaration)
{
    const qsizetype open = declaration.indexOf(u'(');
    const QStringView name = (open < 0 ? declaration : declaration.first(open)).trimmed();
    for (const DeclaredType &type : declaredTypes) {
        if (!sameName(type.name, name))
            continue;
        ColumnType result{type.kind};
        if (type.kind == ColumnKind::Text && open >= 0) {
            const QStringView rest = declaration.sliced(open + 1);
            result.maxLength = rest.first(qMax(0, rest.indexOf(u')'))).trimmed().toInt();
        }
        return result;
    }
    return {};
}

} // namespace obelmark
