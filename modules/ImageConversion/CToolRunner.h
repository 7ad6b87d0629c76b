#pragma once

#include <QCoreApplication>
#include <QStringList>

class QProgressDialog;

/// How a tool is to be started.
struct SToolCall
{
    QString program; ///< path; may be wrapped in a pair of double quotes
    QStringList arguments;
    QString workingFolder;
};

/// Runs a tool and waits for it under a modal box that says so, with a busy bar and a Cancel
/// button, or under the box of whoever has several to run. The wait always ends: with the tool,
/// when it cannot start, by Cancel, or at the time limit. Whatever the tool has started is then
/// gone too. Its input is empty; of its output no more than MaxOutput bytes are kept. Needs a
/// QApplication; the caller's event loop runs on inside.
class CToolRunner
{
    Q_DECLARE_TR_FUNCTIONS(CToolRunner)
public:
    static constexpr int DefaultTimeLimit =
        10 * 60 * 1000;                         ///< milliseconds; no image takes as long
    static constexpr int KillTimeLimit = 20000; ///< milliseconds
    static constexpr int MaxOutput = 4096;      ///< bytes

    /// `box`: modal and seen already, its Cancel ends the tool; not owned, must live longer.
    explicit CToolRunner(int timeLimit = DefaultTimeLimit, QProgressDialog *box = nullptr);

    /// Gives why it failed; empty when the tool ended by itself with exit code 0.
    QString run(const SToolCall &call) const;

private:
    int m_timeLimit;
    QProgressDialog *m_box;
};
