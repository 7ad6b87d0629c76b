#pragma once

#include <QProcess>

/// A program that can be ended together with everything it has started: it leads a process group of
/// its own. It is also ended when the editor dies.
class CToolProcess : public QProcess
{
    Q_OBJECT
public:
    /// Starts it and remembers its group.
    void startGroup(const QString &program, const QStringList &arguments);
    /// Ends at once what is left of the group; nothing when the program never started.
    void killGroup();

protected:
    void setupChildProcess() override;

private:
    qint64 m_group = 0;
};
