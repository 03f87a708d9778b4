#include "old_collections/OldText.h"

#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

class OldText : public QObject
{
    Q_OBJECT
private slots:
    void decoded()
    {
        QCOMPARE(decodeOldText({}), u""_s);
        QCOMPARE(decodeOldText("\x41\x00\x16\x04"_ba), u"A\u0416"_s);
        QCOMPARE(decodeOldText("\x3d\xd8\x80\xde"_ba), u"\U0001F680"_s);
        const QByteArray packed = "\xff\xfe"_ba;
        QCOMPARE(decodeOldText(packed + "Gr\xfc\xdf"
                                        "e"_ba),
                 u"Gr\u00fc\u00dfe"_s);
        QCOMPARE(decodeOldText(packed + "A\x00\x16\x04\x30\x04\x00Z"_ba),
                 u"A\u0416\u0430Z"_s);                            // not all of it
        QCOMPARE(decodeOldText("\x41\x00\x42"_ba), std::nullopt); // half a character
    }
};

QTEST_GUILESS_MAIN(OldText)
#include "OldText.moc"
