#pragma once

#include <QString>

/// What panel-export says: a sentence a line, errors and warnings on the standard error output.
class CMessages
{
public:
    /// `outputIsTaken`: the standard output is wanted for something else.
    explicit CMessages(bool outputIsTaken) : m_outputIsTaken(outputIsTaken) {}

    void fail(const QString &message);
    void warn(const QString &message) const;
    void tell(const QString &message) const; ///< of what was done
    bool hasFailed() const { return m_hasFailed; }

private:
    const bool m_outputIsTaken;
    bool m_hasFailed = false;
};
