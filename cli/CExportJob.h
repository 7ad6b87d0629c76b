#pragma once

#include "CExportOptions.h"
#include "CExportReport.h"
#include "CMessages.h"
#include "CProjectRun.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

class CPageOutputs;
class CScreenModel;

/// Does what panel-export was asked for: opens the project, renders its screens, writes the
/// outputs. What goes wrong is told on the standard error output, a sentence a line; what was
/// written on the standard output, or beside the errors when that one takes the report.
class CExportJob
{
public:
    enum class EExit { Done = 0, Findings = 1, Usage = 2, Failed = 3 };

    explicit CExportJob(const CExportOptions &options);
    ~CExportJob();

    EExit run();

private:
    std::optional<QList<int>> wantedRows();
    QStringList namesOf(const QList<int> &rows) const;
    SScreenReport newReport(const CScreenModel &screen) const;
    void addToReport(const SScreenExport &screen);
    void addMissing(const CScreenModel &screen);
    void warnOver(const QString &screen, const char *memory, size_t needed, size_t budget) const;
    void writeReport(CPageOutputs &outputs);

    const CExportOptions m_options;
    CMessages m_messages;
    CProjectRun m_run;
    std::unique_ptr<CExportReport> m_report;
    bool m_isComplete = true; ///< all screens that were wanted have come
};
