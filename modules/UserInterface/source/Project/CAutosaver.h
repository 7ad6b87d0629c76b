#pragma once

#include "CProjectSession.h"

#include <functional>

/// What one tick of the autosave timer does: saves the project unless something is under way that
/// must not be on the disk half done.
class CAutosaver
{
public:
    /// Not saved now, but wanted: try again soon. Otherwise what the session answered.
    enum class ETick { Done, Postponed };

    explicit CAutosaver(CProjectSession *session);

    /// Ticks for which an open editor is waited for: one that was forgotten holds nothing back.
    static constexpr int MaxEditorWaits = 30;

    /// Asked at each tick; true while a gesture, an export or a modal question is under way.
    void setBusyCheck(std::function<bool()> isBusy) { m_isBusy = std::move(isBusy); }
    /// True while a value is being typed.
    void setEditorCheck(std::function<bool()> isEditing) { m_isEditing = std::move(isEditing); }

    ETick tick();

    /// Whether a macro is open on the project's undo stack.
    static bool isMacroOpen(const CProjectModel *project);

private:
    CProjectSession *const m_session;
    std::function<bool()> m_isBusy;
    std::function<bool()> m_isEditing;
    int m_editorWaits = 0;
};
