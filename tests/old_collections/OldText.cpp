#include "old_collections/OldText.h"

#include <QTest>

using namespace obelmark;
using namespace Qt::StringLiterals;

class OldText : public QObject
{
    Q_OBJECT
private slots:
    void decoded_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<std::optional<QString>>("text");
        QTest::newRow("empty") << QByteArray() << std::optional(u""_s);
        QTest::newRow("two bytes a character") << "\x41\x00\x16\x04"_ba << std::optional(u"A\u0416"_s);
        QTest::newRow("beyond the first 65,536") << "\x3d\xd8\x80\xde"_ba << std::optional(u"\U0001F680"_s);
        QTest::newRow("packed") << "\xff\xfe"
                                   "Gr\xfc\xdf"
                                   "e"_ba
                                << std::optional(u"Gr\u00fc\u00dfe"_s);
        QTest::newRow("packed, then not, then packed") << "\xff\xfe"
                                                          "A\x00\x16\x04\x30\x04\x00Z"_ba
                                                       << std::optional(u"A\u0416\u0430Z"_s);
        QTest::newRow("half a character") << "\x41\x00\x42"_ba << std::optional<QString>();
    }
    void decoded()
    {
        QFETCH(QByteArray, bytes);
        QTEST(decodeOldText(bytes), "text");
    }
};

QTEST_GUILESS_MAIN(OldText)
#include "OldText.moc"
