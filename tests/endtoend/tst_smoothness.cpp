// The real program under a real X server with a thousand widgets on a page: whatever its user does,
// nothing keeps the GUI thread so long that a frame of the display is missed.
#include "CDisplay.h"
#include "CEditor.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <functional>

namespace {
constexpr int Patience = 60'000; // ms
constexpr int Quiet = 400;       // ms; longer than any timer of the program waits, but for autosave
constexpr int Widgets = 1000;    // of each of two pages
// Milliseconds. What counts is processor time, which others cannot take away; but where they share
// a core and its caches, the same work takes up to twice as much of it.
constexpr double Limit = 16 * 2;
constexpr double ThemeLimit = 45 * 2; // Qt matches its style sheet with every widget, in one piece
constexpr double OpenLimit = 25 * 2;  // with 1,000 widgets on the page that is shown
constexpr double LongestSleep = 5000; // the X server, too, may have to wait for a processor

const char *const kinds[] = {"Kiv_Button_T", "Kiv_Text_T", "Kiv_Rectangle_T", "Kiv_Circle_T",
                             "Kiv_Progress_T"};

QByteArray page(const char *name, int widgets, const char *colour)
{
    QByteArray xml = QByteArray("<Kiv_Screen_T name=\"") + name + "\" color=\"" + colour + "\">";
    for (int index = 0; index < widgets; ++index)
        xml += QStringLiteral("<%1 name=\"w%2\" id=\"%2\" x_coordinate=\"%3\" y_coordinate=\"%4\" "
                              "width=\"%5\" height=\"%6\"/>\n")
                   .arg(QLatin1String(kinds[index % 5]))
                   .arg(index + 1)
                   .arg(4 + index % 40 * 15)
                   .arg(4 + index / 40 * 15)
                   .arg(index == 0 ? 40 : 13)
                   .arg(index == 0 ? 40 : 12)
                   .toUtf8();
    return xml + "</Kiv_Screen_T>";
}

QByteArray project()
{
    QByteArray xml = "<Kiv_Project_T project_name=\"demo\" platform=\"QX110\" width=\"2048\" "
                     "height=\"2048\">" +
                     page("Full", Widgets, "#101418") + page("Other", Widgets, "#181410");
    for (int number = 1; number <= 10; ++number)
        xml += page(qPrintable(QStringLiteral("Small %1").arg(number)), 20, "#101010");
    return xml + "</Kiv_Project_T>";
}
} // namespace

class tst_Smoothness : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QString problem = m_display.start();
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
    }

    void nothingKeepsTheUserWaiting()
    {
        CEditor editor(&m_display, project(), "autosaveInterval=3\nisMaximized=true");
        report(&editor, "open", Limit);
        const auto keys = [this](const char *name, int times) {
            for (int count = 0; count < times; ++count)
                m_display.key(name);
        };
        const auto wheel = [this](const char *modifier, const char *button) {
            m_display.hands({"keydown", modifier, "click", "--repeat", "4", "--delay", "60", button,
                             "keyup", modifier});
        };
        struct SStep
        {
            const char *name;
            std::function<void()> act;
            double limit = Limit;
        };
        // The page is larger than the view, which begins in its middle; the items lie in its
        // corner.
        m_display.moveTo(editor.scene(1024, 1024));
        for (const char *towards : {"4", "6"}) // up, to the left
            m_display.hands({"click", "--repeat", "60", "--delay", "5", towards});
        const SStep steps[] = {
            {"focus", [&] { editor.focus("scene 300 394", "CScreenView"); }},
            {"move the pointer", [&] { m_display.moveTo(editor.scene(400, 200)); }},
            {"zoom in", [&] { wheel("ctrl", "4"); }},
            {"zoom out", [&] { wheel("ctrl", "5"); }},
            {"scroll", [&] { wheel("Super_R", "5"); }},
            {"scroll back", [&] { wheel("Super_R", "4"); }},
            {"select", [&] { m_display.click(editor.scene(115, 40)); }},
            {"drag", [&] { m_display.drag(editor.scene(115, 40), editor.scene(140, 310)); }},
            {"undo", [&] { keys("ctrl+z", 1); }},
            {"redo", [&] { keys("ctrl+shift+z", 1); }},
            {"select the larger one", [&] { m_display.click(editor.scene(20, 20)); }},
            {"resize", [&] { m_display.drag(editor.scene(44, 44), editor.scene(130, 120)); }},
            {"rubber band",
             [&] { m_display.drag(editor.scene(100, 394), editor.scene(300, 300)); }},
            {"arrow keys", [&] { keys("Left", 3); }},
            {"undo of arrow keys", [&] { keys("ctrl+z", 3); }},
            {"next by tabulator", [&] { keys("Tab", 3); }},
            {"edit a property",
             [&] {
                 m_display.click(editor.place("row QTreeWidget x_coordinate"));
                 m_display.key("Return");
                 m_display.type("123");
                 m_display.key("Return");
             }},
            {"type a name",
             [&] {
                 m_display.click(editor.place("row QTreeWidget name"));
                 m_display.key("Return");
                 m_display.type("Some other name");
                 m_display.key("Return");
             }},
            {"save",
             [&] {
                 editor.focus("scene 300 394", "CScreenView");
                 m_display.key("ctrl+s");
             }},
            {"save automatically",
             [&] {
                 const auto written = [&] {
                     return QFileInfo(editor.projectFile()).lastModified();
                 };
                 const QDateTime before = written();
                 keys("Tab", 1);
                 keys("Left", 1);
                 QTRY_VERIFY_WITH_TIMEOUT(written() > before, Patience);
             }},
            {"other page", [&] { m_display.click(editor.place("row CScreenNavigator Other")); }},
            {"back", [&] { m_display.click(editor.place("row CScreenNavigator Full")); }},
            {"print screen", [&] { m_display.key("ctrl+p"); }},
            {"save pictures",
             [&] {
                 editor.place("widget screens");
                 m_display.key("ctrl+a");
                 editor.clickAway("button Save Selection");
             }},
            {"filter the palette",
             [&] {
                 editor.focus("widget widgetFilter", "CFilterLine");
                 m_display.type("but");
             }},
            {"fit to page",
             [&] {
                 m_display.key("alt+v");
                 m_display.click(editor.place("menu Zoom"));
                 editor.clickAway("menu &Fit to Page");
             }},
            {"full size",
             [&] {
                 m_display.key("alt+v");
                 m_display.click(editor.place("menu Zoom"));
                 editor.clickAway("menu &Zoom (100%)");
             }},
            {"enlarge",
             [&] {
                 editor.focus("scene 1024 1024", "CScreenView");
                 for (int count = 0; count < 4; ++count)
                     wheel("ctrl", "4");
             }},
            {"another theme",
             [&] {
                 m_display.key("alt+v");
                 m_display.click(editor.place("menu Theme"));
                 editor.clickAway("menu &Light");
             },
             ThemeLimit},
            {"close the page",
             [&] {
                 const QPoint middle = editor.place("widget qt_tabwidget_tabbar");
                 m_display.click(middle - QPoint(30, 0), 2);
             }},
            {"open it", [&] { m_display.click(editor.place("row CScreenNavigator Full")); }},
            {"close", [&] { m_display.key("ctrl+w"); }},
            {"open again",
             [&] {
                 m_display.key("alt+f");
                 m_display.click(editor.place("menu Recent"));
                 editor.clickAway("menu demo.nyx");
                 editor.place("row CScreenNavigator Full");
             },
             OpenLimit},
        };
        for (const SStep &step : steps) {
            step.act();
            report(&editor, step.name, step.limit);
            if (QTest::currentTestFailed())
                return;
        }
        editor.picture("smooth.png");
        QVERIFY2(m_tooSlow.isEmpty(), qPrintable(m_tooSlow.join('\n')));
    }

private:
    /// What a step, with all that follows it, took.
    void report(CEditor *editor, const char *step, double limit)
    {
        QTRY_VERIFY_WITH_TIMEOUT(editor->ask("quiet").toInt() > Quiet, Patience);
        const QStringList slowest = editor->ask("slowest").split(" | ");
        for (const QString &each : slowest) {
            const QString line = QLatin1String(step) + ": " + each;
            if (!each.isEmpty())
                qInfo("%s", qPrintable(line));
            if (each.section(' ', 0, 0).toDouble() > limit ||
                each.section(' ', 1, 1).toDouble() > LongestSleep)
                m_tooSlow.append(line);
        }
    }

    CDisplay m_display;
    QStringList m_tooSlow;
};

QTEST_GUILESS_MAIN(tst_Smoothness)
#include "tst_smoothness.moc"
