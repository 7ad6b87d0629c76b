#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

class QKeyEvent;
class QWidget;

/// An edit that is under way in one editor, so that it becomes one change: stepping a spin box,
/// turning the wheel or holding a key commits once, after a short rest or when the editor loses
/// the focus; steps that follow before a longer pause go on with it. Escape takes the edit back,
/// also the steps that were committed at a rest. Undo and Redo are the project's unless there is
/// typed text to take back. Lives as a child of its editor.
class CPendingEdit : public QObject
{
    Q_OBJECT

public:
    static constexpr int Rest = 200;   ///< milliseconds without a step until the edit is committed
    static constexpr int Pause = 1000; ///< the same, until what follows is another edit

    /// `commit` takes the editor's value over, `revert` shows the old one again.
    CPendingEdit(QWidget *editor, std::function<void()> commit, std::function<void()> revert);

    /// Where what is tried is seen before it is committed, there is no hurry.
    void setRest(int milliseconds) { m_rest.setInterval(milliseconds); }

    void touch();  ///< the value has changed and may change again soon
    void change(); ///< the value has changed; it is committed when the editor is left
    void commit();
    void discard();

Q_SIGNALS:
    /// Around the commit of a step; `isFirst`: since the last commit that was wanted; `goesOn`:
    /// with the step before, as one edit.
    void stepping(bool isFirst, bool goesOn);
    void stepped();
    void takenBack();        ///< by Escape, after steps
    void left(bool forward); ///< by Tab

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void commitWhenAtRest();
    bool commitStep();
    bool leavesToWindow(const QKeyEvent &shortcut) const;
    bool pressKey(const QKeyEvent &event);

    QWidget *const m_editor; ///< the parent
    const std::function<void()> m_commit;
    const std::function<void()> m_revert;
    QTimer m_rest;
    QTimer m_pause; ///< after a step; while it runs, another one goes on with it
    bool m_isPending = false;
    bool m_goesOn = false; ///< what is pending, with the step before
    bool m_isKeyHeld = false;
    bool m_hasSteps = false; ///< committed at a rest
};
