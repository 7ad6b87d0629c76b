#include "CExportJob.h"

#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CFileWriter.h"
#include "CPackageBuilder.h"
#include "CPlatformTable.h"
#include "CProgramData.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenshotWriter.h"
#include "FileNames.h"
#include "PropertyKey.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>

namespace {

struct SCounts
{
    int widgets = 0;
    int bitmaps = 0;
};

void countBelow(const CItemModel *item, SCounts &counts)
{
    for (int row = 0; row < item->rowCount(); ++row) {
        const CItemModel *child = item->childItem(row);
        if (!child)
            continue;
        if (child->kind() == CItemModel::Kind::Widget)
            ++counts.widgets;
        if (!child->propertyText(PropertyKey::BaseName).isEmpty())
            ++counts.bitmaps;
        countBelow(child, counts);
    }
}

void print(FILE *stream, const QString &line)
{
    std::fprintf(stream, "%s\n", line.toUtf8().constData());
}

} // namespace

CExportJob::CExportJob(const CExportOptions &options) : m_options(options)
{
}

CExportJob::~CExportJob() = default;

CExportJob::EExit CExportJob::run()
{
    if (!loadProgramData() || !openProject())
        return EExit::Failed;
    const std::optional<QList<int>> rows = wantedRows();
    if (!rows)
        return EExit::Usage;
    render(*rows);
    writeOutputs();
    const bool isFine = m_report->isRepeatable() && (!m_options.strict || m_report->isClean());
    if (m_exit == EExit::Done && !isFine)
        m_exit = EExit::Findings;
    return m_exit;
}

bool CExportJob::loadProgramData()
{
    const CProgramData data(QCoreApplication::applicationDirPath());
    for (const QString &problem : {data.loadWidgetLibrary(), data.registerEmulator()})
        if (!problem.isEmpty())
            fail(problem);
    return m_exit == EExit::Done;
}

bool CExportJob::openProject()
{
    const QString path = QFileInfo(m_options.project).absoluteFilePath();
    QString error;
    m_project = std::make_unique<CProjectModel>();
    if (!m_project->loadFromFile(path, &error)) {
        fail(error);
        return false;
    }
    const QString platform = m_project->platform();
    m_report = std::make_unique<CExportReport>(path, platform, m_project->workingDirectory());
    const CPlatformTable platforms;
    if (!platforms.isKnown(platform)) {
        const QString problem =
            QStringLiteral("The platform \"%1\" is not known; known are %2.")
                .arg(platform, platforms.platforms().join(QStringLiteral(", ")));
        warn(QStringLiteral("%1: %2").arg(m_options.project, problem));
        m_report->addError(problem);
    }
    return true;
}

std::optional<QList<int>> CExportJob::wantedRows()
{
    QList<int> rows;
    QStringList names;
    QStringList unknown = m_options.screens;
    for (int row = 0; row < m_project->screenCount(); ++row) {
        const CScreenModel *screen = m_project->screen(row);
        if (!screen)
            continue;
        names.append(QLatin1Char('"') + screen->name() + QLatin1Char('"'));
        if (m_options.screens.isEmpty() || m_options.screens.contains(screen->name()))
            rows.append(row);
        unknown.removeAll(screen->name());
    }
    if (unknown.isEmpty())
        return rows;
    warn(QStringLiteral("%1: There is no screen \"%2\". The screens are: %3.")
             .arg(m_options.project, unknown[0],
                  names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", "))));
    return std::nullopt;
}

void CExportJob::render(const QList<int> &rows)
{
    CEmulatorAdapter *adapter = CEmulatorAdapter::instance();
    CEmulatorSession session(adapter);
    session.open(m_project.get());
    CProjectExporter exporter(adapter);
    m_screens =
        exporter.collect(m_project.get(), CProjectExporter::EContent::DisplayListsAndFrames, &rows)
            .value_or(QList<SScreenExport>());
    session.close();
    m_isComplete = m_screens.size() == rows.size();
    addToReport(rows);
}

void CExportJob::addToReport(const QList<int> &rows)
{
    for (const int row : rows) {
        const CScreenModel *screen = m_project->screen(row);
        SCounts counts;
        countBelow(screen, counts);
        SScreenReport report;
        report.name = screen->name();
        report.widgets = counts.widgets;
        report.bitmaps = counts.bitmaps;
        report.ramDlBudget = CPlatformTable::ramDlBudget(m_project->platform());
        report.ramGBudget = CPlatformTable::ramGBudget(m_project->platform());
        const auto rendered =
            std::find_if(m_screens.begin(), m_screens.end(),
                         [screen](const SScreenExport &each) { return each.screen == screen; });
        if (rendered == m_screens.end()) {
            report.errors.append(QStringLiteral("The emulator gave no answer."));
            fail(QStringLiteral("%1: screen \"%2\": The emulator gave no answer; the screen is "
                                "missing from the outputs.")
                     .arg(m_options.project, report.name));
        } else {
            report.ramDl = rendered->ramDl;
            report.ramG = rendered->ramG;
            report.errors = rendered->errors;
            report.assets = rendered->memory.assets;
            for (const QString &error : rendered->errors)
                warn(QStringLiteral("%1: screen \"%2\": %3")
                         .arg(m_options.project, report.name, error));
        }
        warnOver(report.name, "RAM_DL", report.ramDl, report.ramDlBudget);
        warnOver(report.name, "RAM_G", report.ramG, report.ramGBudget);
        m_report->add(report);
    }
}

void CExportJob::warnOver(const QString &screen, const char *memory, size_t needed,
                          size_t budget) const
{
    if (needed > budget)
        warn(QStringLiteral("%1: screen \"%2\": Needs %3 bytes of %4; the chip has %5.")
                 .arg(m_options.project, screen)
                 .arg(needed)
                 .arg(QLatin1String(memory))
                 .arg(budget));
}

void CExportJob::writeOutputs()
{
    const QString screens = m_screens.size() == 1
                                ? QStringLiteral("1 screen")
                                : QStringLiteral("%1 screens").arg(m_screens.size());
    if (!m_options.dlFile.isEmpty())
        writeFile(m_options.dlFile, CProjectExporter::textForm(m_screens), screens);
    if (!m_options.binFile.isEmpty())
        writeFile(m_options.binFile, CProjectExporter::binaryForm(m_screens), screens);
    if (!m_options.pngFolder.isEmpty())
        writePictures();
    if (!m_options.packageFolder.isEmpty())
        writePackage();
    if (!m_options.ramGFolder.isEmpty())
        writeRamG();
    if (!m_options.reportFile.isEmpty())
        writeReport();
}

void CExportJob::writePackage()
{
    if (!m_isComplete) {
        warn(QStringLiteral("%1: The package is not written.").arg(m_options.packageFolder));
        return; // why was told with the screen
    }
    CPackageBuilder builder;
    if (!builder.build(packageSource(*m_project, m_screens))) {
        for (const QString &problem : builder.problems())
            fail(QStringLiteral("%1: %2").arg(m_options.project, problem));
        return;
    }
    const QString problem = writePackageFiles(m_options.packageFolder, builder.package());
    if (!problem.isEmpty())
        fail(problem);
    else
        tell(QStringLiteral("%1: package, %2 screens, %3 assets, %4 bytes")
                 .arg(m_options.packageFolder)
                 .arg(builder.content().screens.size())
                 .arg(builder.content().assets.size())
                 .arg(builder.package().bin.size()));
}

void CExportJob::writeRamG()
{
    if (!QDir().mkpath(m_options.ramGFolder)) {
        fail(QStringLiteral("%1: The folder could not be made.").arg(m_options.ramGFolder));
        return;
    }
    QStringList names;
    for (const SScreenExport &screen : m_screens)
        names.append(screen.name);
    const QStringList files = FileNames::unusedForAll(names, QStringLiteral(".ramg"));
    for (int i = 0; i < files.size(); ++i)
        writeFile(QDir(m_options.ramGFolder).filePath(files[i]), m_screens[i].memory.bytes,
                  QStringLiteral("RAM_G"));
}

void CExportJob::writePictures()
{
    if (!makeFolder(m_options.pngFolder, m_options.pngFolder))
        return;
    QStringList names;
    for (const SScreenExport &screen : m_screens)
        names.append(screen.name);
    const QStringList files = FileNames::unusedForAll(names, QStringLiteral(".png"));
    for (int i = 0; i < files.size(); ++i) {
        const QImage &frame = m_screens[i].frame;
        if (frame.isNull())
            fail(QStringLiteral("%1: screen \"%2\": A screen without width or height has no "
                                "picture.")
                     .arg(m_options.project, names[i]));
        else
            writeFile(QDir(m_options.pngFolder).filePath(files[i]), CScreenshotWriter::toPng(frame),
                      QStringLiteral("%1 x %2 pixels").arg(frame.width()).arg(frame.height()));
    }
}

void CExportJob::writeReport()
{
    const QByteArray json = m_report->toJson();
    if (!m_options.reportsToStdout()) {
        writeFile(m_options.reportFile, json, QStringLiteral("report"));
        return;
    }
    const auto size = static_cast<size_t>(json.size());
    if (std::fwrite(json.constData(), 1, size, stdout) != size || std::fflush(stdout) != 0)
        fail(QStringLiteral("The report could not be written to the standard output."));
}

bool CExportJob::makeFolder(const QString &folder, const QString &output)
{
    if (QDir().mkpath(folder))
        return true;
    fail(QStringLiteral("%1: The folder could not be made.").arg(output));
    return false;
}

void CExportJob::writeFile(const QString &path, const QByteArray &bytes, const QString &content)
{
    if (!makeFolder(QFileInfo(path).path(), path))
        return;
    const QString problem = CFileWriter::write(path, bytes);
    if (!problem.isEmpty())
        fail(problem);
    else
        tell(QStringLiteral("%1: %2, %3 bytes").arg(path, content).arg(bytes.size()));
}

void CExportJob::fail(const QString &message)
{
    warn(message);
    m_exit = EExit::Failed;
}

void CExportJob::warn(const QString &message) const
{
    print(stderr, QStringLiteral("panel-export: ") + CProjectExporter::oneLine(message));
}

void CExportJob::tell(const QString &message) const
{
    print(m_options.reportsToStdout() ? stderr : stdout, message);
}
