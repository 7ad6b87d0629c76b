// What is typed into number fields, and what many items have in common.
#include "CanvasTestSupport.h"
#include "ItemNumbers.h"
#include "NumberExpression.h"

class tst_BatchEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }

    /// The number that is there is 12; the item is a box at 7, 9 of 40 x 30.
    void expressions_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected"); // a number, or a part of the error
        const auto row = [](const char *text, const char *expected) {
            QTest::newRow(text) << QString(text) << QString(expected);
        };
        row("8", "8");
        row(" -4 ", "-4");
        row("1,5", "1.5");
        row("+4", "16");
        row("*2", "24");
        row("/ 8", "1.5");
        row("+4*2", "20");
        row("*2+1", "25");
        row("-=4", "8");
        row("+=4", "16");
        row("*=2+1", "36");
        row("/=2", "6");
        row("=width/2", "20");
        row("=-4", "-4");
        row("(x + 8) * -2", "-30");
        row("--3", "3");
        row("2-3-4", "-5");
        row("12/2/3", "2");
        row("Height-Y", "21");
        row("50%", "6");
        row("+10%", "13.2");
        row("-=25%", "9");
        row("width*50%", "20");
        row("width+50%", "60");
        row("3\u00d72\u22121", "5");
        row("", "missing");
        row("4+", "missing");
        row("=", "missing");
        row("(4", "closing");
        row("4)", "\")\" is not expected");
        row("4 4", "\"4\" is not expected");
        row("1.2.3", "no number");
        row("1e9", "\"e9\" is not expected");
        row("1/0", "zero");
        row("/(x-7)", "zero");
        row("depth*2", "\"depth\"");
        row("name", "\"name\""); // a text
        row("2147483648", "too large");
        row("99999*99999*99999", "too large");
        row("0/0*(1/0)", "zero");
        row("inf", "\"inf\"");
        row("==4", "\"=4\" is not expected");
        const auto many = [](const char *name, const QString &text, const char *expected) {
            QTest::newRow(name) << text << QString(expected);
        };
        many("nested", QString(200, '(') + '1', "Too many");
        many("signs", QString(200, '-') + '1', "Too many");
        many("side by side", QString("(1)+").repeated(100) + '0', "100");
        many("digits", QString(400, '9'), "number");
        many("huge", QString(1 << 20, '('), "500 characters");
        many("quoted in short", "1 " + QString(400, 'w'), QString("w").repeated(24).toLatin1());
    }

    void expressions()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        const auto project = newTestProject();
        const CItemModel *item = appendBox(project->screen(0), 7, 9, 40, 30);
        const NumberExpression::SResult result = NumberExpression::evaluate(
            text, 12, [item](const QString &name) { return ItemNumbers::find(*item, name); });
        bool isNumber = false;
        const double number = expected.toDouble(&isNumber);
        QCOMPARE(bool(result), isNumber);
        QVERIFY2(isNumber || result.error.contains(expected), qPrintable(result.error));
        QCOMPARE(result.value, number);
        QVERIFY(result.error.size() < 100);
    }
};

QTEST_MAIN(tst_BatchEdit)
#include "tst_batchedit.moc"
