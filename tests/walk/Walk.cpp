// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "walk/Walk.h"

#include "editor/LookupList.h"
#include "editor/frmMain.h"
#include "support/GuiDriver.h"
#include "walk/WidgetText.h"

namespace obelmark::walk {

using namespace Qt::StringLiterals;

namespace {

const QStringList words = readRows(u"words"_s)[0] + QStringList{QString(95, u'm')};
const QStringList quantities = readRows(u"quantities"_s)[0];
const QStringList amounts = readRows(u"amounts"_s)[0];
const QStringList years = readRows(u"years"_s)[0];
const QStringList days = readRows(u"days"_s)[0];

} // namespace

Walk::Walk(quint32 seed, const QString &sql) : m_random(seed), m_model(m_tables)
{
    QFile::copy(QStringLiteral(OBELMARK_DATA_DIR "/rptspec.mdb"), u"rptspec.mdb"_s);
    for (const Lookup &lookup : lookups) {
        m_tables[lookup.table] = {lookup.table, lookup.key};
        m_collection.exec(u"delete from "_s + lookup.table);
    }
    m_collection.exec(sql);
    m_tables[u"Coin"_s] = {u"Coin"_s, u"coinid"_s};
    for (Table &table : m_tables) {
        table.columns = m_collection.query(u"select name from pragma_table_info('%1')"_s.arg(table.name));
        table.counter =
            m_collection.query(u"select seq from sqlite_sequence where name = '%1'"_s.arg(table.name))
                .value(0)
                .toLongLong();
        const auto lines = m_collection.query(u"select * from "_s + table.name);
        for (const QString &line : lines) {
            const QStringList cells = line.split(u'|');
            Row row;
            for (qsizetype i = 0; i < cells.size(); ++i) {
                if (cells[i] != u"NULL")
                    row[table.columns[i]] = cells[i];
            }
            table.put(row[table.key].toLongLong(), row);
        }
    }
    open();
}

Walk::~Walk()
{
    close();
}

void Walk::open()
{
    m_shared.emplace(m_desktop, RegionalSettings(QLocale(u"en_US"_s)));
    m_windows.emplace(*m_shared);
    m_program.emplace(*m_shared, *m_windows);
    m_program->showMainWindow();
    gui::activate(main());
    m_search = {};
    m_model.start();
}

void Walk::close()
{
    main().close();
    m_program.reset();
    m_windows.reset();
    m_shared.reset();
}

frmMain &Walk::main() const
{
    return *m_program->mainWindow();
}

QString Walk::step()
{
    m_desktop.reset();
    m_model.told.clear();
    m_difference.clear();
    stepInMain();
    QTest::qWait(0);
    return m_difference + differenceInMain() + differenceInDesktop() + differenceInFile();
}

void Walk::stepInMain()
{
    const bool browsing = m_model.state == State::Browsing;
    const int chance = below(100);
    if (chance < (browsing ? 25 : 55) && m_model.enabled)
        edit();
    else if (chance < 85)
        press(browsing ? oneOf(QStringList{u"cmdFirst"_s, u"cmdPrevious"_s, u"cmdNext"_s, u"cmdLast"_s,
                                           u"cmdAddNew"_s, u"cmdDelete"_s, u"cmdSoldSome"_s, u"cmdFind"_s})
              : m_model.state == State::Adding
                  ? oneOf(QStringList{u"cmdAddNew"_s, u"cmdUpdate"_s, u"cmdCancel"_s})
              : oneIn(4) ? u"cmdCancel"_s
                         : u"cmdUpdate"_s);
    else if (chance < 90 && browsing) {
        const int order = 1 + below(3);
        m_done << u"sort %1"_s.arg(order);
        m_model.sort(order);
        gui::trigger(main(), u"mnuSort_%1"_s.arg(order));
    } else if (chance < 97) {
        maintain();
    } else if (chance < 99) {
        pack(!oneIn(3));
    } else {
        m_done << u"restart"_s;
        close();
        m_difference = differenceInFile();
        open();
    }
}

/// Brings the page of a field to the front; the hand comes from a field that is on no page.
bool Walk::turnTo(QWidget &field)
{
    auto &tabs = gui::find<QTabWidget>(main(), u"Tab1"_s);
    QWidget *page = &field;
    while (page && tabs.indexOf(page) < 0)
        page = page->parentWidget();
    if (!page || page == tabs.currentWidget())
        return true;
    if (m_model.enabled && !reach(u"txtDescr"_s))
        return false;
    tabs.setCurrentWidget(page);
    return true;
}

/// Puts the focus on a field or button, with the mouse. Answers false when the field that has it keeps it.
bool Walk::reach(const QString &name)
{
    auto &widget = gui::find<QWidget>(main(), name);
    if (!turnTo(widget))
        return false;
    const bool leaves = m_model.focus(name);
    if (qobject_cast<LookupList *>(&widget))
        widget.setFocus(); // a click would drop it down
    else
        QTest::mouseClick(&widget, Qt::LeftButton);
    QTest::qWait(0);
    return leaves;
}

QString Walk::wordFor(Kind kind)
{
    return oneOf(kind == Kind::Quantity                      ? quantities
                 : kind == Kind::Face || kind == Kind::Price ? amounts
                 : kind == Kind::Year                        ? years
                 : kind == Kind::Date                        ? days
                                                             : words);
}

void Walk::edit()
{
    // The fields that rules are about more often than plain texts.
    const Field *chosen = &fields[below(int(fields.size()))];
    while (oneIn(2) &&
           (chosen->kind == Kind::Text || chosen->kind == Kind::List || chosen->kind == Kind::Notes))
        chosen = &fields[below(int(fields.size()))];
    const Field &field = *chosen;
    m_done << u"edit "_s + field.name;
    auto &widget = gui::find<QWidget>(main(), field.name);
    if (field.kind == Kind::Mark) {
        if (reach(field.name))
            m_model.enter(field.name, m_model.shown[field.name] == u"1" ? u"0"_s : u"1"_s);
        return;
    }
    if (!reach(field.name))
        return;
    if (field.kind == Kind::Total) {
        m_model.focus(field.name == u"txtTotalPaid" ? u"dcPurchaseDate"_s : u"dcSoldDate"_s);
    } else if (field.kind == Kind::List) {
        auto &list = static_cast<LookupList &>(widget);
        const int entry = below(list.count() + 1) - 1;
        gui::press(entry < 0 ? Qt::Key_Delete : Qt::Key_Home);
        for (int i = 0; i < entry; ++i)
            gui::press(Qt::Key_Down);
        const Lookup &lookup = *std::ranges::find(lookups, field.name, &Lookup::list);
        const QList<qint64> keys = m_tables[lookup.table].sorted({lookup.column});
        m_model.enter(field.name, entry < 0 ? QString() : QString::number(keys.value(entry)));
    } else {
        QString text = wordFor(field.kind);
        if (field.kind == Kind::Notes && oneIn(2))
            text += u"\nsecond line"_s;
        m_done.last() += u" \"%1\""_s.arg(text);
        replaceText(text);
        m_model.enter(field.name, text);
    }
}

void Walk::press(const QString &name)
{
    static const QMap<QString, Qt::Key> keys{
        {u"cmdFirst"_s, Qt::Key_T},    {u"cmdPrevious"_s, Qt::Key_P}, {u"cmdNext"_s, Qt::Key_N},
        {u"cmdLast"_s, Qt::Key_L},     {u"cmdAddNew"_s, Qt::Key_A},   {u"cmdDelete"_s, Qt::Key_D},
        {u"cmdFind"_s, Qt::Key_I},     {u"cmdCancel"_s, Qt::Key_C},   {u"cmdUpdate"_s, Qt::Key_U},
        {u"cmdSoldSome"_s, Qt::Key_O},
    };
    const bool byKey = oneIn(3);
    m_done << (byKey ? u"key of "_s : u"click "_s) + name;
    auto &button = gui::find<QPushButton>(main(), name);
    if (!turnTo(button))
        return;
    const bool committed = !byKey;
    const bool acts = byKey || m_model.focus(name);
    const auto press = [&] {
        if (byKey)
            gui::press(keys[name], Qt::AltModifier);
        else
            QTest::mouseClick(&button, Qt::LeftButton);
    };
    if (name == u"cmdFind" && acts && m_model.coins.at) {
        const qint64 before = *m_model.coins.at;
        bool cancelled = true;
        gui::withDialog(press, [&](QWidget &dialog) { chooseInFind(dialog, cancelled); });
        gui::activate(main());
        m_model.afterFind(cancelled, before);
        return;
    }
    bool yes = false;
    QString number;
    if (acts && m_model.coins.at && name == u"cmdDelete") {
        yes = oneIn(2);
        m_desktop.answerYesNo(u"Are you sure that you want to delete this Coin record?"_s, u"Delete Coin"_s,
                              yes ? Desktop::Answer::Yes : Desktop::Answer::No);
    } else if (acts && m_model.coins.at && name == u"cmdSoldSome") {
        number = oneOf(QStringList{u"1"_s, u"1"_s, u"2"_s, u"2.5"_s, u"1.5"_s, u"0.5"_s, u"-1"_s, u"four"_s,
                                   u""_s, u"1e9"_s, m_model.shown[u"txtQuantity"_s]});
        m_desktop.answerText(u"How many of this coin were sold?"_s, u"Sold Some of Current Coin"_s,
                             number.isEmpty() ? std::nullopt : std::optional(number));
    }
    m_done.last() += u' ' + number + (yes ? u"yes"_s : u""_s);
    press();
    QTest::qWait(0);
    if (!acts)
        return;
    if (name == u"cmdAddNew")
        m_model.addNew(committed);
    else if (name == u"cmdUpdate")
        m_model.update(committed);
    else if (name == u"cmdCancel")
        m_model.cancel();
    else if (name == u"cmdDelete")
        m_model.remove(yes);
    else if (name == u"cmdSoldSome")
        m_model.sell(number);
    else if (name == u"cmdFind")
        m_model.tell(u"No coins entered to find."_s, u"No Coins in Database"_s);
    else
        m_model.move(name == u"cmdFirst"      ? Way::First
                     : name == u"cmdPrevious" ? Way::Previous
                     : name == u"cmdNext"     ? Way::Next
                                              : Way::Last);
}

void Walk::pack(bool yes)
{
    const QString question = u"Do you wish to compact the Obelmark Program database?"_s;
    m_done << (yes ? u"pack"_s : u"pack, no"_s);
    m_desktop.answerYesNo(question, u"Compact Database"_s, yes ? Desktop::Answer::Yes : Desktop::Answer::No);
    const QPointer<frmMain> before = &main();
    gui::trigger(main(), u"mnuPack"_s);
    m_model.tell(question, u"Compact Database"_s);
    if (!yes)
        return;
    gui::waitUntil([&] { return !before && m_program->mainWindow(); }, "main window opened anew");
    gui::activate(main());
    m_model.start();
}

QString Walk::differenceInMain() const
{
    QString all = differ(u"buttons"_s, visibleButtons(main()), buttonsIn(m_model.state, false));
    for (const Field &field : fields) {
        const auto &widget = gui::find<QWidget>(main(), field.name);
        all += differ(field.name, textOf(widget), m_model.shown[field.name]);
        if (field.kind != Kind::Total && widget.isEnabled() != m_model.enabled)
            all += u"%1 is enabled or not\n"_s.arg(field.name);
    }
    for (const Lookup &lookup : lookups) {
        const auto &list = gui::find<LookupList>(main(), lookup.list);
        QStringList is, shouldBe;
        for (int i = 0; i < list.count(); ++i)
            is << list.itemText(i);
        const Table &table = m_tables[lookup.table];
        for (const qint64 key : table.sorted({lookup.column}))
            shouldBe << table.rows.at(key).value(lookup.column);
        all += differ(lookup.list, is.join(u'|'), shouldBe.join(u'|'));
    }
    for (int i = 1; i <= 3; ++i) {
        const auto &item = gui::find<QAction>(main(), u"mnuSort_%1"_s.arg(i));
        if (item.isChecked() != (i == m_model.order) ||
            item.isEnabled() != (m_model.state == State::Browsing))
            all += u"sort item %1 is checked or enabled or not\n"_s.arg(i);
    }
    const auto label = [this](const QString &name) { return gui::find<QLabel>(main(), name).text(); };
    const bool isWanted = m_model.shown[u"chkWantList"_s] == u"1";
    all += differ(u"label of the price"_s, label(u"lblPrice"_s), isWanted ? u"Will Pay"_s : u"Price Paid"_s);
    const qsizetype count = qsizetype(m_model.coins.table->rows.size());
    const QString place =
        m_model.state == State::Adding ? u"New coin"_s
        : count == 0
            ? u"No coins"_s
            : u"Coin %1 of %2"_s
                  .arg(m_model.coins.table->sorted(m_model.coins.order).indexOf(*m_model.coins.at) + 1)
                  .arg(count);
    const QString &focused = m_model.focused();
    if (m_model.enabled && std::ranges::count(fields, focused, &Field::name) > 0)
        all += differ(u"focus"_s, main().focusWidget()->objectName(), focused);
    return all + differ(u"place"_s, label(u"lblPosition"_s), place);
}

QString Walk::differenceInDesktop()
{
    QStringList told;
    for (const auto &call : m_desktop.calls()) {
        told << (call.kind == ScriptedDesktop::Kind::Beep
                     ? u"beep"_s
                     : u"%1|%2|%3"_s.arg(call.text, call.title).arg(int(call.icon)));
    }
    return differ(u"what was told"_s, told.join(u'\n'), m_model.told.join(u'\n')) +
           differ(u"what was not asked"_s, m_desktop.leftovers().join(u'\n'), {});
}

QString Walk::differenceInFile()
{
    QFile file(m_collection.databasePath());
    if (!file.open(QIODevice::ReadOnly))
        return u"coin.mdb cannot be read\n"_s;
    const QByteArray bytes = file.readAll();
    if (bytes == m_file)
        return {};
    QFile copy(m_collection.folder() + u"copy.mdb"_s);
    if (!copy.open(QIODevice::WriteOnly) || copy.write(bytes) != bytes.size())
        return u"no copy\n"_s;
    copy.close();
    m_file = bytes;
    QString all = differ(u"check"_s,
                         m_collection.query(u"pragma integrity_check"_s, u"copy.mdb"_s).join(u'\n'), u"ok"_s);
    for (const Table &table : m_tables) {
        all += differ(
            table.name,
            m_collection.query(u"select * from %1 order by %2"_s.arg(table.name, table.key), u"copy.mdb"_s)
                .join(u'\n'),
            table.lines().join(u'\n'));
    }
    return all;
}

} // namespace obelmark::walk
