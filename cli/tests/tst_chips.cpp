#include "CPlatformTable.h"
#include "executor/ChipLimits.h"

#include <QFile>
#include <QtTest>

using namespace kivemu;

/// What a chip decides is said in three places.
class tst_Chips : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void budgetsAreTheChips();
};

/// The editor's table, the emulator's and the documentation's.
void tst_Chips::budgetsAreTheChips()
{
    QFile file(qEnvironmentVariable("KIV_SOURCE_DIR") + QStringLiteral("/docs/chips.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray page = file.readAll();
    for (const uint32_t unknown : {0U, 0x102U, 0x10FU, 0x114U, 0xFFFFFFFFU})
        QCOMPARE(chipLimits(unknown).ramDl, chipLimits(0x100).ramDl);
    const CPlatformTable table;
    for (const QString &name : table.platforms()) {
        const SChipLimits chip = chipLimits(CPlatformTable::chipCode(name));
        QCOMPARE(size_t{CPlatformTable::ramGBudget(name)}, chip.ramG);
        QCOMPARE(size_t{CPlatformTable::ramDlBudget(name)}, chip.ramDl);
        QCOMPARE(table.largestSize(name).width(), int(chip.maxSide));
        const QString row = QStringLiteral("| %1 | 0x%2 | %3 | %4 | %5 x %5 | -%5 to %5 |\n")
                                .arg(name, name.mid(2))
                                .arg(chip.ramG)
                                .arg(chip.ramDl)
                                .arg(chip.maxSide);
        QVERIFY2(page.contains(row.toUtf8()), qPrintable(row));
    }
}

QTEST_GUILESS_MAIN(tst_Chips)
#include "tst_chips.moc"
