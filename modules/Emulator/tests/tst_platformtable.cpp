#include "CPlatformTable.h"

#include <QtTest>

class tst_PlatformTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offersSizes_data();
    void offersSizes();
    void rulesOfNames_data();
    void rulesOfNames();
    void everyPlatformHasItsCode();
};

void tst_PlatformTable::offersSizes_data()
{
    QTest::addColumn<QString>("sizes");
    QTest::addColumn<QSize>("largest");
    const QString first = QStringLiteral("480 x 272, 320 x 240, 240 x 320, 320 x 480");
    const QString all = first + QStringLiteral(", 800 x 480, 800 x 600, 1024 x 768");
    QTest::newRow("QX100") << first << QSize(512, 512);
    QTest::newRow("QX101") << first << QSize(512, 512);
    QTest::newRow("QX110") << all << QSize(2048, 2048);
    QTest::newRow("QX111") << all << QSize(2048, 2048);
    QTest::newRow("QX112") << all << QSize(2048, 2048);
    QTest::newRow("QX113") << all << QSize(2048, 2048);
    QTest::newRow("QX114") << QString() << QSize(0, 0);
    QTest::newRow("qx110") << QString() << QSize(0, 0);
    QTest::newRow("") << QString() << QSize(0, 0);
}

void tst_PlatformTable::offersSizes()
{
    QFETCH(QString, sizes);
    QFETCH(QSize, largest);
    const CPlatformTable table;
    const QString platform = QString::fromLatin1(QTest::currentDataTag());
    QStringList texts;
    for (const QSize &size : table.offeredSizes(platform))
        texts.append(CPlatformTable::sizeText(size));
    QCOMPARE(texts.join(QStringLiteral(", ")), sizes);
    QCOMPARE(table.largestSize(platform), largest);
    QCOMPARE(table.isKnown(platform), !sizes.isEmpty());
}

void tst_PlatformTable::rulesOfNames_data()
{
    QTest::addColumn<uint32_t>("code");
    QTest::addColumn<uint32_t>("budget");
    QTest::newRow("QX100") << 256u << 262144u;
    QTest::newRow("QX101") << 257u << 262144u;
    QTest::newRow("QX110") << 272u << 1048576u;
    QTest::newRow("QX113") << 275u << 1048576u;
    QTest::newRow("ABC") << 256u << 262144u;
    QTest::newRow("") << 256u << 262144u;
    QTest::newRow("qx110") << 256u << 262144u;
    QTest::newRow("QX1ZZ") << 0u << 262144u;
    QTest::newRow("QX11G") << 0u << 1048576u;
    QTest::newRow("QX1FF") << 511u << 262144u;
    QTest::newRow("QX1FFFFFFFF") << 0u << 262144u; // more than 32 bits
    QTest::newRow("MyQX112") << 256u << 1048576u;
}

void tst_PlatformTable::rulesOfNames()
{
    QFETCH(uint32_t, code);
    QFETCH(uint32_t, budget);
    const QString platform = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(CPlatformTable::chipCode(platform), code);
    QCOMPARE(CPlatformTable::ramGBudget(platform), budget);
}

void tst_PlatformTable::everyPlatformHasItsCode()
{
    const QVector<uint32_t> expected = {0x100, 0x101, 0x110, 0x111, 0x112, 0x113};
    QCOMPARE(CPlatformTable().chipCodes(), expected);
}

QTEST_APPLESS_MAIN(tst_PlatformTable)
#include "tst_platformtable.moc"
