#pragma once

#include <QByteArrayList>

#include <functional>

class CTimedApplication;
class CMainWindow;
class CProgramFolder;

namespace bench {

/// What a user does with a project, in the whole editor without a display: one step is measured,
/// what has to come before it is not.
class CEditorSteps
{
public:
    struct Figures
    {
        double longest = 0;   ///< milliseconds for which the window does not answer, at the worst
        double processor = 0; ///< processor time of the thread of the window therein
        double whole = 0;     ///< milliseconds until nothing is left to do, the picture included
    };

    CEditorSteps(CTimedApplication *application, CMainWindow *window);

    /// One of names(); nothing else may be asked for.
    Figures measure(const QByteArray &step, const QString &projectFile);
    static QByteArrayList names();

private:
    void open(const QString &projectFile);
    void settle();
    Figures timed(const std::function<void()> &action);

    CTimedApplication *m_application;
    CMainWindow *m_window;
};

} // namespace bench
