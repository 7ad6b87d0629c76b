#pragma once

#include "CExportOptions.h"
#include "CExportReport.h"
#include "CProjectExporter.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

class CItemModel;
class CProjectModel;

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
    bool loadProgramData();
    bool openProject();
    std::optional<QList<int>> wantedRows();
    void render(const QList<int> &rows);
    void addToReport(const QList<int> &rows);
    void writeOutputs();
    void writePictures();
    void writePackage();
    void writeRamG();
    void writeReport();
    bool makeFolder(const QString &folder, const QString &output);
    void writeFile(const QString &path, const QByteArray &bytes, const QString &content);

    void fail(const QString &message);
    void warn(const QString &message) const;
    void warnOver(const QString &screen, const char *memory, size_t needed, size_t budget) const;
    void tell(const QString &message) const;

    const CExportOptions m_options;
    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<CExportReport> m_report;
    QList<SScreenExport> m_screens;
    bool m_isComplete = false; ///< all screens that were wanted are there
    EExit m_exit = EExit::Done;
};
