#include "CGridComboWidget.h"
#include "CMainWindow.h"
#include "CMenuBar.h"
#include "CRecentProjects.h"
#include "CThemeIcons.h"
#include "CZoomComboWidget.h"
#include "ProgramFolder.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QUndoGroup>
#include <QUndoStack>

#include <memory>

namespace {
/// What is required: text | picture | tip | keys (a standard key's number, or the keys) | mark
/// (-: none, 0: not set, 1: set). In the order in which the actions are made.
struct SExpected
{
    const char *text;
    const char *icon;
    const char *tip;
    QKeySequence keys;
    char mark;
};

QVector<SExpected> expectedActions()
{
    using K = QKeySequence;
    const K none;
    return {
        {"&New", "newProject", "Create a new project", K(K::New), '-'},
        {"&Open", "openProject", "Open an existing project", K(K::Open), '-'},
        {"&Close Project", "closeProject", "Close current project", K(K::Close), '-'},
        {"&Save Project", "Save", "Save current project", K(K::Save), '-'},
        {"&Save As", "saveAs", "Save current project as...", K(K::SaveAs), '-'},
        {"&New Page", "Add", "Add a new page to the current project", none, '-'},
        {"&Project to DL", "exportproj", "Export project in DL format", none, '-'},
        {"&Page to DL", "exporttab", "Export page in DL format", none, '-'},
        {"&Project to Binary", "exportprojbin", "Export project in Binary format", none, '-'},
        {"&Page to Binary", "exportprojbin", "Export page in Binary format", none, '-'},
        {"&Print Screen", "print", "Print Screen", K(K::Print), '-'},
        {"&Exit", "Exit", "Exit", K(K::Quit), '-'},
        {"&Bring to Front", "bringfront", "Bring to Front", none, '-'},
        {"&Send to Back", "sendback", "Send to Back", none, '-'},
        {"&Bring Forward", "bringfront", "Bring Forward", none, '-'},
        {"&Send Backward", "sendback", "Send Backward", none, '-'},
        {"&Cut", "Cut", "Cut", K(K::Cut), '-'},
        {"&Copy", "Copy", "Copy", K(K::Copy), '-'},
        {"&Paste", "Paste", "Paste", K(K::Paste), '-'},
        {"&All", "Selection", "Select All", K(K::SelectAll), '-'},
        {"&None", "Clear", "Select None", K(K::Deselect), '-'},
        {"&Inverse", "invert", "Inverse Selection", K("Ctrl+Shift+A"), '-'},
        {"&Delete", "cut", "Delete Selected Items", K(K::Delete), '-'},
        {"&Lock/Unlock", "Lock", "Lock/Unlock selected items", none, '-'},
        {"&Undo", "Undo", "Undo", K(K::Undo), '-'},
        {"&Redo", "Redo", "Redo", K(K::Redo), '-'},
        {"&Group Selected", "Selection", "Group selected objects together", none, '-'},
        {"&Ungroup", "Clear", "Ungroup selected objects", none, '-'},
        {"&Dark", "", "Change the theme to the Dark style", none, '1'},
        {"&Light", "", "Change the theme to the Light style", none, '0'},
        {"&Zoom (100%)", "", "Zoom to pixel size 100%", none, '1'},
        {"&Fit to Page", "", "Fit to Page", none, '0'},
        {"&Fit to Width", "", "Fit to Width", none, '0'},
        {"&Ruler Size...", "Test line", "Change ruler size", none, '-'},
        {"&Grid Size...", "grid", "Change grid size", none, '-'},
        {"&Toggle", "", "Toggle the grid on/off", none, '1'},
        {"&Type", "grid", "Change the grid type", none, '-'},
        {"&Colour", "RGB", "Change the grid colour", none, '-'},
        {"Output Window", "", "", none, '1'},
        {"Status Bar", "", "", none, '0'}, // hidden until the settings say otherwise
        {"Project Window", "", "", none, '1'},
        {"Properties Window", "", "", none, '1'},
        {"Library Window", "", "", none, '1'},
        {"&Resolution", "screenres", "Change target screen resolution", none, '-'},
        {"&Search", "Search text", "Search objects by text", K(K::Find), '-'},
        {"&Spell Check", "Spell checking", "Spell check", none, '0'},
        {"&Snap to Grid", "", "Toggle snap to grid on/off", none, '0'},
        {"&Options", "Settings", "Options", none, '-'},
        {"&Language", "", "Language", none, '-'},
        {"&Help", "help", "KIV Panel Composer Help", K(K::HelpContents), '-'},
        {"&About", "", "About", none, '-'},
        {"&Updates", "Up", "Check for updates", none, '-'},
    };
}

/// Menus and their entries, separators left out; a sub-menu is "Title>".
struct SExpectedMenu
{
    const char *path;
    QStringList entries;
};

QVector<SExpectedMenu> expectedMenus()
{
    return {
        {"", {"&File>", "&Edit>", "&View>", "&Tools>", "&Help>"}},
        {"&File",
         {"&New", "&Open", "Recent>", "&Close Project", "&Save Project", "&Save As", "&New Page",
          "Export>", "&Print Screen", "&Exit"}},
        {"&File/Recent", {}},
        {"&File/Export",
         {"&Project to DL", "&Page to DL", "&Project to Binary", "&Page to Binary"}},
        {"&Edit",
         {"Order>", "Clipboard>", "Select>", "&Delete", "&Lock/Unlock", "&Undo", "&Redo",
          "Grouping>"}},
        {"&Edit/Order", {"&Bring to Front", "&Send to Back", "&Bring Forward", "&Send Backward"}},
        {"&Edit/Clipboard", {"&Cut", "&Copy", "&Paste"}},
        {"&Edit/Select", {"&All", "&None", "&Inverse"}},
        {"&Edit/Grouping", {"&Group Selected", "&Ungroup"}},
        {"&View", {"Theme>", "Zoom>", "Grid>", "Windows>"}},
        {"&View/Theme", {"&Dark", "&Light"}},
        {"&View/Zoom", {"&Zoom (100%)", "&Fit to Page", "&Fit to Width"}},
        {"&View/Grid", {"&Toggle", "&Type", "&Colour"}},
        {"&View/Windows",
         {"Project Window", "Library Window", "Properties Window", "Output Window", "Status Bar"}},
        {"&Tools", {"&Snap to Grid", "&Options", "&Language"}},
        {"&Help", {"&Help", "&About", "&Updates"}},
    };
}

QStringList entriesOf(const QList<QAction *> &actions)
{
    QStringList entries;
    for (const QAction *each : actions) {
        if (!each->isSeparator())
            entries << each->text() + (each->menu() ? QStringLiteral(">") : QString());
    }
    return entries;
}

QMenu *subMenu(const QList<QAction *> &actions, const QString &title)
{
    for (const QAction *each : actions) {
        if (each->menu() && each->menu()->title() == title)
            return each->menu();
    }
    return nullptr;
}
} // namespace

class tst_MenuBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<CProgramFolder>();
        m_window = std::make_unique<CMainWindow>();
        m_bar = m_window->actions();
    }

    void cleanup()
    {
        m_window.reset();
        m_folder.reset();
    }

    void actions()
    {
        const auto expected = expectedActions();
        QCOMPARE(expected.size(), int(CMenuBar::ActionCount));
        for (int i = 0; i < expected.size(); ++i) {
            const SExpected &row = expected[i];
            const QAction *action = m_bar->action(CMenuBar::EAction(i));
            QCOMPARE(action->text(), QString::fromLatin1(row.text));
            QCOMPARE(action->statusTip(), QString::fromLatin1(row.tip));
            QVERIFY2(action->shortcut() == row.keys, row.text);
            QVERIFY2(action->isCheckable() == (row.mark != '-'), row.text);
            QVERIFY2(action->isChecked() == (row.mark == '1'), row.text);
            QCOMPARE(action->icon().isNull(), QByteArray(row.icon).isEmpty());
            if (!action->icon().isNull()) {
                const QSize size(24, 24);
                const QIcon wanted =
                    CThemeIcons::icon(QStringLiteral(":/images/%1.png").arg(row.icon));
                QVERIFY2(action->icon().pixmap(size).toImage() == wanted.pixmap(size).toImage(),
                         row.text);
            }
            QVERIFY2(action->parent() == m_window.get(), row.text);
        }
    }

    void menus()
    {
        int count = 0;
        for (const SExpectedMenu &expected : expectedMenus()) {
            QList<QAction *> actions = m_window->menuBar()->actions();
            const auto path =
                QString::fromLatin1(expected.path).split(QLatin1Char('/'), Qt::SkipEmptyParts);
            for (const QString &title : path) {
                const QMenu *menu = subMenu(actions, title);
                QVERIFY2(menu, expected.path);
                actions = menu->actions();
            }
            QCOMPARE(entriesOf(actions), expected.entries);
            count += !path.isEmpty();
        }
        QCOMPARE(count, int(CMenuBar::MenuCount));
        const auto file = m_bar->menu(CMenuBar::FileMenu)->actions();
        QVERIFY(file[6]->isSeparator()); // between saving and pages
    }

    /// Five actions are made and translated, and neither shown nor connected.
    void keptButUnused()
    {
        for (const auto id : {CMenuBar::RulerSize, CMenuBar::GridSize, CMenuBar::Resolution,
                              CMenuBar::Search, CMenuBar::SpellCheck})
            QVERIFY(m_bar->action(id)->associatedWidgets().isEmpty());
    }

    void toolBar()
    {
        const auto bars = m_window->findChildren<QToolBar *>();
        QCOMPARE(bars.size(), 1);
        QCOMPARE(bars[0]->windowTitle(), QStringLiteral("Toolbar"));
        QCOMPARE(bars[0]->objectName(), QStringLiteral("Toolbar"));
        QStringList entries;
        for (QAction *each : bars[0]->actions()) {
            const QWidget *widget = bars[0]->widgetForAction(each);
            entries << (each->isSeparator()                              ? QStringLiteral("|")
                        : qobject_cast<const CZoomComboWidget *>(widget) ? QStringLiteral("zoom")
                        : qobject_cast<const CGridComboWidget *>(widget) ? QStringLiteral("grid")
                                                                         : each->text());
        }
        QCOMPARE(entries, QStringList({"&New", "&Open", "&Close Project", "&Save Project",
                                       "&Save As", "&New Page", "|", "&Cut", "&Copy", "&Paste",
                                       "&Undo", "&Redo", "zoom", "|", "grid", "|", "&Help"}));
    }

    void themesExclude()
    {
        QAction *dark = m_bar->action(CMenuBar::Dark);
        QAction *light = m_bar->action(CMenuBar::Light);
        QVERIFY(dark->actionGroup() && dark->actionGroup() == light->actionGroup());
        light->trigger();
        QVERIFY(!dark->isChecked() && light->isChecked());
        QCOMPARE(qApp->palette().color(QPalette::Window), QColor(192, 192, 192));
        dark->trigger();
        QCOMPARE(qApp->palette().color(QPalette::Window), QColor(64, 64, 64));
    }

    void zoomAndGridMarks()
    {
        const auto marks = [this] {
            QString text;
            for (const auto id : {CMenuBar::ZoomReset, CMenuBar::FitToPage, CMenuBar::FitToWidth,
                                  CMenuBar::GridToggle})
                text += QLatin1Char(m_bar->action(id)->isChecked() ? '1' : '0');
            return text;
        };
        QCOMPARE(marks(), QStringLiteral("1001"));
        m_bar->action(CMenuBar::FitToPage)->trigger();
        QCOMPARE(m_bar->zoomWidget()->zoomType(), int(CZoomComboWidget::FitToPage));
        QCOMPARE(marks(), QStringLiteral("0101"));
        m_bar->action(CMenuBar::FitToPage)->trigger(); // unchecks itself, the mode stays
        QCOMPARE(marks(), QStringLiteral("0101"));
        m_bar->action(CMenuBar::FitToWidth)->trigger();
        QCOMPARE(marks(), QStringLiteral("0011"));
        m_bar->zoomWidget()->setZoom(150, CZoomComboWidget::FreeValue);
        QCOMPARE(marks(), QStringLiteral("0001"));
        m_bar->action(CMenuBar::ZoomReset)->trigger();
        QCOMPARE(m_bar->zoomWidget()->zoomPercent(), 100);
        m_bar->action(CMenuBar::GridToggle)->trigger();
        QVERIFY(!m_bar->gridWidget()->isGridShown());
        QCOMPARE(marks(), QStringLiteral("1000"));
    }

    void recentProjects()
    {
        QCOMPARE(CMenuBar::shortened(QString(24, 'a') + ".nyx"), QString(24, 'a') + ".nyx");
        const QString long33 = QStringLiteral("abcdefghijklmnopqrstuvwxyz012.nyx");
        QCOMPARE(long33.size(), 33);
        QCOMPARE(CMenuBar::shortened(long33), QStringLiteral("abcdefghijklmn...tuvwxyz012.nyx"));
        const QStringList paths = {m_folder->file("salt & pepper.nyx"), m_folder->file("b.nyx")};
        for (const QString &each : paths)
            m_window->recentProjects()->add(QFileInfo(each));
        const auto actions = m_bar->menu(CMenuBar::RecentMenu)->actions();
        QCOMPARE(actions.size(), 2);
        for (int i = 0; i < 2; ++i)
            QCOMPARE(actions[i]->whatsThis(), paths[i]);
        QCOMPARE(actions[0]->text(), QStringLiteral("salt && pepper.nyx"));
    }

    void undoTextsFollowTheStack()
    {
        QUndoStack stack;
        m_window->undoGroup()->addStack(&stack);
        stack.setActive();
        QVERIFY(!m_bar->action(CMenuBar::Undo)->isEnabled());
        stack.push(new QUndoCommand(QStringLiteral("Move Object")));
        QCOMPARE(m_bar->action(CMenuBar::Undo)->text(), QStringLiteral("&Undo Move Object"));
        m_bar->action(CMenuBar::Undo)->trigger();
        QCOMPARE(m_bar->action(CMenuBar::Undo)->text(), QStringLiteral("&Undo"));
        QCOMPARE(m_bar->action(CMenuBar::Redo)->text(), QStringLiteral("&Redo Move Object"));
        QCOMPARE(stack.index(), 0);
    }

private:
    std::unique_ptr<CProgramFolder> m_folder;
    std::unique_ptr<CMainWindow> m_window;
    CMenuBar *m_bar = nullptr;
};

QTEST_MAIN(tst_MenuBar)
#include "tst_menubar.moc"
