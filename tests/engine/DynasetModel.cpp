// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineFixture.h"
#include "engine/language/EngineError.h"
#include "engine/language/TextFold.h"
#include <QtTest>
#include <algorithm>
#include <optional>

using namespace obelmark;

namespace {

struct ModelRow
{
    qint64 key = 0;
    std::optional<QString> descr;
    std::optional<int> year;
};

/// The same order as the dynaset's, decided in the plainest way.
using ModelPlace = std::pair<std::optional<std::string>, qint64>;
using PlaceOf = std::function<ModelPlace(const ModelRow &)>;

/// What a dynaset should do, over rows in a vector that two of them share.
class ModelCursor
{
public:
    ModelCursor(std::vector<ModelRow> &rows, PlaceOf placeOf) : m_rows(rows), m_placeOf(std::move(placeOf))
    {
        if (const auto row = nearest(true, std::nullopt))
            stand(*row);
    }

    bool bof() const { return m_state == Before || (m_state == Behind && m_rows.empty()); }
    bool eof() const { return m_state == Behind || (m_state == Before && m_rows.empty()); }
    bool noMatch() const { return m_noMatch; }
    /// The key of the current row, or the number of the error that reading it raises.
    qint64 current()
    {
        refresh();
        return m_state == On ? m_place.second : m_state == Deleted ? -RecordDeleted : -NoCurrentRecord;
    }

    int moveToEnd(bool first)
    {
        const auto row = nearest(first, std::nullopt);
        if (!row)
            m_state = Behind;
        return row ? stand(*row) : NoCurrentRecord;
    }
    int step(bool forward)
    {
        refresh();
        const bool onRow = m_state == On || m_state == Deleted;
        if (m_state == (forward ? Behind : Before))
            return NoCurrentRecord;
        const auto row = nearest(forward, onRow ? std::optional(m_place) : std::nullopt);
        if (row)
            return stand(*row);
        if (!onRow)
            return NoCurrentRecord;
        m_state = forward ? Behind : Before;
        return 0;
    }
    int find(bool forward, bool fromCurrent, const std::function<bool(const ModelRow &)> &meets)
    {
        refresh();
        const bool onRow = m_state == On || m_state == Deleted;
        if (fromCurrent && !onRow)
            return NoCurrentRecord;
        const auto row = nearest(forward, fromCurrent ? std::optional(m_place) : std::nullopt, meets);
        m_noMatch = !row;
        return row ? stand(*row) : 0;
    }
    void markDeleted() { m_state = Deleted; }
    qint64 position()
    {
        refresh();
        return m_state != On ? 0
                             : 1 + std::count_if(m_rows.begin(), m_rows.end(), [this](const ModelRow &row) {
                                   return m_placeOf(row) < m_place;
                               });
    }

    /// The row's place may have changed, or the row be gone, since the last look.
    void refresh()
    {
        if (m_state != On)
            return;
        const auto row = std::find_if(m_rows.begin(), m_rows.end(),
                                      [this](const ModelRow &r) { return r.key == m_place.second; });
        if (row == m_rows.end())
            m_state = Deleted;
        else
            m_place = m_placeOf(*row);
    }

private:
    enum State { Before, On, Deleted, Behind };

    int stand(const ModelRow &row)
    {
        m_state = On;
        m_place = m_placeOf(row);
        return 0;
    }
    std::optional<ModelRow> nearest(bool forward, const std::optional<ModelPlace> &beyond,
                                    const std::function<bool(const ModelRow &)> &meets = {}) const
    {
        std::optional<ModelRow> best;
        for (const ModelRow &row : m_rows) {
            const ModelPlace place = m_placeOf(row);
            if (beyond && (forward ? place <= *beyond : place >= *beyond))
                continue;
            if (meets && !meets(row))
                continue;
            if (!best || (forward ? place < m_placeOf(*best) : place > m_placeOf(*best)))
                best = row;
        }
        return best;
    }

    std::vector<ModelRow> &m_rows;
    PlaceOf m_placeOf;
    State m_state = Behind;
    ModelPlace m_place;
    bool m_noMatch = false;
};

} // namespace

/// Two dynasets of different order on one table against a model, through thousands of random operations.
class DynasetModel : public QObject
{
    Q_OBJECT
private slots:
    void handfulOfRowsOftenNone() { randomOperations(1, 1500, 4); }
    void someRows() { randomOperations(2, 1500, 25); }
    void manyRows() { randomOperations(3, 1000, 200); }

private:
    static void randomOperations(int seed, int operations, int mostRows)
    {
        QRandomGenerator random(quint32(seed) * 7919);
        const auto below = [&random](int n) { return int(random.bounded(n)); };
        static const QStringList words{u""_s,    u"a"_s, u"A"_s,   u"á"_s, u"ab"_s,
                                       u"a b"_s, u"Ж"_s, u"zoo"_s, u"1"_s};

        const CoinFile file;
        const auto database = file.open();
        std::vector<ModelRow> rows;
        const PlaceOf byDescr = [](const ModelRow &row) {
            return ModelPlace{row.descr ? std::optional(foldText(*row.descr).toStdString()) : std::nullopt,
                              row.key};
        };
        const PlaceOf byYear = [](const ModelRow &row) {
            return ModelPlace{
                row.year ? std::optional(u"%1"_s.arg(*row.year, 6).toStdString()) : std::nullopt, row.key};
        };
        const std::unique_ptr<Dynaset> sets[] = {
            database->openDynaset(u"select * from Coin order by descr"_s),
            database->openDynaset(u"select * from Coin order by Year"_s)};
        ModelCursor models[] = {{rows, byDescr}, {rows, byYear}};
        qint64 lastKey = 0;

        const auto rowOf = [&rows](qint64 key) {
            return std::find_if(rows.begin(), rows.end(),
                                [key](const ModelRow &row) { return row.key == key; });
        };
        const auto change = [&](Dynaset &set, ModelRow &row) {
            if (below(3)) {
                row.descr = below(4) ? std::optional(words[below(int(words.size()))]) : std::nullopt;
                set.setValue(u"descr", row.descr ? Value(*row.descr) : Value());
            }
            if (below(3)) {
                row.year = below(4) ? std::optional(1900 + below(5)) : std::nullopt;
                set.setValue(u"Year", row.year ? Value(*row.year) : Value());
            }
        };

        for (int i = 0; i < operations; ++i) {
            const int which = below(2);
            Dynaset &set = *sets[which];
            ModelCursor &model = models[which];
            const bool forward = below(2);
            const int operation = below(12);
            QString what = u"operation %1.%2 on %3"_s.arg(i).arg(operation).arg(which);
            int expected = 0;
            int error = 0;
            if (operation < 5) {
                expected = model.step(forward);
                error = errorOf([&] { forward ? set.moveNext() : set.movePrevious(); });
            } else if (operation == 5) {
                expected = model.moveToEnd(forward);
                error = errorOf([&] { forward ? set.moveFirst() : set.moveLast(); });
            } else if (operation < 8) {
                const int year = 1900 + below(5);
                const qint64 key = 1 + below(int(lastKey) + 1);
                const std::pair<QString, std::function<bool(const ModelRow &)>> choices[] = {
                    {u"Year = %1"_s.arg(year), [=](const ModelRow &row) { return row.year == year; }},
                    {u"descr like 'á*'"_s,
                     [](const ModelRow &row) { return row.descr && foldText(*row.descr).startsWith(u'a'); }},
                    {u"descr is null"_s, [](const ModelRow &row) { return !row.descr; }},
                    {u"coinid = %1"_s.arg(key), [=](const ModelRow &row) { return row.key == key; }},
                };
                const auto &choice = choices[below(4)];
                const QString &criteria = choice.first;
                const bool fromCurrent = below(2);
                what += u" "_s + criteria;
                expected = model.find(forward, fromCurrent, choice.second);
                error = errorOf([&] {
                    fromCurrent ? (forward ? set.findNext(criteria) : set.findPrevious(criteria))
                                : (forward ? set.findFirst(criteria) : set.findLast(criteria));
                });
            } else if (operation == 8 && int(rows.size()) < mostRows) {
                set.addNew();
                ModelRow row{set.value(u"coinid").toInt(), {}, {}};
                QCOMPARE(row.key, ++lastKey);
                change(set, row);
                if (below(5)) {
                    set.update();
                    rows.push_back(row);
                } else {
                    // Discarded, also by an edit() that fails
                    errorOf([&] {
                        if (below(2))
                            set.edit();
                        set.cancelUpdate();
                    });
                }
            } else if (operation < 11) {
                const qint64 key = model.current();
                expected = key < 0 ? int(-key) : 0;
                error = errorOf([&] { set.edit(); });
                if (key > 0) {
                    change(set, *rowOf(key));
                    set.update();
                }
            } else {
                const qint64 key = model.current();
                expected = key < 0 ? int(-key) : 0;
                error = errorOf([&] { set.remove(); });
                if (key > 0) {
                    rows.erase(rowOf(key));
                    model.markDeleted();
                }
            }
            QVERIFY2(error == expected, qPrintable(u"%1: %2 for %3"_s.arg(what).arg(error).arg(expected)));

            for (int s = 0; s < 2; ++s) {
                qint64 key = 0;
                if (const int number = errorOf([&] { key = sets[s]->value(u"coinid").toInt(); }))
                    key = -number;
                QVERIFY2(key == models[s].current(),
                         qPrintable(u"%1: %2 for %3"_s.arg(what).arg(key).arg(models[s].current())));
                if (below(2)) // at times it has to be counted, at times it is known from the move
                    QCOMPARE(sets[s]->position(), models[s].position());
                QCOMPARE(sets[s]->bof(), models[s].bof());
                QCOMPARE(sets[s]->eof(), models[s].eof());
                QCOMPARE(sets[s]->noMatch(), models[s].noMatch());
                QCOMPARE(sets[s]->recordCount(), qint64(rows.size()));
                QCOMPARE(sets[s]->isEmpty(), rows.empty());
                if (key > 0) {
                    const auto row = rowOf(key);
                    QCOMPARE(sets[s]->value(u"descr"), row->descr ? Value(*row->descr) : Value());
                    QCOMPARE(sets[s]->value(u"year"), row->year ? Value(*row->year) : Value());
                }
            }
        }
        QVERIFY(lastKey > 0);
    }
};

QTEST_APPLESS_MAIN(DynasetModel)
#include "DynasetModel.moc"
