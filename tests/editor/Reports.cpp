// SPDX-FileCopyrightText: The Obelmark developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorFixture.h"
#include "support/Cases.h"

using namespace obelmark;

class ReportsTest : public QObject
{
    Q_OBJECT
private slots:
    void fromTheMenu_data() { cases::add(); }
    void fromTheMenu()
    {
        const auto [item, proposedName, dialog, firstLine] = cases::row<4>();
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
