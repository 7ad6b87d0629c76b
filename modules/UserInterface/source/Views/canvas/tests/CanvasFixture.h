#pragma once

#include "CEditorState.h"
#include "CItemView.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "CSelectionCommands.h"
#include "CanvasTestSupport.h"

#include <QMouseEvent>
#include <QUndoStack>

/// A project with one screen, shown.
struct Canvas
{
    std::unique_ptr<CProjectModel> project = newTestProject();
    CScreenModel *screen = project->screen(0);
    QUndoStack &stack = *project->undoStack();
    std::unique_ptr<CScreenView> view;

    void show()
    {
        view = std::make_unique<CScreenView>(screen);
        view->resize(760, 560);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    }
    QPoint at(QPointF scenePos) const { return view->mapFromScene(scenePos); }
    void mouse(QEvent::Type type, QPointF scenePos, Qt::MouseButton button,
               Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QPoint pos = at(scenePos);
        QMouseEvent event(type, pos, view->viewport()->mapToGlobal(pos), button, buttons,
                          modifiers);
        QCoreApplication::sendEvent(view->viewport(), &event);
    }
    void press(QPointF pos, Qt::KeyboardModifiers modifiers = {}) const
    {
        mouse(QEvent::MouseButtonPress, pos, Qt::LeftButton, Qt::LeftButton, modifiers);
    }
    void move(QPointF pos, Qt::KeyboardModifiers modifiers = {}) const
    {
        mouse(QEvent::MouseMove, pos, Qt::NoButton, Qt::LeftButton, modifiers);
    }
    void release(QPointF pos, Qt::KeyboardModifiers modifiers = {}) const
    {
        mouse(QEvent::MouseButtonRelease, pos, Qt::LeftButton, Qt::NoButton, modifiers);
    }
    void click(QPointF pos, Qt::KeyboardModifiers modifiers = {}) const
    {
        press(pos, modifiers);
        release(pos, modifiers);
    }
    void drag(QPointF from, QPointF to, Qt::KeyboardModifiers modifiers = {}) const
    {
        press(from, modifiers);
        for (int step = 1; step <= 4; ++step)
            move(from + (to - from) * step / 4, modifiers);
        release(to, modifiers);
    }
    /// The last step is undone and done again: the same bytes as before and after it.
    void checkOneStep(const QByteArray &before) const
    {
        const QByteArray after = savedBytes(*project);
        QVERIFY(!after.isEmpty());
        QVERIFY(after != before);
        QCOMPARE(stack.count(), 1);
        stack.undo();
        QCOMPARE(savedBytes(*project), before);
        stack.redo();
        QCOMPARE(savedBytes(*project), after);
    }
    void select(const QVector<CItemModel *> &items) const
    {
        view->screenScene()->selectModelItems(items);
    }
    CItemView *viewOf(const CItemModel *item) const { return view->screenScene()->viewOf(item); }
};

inline QRectF rectOf(const CItemModel *item)
{
    return {item->x(), item->y(), item->width(), item->height()};
}

/// The editor's settings as they are after a first start, but with snapping.
inline void resetEditorState()
{
    CEditorState::instance()->setSnapToGrid(true);
    CEditorState::instance()->setGrid(true, 20, Qt::red, Qt::SolidLine);
    CEditorState::instance()->setZoom(100, 0);
}
