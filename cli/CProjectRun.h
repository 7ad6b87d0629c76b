#pragma once

#include "SScreenExport.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class CEmulatorSession;
class CMessages;
class CProjectExporter;
class CProjectModel;
class CScreenModel;

/// A project that a command works on: opened, and its screens rendered as many at once as the
/// machine allows, with the same result. What goes wrong is told.
class CProjectRun
{
public:
    /// `file` as the caller gave it. The messages must live longer.
    CProjectRun(const QString &file, CMessages &messages);
    ~CProjectRun();

    /// Once in a process, before any project: the widget library and the emulator.
    static bool loadProgramData(CMessages &messages);

    /// False, and told, when it is no project.
    bool open();
    /// The same for a project that is not there: one without screens.
    void openNothing();
    CProjectModel &project() const { return *m_project; }
    /// The same for whoever keeps it when the run is over; there is none here from then on.
    std::unique_ptr<CProjectModel> takeProject();
    /// What is wrong with the project as a whole; told when it was opened.
    const QStringList &problems() const { return m_problems; }
    int screensAtOnce() const;

    /// Renders the screens in some rows, or all, in their order. `missing` is told of each that
    /// gave no answer. Ends early when a signal is to end the program.
    void render(const QList<int> &rows, const std::function<void(SScreenExport &&)> &take,
                const std::function<void(const CScreenModel &)> &missing);
    /// All screens. False, and told, when one gave no answer.
    bool renderAll(const std::function<void(SScreenExport &&)> &take);

private:
    void prepare(CProjectExporter &exporter, CEmulatorSession &session) const;

    const QString m_file;
    CMessages &m_messages;
    std::unique_ptr<CProjectModel> m_project;
    QStringList m_problems;
};
