// What everyday work costs a hand: each task done the shortest way in the real program, its clicks
// and keys counted, its outcome read from the saved file. The table is left beside the pictures.
#include "CDisplay.h"
#include "CEditor.h"
#include "CHand.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSet>
#include <QTest>

#include <functional>
#include <utility>

namespace {
constexpr int Patience = 60'000; // ms

QByteArray rectangle(int id, int x, int y, const char *name = "")
{
    return QStringLiteral("<Kiv_Rectangle_T name=\"%5\" id=\"%1\" x_coordinate=\"%2\" "
                          "y_coordinate=\"%3\" width=\"%4\" height=\"16\"/>")
        .arg(id)
        .arg(x)
        .arg(y)
        .arg(30 + 2 * id)
        .arg(*name ? QLatin1String(name) : QLatin1String("R"))
        .toUtf8();
}

QByteArray project(const QByteArray &items, const QByteArray &otherPage = {})
{
    return "<Kiv_Project_T project_name=\"demo\" platform=\"QX110\" width=\"480\" height=\"272\">"
           "<Kiv_Screen_T name=\"First\" color=\"#204060\">" +
           items + "</Kiv_Screen_T><Kiv_Screen_T name=\"Second\" color=\"#204060\">" + otherPage +
           "</Kiv_Screen_T></Kiv_Project_T>";
}

QByteArray column(int count, const QByteArray &kind = "Kiv_Rectangle_T")
{
    QByteArray items;
    for (int i = 0; i < count; ++i) // neither aligned nor evenly apart
        items += rectangle(i + 1, 60 + (i * 37) % 50, 20 + i * 24 + (i * 5) % 7)
                     .replace("Kiv_Rectangle_T", kind);
    return items;
}
} // namespace

class tst_HandWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QString problem = m_display.start();
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
    }
    void cleanupTestCase();

    void alignFive();
    void equalGaps();
    void duplicateARow();
    void oneColourOnTen();
    void fontOfTen();
    void centreInPage();
    void reorder();
    void findAWidget();
    void threePagesFromNothing();

private:
    /// Works in a program with that project, from the canvas having the keys, and compares what it
    /// took with `most` clicks and `mostKeys` keys: what the best of the other tools need.
    void task(const char *name, const QByteArray &document, int most, int mostKeys,
              const std::function<void(CEditor &, CHand &)> &work,
              const std::function<void(const CEditor &)> &check,
              const std::function<void(CEditor &)> &prepare = {});
    /// A rubber band around everything; one click.
    static void band(CEditor &editor, CHand &hand)
    {
        hand.drag(editor.scene(20, 6), editor.scene(300, 268));
    }
    /// Values of an attribute of all items of a kind.
    static QStringList values(const CEditor &editor, const char *kind, const char *attribute);

    /// Drags a kind from the palette to a place on the page.
    void drop(CEditor &editor, const char *typed, const char *caption, const QPoint &place);

    CDisplay m_display;
    QStringList m_table;
};

void tst_HandWork::task(const char *name, const QByteArray &document, int most, int mostKeys,
                        const std::function<void(CEditor &, CHand &)> &work,
                        const std::function<void(const CEditor &)> &check,
                        const std::function<void(CEditor &)> &prepare)
{
    CEditor editor(&m_display, document, "autosaveInterval=0\nisMaximized=true");
    editor.focus("scene 460 260", "CScreenView"); // where nothing lies
    if (prepare)
        prepare(editor);
    CHand hand(m_display);
    work(editor, hand);
    m_display.key("ctrl+s");
    check(editor);
    m_table.append(QStringLiteral("| %1 | %2 clicks, %3 keys | %4 clicks, %5 keys |")
                       .arg(QLatin1String(name))
                       .arg(hand.clicks())
                       .arg(hand.keys())
                       .arg(most)
                       .arg(mostKeys));
    QVERIFY2(hand.clicks() <= most && hand.keys() <= mostKeys, qPrintable(m_table.last()));
    editor.picture(qPrintable(QString("hand-%1.png").arg(QString(name).replace(' ', '-'))));
}

void tst_HandWork::cleanupTestCase()
{
    m_table.prepend("| --- | --- | --- |");
    m_table.prepend("| task | here | the best elsewhere |");
    QVERIFY(QDir().mkpath(PICTURES));
    QFile file(PICTURES "/handwork.md");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(m_table.join('\n').toUtf8() + '\n');
    for (const QString &row : qAsConst(m_table))
        qInfo("%s", qPrintable(row));
}

QStringList tst_HandWork::values(const CEditor &editor, const char *kind, const char *attribute)
{
    QStringList all;
    for (int i = 0; i < editor.savedCount(kind); ++i)
        all.append(editor.saved(kind, {attribute}, i));
    return all;
}

void tst_HandWork::drop(CEditor &editor, const char *typed, const char *caption,
                        const QPoint &place)
{
    editor.focus("widget widgetFilter", "CFilterLine");
    m_display.key("ctrl+a");
    m_display.type(typed);
    const QString row = QString("row CWidgetSelectionView ") + QLatin1String(caption);
    QPoint before;
    QTRY_VERIFY_WITH_TIMEOUT(std::exchange(before, editor.place(row)) == editor.place(row),
                             Patience);
    m_display.press(before);
    const auto isDragging = [&] { return editor.ask("windows").contains("QShapedPixmapWindow"); };
    const auto moveOn = [&, x = 10]() mutable {
        m_display.moveTo(editor.scene(++x, 10));
        return isDragging();
    };
    QVERIFY(QTest::qWaitFor(moveOn, Patience));
    m_display.moveTo(editor.scene(place.x(), place.y()));
    m_display.release();
    QTRY_VERIFY_WITH_TIMEOUT(!isDragging(), Patience);
}

void tst_HandWork::alignFive()
{
    task(
        "align five", project(column(5)), 2, 0,
        [](CEditor &editor, CHand &hand) {
            band(editor, hand);
            hand.click(editor.place("tool alignLeft"));
        },
        [](const CEditor &editor) {
            QTRY_COMPARE_WITH_TIMEOUT(values(editor, "Kiv_Rectangle_T", "x_coordinate"),
                                      QStringList({"60", "60", "60", "60", "60"}), Patience);
        });
}

void tst_HandWork::equalGaps()
{
    task(
        "equal gaps", project(column(5)), 2, 0,
        [](CEditor &editor, CHand &hand) {
            band(editor, hand);
            hand.click(editor.place("tool distributeDown"));
        },
        [](const CEditor &editor) {
            const auto gaps = [&editor] {
                QSet<int> all;
                const QStringList places = values(editor, "Kiv_Rectangle_T", "y_coordinate");
                for (int i = 1; i < places.size(); ++i)
                    all.insert(places[i].toInt() - places[i - 1].toInt());
                return all;
            };
            // A pixel that is left over goes to the first gaps.
            const auto areEqual = [&gaps] {
                const QList<int> all = gaps().values();
                return all.size() == 1 || (all.size() == 2 && std::abs(all[0] - all[1]) == 1);
            };
            QTRY_VERIFY_WITH_TIMEOUT(areEqual(), Patience);
        });
}

void tst_HandWork::duplicateARow()
{
    task(
        "duplicate a row, selected", project(column(3)), 0, 1,
        [](CEditor &, CHand &hand) { hand.key("ctrl+d"); },
        [](const CEditor &editor) {
            QTRY_COMPARE_WITH_TIMEOUT(editor.savedCount("Kiv_Rectangle_T"), 6, Patience);
        },
        [this](CEditor &) { m_display.key("ctrl+a"); });
}

void tst_HandWork::oneColourOnTen()
{
    task(
        "one colour on ten",
        project(column(10),
                QByteArray("<Kiv_Rectangle_T fill_color=\"#c04040\" border_color=\"#c04040\"/>")
                    .repeated(20)),
        3, 0,
        [](CEditor &editor, CHand &hand) {
            band(editor, hand);
            hand.click(editor.place("tool chooseColour fill_color"));
            hand.click(editor.place("corner projectColours"));
        },
        [](const CEditor &editor) {
            const auto colours = [&editor] {
                const QStringList all = values(editor, "Kiv_Rectangle_T", "fill_color");
                return QSet<QString>(all.begin(), all.end());
            };
            // The one that the project uses most comes first.
            QTRY_COMPARE_WITH_TIMEOUT(colours(), QSet<QString>{"#c04040"}, Patience);
        });
}

void tst_HandWork::fontOfTen()
{
    task(
        "font of ten", project(column(10, "Kiv_Text_T")), 3, 0,
        [](CEditor &editor, CHand &hand) {
            band(editor, hand);
            hand.click(editor.place("widget font"));
            hand.click(editor.place("row QComboBoxListView 28 \u00b7 25 px"));
        },
        [](const CEditor &editor) {
            const auto fonts = [&editor] {
                const QStringList all = values(editor, "Kiv_Text_T", "font");
                return QSet<QString>(all.begin(), all.end());
            };
            QTRY_COMPARE_WITH_TIMEOUT(fonts(), QSet<QString>{"28"}, Patience);
        });
}

void tst_HandWork::centreInPage()
{
    task(
        "centre in the page, selected", project(rectangle(1, 60, 20)), 1, 0,
        [](CEditor &editor, CHand &hand) { hand.click(editor.place("tool centreBoth")); },
        [](const CEditor &editor) {
            QTRY_COMPARE_WITH_TIMEOUT(
                editor.saved("Kiv_Rectangle_T", {"x_coordinate", "y_coordinate"}),
                QString("224 128"), Patience);
        },
        [this](CEditor &) { m_display.key("ctrl+a"); });
}

void tst_HandWork::reorder()
{
    task(
        "one step to the front, selected",
        project(rectangle(1, 60, 20, "front") + rectangle(2, 70, 24, "back")), 0, 1,
        [](CEditor &, CHand &hand) { hand.key("ctrl+bracketright"); },
        [](const CEditor &editor) {
            QTRY_COMPARE_WITH_TIMEOUT(values(editor, "Kiv_Rectangle_T", "name"),
                                      QStringList({"back", "front"}), Patience);
        },
        [this](CEditor &editor) { m_display.click(editor.scene(98, 38)); });
}

void tst_HandWork::findAWidget()
{
    const char *const name = "needle";
    task(
        "find a widget by its name", project(column(10), rectangle(20, 200, 120, name)), 0,
        1 + int(qstrlen(name)) + 1,
        [&](CEditor &, CHand &hand) {
            hand.key("ctrl+f");
            QTest::qWait(300);
            hand.type(name);
            hand.key("Return");
        },
        [this, name](const CEditor &editor) {
            // It is selected: what is deleted now is it, and it lies on another page.
            m_display.key("Escape");
            m_display.key("Delete");
            m_display.key("ctrl+s");
            QTRY_COMPARE_WITH_TIMEOUT(editor.savedCount("Kiv_Rectangle_T"), 10, Patience);
            QVERIFY(!values(editor, "Kiv_Rectangle_T", "name").contains(name));
        });
}

/// Seventeen widgets on three pages, dragged from the palette; what is exported then is what a file
/// written with the same values exports.
void tst_HandWork::threePagesFromNothing()
{
    struct SWidget
    {
        const char *typed; ///< into the palette's filter
        const char *caption;
        const char *kind;
        int x;
        int y;
    };
    const QVector<QVector<SWidget>> pages = {
        {{"card", "Card", "Kiv_Card_T", 20, 20},
         {"gauge", "Gauge", "Kiv_Gauge_T", 260, 100},
         {"text", "Text", "Kiv_Text_T", 40, 30},
         {"number", "Number", "Kiv_Number_T", 40, 70},
         {"button", "Button", "Kiv_Button_T", 40, 200},
         {"signal", "Signal strength", "Kiv_Signal_T", 420, 20}},
        {{"rect", "Rectangle", "Kiv_Rectangle_T", 30, 30},
         {"slider", "Slider", "Kiv_Slider_T", 40, 60},
         {"toggle", "Toggle", "Kiv_Toggle_T", 40, 120},
         {"checkbox", "Checkbox", "Kiv_Checkbox_T", 40, 170},
         {"progress", "Progress bar", "Kiv_Progress_T", 240, 60},
         {"batt", "Battery", "Kiv_Battery_T", 400, 30}},
        {{"bar chart", "Bar chart", "Kiv_BarChart_T", 20, 20},
         {"line chart", "Line chart", "Kiv_LineChart_T", 250, 20},
         {"table", "Table", "Kiv_Table_T", 20, 150},
         {"led", "LED", "Kiv_Led_T", 300, 200},
         {"digital", "Digital clock", "Kiv_DigitalClock_T", 360, 220}}};

    const QByteArray head =
        "<Kiv_Project_T project_name=\"demo\" platform=\"QX110\" width=\"480\" height=\"272\">";
    CEditor editor(&m_display, head + "<Kiv_Screen_T name=\"Page 1\"/></Kiv_Project_T>",
                   "autosaveInterval=0\nisMaximized=true\nsnapToItems=false\nsnapToPage=false\n"
                   "snapToGaps=false");
    QByteArray expected = head;
    int id = 0;
    for (int page = 0; page < pages.size(); ++page) {
        if (page > 0) {
            m_display.key("ctrl+shift+p");
            QTRY_VERIFY_WITH_TIMEOUT(editor.ask("focus").contains("LineEdit"), Patience);
            m_display.type("new page");
            m_display.key("Return");
            QTRY_VERIFY_WITH_TIMEOUT(
                editor.ask(QString("row CProjectExplorerView Page %1").arg(page + 1)) != "none",
                Patience);
        }
        QByteArray items;
        for (const SWidget &widget : pages[page]) {
            drop(editor, widget.typed, widget.caption, QPoint(widget.x, widget.y));
            items.prepend(QStringLiteral("<%1 id=\"%2\" x_coordinate=\"%3\" "
                                         "y_coordinate=\"%4\"/>")
                              .arg(QLatin1String(widget.kind))
                              .arg(++id)
                              .arg(widget.x)
                              .arg(widget.y)
                              .toUtf8());
        }
        expected += "<Kiv_Screen_T name=\"Page " + QByteArray::number(page + 1) + "\">" + items +
                    "</Kiv_Screen_T>";
        editor.picture(qPrintable(QString("hand-page-%1.png").arg(page + 1)));
    }
    m_display.key("ctrl+s");
    QTRY_COMPARE_WITH_TIMEOUT(editor.savedCount("Kiv_DigitalClock_T"), 1, Patience);
    editor.quit();

    QFile reference(editor.folder() + "/expected.nyx");
    QVERIFY(reference.open(QIODevice::WriteOnly));
    reference.write(expected + "</Kiv_Project_T>");
    reference.close();
    const auto exported = [&editor](const QString &file) {
        QProcess program;
        program.setWorkingDirectory(editor.folder());
        program.start(qEnvironmentVariable("KIV_BIN_DIR") + "/panel-export",
                      {file, "--dl", "/dev/stdout", "--report", "/dev/null"});
        program.waitForFinished(Patience);
        return program.readAllStandardOutput();
    };
    const QByteArray made = exported(editor.projectFile());
    QVERIFY(made.count("ITEM(") == id);
    QCOMPARE(made, exported("expected.nyx"));
}

QTEST_GUILESS_MAIN(tst_HandWork)
#include "tst_handwork.moc"
