// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "walk/CoinModel.h"

#include <QtCore>
#include <algorithm>
#include <cmath>

namespace obelmark::walk {

using namespace Qt::StringLiterals;

namespace {

const QStringList kinds{u"Text"_s, u"Notes"_s,    u"Face"_s, u"Price"_s, u"Total"_s,
                        u"Year"_s, u"Quantity"_s, u"Date"_s, u"Mark"_s,  u"List"_s};

} // namespace

Field::Field(const QStringList &cells)
    : name(cells[0]), column(cells[1]), kind(Kind(kinds.indexOf(cells[2]))), limit(cells.value(3).toInt())
{
}

Lookup::Lookup(const QStringList &c)
    : table(c[0]), key(c[1]), column(c[2]), list(c[3]), asked(c[4]), title(c[5]), inUse(c[6]), noun(c[7]),
      caption(c[8]), label(c[9]), topic(c[10].toInt())
{
}

const QList<Field> fields = readItems<Field>(u"fields"_s);
const QList<Lookup> lookups = readItems<Lookup>(u"lookups"_s);

namespace {

/// Beside each price its total.
const Field &totalOf(const Field &price)
{
    return *std::find_if(&price, fields.data() + fields.size(),
                         [](const Field &field) { return field.kind == Kind::Total; });
}

qint64 even(double value)
{
    return qint64(std::nearbyint(value)); // halves to the even neighbour
}

qint64 cents(qint64 number)
{
    return (std::abs(number) + 50) / 100;
}

QString currency(qint64 number)
{
    const QString whole = QLocale(u"en_US"_s).toString(cents(number) / 100);
    const QString text = u"$%1.%2"_s.arg(whole).arg(cents(number) % 100, 2, 10, QChar(u'0'));
    return number < 0 && cents(number) > 0 ? u'(' + text + u')' : text;
}

QString sortKey(QString digits)
{
    digits.removeIf([](QChar letter) { return letter < u'0' || letter > u'9'; });
    return digits.left(20).rightJustified(20);
}

} // namespace

const Field &fieldNamed(const QString &name)
{
    return *std::ranges::find(fields, name, &Field::name);
}

std::optional<double> number(const QString &text)
{
    bool isNumber = false;
    const double value = QString(text).remove(u',').trimmed().toDouble(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

std::optional<qint64> amount(const QString &text)
{
    QString plain = text;
    plain.removeIf([](QChar letter) { return u"$()"_s.contains(letter); });
    const auto value = number(plain);
    return value ? std::optional(even(*value * 10000) * (text.startsWith(u'(') ? -1 : 1)) : std::nullopt;
}

std::optional<QString> day(const QString &text)
{
    static const QMap<QString, QString> odd{{u"5/3/52"_s, u"1952-05-03"_s},
                                            {u"13/2/2001"_s, u"2001-02-13"_s},
                                            {u"3 May 1852"_s, u"1852-05-03"_s},
                                            {u"1/5/05 10:30"_s, u"2005-01-05"_s}};
    const QDate date = QDate::fromString(text, u"M/d/yyyy"_s);
    return odd.contains(text) ? std::optional(odd[text])
           : date.isValid()   ? std::optional(date.toString(Qt::ISODate))
                              : std::nullopt;
}

CoinModel::CoinModel(QMap<QString, Table> &allTables) : tables(allTables), coins{&allTables[u"Coin"_s], {}} {}

void CoinModel::tell(const QString &text, const QString &title, int icon)
{
    told << u"%1|%2|%3"_s.arg(text, title).arg(icon);
}

void CoinModel::start()
{
    // A catalogue number that another tool has written gets its key at the opening.
    for (auto &[key, row] : coins.table->rows) {
        if (row.contains(u"catnum"_s) && !row.contains(u"catsort"_s))
            row[u"catsort"_s] = sortKey(row[u"catnum"_s].section(u'-', 0, 0));
    }
    m_entered.clear();
    state = State::Browsing;
    sort(1);
}

void CoinModel::sort(int chosen)
{
    static const QList<QStringList> orders{{u"descr"_s}, {u"catsort"_s, u"catnum"_s}, {u"Year"_s}};
    order = chosen;
    coins = Cursor{coins.table, orders[chosen - 1]};
    coins.move(Way::First);
    show();
}

void CoinModel::show()
{
    enabled = coins.at.has_value();
    if (!enabled) {
        m_entered.clear();
        clear();
        return;
    }
    const Row &row = coins.row();
    for (const Field &field : fields) {
        const QString stored = row.value(field.column);
        QString &text = shown[field.name];
        text = stored;
        switch (field.kind) {
        case Kind::Notes:
            text.replace("\r\n"_L1, "\n"_L1);
            break;
        case Kind::Face:
        case Kind::Price:
        case Kind::Total:
            m_amounts[field.name] = {};
            if (!stored.isEmpty()) {
                m_amounts[field.name] = {stored.toLongLong(), true};
                text = currency(stored.toLongLong());
            }
            break;
        case Kind::Date:
            text = QDate::fromString(stored, Qt::ISODate).toString(u"M/d/yyyy"_s);
            break;
        case Kind::Mark:
            text = stored == "1"_L1 ? u"1"_s : u"0"_s;
            break;
        default:
            break;
        }
    }
    for (const Lookup &lookup : lookups)
        reload(lookup);
}

void CoinModel::reload(const Lookup &lookup)
{
    if (!tables[lookup.table].rows.contains(shown[lookup.list].toLongLong()))
        shown[lookup.list].clear();
}

void CoinModel::clear()
{
    m_amounts.clear();
    for (const Field &field : fields)
        shown[field.name] = field.kind == Kind::Mark ? u"0"_s : field.kind == Kind::Quantity ? u"1"_s : u""_s;
}

void CoinModel::browse()
{
    show();
    state = State::Browsing;
}

bool CoinModel::focus(const QString &to)
{
    if (m_entered == to)
        return true;
    if (!leave(false))
        return false;
    m_entered = to;
    return true;
}

/// A command that no focus change comes before leaves a quantity that is no number to the record rules.
bool CoinModel::leave(bool committing)
{
    const auto field = std::ranges::find(fields, m_entered, &Field::name);
    if (field == fields.end())
        return true;
    const QString text = shown[field->name];
    switch (field->kind) {
    case Kind::Quantity:
        if (!number(text) && !committing)
            tell(u"You must enter a number in the Quantity field"_s, u"Obelmark"_s, 2);
        totals();
        return number(text) || committing;
    case Kind::Face:
    case Kind::Price:
        if (!text.isEmpty() && !amount(text)) {
            tell(field->kind == Kind::Face
                     ? u"You must enter a valid number for face value or leave the field blank"_s
                     : u"You must enter a valid number or leave the field blank"_s);
            return false;
        }
        if (field->kind == Kind::Price)
            total(*field);
        if (!text.isEmpty() && !m_amounts[field->name].isExact) {
            shown[field->name] = currency(*amount(text));
            m_amounts[field->name] = {amount(shown[field->name])};
        }
        return true;
    case Kind::Date:
        if (text.isEmpty() || day(text) || field->name == u"dcPurchaseDate")
            return true;
        tell(u"You must enter a valid %1 date, or leave the field blank."_s.arg(
            field->name == u"dcSoldDate" ? u"sold"_s : u"issue"_s));
        return false;
    default:
        return true;
    }
}

void CoinModel::totals()
{
    for (const Field &price : fields) {
        if (price.kind == Kind::Price && amount(shown[price.name]))
            total(price);
    }
}

void CoinModel::total(const Field &price)
{
    const QString name = totalOf(price).name;
    const Amount of = m_amounts[price.name];
    const auto quantity = number(shown[u"txtQuantity"_s]);
    if (shown[price.name].isEmpty()) {
        shown[name].clear();
        m_amounts[name] = {};
    } else if (quantity) {
        const qint64 unit = of.isExact ? *of.number : *amount(shown[price.name]);
        const qint64 product = even(double(unit * even(*quantity * 10)) / 10);
        shown[name] = currency(product);
        m_amounts[name] = {of.isExact ? product : *amount(shown[name]), of.isExact};
    }
}

void CoinModel::enter(const QString &name, const QString &value)
{
    const Field &field = fieldNamed(name);
    const QString before = shown[name];
    QString text = field.limit ? value.left(field.limit) : value;
    // Replacing a text by the same one is a change too, but there is none where nothing was and nothing
    // comes.
    const bool isChange = field.kind == Kind::List || !before.isEmpty() || !text.isEmpty();
    shown[name] = text;
    if (field.kind == Kind::Face || field.kind == Kind::Price)
        m_amounts[name] = {amount(text)};
    if (name == u"chkSold" && text == u"1")
        shown[u"chkForSale"_s] = u"0"_s;
    if (isChange && state == State::Browsing)
        state = State::Editing;
}

void CoinModel::move(Way way)
{
    if (coins.table->rows.empty())
        return;
    if (coins.move(way))
        told << u"beep"_s;
    show();
}

void CoinModel::addNew(bool committed)
{
    if (state == State::Adding) {
        if ((!committed && !leave(true)) || !validate())
            return;
        save({});
    } else {
        coins.move(Way::Last);
    }
    state = State::Adding;
    clear();
    enabled = true;
    m_entered = u"txtDescr"_s;
}

void CoinModel::update(bool committed)
{
    if ((!committed && !leave(true)) || !validate())
        return;
    coins.toKey(save(state == State::Adding ? std::nullopt : coins.at));
    browse();
}

void CoinModel::cancel()
{
    coins.move(Way::Last);
    browse();
}

void CoinModel::remove(bool yes)
{
    if (!coins.at)
        return;
    tell(u"Are you sure that you want to delete this Coin record?"_s, u"Delete Coin"_s);
    if (!yes)
        return;
    coins.remove();
    show();
}

bool CoinModel::validate()
{
    const auto refuse = [this](const QString &name, const QString &text,
                               const QString &title = u"Obelmark"_s) {
        tell(text, title);
        focus(name);
        return false;
    };
    const auto isMarked = [this](const QString &name) { return shown[name] == u"1"; };
    if (shown[u"txtDescr"_s].isEmpty() && shown[u"txtCatNum"_s].isEmpty() && shown[u"txtFace"_s].isEmpty())
        return refuse(u"txtDescr"_s,
                      u"You must enter a description, a catalog number or a face value for this "
                      "coin or click the Cancel button."_s);
    if (!number(shown[u"txtQuantity"_s]))
        return refuse(u"txtQuantity"_s, u"You must enter number in the quantity field."_s,
                      u"Non-numeric Quantity Entered"_s);
    if (isMarked(u"chkForSale"_s) && isMarked(u"chkSold"_s))
        return refuse(u"chkForSale"_s, u"A Coin cannot be for sale and sold at the same time."_s,
                      u"Sale Status Error"_s);
    if (isMarked(u"chkWantList"_s) && isMarked(u"chkForSale"_s))
        return refuse(u"chkWantList"_s,
                      u"A Coin cannot be both for sale and on your want list at the same time."_s,
                      u"Want List Error"_s);
    return true;
}

/// What the fields hold as a row of the file.
Row CoinModel::row() const
{
    Row row;
    for (const Field &field : fields) {
        const QString text = shown[field.name];
        const auto put = [&](const auto &value) {
            if (value)
                row[field.column] = QVariant(*value).toString();
        };
        switch (field.kind) {
        case Kind::Text:
        case Kind::Mark:
            row[field.column] = text;
            break;
        case Kind::Notes:
            row[field.column] = QString(text).replace("\n"_L1, "\r\n"_L1);
            break;
        case Kind::Face:
        case Kind::Price:
        case Kind::Total:
            put(m_amounts[field.name].number);
            break;
        case Kind::Year:
        case Kind::Quantity:
            if (const auto value = number(text))
                row[field.column] = QString::number(even(*value));
            break;
        case Kind::Date:
            put(day(text));
            break;
        case Kind::List:
            put(text.isEmpty() ? std::nullopt : std::optional(text));
            break;
        }
    }
    return row;
}

qint64 CoinModel::save(std::optional<qint64> key)
{
    // The totals are those of the whole quantity that is stored.
    QString &quantity = shown[u"txtQuantity"_s];
    if (const QString whole = QString::number(even(*number(quantity))); whole != quantity) {
        quantity = whole;
        totals();
    }
    Row saved = row();
    saved[u"catsort"_s] = sortKey(shown[u"txtCatNum"_s].section(u'-', 0, 0));
    // The issue date gets the century of a year of four characters, when there is such a day.
    QString issued = saved.value(u"issuedate"_s);
    const QString year = shown[u"txtYear"_s];
    if (!issued.isEmpty() && year.size() == 4 && number(year)) {
        issued.replace(0, 2, year.first(2));
        if (QDate::fromString(issued, Qt::ISODate).isValid())
            saved[u"issuedate"_s] = issued;
    }
    if (!key)
        return coins.table->add(saved);
    coins.table->put(*key, saved);
    return *key;
}

void CoinModel::sell(const QString &answer)
{
    if (!coins.at)
        return tell(u"There are no coins to sell."_s);
    tell(u"How many of this coin were sold?"_s, u"Sold Some of Current Coin"_s);
    const qint64 most = coins.row().value(u"quantity"_s).toLongLong();
    const double sold = std::nearbyint(number(answer).value_or(0));
    if (sold <= 0)
        return tell(u"You must enter a number for the number sold."_s, u"Number Required"_s);
    if (sold > double(most))
        return tell(u"You do not have that many of the current coin."_s, u"Sold How Many?"_s);
    Row lot = coins.row();
    if (qint64(sold) == most) {
        lot[u"forsale"_s] = u"0"_s;
        lot[u"sold"_s] = u"1"_s;
    } else {
        Row part = row();
        const auto setTotals = [](Row &row, qint64 quantity) {
            row[u"quantity"_s] = QString::number(quantity);
            for (const Field &price : fields) {
                if (price.kind == Kind::Price && row.contains(price.column))
                    row[totalOf(price).column] = QString::number(row[price.column].toLongLong() * quantity);
            }
        };
        for (const Field &field : fields) {
            if (field.kind == Kind::Total)
                part.remove(field.column);
        }
        setTotals(part, qint64(sold));
        setTotals(lot, most - qint64(sold));
        part[u"catsort"_s] = sortKey(shown[u"txtCatNum"_s]);
        part[u"forsale"_s] = u"0"_s;
        part[u"sold"_s] = u"1"_s;
        part[u"SoldDate"_s] = QDate::currentDate().toString(Qt::ISODate);
        coins.table->add(part);
        coins.noMatch = false;
    }
    coins.table->put(*coins.at, lot);
    show();
}

void CoinModel::afterFind(bool cancelled, qint64 before)
{
    if (cancelled)
        coins.toKey(before);
    if (coins.noMatch) {
        tell(u"That coin was not found."_s, u"No Records Match"_s);
        coins.toKey(before);
    } else {
        show();
    }
}

} // namespace obelmark::walk
