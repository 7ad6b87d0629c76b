#pragma once

#include <QHash>
#include <QString>
#include <QUndoCommand>

class CProjectModel;
class IProjectOptionsObserver;

/// Changes the project's options ("project_name", "width", "height", "platform", …).
/// Sets no text: it is pushed inside a macro that has one.
class CCommandChangeOptions final : public QUndoCommand
{
public:
    using Options = QHash<QString, QString>; ///< key to value text

    /// Remembers the old value of each of the new options' keys. The observer may be null and
    /// must outlive the stack.
    CCommandChangeOptions(CProjectModel *project, const Options &options,
                          IProjectOptionsObserver *observer, QUndoCommand *parent = nullptr);

    void redo() override { apply(m_newOptions); }
    void undo() override { apply(m_oldOptions); }

private:
    void apply(const Options &options);

    CProjectModel *const m_project;            ///< not owned
    IProjectOptionsObserver *const m_observer; ///< not owned
    const Options m_newOptions;
    Options m_oldOptions;
};
