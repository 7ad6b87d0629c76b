// The real program under a real X server: a hand that drags, presses and types, and the files that
// are on the disk afterwards.
#include "CDisplay.h"
#include "CEditor.h"

#include <QFile>
#include <QTest>

namespace {
constexpr int Patience = 60'000; // ms

#define COMPARE_SOON(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, Patience)

QByteArray project(const char *screenName, const QByteArray &items)
{
    return "<Kiv_Project_T project_name=\"demo\" platform=\"QX110\" width=\"480\" height=\"272\">"
           "<Kiv_Screen_T name=\"" +
           QByteArray(screenName) + "\" color=\"#204060\">" + items +
           "</Kiv_Screen_T></Kiv_Project_T>";
}

const QStringList geometry = {"x_coordinate", "y_coordinate", "width", "height"};
const QStringList turned = {"x_coordinate", "y_coordinate", "width", "height", "angle"};
} // namespace

class tst_EndToEnd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QString problem = m_display.start();
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
    }

    void aPageIsBuiltByHand()
    {
        CEditor editor(&m_display,
                       project("First", "<Kiv_Rectangle_T name=\"Panel\" id=\"1\" "
                                        "x_coordinate=\"300\" y_coordinate=\"160\" width=\"80\" "
                                        "height=\"60\" angle=\"0\" fill_color=\"#c04040\"/>"));
        editor.focus("widget widgetFilter", "CFilterLine");
        m_display.type("button");
        COMPARE_SOON(editor.ask("row CWidgetSelectionView Rectangle"), QString("none"));
        m_display.press(editor.place("row CWidgetSelectionView Button"));
        // A hand goes on until it sees the picture that follows the pointer: the program drags.
        const auto isDragging = [&] {
            return editor.ask("windows").contains("QShapedPixmapWindow");
        };
        const auto moveOn = [&, x = 20]() mutable {
            m_display.moveTo(editor.scene(++x, 20));
            return isDragging();
        };
        QVERIFY(QTest::qWaitFor(moveOn, Patience));
        m_display.moveTo(editor.scene(100, 60));
        m_display.release();
        QTRY_VERIFY_WITH_TIMEOUT(!isDragging(), Patience);
        m_display.key("ctrl+s");
        COMPARE_SOON(editor.saved("Kiv_Button_T", geometry), QString("100 60 120 40"));

        m_display.drag(editor.scene(130, 80), editor.scene(180, 110));
        m_display.drag(editor.scene(270, 130), editor.scene(300, 150)); // its lower right handle
        m_display.click(editor.scene(340, 190));
        // The handle stands 22 pixels above the frame; from over the centre to its right.
        m_display.drag(editor.scene(340, 138), editor.scene(392, 190));
        m_display.key("ctrl+s");
        COMPARE_SOON(editor.saved("Kiv_Rectangle_T", turned), QString("300 160 80 60 90"));
        COMPARE_SOON(editor.saved("Kiv_Button_T", geometry), QString("150 90 150 60"));
        editor.picture("built.png");

        m_display.key("ctrl+z");
        m_display.key("ctrl+z");
        m_display.key("ctrl+s");
        COMPARE_SOON(editor.saved("Kiv_Rectangle_T", turned), QString("300 160 80 60 0"));
        COMPARE_SOON(editor.saved("Kiv_Button_T", geometry), QString("150 90 120 40"));
        QCOMPARE(editor.saved("Kiv_Button_T", {"name", "id"}), QString("Button 2"));
        editor.picture("undone.png");
        editor.quit();
        QVERIFY(!QFile::exists(editor.folder() + "/.demo.nyx.lock"));
        QCOMPARE(editor.saved("Kiv_Button_T", geometry), QString("150 90 120 40"));
    }

    void widgetsAndPagesGoFromOneProgramToAnother()
    {
        CEditor to(&m_display, project("Elsewhere", "<Kiv_Gauge_T name=\"Speed\" id=\"1\"/>"));
        CEditor from(&m_display,
                     project("First",
                             "<Kiv_Button_T name=\"Stop\" id=\"7\" x_coordinate=\"30\" "
                             "y_coordinate=\"40\" width=\"90\" height=\"50\" text=\"Halt\"/>"
                             "<Kiv_Rectangle_T name=\"Panel\" id=\"1\" x_coordinate=\"200\" "
                             "y_coordinate=\"100\" width=\"80\" height=\"60\" angle=\"30\"/>"));
        from.focus("scene 400 250", "CScreenView"); // where nothing lies
        m_display.key("ctrl+a");
        m_display.key("ctrl+c");
        QTRY_VERIFY_WITH_TIMEOUT(!from.ask("clipboard").isEmpty(), Patience);
        to.activate();
        to.focus("scene 400 250", "CScreenView");
        m_display.key("ctrl+v");
        m_display.key("ctrl+s");
        COMPARE_SOON(to.saved("Kiv_Rectangle_T", turned), QString("200 100 80 60 30"));
        QCOMPARE(to.saved("Kiv_Button_T", geometry + QStringList("text")),
                 QString("30 40 90 50 Halt"));
        to.picture("widgets-pasted.png");

        const QString widgetFormats = from.ask("clipboard");
        from.activate();
        chooseFromMenu(&from, "First", "Copy Page");
        QTRY_VERIFY_WITH_TIMEOUT(from.ask("clipboard") != widgetFormats, Patience);
        to.activate();
        chooseFromMenu(&to, "Elsewhere", "Paste Page");
        m_display.key("ctrl+s");
        COMPARE_SOON(to.savedCount("Kiv_Screen_T"), 2);
        QCOMPARE(to.saved("Kiv_Screen_T", {"name", "color"}, 1), QString("First #204060"));
        QCOMPARE(to.savedCount("Kiv_Button_T"), 2);
        QCOMPARE(to.saved("Kiv_Rectangle_T", turned, 1), QString("200 100 80 60 30"));
        to.picture("page-pasted.png");
        to.quit();
        from.quit();
    }

    void crashIsRecovered_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QString>("position");
        QTest::newRow("the version that was saved automatically") << "No"
                                                                  << "50 40";
        QTest::newRow("the version that the user saved") << "Yes"
                                                         << "30 40";
    }

    void crashIsRecovered()
    {
        QFETCH(QString, answer);
        QFETCH(QString, position);
        const QStringList place = {"x_coordinate", "y_coordinate"};
        CEditor editor(&m_display,
                       project("First", "<Kiv_Button_T name=\"Stop\" id=\"7\" x_coordinate=\"30\" "
                                        "y_coordinate=\"40\" width=\"90\" height=\"50\"/>"),
                       "autosaveInterval=1");
        editor.focus("scene 60 60", "CScreenView");
        m_display.key("Right");
        COMPARE_SOON(editor.saved("Kiv_Button_T", place), QString("50 40")); // by the timer
        editor.kill();
        editor.start();
        editor.clickAway("button " + answer);
        editor.activate();
        editor.picture("recovered.png");
        QCOMPARE(editor.saved("Kiv_Button_T", place), QString("50 40")); // not touched yet
        m_display.key("ctrl+s");
        QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(editor.folder() + "/.demo.nyx.saved"), Patience);
        QCOMPARE(editor.saved("Kiv_Button_T", place), position);
        editor.quit();
    }

private:
    /// From the context menu of a page in the project explorer.
    void chooseFromMenu(CEditor *editor, const QString &page, const QString &entry)
    {
        const QPoint row = editor->place("row CProjectExplorerView " + page);
        m_display.click(row);
        m_display.click(row, 3);
        editor->clickAway("menu " + entry);
    }

    CDisplay m_display;
};

QTEST_GUILESS_MAIN(tst_EndToEnd)
#include "tst_endtoend.moc"
