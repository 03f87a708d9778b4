// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <stdexcept>

namespace obelmark {

/// What a catalogue field holds; decides the criteria offered for it and how its values are printed.
enum class FieldKind { Text = 1, Number, Date, YesNo, Time };

/// A field that custom reports print and that Find searches: a row of the catalogue.
struct CatalogueField
{
    int specid = 0;    ///< 1 to 32767, stable: report files name fields by it
    QString usewith;   ///< the main table that the field belongs to
    QString desc;      ///< caption and column heading
    QString fieldname; ///< column of the main table or, for a lookup field, of the lookup table
    FieldKind datatype = FieldKind::Text;
    float defwidth = 1; ///< in the report's unit of width
    bool IsCurrency = false;
    QString FileName;    ///< the lookup table; empty for a column of the main table
    QString linkfield;   ///< "K", or "K;L" when the keys of the two tables have different names
    bool ismemo = false; ///< the lookup table's description is a memo, which cannot be sorted

    QString mainKey() const;   ///< K: the key column in the main table
    QString lookupKey() const; ///< L: the key column in the lookup table
};

/// The catalogue cannot be used; the message is for the user.
class CatalogueError : public std::runtime_error
{
public:
    explicit CatalogueError(const QString &message);
    const QString &message() const { return m_message; }

private:
    QString m_message;
};

/// The report field catalogue, read whole from its database file: a few dozen rows that nobody changes while
/// the program runs.
class Catalogue
{
public:
    /// Reads rptspec.mdb in \a folder (ends with "/"), whatever its letter case.
    /// \throws CatalogueError when there is none or it cannot be read
    static Catalogue read(const QString &folder);

    /// The fields whose usewith is exactly \a usewith, without regard to letter case, in the
    /// order of their captions.
    /// \throws CatalogueError when there is none, or one has a datatype or id out of range
    QList<CatalogueField> fieldsOf(const QString &usewith) const;
    /// The fields whose usewith contains \a usewith, without regard to letter case. \throws as fieldsOf()
    QList<CatalogueField> fieldsContaining(const QString &usewith) const;
    /// Whether some field belongs to \a usewith, without regard to letter case.
    bool knows(const QString &usewith) const;

private:
    template<class Test>
    QList<CatalogueField> select(const QString &usewith, Test belongs) const;
    void add(const CatalogueField &field);
    void check(const QList<CatalogueField> &fields) const;
    CatalogueError fault(const CatalogueField &field, const QString &what) const;

    QString m_path;                 ///< for messages
    QList<CatalogueField> m_fields; ///< in the order of their captions
};

} // namespace obelmark
