#include "ModelTestSupport.h"
#include "PlatformFilter.h"

#include <QColor>
#include <QDomDocument>
#include <QTemporaryDir>
#include <QTime>

namespace {
/// The cells of a table that is written as "a b; c d".
QVector<QStringList> rowsOf(const char *table)
{
    QVector<QStringList> rows;
    const QStringList lines = QString::fromUtf8(table).split("; ");
    for (const QString &line : lines)
        rows += line.split(QLatin1Char(' '));
    return rows;
}
} // namespace

/// The widget library, what it chooses by platform, and the values of the properties it defines.
class tst_WidgetLibrary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadTestLibrary(); }

    void readsText()
    {
        // The type, what is read, and the canonical text of it: what no number, colour or time can
        // be made of is 0, black or empty; an unknown type is text.
        const auto rows = rowsOf("0 -42 -42; 0 0x10 0; 0 1.5 0; 0 99999999999 0; "
                                 "1 0.1 0.1; 1 much 0; 1 nan 0; "
                                 "2 TRUE 1; 2 True 1; 2 yes 0; 2 2 1; 2 0 0; "
                                 "3 #FF0000 #ff0000; 3 #80ff0000 #80ff0000; 3 #ffff0000 #ff0000; "
                                 "3 #f80 #ff8800; 3 #ffff80000000 #ff8000; 3 SteelBlue #4682b4; "
                                 "3 reddish #000000; 3  #000000; 4 23:59:01 23:59:01; 4 noon ; "
                                 "5 Left Left; 6 017 017; 6 \xC3\xA4 \xC3\xA4; 77 x x");
        for (const QStringList &cells : rows) {
            const int type = cells.at(0).toInt();
            CWidgetProperty property("key", static_cast<PropertyType>(type));
            property.setValueFromText(cells.at(1));
            QCOMPARE(property.text(), cells.at(2));
            QCOMPARE(property.valueAsInteger(), cells.at(2).toInt());
            QCOMPARE(property.storageTypeName(), type == 0 || type == 2 ? "int" : "string");
            if (type == 3) // a colour's value stays the text that was given
                QCOMPARE(property.value(), QVariant(cells.at(1)));
            property.setValueFromText(property.text()); // reads to the same again
            QCOMPARE(QString::fromUtf8(property.valueText()), cells.at(2));
        }
    }

    void takesVariant()
    {
        const std::tuple<int, QVariant, const char *> cases[] = {
            // the type, a value and its text
            {0, 5, "5"},
            {0, 5.5, "5.5"},
            {1, 1.0 / 3, "0.3333333333333333"},
            {2, "true", "1"},
            {2, "TRUE", "0"},
            {2, -3, "1"},
            {2, "0", "0"},
            {3, QColor(1, 2, 3), "#010203"},
            {3, QColor(1, 2, 3, 4), "#04010203"},
            {3, "red", "#ff0000"},
            {4, QTime(1, 2, 3), "01:02:03"},
            {6, 12, "12"},
        };
        for (const auto &[type, value, text] : cases) {
            CWidgetProperty property("key", static_cast<PropertyType>(type));
            property.setMinimum(100); // limits are the editor's business alone
            property.setValue(value);
            QCOMPARE(property.valueText(), text);
            QCOMPARE(property.value(), type == 2 ? QVariant(*text == '1') : value);
        }
    }

    void filters()
    {
        // Which of QX100, QX101, QX110 and QX113 match; an unknown name is the first model.
        const auto rows = rowsOf("QX101 0100; ..QX101 1100; QX110.. 0011; QX101..QX110 0110; "
                                 "QX110..QX101 0000; QX100,QX113.. 1001; ,,QX101, 0100;  0000; "
                                 "ABC 1000");
        for (const QStringList &cells : rows) {
            QString matching;
            for (const quint32 code : {0x100u, 0x101u, 0x110u, 0x113u})
                matching += QLatin1Char(PlatformFilter::matches(cells.at(0), code) ? '1' : '0');
            QVERIFY2(matching == cells.at(1), qPrintable(cells.join(QLatin1Char(' '))));
        }
    }

    void alternatives()
    {
        // A text, what it is on QX100 and what on QX112; the first without filter wins.
        const auto rows =
            rowsOf("5 5 5; 2048@QX100..QX101|4096 2048 4096; 2048@QX110..|1024 1024 2048; "
                   "2048@QX110  ; 1|2@QX112 1 1; ||7 7 7; @QX112|3 3 ;   ");
        for (const QStringList &cells : rows) {
            QCOMPARE(PlatformFilter::resolve(cells.at(0), 0x100), cells.at(1));
            QCOMPARE(PlatformFilter::resolve(cells.at(0), 0x112), cells.at(2));
        }
    }

    void kindsByPlatform()
    {
        const auto &manager = CWidgetLibraryManager::instance();
        const CWidgetLibraryModel *old = manager.libraryModel(0x100);
        const QString box = QStringLiteral("Test_Box_T");
        const auto oldSet = old->propertySet(box);

        QCOMPARE(oldSet["x_coordinate"].minimum(), QVariant(-32768));
        QVERIFY(!oldSet["width"].maximum().isValid());
        QVERIFY(!oldSet["name"].minimum().isValid() && !oldSet["name"].singleStep().isValid());
        QCOMPARE(oldSet["opacity"].singleStep(), QVariant(0.05));
        QVERIFY(!oldSet["odd"].isHidden()); // only the exact text "true" counts
        QVERIFY(oldSet["odd"].isReadOnly());
        QCOMPARE(oldSet["odd"].value(), QVariant(12));
        QVERIFY(oldSet["secret"].isInternal());
        QCOMPARE(old->renderCommands(box), QStringLiteral("disc(x_coordinate, 1 < 2, \"ä\")"));
        QVERIFY(old->properties("None_T").isEmpty());
        QCOMPARE(old->renderCommandsUtf8("None_T"), "");
        QVERIFY(!manager.libraryModel(0x200) && !manager.toolboxModel(0x200));
        QVERIFY(!old->contains("has space")); // could not be an element's name
    }

    /// Sections go on until the next; what is missing, unknown or does not fit leaves a list with
    /// names made of the keys.
    void looksOfProperties()
    {
        QDomDocument document;
        QVERIFY(document.setContent(
            QString("<widgetlibrary><captions><caption key='b' text='  Bee \n "
                    "line'/><caption/></captions>"
                    "<toolboxgroup><widget type='K_T'><properties><property name='inner_gap'/>"
                    "<property name='b' section='Place' editor='sixteenths'/>"
                    "<property name='c' type='enum:x' editor='symbol' caption='Sea'/>"
                    "<property name='d' type='string' editor='font' section='%1'/>"
                    "<property name='e' editor='hammer' section=''/><property name=''/>"
                    "</properties></widget></toolboxgroup></widgetlibrary>")
                .arg(QString(1000000, 'x'))));
        const CWidgetLibraryModel library(document, 0x110);
        const QStringList wanted = {"inner_gap|Inner gap||0",
                                    "b|Bee line|Place|3",
                                    "c|Sea|Place|2",
                                    "d|D|" + QString(60, 'x') + "|0",
                                    "e|E||0",
                                    "|||0"};
        QStringList found;
        for (const QString &key : library.propertyKeys("K_T")) {
            const SPropertyLook look = library.look("K_T", key);
            found << QStringList{key, look.caption, look.section, QString::number(int(look.editor))}
                         .join('|');
        }
        QCOMPARE(found, wanted);
        QCOMPARE(library.look("Other_T", "b").caption, "Bee line");
        QCOMPARE(library.look("Other_T", "no_such").caption, "No such");
    }

    void brokenFiles()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath("library.xml"));
        CWidgetLibraryManager manager;
        const auto isRefused = [&] {
            return !manager.initialise(file.fileName(), {0x100}) &&
                   !manager.errorText().isEmpty() && !manager.libraryModel(0x100);
        };
        QVERIFY2(isRefused(), "missing");
        for (const char *xml : {"", "widgetlibrary", "<widgetlibrary><toolboxgroup>", "<library/>",
                                "<!DOCTYPE widgetlibrary><widgetlibrary/>"}) {
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(xml);
            file.close();
            QVERIFY2(isRefused(), xml);
        }
    }
};

QTEST_MAIN(tst_WidgetLibrary)
#include "tst_widgetlibrary.moc"
