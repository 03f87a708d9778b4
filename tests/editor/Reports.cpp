#include "EditorFixture.h"
#include <QDir>
#include <QFile>
#include <QListWidget>

using namespace obelmark;

class ReportsTest : public QObject
{
    Q_OBJECT
private slots:
    // Every item of the menu makes its own report; the grouped ones first ask.
    void fromTheMenu_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("proposedName");
        QTest::addColumn<QString>("dialog");
        QTest::addColumn<QString>("firstLine");
        const auto add = [](const char *item, const QString &name, const QString &dialog,
                            const QString &line) {
            QTest::newRow(item) << QString::fromLatin1(item) << name << dialog << line;
        };
        const QString grouped = u"One\tAlpha\t\t\t\t1"_s;
        add("mnuRpt_1", u"CoinDesc.txt"_s, {}, u"Alpha\t\t\t\t1"_s);
        add("mnuRpt_2", u"Coin.txt"_s, u"Category Report"_s, grouped);
        add("mnuRpt_3", u"Coin.txt"_s, u"Country Report"_s, grouped);
        add("mnuRpt_4", u"Coin.txt"_s, u"Mint Report"_s, grouped);
        add("mnuRpt_5", u"Coin.txt"_s, u"Format Report"_s, grouped);
        add("mnuRpt_6", u"Coin.txt"_s, u"Type Report"_s, grouped);
        add("mnuRpt_7", u"Coin.txt"_s, u"Seller Report"_s, grouped);
        add("mnuRptValue", u"Value.txt"_s, {}, u"Alpha\t\t1\t$0.00\t$0.00\t$0.00\t$0.00"_s);
        add("mnuRptWant", u"WantList.txt"_s, {}, u"Wanted\t\t\t\t\t$0.00"_s);
        add("mnuRptForSale", u"ForSale.txt"_s, {}, u"Alpha\t\tOne\t$0.00\t\t$0.00"_s);
        add("mnuRptSold", u"Sales.txt"_s, {}, u"Gone\t\t2\t$0.00\t$0.00\t$0.00\t$0.00"_s);
        add("mnuRptSellers", u"Sellers.txt"_s, {}, u"\tOne\t\t"_s);
    }
    void fromTheMenu()
    {
        QFETCH(QString, item);
        QFETCH(QString, proposedName);
        QFETCH(QString, dialog);
        QFETCH(QString, firstLine);
        QString sql = u"insert into Coin (descr, quantity, catid, couid, minid, forid, typid, bouid, forsale)"
                      " values ('Alpha', 1, 900, 900, 900, 900, 900, 900, 1);"
                      "insert into Coin (descr, quantity, wantlist) values ('Wanted', 1, 1);"
                      "insert into Coin (descr, quantity, sold) values ('Gone', 2, 1);"_s;
        for (const auto *table : {"category", "country", "mint", "format", "type", "boughtfrom"})
            sql += u"delete from %1; insert into %1 (%2id, %2desc) values (900, 'One');"_s.arg(
                QLatin1StringView(table), QLatin1StringView(table).first(3));
        EditorFixture e(sql);
        e.start();
        e.typeInto(u"txtDescr", u"not yet saved"_s);
        QVERIFY(gui::trigger(*e.window, u"mnuRptOut_2"_s));
        const QString file = QDir::currentPath() + u"/report.txt"_s;
        e.desktop.answerSaveFile(proposedName, u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*"_s, file);
        if (dialog.isEmpty()) {
            QVERIFY(gui::trigger(*e.window, item));
        } else {
            QVERIFY(gui::withDialog([&] { gui::trigger(*e.window, item); },
                                    [&](QWidget &shown) {
                                        QCOMPARE(shown.windowTitle(), dialog);
                                        auto &list = gui::find<QListWidget>(shown, u"List1"_s);
                                        list.setCurrentRow(0);
                                        QVERIFY(gui::press(Qt::Key_Return));
                                    }));
        }
        QCOMPARE(e.desktop.problems(), QStringList());
        QFile written(file);
        QVERIFY(written.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(written.readLine()), firstLine + u"\r\n"_s);
        QVERIFY(e.isEditing());
        QCOMPARE(e.shownCoin(), u"not yet saved"_s);
    }
};

QTEST_MAIN(ReportsTest)
#include "Reports.moc"
