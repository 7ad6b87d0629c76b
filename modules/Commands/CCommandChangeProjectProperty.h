#pragma once

#include <QString>
#include <QUndoCommand>

class CProjectModel;

/// Changes one property of the project on which nothing else depends.
class CCommandChangeProjectProperty final : public QUndoCommand
{
public:
    /// A null text takes the property away.
    CCommandChangeProjectProperty(CProjectModel *project, const QString &key, const QString &text,
                                  QUndoCommand *parent = nullptr);

    void redo() override { apply(m_newText); }
    void undo() override { apply(m_oldText); }

private:
    void apply(const QString &text);

    CProjectModel *const m_project; ///< not owned; lives as long as its stack
    const QString m_key;
    const QString m_newText;
    const QString m_oldText;
};
