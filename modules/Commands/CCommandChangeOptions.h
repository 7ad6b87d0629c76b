#pragma once

#include <QHash>
#include <QStringList>
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

    void redo() override;
    void undo() override;

private:
    void refresh();

    CProjectModel *const m_project;            ///< not owned
    IProjectOptionsObserver *const m_observer; ///< not owned
    const Options m_newOptions;
    Options m_oldOptions;
    QStringList m_addedKeys; ///< options that the project did not have before
};
