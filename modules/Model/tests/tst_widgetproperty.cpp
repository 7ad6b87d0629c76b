#include "CWidgetProperty.h"

#include <QColor>
#include <QTest>
#include <QTime>

/// Property values, their canonical texts, and what copies share.
class tst_WidgetProperty : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsNamelessString();
    void readsText_data();
    void readsText();
    void takesVariant_data();
    void takesVariant();
    void typeNames_data();
    void typeNames();
    void copiesAreIndependent();
};

void tst_WidgetProperty::startsAsNamelessString()
{
    CWidgetProperty property;
    QCOMPARE(property.name(), "");
    QCOMPARE(property.type(), 6);
    QCOMPARE(property.storageTypeName(), "string");
    QCOMPARE(property.valueText(), "");
    QVERIFY(!property.value().isValid() && !property.minimum().isValid());
    QVERIFY(!property.isHidden() && !property.isReadOnly() && !property.isInternal());
    property.setValueFromText(QStringLiteral("12 ä"));
    QCOMPARE(property.valueText(), "12 \xC3\xA4");
}

void tst_WidgetProperty::readsText_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("valueText");
    QTest::addColumn<QByteArray>("storage");
    QTest::addColumn<int>("integer");
    QTest::newRow("int") << 0 << "-42" << QByteArray("-42") << QByteArray("int") << -42;
    QTest::newRow("int from hex is none")
        << 0 << "0x10" << QByteArray("0") << QByteArray("int") << 0;
    QTest::newRow("int from fraction is none")
        << 0 << "1.5" << QByteArray("0") << QByteArray("int") << 0;
    QTest::newRow("int too large")
        << 0 << "99999999999" << QByteArray("0") << QByteArray("int") << 0;
    QTest::newRow("float") << 1 << "0.1" << QByteArray("0.1") << QByteArray("string") << 0;
    QTest::newRow("float from word") << 1 << "much" << QByteArray("0") << QByteArray("string") << 0;
    QTest::newRow("float stays finite")
        << 1 << "nan" << QByteArray("0") << QByteArray("string") << 0;
    QTest::newRow("bool TRUE") << 2 << "TRUE" << QByteArray("1") << QByteArray("int") << 1;
    QTest::newRow("bool True") << 2 << "True" << QByteArray("1") << QByteArray("int") << 1;
    QTest::newRow("bool yes") << 2 << "yes" << QByteArray("0") << QByteArray("int") << 0;
    QTest::newRow("bool 2") << 2 << "2" << QByteArray("1") << QByteArray("int") << 1;
    QTest::newRow("bool 0") << 2 << "0" << QByteArray("0") << QByteArray("int") << 0;
    QTest::newRow("rgb upper") << 3 << "#FF0000" << QByteArray("#ff0000") << QByteArray("string")
                               << 0;
    QTest::newRow("rgb alpha") << 3 << "#80ff0000" << QByteArray("#80ff0000")
                               << QByteArray("string") << 0;
    QTest::newRow("rgb opaque alpha")
        << 3 << "#ffff0000" << QByteArray("#ff0000") << QByteArray("string") << 0;
    QTest::newRow("rgb short") << 3 << "#f80" << QByteArray("#ff8800") << QByteArray("string") << 0;
    QTest::newRow("rgb twelve digits")
        << 3 << "#ffff80000000" << QByteArray("#ff8000") << QByteArray("string") << 0;
    QTest::newRow("rgb keyword") << 3 << "SteelBlue" << QByteArray("#4682b4")
                                 << QByteArray("string") << 0;
    QTest::newRow("rgb unreadable")
        << 3 << "reddish" << QByteArray("#000000") << QByteArray("string") << 0;
    QTest::newRow("rgb empty") << 3 << "" << QByteArray("#000000") << QByteArray("string") << 0;
    QTest::newRow("time") << 4 << "23:59:01" << QByteArray("23:59:01") << QByteArray("string") << 0;
    QTest::newRow("time unreadable") << 4 << "noon" << QByteArray("") << QByteArray("string") << 0;
    QTest::newRow("enum") << 5 << "Left" << QByteArray("Left") << QByteArray("string") << 0;
    QTest::newRow("string number") << 6 << "017" << QByteArray("017") << QByteArray("string") << 17;
    QTest::newRow("unknown code is text")
        << 77 << "x" << QByteArray("x") << QByteArray("string") << 0;
}

void tst_WidgetProperty::readsText()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    CWidgetProperty property(QStringLiteral("key"), static_cast<PropertyType>(type));
    property.setValueFromText(text);
    QTEST(QByteArray(property.valueText()), "valueText");
    QTEST(QByteArray(property.storageTypeName()), "storage");
    QTEST(property.valueAsInteger(), "integer");
    // Whatever was read, its canonical text reads to the same again.
    CWidgetProperty again = property;
    again.setValueFromText(property.text());
    QCOMPARE(again.valueText(), property.valueText());
    if (type == 3) // a colour's value stays the text that was given
        QCOMPARE(property.value(), QVariant(text));
}

void tst_WidgetProperty::takesVariant_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("text");
    QTest::newRow("int") << 0 << QVariant(5) << QVariant(5) << "5";
    QTest::newRow("int keeps what it is given") << 0 << QVariant(5.5) << QVariant(5.5) << "5.5";
    QTest::newRow("float shortest")
        << 1 << QVariant(1.0 / 3) << QVariant(1.0 / 3) << "0.3333333333333333";
    QTest::newRow("bool text true") << 2 << QVariant("true") << QVariant(true) << "1";
    QTest::newRow("bool text TRUE") << 2 << QVariant("TRUE") << QVariant(false) << "0";
    QTest::newRow("bool number") << 2 << QVariant(-3) << QVariant(true) << "1";
    QTest::newRow("bool text 0") << 2 << QVariant("0") << QVariant(false) << "0";
    QTest::newRow("colour") << 3 << QVariant(QColor(1, 2, 3)) << QVariant(QColor(1, 2, 3))
                            << "#010203";
    QTest::newRow("colour alpha") << 3 << QVariant(QColor(1, 2, 3, 4))
                                  << QVariant(QColor(1, 2, 3, 4)) << "#04010203";
    QTest::newRow("colour text") << 3 << QVariant("red") << QVariant("red") << "#ff0000";
    QTest::newRow("time") << 4 << QVariant(QTime(1, 2, 3)) << QVariant(QTime(1, 2, 3))
                          << "01:02:03";
    QTest::newRow("string") << 6 << QVariant(12) << QVariant(12) << "12";
}

void tst_WidgetProperty::takesVariant()
{
    QFETCH(int, type);
    QFETCH(QVariant, value);
    CWidgetProperty property(QStringLiteral("key"), static_cast<PropertyType>(type));
    property.setMinimum(100); // limits are the editor's business alone
    property.setValue(value);
    QTEST(property.value(), "stored");
    QTEST(property.text(), "text");
}

void tst_WidgetProperty::typeNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("code");
    const char *const names[] = {"invalid", "int",  "float", "bool",
                                 "rgb",     "time", "enum",  "string"};
    for (int i = 0; i < 8; ++i)
        QTest::newRow(names[i]) << names[i] << i - 1;
    QTest::newRow("enum with entries") << "enum:A|B" << 5;
    QTest::newRow("enumerate") << "enumerate" << 5;
    QTest::newRow("Enum") << "Enum" << 0;
    QTest::newRow("colour") << "colour" << 0;
    QTest::newRow("nothing") << "" << 0;
}

void tst_WidgetProperty::typeNames()
{
    QFETCH(QString, name);
    QTEST(static_cast<int>(propertyTypeOfName(name)), "code");
}

void tst_WidgetProperty::copiesAreIndependent()
{
    CWidgetProperty original(QStringLiteral("key"), PropertyType::Int);
    original.setValue(1);
    original.setMaximum(9);
    original.setEnumerationEntries({QStringLiteral("A")});
    CWidgetProperty copy(original);
    copy.setName(QStringLiteral("other"));
    copy.setType(PropertyType::String);
    copy.setValue(2);
    copy.setMaximum(10);
    copy.setInternal(true);
    QCOMPARE(original.name(), "key");
    QCOMPARE(original.storageTypeName(), "int");
    QCOMPARE(original.valueText(), "1");
    QCOMPARE(original.maximum(), QVariant(9));
    QVERIFY(!original.isInternal());
    QCOMPARE(copy.name(), "other");
    QCOMPARE(copy.storageTypeName(), "string");
    QCOMPARE(copy.enumerationEntries(), QStringList(QStringLiteral("A")));
}

QTEST_APPLESS_MAIN(tst_WidgetProperty)
#include "tst_widgetproperty.moc"
