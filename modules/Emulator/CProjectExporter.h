#pragma once

#include "SScreenExport.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

class CBackgroundRender;
class CEmulatorAdapter;
class CProjectModel;
class QPersistentModelIndex;

/// Renders the screens of a project again, in the background, and brings them into the two forms
/// of a display-list file. Knows no dialog: the window and the command line give it their own ways
/// of telling errors and progress.
/// Turns the event loop while it waits; a second collection cannot begin meanwhile.
class CProjectExporter
{
public:
    enum class EContent { DisplayLists, DisplayListsAndFrames };
    enum class EResult {
        Written,
        NotOpened,  ///< the file cannot be written; nothing was rendered
        NotWritten, ///< it could not be written after all; a file that was there is as before
        Cancelled,
        Refused ///< another collection is under way
    };
    static constexpr int MaxWaitSteps = 100; ///< for each screen
    static constexpr int WaitStepTime = 20;  ///< ms

    explicit CProjectExporter(CEmulatorAdapter *adapter);

    /// Called with a text for the user for each screen that gave no answer.
    void setErrorReport(std::function<void(const QString &)> report);
    /// Called with the errors of each screen that has some, a line each.
    void setFindings(std::function<void(const QString &screen, const QString &errors)> findings);
    /// Called before each screen with how many are done, and with their total; false cancels.
    void setProgress(std::function<bool(int done, int total)> progress);
    /// What one step of waiting does, for tests; otherwise it processes events and sleeps.
    void setWaitStep(std::function<void()> step);

    /// The screens in their order, without those that gave no answer within MaxWaitSteps. Nothing
    /// when cancelled or refused. `rows` limits it to some screens; null takes all.
    std::optional<QList<SScreenExport>> collect(CProjectModel *project, EContent content,
                                                const QList<int> *rows = nullptr);

    /// All screens into a text file; `error` gets the reason for NotOpened and NotWritten.
    EResult exportProjectDL(CProjectModel *project, const QString &path, QString *error = nullptr);
    /// All screens into a file of their bytes, nothing between them.
    EResult exportProjectBin(CProjectModel *project, const QString &path, QString *error = nullptr);

    /// The text with a space for each character that ends or disturbs a line.
    static QString oneLine(QString text);
    /// "===name===", the name on one line, the commands, an empty line; UTF-8.
    static QByteArray textForm(const QString &screenName, const QString &dlText);
    static QByteArray textForm(const QList<SScreenExport> &screens);
    static QByteArray binaryForm(const QList<SScreenExport> &screens);

private:
    bool waitForAnswer(const CBackgroundRender &render, const QPersistentModelIndex &screen,
                       EContent content) const;
    EResult exportProject(CProjectModel *project, const QString &path,
                          QByteArray (*form)(const QList<SScreenExport> &), QString *error);

    CEmulatorAdapter *const m_adapter;
    std::function<void(const QString &)> m_report;
    std::function<void(const QString &, const QString &)> m_findings;
    std::function<bool(int, int)> m_progress;
    std::function<void()> m_waitStep;
    bool m_cancelled = false; ///< by the progress of the last collection
};
