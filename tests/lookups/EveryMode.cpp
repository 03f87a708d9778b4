// What differs between the seven tables, and that each of them is kept as it should be.
#include "lookups/LookupFixture.h"

using namespace obelmark;

namespace {

struct ModeRow
{
    const char *table;
    const char *key;
    const char *description;
    const char *list; ///< of the main window
    bool SharedState::*reload;
    int helpTopic;
    const char *caption;
    const char *label;
    const char *question;
    const char *title;
    const char *inUse;
    const char *prompt;
};

constexpr ModeRow modes[] = {
    {"category", "catid", "catdesc", "cmbCat", &SharedState::ReloadCategories, 19, "Maintain Coin Categories",
     "Coin Category Description", "Are you sure that you want to delete this category?", "Delete Category",
     "This category is in use in a Coin record", "Enter the Coin Category description to find:"},
    {"condition", "conid", "condesc", "cmbCon", &SharedState::ReloadConditions, 20, "Maintain Conditions",
     "Condition Description", "Are you sure that you want to delete this Coin condition?", "Delete Condition",
     "This condition is in use in a Coin record", "Enter the Coin condition description to find:"},
    {"country", "couid", "coudesc", "cmbCou", &SharedState::ReloadCountries, 49, "Maintain Countries",
     "Country Description", "Are you sure that you want to delete this country?", "Delete Country",
     "This country is in use in a Coin record", "Enter the country description to find:"},
    {"format", "forid", "fordesc", "cmbFor", &SharedState::ReloadFormats, 50, "Maintain Formats",
     "Format Description", "Are you sure that you want to delete this format?", "Delete Format",
     "This format is in use in a Coin record", "Enter the format description to find:"},
    {"mint", "minid", "mindesc", "cmbMin", &SharedState::ReloadMints, 51, "Maintain Mints",
     "Mint Description", "Are you sure that you want to delete this mint?", "Delete Mint",
     "This mint is in use in a Coin record", "Enter the mint description to find:"},
    {"boughtfrom", "bouid", "boudesc", "cmbBou", &SharedState::ReloadSellers, 52,
     "Maintain Sellers (Bought From)", "Seller Description",
     "Are you sure that you want to delete this seller?", "Delete Seller (Bought From)",
     "This seller is in use in a Coin record", "Enter the Coin seller description to find:"},
    {"type", "typid", "typdesc", "cmbTyp", &SharedState::ReloadTypes, 54, "Maintain Types",
     "Type Description", "Are you sure that you want to delete this type?", "Delete Type",
     "This type is in use in a Coin record", "Enter the type description to find:"},
};

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// Four entries; the coin uses the first of the two called Beta.
QString entries(const ModeRow &mode)
{
    return u"delete from %1; insert into %1 (%2, %3) values "
           "(901, 'alpha'), (902, 'Beta'), (903, 'Beta'), (904, 'gamma');"
           "insert into Coin (coinid, descr, quantity, %2) values (5, 'Penny', 1, 902)"_s.arg(
               text(mode.table), text(mode.key), text(mode.description));
}

constexpr int sellers = 6;

} // namespace

class EveryModeTest : public QObject
{
    Q_OBJECT
private:
    static void everyMode()
    {
        QTest::addColumn<int>("mode");
        for (int mode = 1; mode <= int(std::size(modes)); ++mode)
            QTest::newRow(modes[mode - 1].table) << mode;
    }

private slots:
    void opening_data() { everyMode(); }
    void opening()
    {
        QFETCH(int, mode);
        const ModeRow &row = modes[mode - 1];
        EditorFixture e(entries(row));
        e.start();
        const MaintWindow w(e, mode);
        QCOMPARE(w.window->windowTitle(), text(row.caption));
        QCOMPARE(w.the<QLabel>(u"lblDesc").text(), text(row.label));
        QVERIFY(!w.window->isModal());
        QCOMPARE(w.shown(), u"alpha"_s);
        QCOMPARE(w.buttons(), browsingButtons);
        QCOMPARE(w.defaultButton(), u"cmdOk"_s);
        for (const auto *name :
             {u"lblBouPhone", u"txtBouPhone", u"chkBouFav", u"lblBouNotes", u"txtBouNotes"})
            QCOMPARE(w.the<QWidget>(name).isVisible(), mode == sellers);
        const int gap = w.button(u"cmdFirst").y() - w.edit(u"txtDesc").geometry().bottom();
        QCOMPARE(gap > 100, mode == sellers);

        int asked = 0;
        const auto widgets = w.window->findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            if (widget->objectName().startsWith(u"qt_") || !widget->isVisible() ||
                widget->focusPolicy() == Qt::NoFocus)
                continue;
            widget->setFocus();
            gui::press(Qt::Key_F1);
            QCOMPARE(e.desktop.calls().last().topic, row.helpTopic);
            ++asked;
        }
        QCOMPARE(asked, mode == sellers ? 12 : 9);
    }
};

QTEST_MAIN(EveryModeTest)
#include "EveryMode.moc"
