#include "CToolboxModel.h"
#include "ModelTestSupport.h"
#include "PlatformFilter.h"

#include <QTemporaryDir>

/// The widget library and what it chooses by platform.
class tst_WidgetLibrary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadTestLibrary(); }
    void chipCodes_data();
    void chipCodes();
    void filters_data();
    void filters();
    void alternatives_data();
    void alternatives();
    void kindsByPlatform();
    void toolboxKeepsOrder();
    void brokenFiles_data();
    void brokenFiles();
    void loadsAgain();
};

void tst_WidgetLibrary::chipCodes_data()
{
    QTest::addColumn<QString>("platform");
    QTest::addColumn<quint32>("code");
    QTest::newRow("QX100") << "QX100" << 0x100u;
    QTest::newRow("QX110") << "QX110" << 272u;
    QTest::newRow("QX113") << "QX113" << 0x113u;
    QTest::newRow("unknown") << "ABC" << 0x100u;
    QTest::newRow("lower case") << "qx110" << 0x100u;
    QTest::newRow("second family") << "QX200" << 0x100u;
    QTest::newRow("not hexadecimal") << "QX1zz" << 0u;
    QTest::newRow("too long") << "QX1000000000" << 0u;
    QTest::newRow("empty") << "" << 0x100u;
}

void tst_WidgetLibrary::chipCodes()
{
    QFETCH(QString, platform);
    QTEST(chipCodeOfPlatform(platform), "code");
}

void tst_WidgetLibrary::filters_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("matching"); // of QX100, QX101, QX110, QX113
    QTest::newRow("one") << "QX101"
                         << "0100";
    QTest::newRow("up to") << "..QX101"
                           << "1100";
    QTest::newRow("from") << "QX110.."
                          << "0011";
    QTest::newRow("between, both included") << "QX101..QX110"
                                            << "0110";
    QTest::newRow("empty range") << "QX110..QX101"
                                 << "0000";
    QTest::newRow("list") << "QX100,QX113.."
                          << "1001";
    QTest::newRow("empty parts") << ",,QX101,"
                                 << "0100";
    QTest::newRow("nothing") << ""
                             << "0000";
    QTest::newRow("unknown name is the first model") << "ABC"
                                                     << "1000";
}

void tst_WidgetLibrary::filters()
{
    QFETCH(QString, filter);
    QString matching;
    for (const quint32 code : {0x100u, 0x101u, 0x110u, 0x113u})
        matching += QLatin1Char(PlatformFilter::matches(filter, code) ? '1' : '0');
    QTEST(matching, "matching");
}

void tst_WidgetLibrary::alternatives_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("onQX100");
    QTest::addColumn<QString>("onQX112");
    QTest::newRow("plain") << "5"
                           << "5"
                           << "5";
    QTest::newRow("first generation") << "2048@QX100..QX101|4096"
                                      << "2048"
                                      << "4096";
    QTest::newRow("second generation") << "2048@QX110..|1024"
                                       << "1024"
                                       << "2048";
    QTest::newRow("only one chip") << "2048@QX110"
                                   << ""
                                   << "";
    QTest::newRow("first without filter wins") << "1|2@QX112"
                                               << "1"
                                               << "1";
    QTest::newRow("empty parts") << "||7"
                                 << "7"
                                 << "7";
    QTest::newRow("empty result") << "@QX112|3"
                                  << "3"
                                  << "";
    QTest::newRow("nothing") << ""
                             << ""
                             << "";
}

void tst_WidgetLibrary::alternatives()
{
    QFETCH(QString, text);
    QTEST(PlatformFilter::resolve(text, 0x100), "onQX100");
    QTEST(PlatformFilter::resolve(text, 0x112), "onQX112");
}

void tst_WidgetLibrary::kindsByPlatform()
{
    const auto &manager = CWidgetLibraryManager::instance();
    const CWidgetLibraryModel *old = manager.libraryModel(0x100);
    const CWidgetLibraryModel *modern = manager.libraryModel(0x112);
    const QString box = QStringLiteral("Test_Box_T");
    const auto oldSet = old->propertySet(box);
    const auto modernSet = modern->propertySet(box);

    const QStringList order = {
        "name",    "id",    "x_coordinate", "y_coordinate", "width",  "height", "text", "fill",
        "visible", "alarm", "opacity",      "align",        "secret", "odd",    "hush", "bfolder"};
    QCOMPARE(old->propertyKeys(box), order);
    QCOMPARE(old->properties(box).size(), order.size());

    QCOMPARE(oldSet["x_coordinate"].minimum(), QVariant(-32768));
    QCOMPARE(oldSet["x_coordinate"].maximum(), QVariant(2048));
    QCOMPARE(modernSet["x_coordinate"].maximum(), QVariant(4096));
    QCOMPARE(oldSet["y_coordinate"].maximum(), QVariant(1024));
    QCOMPARE(modernSet["y_coordinate"].maximum(), QVariant(2048));
    QVERIFY(!oldSet["width"].maximum().isValid());
    QVERIFY(!oldSet["name"].minimum().isValid() && !oldSet["name"].singleStep().isValid());
    QCOMPARE(oldSet["opacity"].singleStep(), QVariant(0.05));
    QCOMPARE(oldSet["align"].enumerationEntries(), QStringList({"Left", "Right"}));
    QCOMPARE(modernSet["align"].enumerationEntries(), QStringList({"Left", "Middle", "Right"}));
    QVERIFY(!oldSet["odd"].isHidden()); // only the exact text "true" counts
    QVERIFY(oldSet["odd"].isReadOnly());
    QCOMPARE(int(oldSet["odd"].propertyType()), 0);
    QCOMPARE(oldSet["odd"].value(), QVariant(12));
    QVERIFY(oldSet["secret"].isInternal());
    QVERIFY(!oldSet["hush"].isHidden() && modernSet["hush"].isHidden());

    QCOMPARE(old->renderCommands(box), QStringLiteral("disc(x_coordinate, 1 < 2, \"ä\")"));
    QCOMPARE(QString::fromUtf8(old->renderCommandsUtf8(box)), old->renderCommands(box));
    QCOMPARE(old->tooltip(box), QStringLiteral("A box"));
    QCOMPARE(old->version(), QStringLiteral("1.X"));
    QVERIFY(old->properties(QStringLiteral("None_T")).isEmpty());
    QCOMPARE(old->renderCommandsUtf8(QStringLiteral("None_T")), "");
    QVERIFY(!manager.libraryModel(0x200) && !manager.toolboxModel(0x200));
    QVERIFY(!old->contains(QStringLiteral("has space"))); // could not be an element's name
}

void tst_WidgetLibrary::toolboxKeepsOrder()
{
    const CToolboxModel *toolbox = CWidgetLibraryManager::instance().toolboxModel(0x100);
    QStringList rows;
    for (int group = 0; group < toolbox->rowCount(); ++group) {
        const QStandardItem *groupRow = toolbox->item(group);
        rows += groupRow->text();
        for (int row = 0; row < groupRow->rowCount(); ++row)
            rows += groupRow->child(row)->text() + QLatin1Char('=') +
                    groupRow->child(row)->data(CToolboxModel::TypeRole).toString();
    }
    QCOMPARE(rows,
             QStringList({"Shapes", "Box=Test_Box_T", "Circle=Test_Circle_T", "Dot=Test_Dot_T",
                          "Others", "Line=Test_Line_T", "Polygon=Test_Poly_T", "First=Test_Twice_T",
                          "Second=Test_Twice_T"}));
}

void tst_WidgetLibrary::brokenFiles_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no xml") << QByteArray("widgetlibrary");
    QTest::newRow("not closed") << QByteArray("<widgetlibrary><toolboxgroup>");
    QTest::newRow("another document") << QByteArray("<library/>");
    QTest::newRow("document type") << QByteArray("<!DOCTYPE widgetlibrary><widgetlibrary/>");
}

void tst_WidgetLibrary::brokenFiles()
{
    QFETCH(QByteArray, xml);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("library.xml"));
    CWidgetLibraryManager manager;
    QVERIFY(!manager.initialise(path, {0x100}));
    QVERIFY(!manager.errorText().isEmpty()); // missing

    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(xml);
    file.close();
    QVERIFY(!manager.initialise(path, {0x100}));
    QVERIFY(!manager.errorText().isEmpty());
    QVERIFY(!manager.libraryModel(0x100));
}

void tst_WidgetLibrary::loadsAgain()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("library.xml")));
    CWidgetLibraryManager manager;
    for (const QByteArray &version : {QByteArray("2.0"), QByteArray("3.1")}) {
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<widgetlibrary><miscinfo><NYXVersion name=\"" + version +
                   "\"/></miscinfo></widgetlibrary>");
        file.close();
        QVERIFY(manager.initialise(file.fileName(), {0x100, 0x110}));
        QCOMPARE(manager.libraryModel(0x110)->version(), QString::fromLatin1(version));
    }
}

QTEST_MAIN(tst_WidgetLibrary)
#include "tst_widgetlibrary.moc"
