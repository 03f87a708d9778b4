// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The walk through the Find dialog and the maintenance of the lists.
#include "editor/frmMain.h"
#include "lookups/frmCodesMaint.h"
#include "support/GuiDriver.h"
#include "walk/EntryModel.h"
#include "walk/Walk.h"
#include "walk/WidgetText.h"

namespace obelmark::walk {

using namespace Qt::StringLiterals;

namespace {

enum class Sought { Text, Number, Money, Day, Mark, Entry };

struct SoughtField
{
    explicit SoughtField(const QStringList &cells)
        : caption(cells[0]), column(cells[1]),
          kind(
              Sought(QStringList{u"Text"_s, u"Number"_s, u"Money"_s, u"Day"_s, u"Mark"_s, u"Entry"_s}.indexOf(
                  cells[2])))
    {
    }
    QString caption;
    QString column;
    Sought kind;
};

const QList<SoughtField> soughtFields = readItems<SoughtField>(u"sought"_s);

QString operatorsOf(Sought kind)
{
    return kind == Sought::Text    ? u"lstText"_s
           : kind == Sought::Mark  ? u"lstBool"_s
           : kind == Sought::Entry ? u"lstSel"_s
                                   : u"lstNum"_s;
}

template<class T>
bool compare(const T &a, int op, const T &b)
{
    return op == 0   ? a == b
           : op == 1 ? a != b
           : op == 2 ? a < b
           : op == 3 ? a > b
           : op == 4 ? a <= b
                     : a >= b;
}

/// Whether a coin is meant; nothing is the same as, unlike, more or less than what is not there.
bool meets(const Row &row, const SoughtField &field, int op, const QString &value, qint64 key)
{
    const QString text = row.value(field.column);
    if (field.kind == Sought::Mark)
        return (text == u"1") == (op == 0);
    if (!row.contains(field.column))
        return false;
    const QString in = fold(text), part = fold(value);
    switch (field.kind) {
    case Sought::Text:
        return op == 0   ? in.contains(part)
               : op == 1 ? in.startsWith(part)
               : op == 2 ? in.endsWith(part)
                         : in == part;
    case Sought::Number:
        return compare(text.toDouble(), op, *number(value));
    case Sought::Money:
        return compare(text.toLongLong(), op, *amount(value));
    case Sought::Day:
        return compare(text, op, *day(value));
    default:
        return text.toLongLong() == key;
    }
}

void choose(QWidget &dialog, const QString &list, const QString &text, int row = -1)
{
    auto &widget = gui::find<QListWidget>(dialog, list);
    QListWidgetItem *item = row >= 0 ? widget.item(row) : widget.findItems(text, Qt::MatchExactly).value(0);
    widget.scrollToItem(item);
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, {}, widget.visualItemRect(item).center());
}

} // namespace

void Walk::chooseInFind(QWidget &dialog, bool &cancelled)
{
    if (m_search.field < 0 || !oneIn(3)) {
        m_search.field = below(int(soughtFields.size()));
        const SoughtField &field = soughtFields[m_search.field];
        const QString list = operatorsOf(field.kind);
        choose(dialog, u"lstField"_s, field.caption);
        m_search.key.reset();
        auto &operators = gui::find<QListWidget>(dialog, list);
        const int op = below(operators.count() + (field.kind == Sought::Entry ? 1 : 0));
        if (op < operators.count())
            choose(dialog, list, {}, op);
        m_search.operators[list] = op;
        if (field.kind == Sought::Entry) {
            const Lookup &lookup = *std::ranges::find(lookups, field.column, &Lookup::key);
            const auto keys = m_tables[lookup.table].sorted({lookup.column});
            m_search.key = op < keys.size() ? std::optional(keys[op]) : std::nullopt;
        } else {
            m_model.coins.move(Way::First);
        }
        if (gui::find<QWidget>(dialog, u"txtToFind"_s).isVisible()) {
            m_search.text = oneOf(
                field.kind == Sought::Text  ? QStringList{u"ea"_s, u"ZURICH"_s, u"1"_s, u"éagle"_s, u"Ω"_s}
                : field.kind == Sought::Day ? QStringList{u"5/3/1852"_s, u"1/1/1900"_s, u"soon"_s}
                                            : QStringList{u"1852"_s, u"2.5"_s, u"0"_s, u"1,000"_s, u"abc"_s});
            gui::focusByMouse(gui::find<QWidget>(dialog, u"txtToFind"_s));
            replaceText(m_search.text);
        }
    }
    const SoughtField &field = soughtFields[m_search.field];
    m_search.way = below(4);
    gui::find<QRadioButton>(dialog, u"optWhere_%1"_s.arg(m_search.way + 1)).click();
    m_done.last() += u' ' + field.caption + u' ' + m_search.text +
                     u" op %1 way %2"_s.arg(m_search.operators[operatorsOf(field.kind)]).arg(m_search.way);
    if (!oneIn(5)) {
        cancelled = false;
        gui::click(gui::find<QPushButton>(dialog, u"cmdFind"_s));
        const QString &value = m_search.text;
        if (field.kind == Sought::Entry && !m_search.key)
            m_model.tell(u"You must select the value to find from the second list."_s,
                         u"No Value Selected"_s);
        else if ((field.kind == Sought::Number || field.kind == Sought::Money) && !number(value))
            m_model.tell(u"You must enter a valid number for this field."_s, u"Search Value Not Numeric"_s);
        else if (field.kind == Sought::Day && !day(value))
            m_model.tell(u"You must enter a valid date for this field."_s, u"Search Value Not Date"_s);
        else
            m_model.coins.search(Way(m_search.way), [&](const Row &row) {
                return meets(row, field, m_search.operators[operatorsOf(field.kind)], value,
                             m_search.key.value_or(0));
            });
    }
    if (dialog.isVisible())
        gui::click(gui::find<QPushButton>(dialog, u"cmdCancel"_s));
}

void Walk::maintain()
{
    const int mode = oneIn(2) ? oneOf(QList{3, 6}) : 1 + below(7);
    const Lookup &lookup = lookups[mode - 1];
    m_done << u"maintain "_s + lookup.table;
    gui::trigger(main(), u"mnuMaint_%1"_s.arg(mode));
    QPointer<QWidget> window;
    const auto all = QApplication::topLevelWidgets();
    for (QWidget *candidate : all) {
        if (qobject_cast<frmCodesMaint *>(candidate) && candidate->isVisible())
            window = candidate;
    }
    gui::activate(*window);
    EntryModel entries(lookup, m_model);
    for (int steps = 1 + below(6); steps > 0 && m_difference.isEmpty(); --steps) {
        stepInEntries(entries, *window);
        QTest::qWait(0);
        m_difference = differenceInEntries(entries, *window) + differenceInFile();
    }
    if (entries.state == State::Browsing)
        gui::click(gui::find<QPushButton>(*window, u"cmdOk"_s));
    else
        window->close();
    gui::waitUntil([&] { return !window; }, "maintenance closed");
    gui::activate(main());
    m_model.reload(lookup);
}

void Walk::stepInEntries(EntryModel &entries, QWidget &window)
{
    const auto click = [&](const QString &name) {
        m_done << u"  "_s + name;
        gui::click(gui::find<QPushButton>(window, name));
    };
    const bool browsing = entries.state == State::Browsing;
    if (entries.enabled && oneIn(browsing ? 3 : 2)) {
        const QString name = oneOf(entries.columns.keys());
        auto &widget = gui::find<QWidget>(window, name);
        const QString text =
            name == u"chkBouFav" ? (entries.shown[name] == u"1" ? u"0"_s : u"1"_s) : wordFor(Kind::Text);
        QTest::mouseClick(&widget, Qt::LeftButton);
        if (name != u"chkBouFav")
            replaceText(text);
        m_done << u"  %1 \"%2\""_s.arg(name, text);
        entries.enter(name, text);
    } else if (!browsing) {
        const int chance = below(6);
        const bool another = chance < 2 && entries.state == State::Adding;
        click(another ? u"cmdAddNew"_s : chance < 5 ? u"cmdUpdate"_s : u"cmdCancel"_s);
        another ? entries.addNew() : chance < 5 ? entries.update() : entries.cancel();
    } else if (const int chance = below(9); chance < 4) {
        click(QStringList{u"cmdFirst"_s, u"cmdPrevious"_s, u"cmdNext"_s, u"cmdLast"_s}[chance]);
        entries.move(Way(chance));
    } else if (chance < 6) {
        click(u"cmdAddNew"_s);
        entries.addNew();
    } else if (chance < 8) {
        const bool yes = !oneIn(4);
        const Lookup &lookup = entries.lookup();
        if (entries.entries.at)
            m_desktop.answerYesNo(u"Are you sure that you want to delete this %1?"_s.arg(lookup.asked),
                                  u"Delete "_s + lookup.title,
                                  yes ? Desktop::Answer::Yes : Desktop::Answer::No);
        click(u"cmdDelete"_s);
        entries.remove(yes);
    } else {
        const Lookup &lookup = entries.lookup();
        const QString text = oneOf(QStringList{u""_s, u"E"_s, u"9 o'"_s, u"zu"_s, u"none"_s});
        m_desktop.answerText(u"Enter the %1 description to find:"_s.arg(lookup.noun), u"Find Code"_s, text);
        click(u"cmdFind"_s);
        entries.find(text);
    }
}

QString Walk::differenceInEntries(const EntryModel &entries, const QWidget &window) const
{
    const Lookup &lookup = entries.lookup();
    const auto topicOf = [](const QWidget &of) { return of.property("helpTopic").toString(); };
    const QString topic = QString::number(lookup.topic);
    QString all = differ(u"buttons"_s, visibleButtons(window), buttonsIn(entries.state, true)) +
                  differ(u"caption"_s, window.windowTitle(), lookup.caption) +
                  differ(u"label"_s, gui::find<QLabel>(window, u"lblDesc"_s).text(), lookup.label) +
                  differ(u"help topic"_s, topicOf(window) + topicOf(gui::find<QWidget>(window, u"cmdFind"_s)),
                         topic + topic);
    const bool hasPhone = gui::find<QWidget>(window, u"txtBouPhone"_s).isVisible();
    if (hasPhone != entries.columns.contains(u"txtBouPhone"_s))
        all += u"the phone is visible or not\n"_s;
    for (const QString &name : entries.columns.keys()) {
        const auto &widget = gui::find<QWidget>(window, name);
        all += differ(name, textOf(widget), entries.shown[name]);
        if (widget.isEnabled() != entries.enabled)
            all += u"%1 is enabled or not\n"_s.arg(name);
    }
    return all;
}

} // namespace obelmark::walk
