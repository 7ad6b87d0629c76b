#pragma once

#include "CWidgetPropertiesView.h"
#include "CanvasTestSupport.h"

#include <QLineEdit>
#include <QTreeWidget>
#include <QUndoStack>
#include <QtVariantPropertyManager>

/// A property panel on a project of its own, which a test of it drives as a user does: through the
/// editors that a click opens.
class CPropertiesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }
    void init()
    {
        m_project = newTestProject();
        m_view = std::make_unique<CWidgetPropertiesView>();
        m_view->setProject(m_project.get());
        m_view->resize(360, 700);
        m_view->show();
        m_view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    }
    void cleanup()
    {
        m_view.reset();
        m_project.reset();
    }

protected:
    QTreeWidget *tree() const { return m_view->findChild<QTreeWidget *>(); }
    QTreeWidgetItem *treeRow(const QString &key) const
    {
        return tree()->findItems(key, Qt::MatchExactly).value(0);
    }
    QString shown(const QString &key) const { return treeRow(key)->text(1); }
    /// Opens the editor of a row by a click into its value.
    template<typename Editor>
    Editor *edit(QTreeWidgetItem *row) const
    {
        tree()->scrollToItem(row);
        QCoreApplication::processEvents(); // what is still to be laid out would move it
        const QRect cell = tree()->visualItemRect(row);
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {},
                          {tree()->columnViewportPosition(1) + 20, cell.center().y()});
        Editor *editor = nullptr;
        const auto found = tree()->viewport()->findChildren<Editor *>();
        for (Editor *each : found) {
            if (each->isVisible())
                editor = each;
        }
        return editor;
    }
    template<typename Editor>
    Editor *edit(const QString &key) const
    {
        return edit<Editor>(treeRow(key));
    }
    /// Types in place of what is there, and confirms.
    template<typename Editor>
    static void enter(Editor *editor, const QString &text)
    {
        editor->selectAll();
        QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
    }
    QtVariantProperty *variantRow(const QString &key) const
    {
        return static_cast<QtVariantProperty *>(m_view->row(key));
    }
    QUndoStack &stack() const { return *m_project->undoStack(); }
    CWidgetModel *show(const QString &type)
    {
        CWidgetModel *widget = addWidget(*m_project, type);
        m_view->showItems({widget});
        QCoreApplication::processEvents();
        return widget;
    }

    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<CWidgetPropertiesView> m_view;
};
