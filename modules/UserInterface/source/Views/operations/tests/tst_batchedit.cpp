// What is typed into number fields, and what many items have in common.
#include "CBatchItems.h"
#include "CanvasTestSupport.h"
#include "ItemNumbers.h"
#include "NumberExpression.h"

#include <QColor>
#include <QElapsedTimer>
#include <QUndoStack>

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
        row("H/2+w", "55");
        row("corner radius*2 + Corner  Radius", "30");
        row("corner radiu", "\"corner radiu\"");
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

    void common_data()
    {
        QTest::addColumn<QString>("items");  // of the page below, a letter each
        QTest::addColumn<QString>("common"); // with their values, "*": mixed
        QTest::addColumn<QString>("others"); // with how many have them
        const auto row = [](const char *name, const char *items, const char *common,
                            const char *others) {
            QTest::newRow(name) << QString(items) << QString(common) << QString(others);
        };
        row("none", "", "", "");
        row("one", "w",
            "name=Wires x_coordinate=5 y_coordinate=6 thickness=2 closed=0 "
            "line_color=#2d9cdb",
            "");
        row("the same kind", "ab",
            "name=* x_coordinate=* y_coordinate=20 width=* height=30 "
            "angle=0 corner=10 fill_color=#263442 border=0 "
            "border_color=#3a4a5a",
            "");
        row("kinds", "acw", "name=* x_coordinate=* y_coordinate=*",
            "fill_color/2 border/2 border_color/2 width/1 height/1 angle/1 corner/1 point_size/1 "
            "thickness/1 closed/1 line_color/1");
        row("a group is one place and many contents", "g",
            "name=Group x_coordinate=300 y_coordinate=200 width=* height=30 angle=0 corner=10 "
            "fill_color=* border=0 border_color=#3a4a5a",
            "");
        row("a page", "ps", "name=* color=#000000", "");
        row("whole and real numbers", "nv",
            "name=* x_coordinate=0 y_coordinate=0 width=* height=* value=* value_color=*", nullptr);
        row("what is locked is left out", "akl",
            "name=* x_coordinate=* y_coordinate=* "
            "width=40 height=30 angle=0 corner=10 fill_color=#263442 border=0 "
            "border_color=#3a4a5a",
            "");
        row("all is locked", "k", "", "");
    }

    void common()
    {
        QFETCH(QString, items);
        QFETCH(QString, common);
        QFETCH(QString, others);
        const SPage page;
        const CBatchItems batch(page.items(items));
        QCOMPARE(batch.locked(), items.count('k') + 2 * items.count('l'));
        QStringList shared;
        QStringList rest;
        for (const CBatchItems::SProperty &each : batch.properties()) {
            const CWidgetProperty &property = each.property;
            const QString value = each.isMixed ? "*" : property.text();
            if (each.isCommon)
                shared.append(property.key() + '=' + value);
            else
                rest.append(property.key() + '/' + QString::number(each.count));
            QCOMPARE(batch.with(property.key()).size(), each.count);
        }
        QCOMPARE(shared.join(' '), common);
        if (!others.isNull())
            QCOMPARE(rest.join(' '), others);
    }

    void edits_data()
    {
        QTest::addColumn<QString>("items");
        QTest::addColumn<QString>("edit");  // key=value, or key:expression
        QTest::addColumn<QString>("after"); // nothing where an error is expected
        const auto row = [](const char *name, const char *items, const char *edit,
                            const char *after) {
            QTest::newRow(name) << QString(items) << QString(edit) << QString(after);
        };
        row("one colour", "abc", "fill_color=#102030", "#102030 #102030 #102030");
        row("relative", "abw", "x_coordinate:+4", "14 64 9");
        row("each by its own numbers", "ab", "height:=width/2", "20 13");
        row("cut to its limits", "acw", "thickness:*1000", "128");
        row("beyond its limits already", "o", "width:+1", "");
        row("back into them", "o", "width:-=2900", "100");
        row("real and whole", "nv", "value:=2,6", "2.6 3");
        row("a group moves, its members change", "ag", "x_coordinate:=100", "100 100");
        row("names count up", "acg", "name=Key", "Key Key 2 Key 3");
        row("past those of others", "ac", "name=Wires", "Wires 2 Wires 3");
        row("names of pages", "ps", "name=A", "A A 2");
        row("no name", "ac", "name= ", "");
        row("for one of them it cannot be", "ad", "width:/x", "");
        row("nothing changes", "ab", "y_coordinate:=20", "");
        row("locked", "ka", "x_coordinate:+1", "11");
    }

    void edits()
    {
        QFETCH(QString, items);
        QFETCH(QString, edit);
        QFETCH(QString, after);
        const SPage page;
        const QByteArray before = savedBytes(*page.project);
        const CBatchItems batch(page.items(items));
        const bool isExpression = edit.contains(':');
        const QString key = edit.section(isExpression ? ':' : '=', 0, 0);
        const QString value = edit.mid(key.size() + 1);
        QString error;
        PropertyStep::push(
            isExpression ? batch.changesTo(key, value, &error) : batch.changes(key, value), "Step");
        QUndoStack &stack = *page.project->undoStack();
        QCOMPARE(stack.count(), after.isEmpty() ? 0 : 1);
        if (after.isEmpty()) {
            QCOMPARE(savedBytes(*page.project), before);
            return;
        }
        QStringList texts;
        for (const CItemModel *each : batch.with(key))
            texts.append(each->propertyText(key));
        QCOMPARE(texts.join(' '), after);
        stack.undo();
        QCOMPARE(savedBytes(*page.project), before);
    }

private:
    struct SPage
    {
        SPage()
        {
            CItemModel *screen = project->screen(0);
            const auto add = [this](char letter, CItemModel *item, const char *name = "Box") {
                item->setProperty(PropertyKey::Name, name);
                all.insert(letter, item);
                return item;
            };
            add('p', screen, "P");
            add('s', project->screen(1), "S");
            add('a', appendBox(screen, 10, 20, 40, 30));
            add('b', appendBox(screen, 60, 20, 25, 30), "Other");
            add('c', addWidget(*project, "Kiv_Circle_T"), "Disc");
            add('d', appendBox(screen, 0, 0, 9, 9), "Zero");
            add('w',
                appendWidget(screen, "Kiv_Polyline_T", {{PropertyKey::X, 5}, {PropertyKey::Y, 6}}),
                "Wires");
            add('o', appendBox(screen, 0, 0, 3000, 9), "Large");
            add('n', addWidget(*project, "Kiv_Progress_T"), "Bar");
            add('v', addWidget(*project, "Kiv_Battery_T"), "Battery");
            add('k', appendBox(screen, 0, 0, 9, 9), "Locked")->setLocked(true);
            for (const char letter : {'g', 'l'}) {
                auto *group = new CWidgetGroupModel(screen->library(), screen->observer());
                screen->appendRow(group);
                appendBox(group, 300, 200, 10, 30);
                appendBox(group, 340, 200, 20, 30)->setProperty("fill_color", "#ffffff");
                add(letter, group, "Group");
                group->setProperty(PropertyKey::X, 300);
                group->setProperty(PropertyKey::Y, 200);
            }
            all['l']->childItem(0)->setLocked(true);
            all['l']->childItem(1)->setLocked(true);
        }
        QList<CItemModel *> items(const QString &letters) const
        {
            QList<CItemModel *> items;
            for (const QChar each : letters)
                items.append(all.value(each.toLatin1()));
            return items;
        }
        const std::unique_ptr<CProjectModel> project = newTestProject(2);
        QHash<char, CItemModel *> all;
    };
};

QTEST_MAIN(tst_BatchEdit)
#include "tst_batchedit.moc"
