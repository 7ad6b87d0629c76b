#pragma once

#include "SScreenExport.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>

class CBackgroundRender;
class CEmulatorAdapter;
class CProjectModel;
class QPersistentModelIndex;

/// Renders the screens of a project again, in the background, and hands them out one by one, so
/// that no more of them are in memory than are drawn at once. Knows no dialog: the window and the
/// command line give it their own ways of telling errors and progress.
/// Turns the event loop while it waits; a second export cannot begin meanwhile.
class CProjectExporter
{
public:
    enum class EContent { DisplayLists, DisplayListsAndFrames };
    enum class EResult {
        Written,
        NotOpened,  ///< the file cannot be written; nothing was rendered
        NotWritten, ///< it could not be written after all; a file that was there is as before
        Cancelled,
        Refused ///< another export is under way
    };
    using Milliseconds = std::chrono::milliseconds;
    static constexpr Milliseconds UsualPatience{2000}; ///< for each screen
    static constexpr Milliseconds WaitStepTime{20};

    explicit CProjectExporter(CEmulatorAdapter *adapter);

    /// Called with a text for the user for each screen that gave no answer.
    void setErrorReport(std::function<void(const QString &)> report);
    /// Called with the errors of each screen that has some, a line each.
    void setFindings(std::function<void(const QString &screen, const QString &errors)> findings);
    /// Called before each screen with how many are done, and with their total; false cancels.
    void setProgress(std::function<bool(int done, int total)> progress);
    /// Asked at every step of waiting; true cancels.
    void setCancelled(std::function<bool()> isCancelled);
    /// Waits longer than UsualPatience, but calls `slow` for each screen that needs that.
    void setPatience(Milliseconds patience, std::function<void(const QString &screen)> slow);
    /// How many screens are asked for at once, 1 at first. With more than one, the emulator is to
    /// draw nothing else meanwhile; `restart` starts it anew after a screen that gave no answer,
    /// since those behind it would have to wait for it too.
    void setAtOnce(int screens, std::function<void()> restart);
    /// What one step of waiting does, for tests; false cancels. Otherwise it lasts until the answer
    /// is there, but not longer than WaitStepTime.
    void setWaitStep(std::function<bool()> step);
    /// Steps of waiting that ended without an answer.
    int idleSteps() const { return m_idleSteps; }

    /// Renders all screens, or those in some rows, and hands them out in their order, without those
    /// that gave no answer in time.
    /// Written when all were asked for; otherwise Cancelled, also when the program ends, or
    /// Refused.
    EResult render(CProjectModel *project, EContent content, const QList<int> *rows,
                   const std::function<void(SScreenExport &&)> &take);
    /// The same as a list; nothing when cancelled or refused.
    std::optional<QList<SScreenExport>> collect(CProjectModel *project, EContent content);

    /// All screens into a text file; `error` gets the reason for NotOpened and NotWritten.
    EResult exportProjectDL(CProjectModel *project, const QString &path, QString *error = nullptr);
    /// All screens into a file of their bytes, nothing between them.
    EResult exportProjectBin(CProjectModel *project, const QString &path, QString *error = nullptr);

    /// The text with a space for each character that ends or disturbs a line.
    static QString oneLine(QString text);
    /// "===name===", the name on one line, the commands, an empty line; UTF-8.
    static QByteArray textForm(const QString &screenName, const QString &dlText);

private:
    struct SAsked;
    enum class EAnswer { Complete, None, Cancelled };

    void ask(SAsked &asked, CProjectModel *project, EContent content) const;
    EAnswer waitForAnswer(const SAsked &asked, EContent content);
    bool waitStep(const CBackgroundRender &render);
    void handOut(SAsked &asked, const std::function<void(SScreenExport &&)> &take) const;
    EResult exportProject(CProjectModel *project, const QString &path,
                          const std::function<QByteArray(const SScreenExport &)> &form,
                          QString *error);

    CEmulatorAdapter *const m_adapter;
    std::function<void(const QString &)> m_report;
    std::function<void(const QString &, const QString &)> m_findings;
    std::function<bool(int, int)> m_progress;
    std::function<bool()> m_isCancelled;
    std::function<void(const QString &)> m_slow;
    std::function<void()> m_restart;
    std::function<bool()> m_waitStep;
    Milliseconds m_patience = UsualPatience;
    int m_atOnce = 1;
    int m_idleSteps = 0;
};
