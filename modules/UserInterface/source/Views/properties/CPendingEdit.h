#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

class QKeyEvent;
class QWidget;

/// An edit that is under way in one editor, so that it becomes one change: stepping a spin box,
/// turning the wheel or holding a key commits once, after a short rest or when the editor loses
/// the focus. Escape takes the edit back, also the steps that were committed at a rest. Undo and
/// Redo are the project's unless there is typed text to take back. Lives as a child of its editor.
class CPendingEdit : public QObject
{
    Q_OBJECT

public:
    static constexpr int Rest = 200; ///< milliseconds without a step until the edit is committed

    /// `commit` takes the editor's value over, `revert` shows the old one again.
    CPendingEdit(QWidget *editor, std::function<void()> commit, std::function<void()> revert);

    void touch();  ///< the value has changed and may change again soon
    void change(); ///< the value has changed; it is committed when the editor is left
    void commit();
    void discard();

Q_SIGNALS:
    /// Around the commit of a step; `isFirst`: since the last commit that was wanted.
    void stepping(bool isFirst);
    void stepped();
    void takenBack();        ///< by Escape, after steps
    void left(bool forward); ///< by Tab

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void commitWhenAtRest();
    bool leavesToWindow(const QKeyEvent &shortcut) const;
    bool pressKey(int key);

    QWidget *const m_editor; ///< the parent
    const std::function<void()> m_commit;
    const std::function<void()> m_revert;
    QTimer m_rest;
    bool m_isPending = false;
    bool m_isKeyHeld = false;
    bool m_hasSteps = false; ///< committed at a rest
};
