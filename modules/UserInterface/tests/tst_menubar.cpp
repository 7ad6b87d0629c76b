#include "CGridComboWidget.h"
#include "CMainWindow.h"
#include "CMenuBar.h"
#include "CRecentProjects.h"
#include "CZoomComboWidget.h"
#include "ProgramFolder.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QTest>
#include <QUndoGroup>
#include <QUndoStack>

#include <memory>

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

    /// Also the second keys of an action, which no menu shows: the system's standard keys have some
    /// that nobody expects.
    void keys()
    {
        const QMap<int, QString> expected = {
            {CMenuBar::New, "Ctrl+N"},
            {CMenuBar::Open, "Ctrl+O"},
            {CMenuBar::CloseProject, "Ctrl+W"},
            {CMenuBar::SaveProject, "Ctrl+S"},
            {CMenuBar::SaveAs, "Ctrl+Shift+S"},
            {CMenuBar::PrintScreen, "Ctrl+P"},
            {CMenuBar::Exit, "Ctrl+Q"},
            {CMenuBar::Cut, "Ctrl+X; Shift+Del"},
            {CMenuBar::Copy, "Ctrl+C; Ctrl+Ins"},
            {CMenuBar::Paste, "Ctrl+V; Shift+Ins"},
            {CMenuBar::SelectAll, "Ctrl+A"},
            {CMenuBar::SelectNone, "Esc"},
            {CMenuBar::SelectInverse, "Ctrl+Shift+A"},
            {CMenuBar::Delete, "Del"},
            {CMenuBar::Undo, "Ctrl+Z"},
            {CMenuBar::Redo, "Ctrl+Shift+Z; Ctrl+Y"},
            {CMenuBar::Search, "Ctrl+F"},
            {CMenuBar::Help, "F1"},
        };
        QSet<QKeySequence> taken;
        for (int id = 0; id < CMenuBar::ActionCount; ++id) {
            const QList<QKeySequence> keys = m_bar->action(CMenuBar::EAction(id))->shortcuts();
            QCOMPARE(QKeySequence::listToString(keys), expected.value(id));
            for (const QKeySequence &each : keys) {
                QVERIFY2(!taken.contains(each), qPrintable(each.toString()));
                taken.insert(each);
            }
        }
    }

    /// Five actions are made and translated, and neither shown nor connected; all others are in a
    /// menu.
    void shownActions()
    {
        const QSet<int> unused = {CMenuBar::RulerSize, CMenuBar::GridSize, CMenuBar::Resolution,
                                  CMenuBar::Search, CMenuBar::SpellCheck};
        QSet<QAction *> shown;
        for (int menu = 0; menu < CMenuBar::MenuCount; ++menu) {
            const auto actions = m_bar->menu(CMenuBar::EMenu(menu))->actions();
            shown.unite({actions.begin(), actions.end()});
        }
        for (int id = 0; id < CMenuBar::ActionCount; ++id)
            QCOMPARE(shown.contains(m_bar->action(CMenuBar::EAction(id))), !unused.contains(id));
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
