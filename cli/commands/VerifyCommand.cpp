#include "VerifyCommand.h"

#include "CCommandLine.h"
#include "CExportJob.h"
#include "CMessages.h"
#include "CProjectModel.h"
#include "CProjectRun.h"
#include "CScreenModel.h"
#include "CScreenshotWriter.h"
#include "CommandOutput.h"
#include "FileNames.h"
#include "PictureDifference.h"
#include "PictureFile.h"

#include <QDir>
#include <QFile>

namespace {

const char *const helpEnd = R"(
The folder holds a picture of each screen, NAME.png, as --png of an export writes them. Each must be
what is drawn now, to the last pixel. For each that is not, NAME.new.png and NAME.diff.png (what
differs in red) are written into the folder of --failed, or else "failed" in the baseline's. --accept
writes the pictures of now into the baseline instead; pictures of screens that are gone are told and
left.

Exit codes: 0 all are equal (or were accepted), 1 not, 2 the command line is wrong, 3 the project
could not be opened or drawn, or a file not written.
)";

class CVerify
{
public:
    explicit CVerify(const CCommandLine &line)
        : m_line(line),
          m_messages(false),
          m_run(line.word(0), m_messages),
          m_baseline(line.value("baseline"))
    {
    }

    CExportJob::EExit run()
    {
        using EExit = CExportJob::EExit;
        if (!CProjectRun::loadProgramData(m_messages) || !m_run.open())
            return EExit::Failed;
        if (!m_line.isSet("accept") && !m_baseline.exists()) {
            m_messages.fail(QStringLiteral("%1: There is no such folder; --accept makes it.")
                                .arg(m_baseline.path()));
            return EExit::Failed;
        }
        QStringList names;
        for (int row = 0; row < m_run.project().screenCount(); ++row)
            names.append(m_run.project().screen(row)->name());
        const QStringList files = FileNames::unusedForAll(names, QStringLiteral(".png"));
        const bool isComplete = m_run.renderAll([&](SScreenExport &&screen) {
            const QString file = files.value(screen.screen->row());
            if (m_line.isSet("accept"))
                CommandOutput::write(m_baseline.filePath(file),
                                     CScreenshotWriter::toPng(screen.frame), m_messages);
            else
                compare(screen, file);
        });
        tellOfOthers(files);
        if (m_messages.hasFailed() || !isComplete)
            return EExit::Failed;
        return m_differing == 0 ? EExit::Done : EExit::Findings;
    }

private:
    void compare(const SScreenExport &screen, const QString &file)
    {
        const QString path = m_baseline.filePath(file);
        QString reason;
        const QImage accepted =
            QFile::exists(path) ? PictureFile::read(path, "png", {}, &reason) : QImage();
        const QString place =
            QStringLiteral("%1: screen \"%2\": ").arg(m_line.word(0), screen.name);
        const SPictureDifference difference = pictureDifference(accepted, screen.frame);
        if (!accepted.isNull() && difference.isEmpty())
            return;
        ++m_differing;
        const QDir failed(m_line.isSet("failed") ? m_line.value("failed")
                                                 : m_baseline.filePath(QStringLiteral("failed")));
        const auto write = [&](const char *kind, const QImage &picture) {
            const QString name = file.chopped(4) + QLatin1String(kind);
            CommandOutput::write(failed.filePath(name), CScreenshotWriter::toPng(picture),
                                 m_messages);
        };
        write(".new.png", screen.frame);
        if (accepted.isNull()) {
            m_messages.warn(place +
                            (reason.isEmpty()
                                 ? QStringLiteral("There is no accepted picture %1.").arg(path)
                                 : reason));
            return;
        }
        write(".diff.png", differencePicture(accepted, screen.frame));
        m_messages.warn(place + QStringLiteral("%1 pixels differ, in %2,%3 %4x%5.")
                                    .arg(difference.pixels)
                                    .arg(difference.box.x())
                                    .arg(difference.box.y())
                                    .arg(difference.box.width())
                                    .arg(difference.box.height()));
    }

    void tellOfOthers(const QStringList &files)
    {
        const QStringList pictures = m_baseline.entryList({QStringLiteral("*.png")}, QDir::Files);
        for (const QString &picture : pictures)
            if (!files.contains(picture))
                m_messages.warn(QStringLiteral("%1: This picture belongs to no screen of %2.")
                                    .arg(m_baseline.filePath(picture), m_line.word(0)));
    }

    const CCommandLine &m_line;
    CMessages m_messages;
    CProjectRun m_run;
    const QDir m_baseline;
    int m_differing = 0;
};

} // namespace

namespace VerifyCommand {

int run(const QStringList &arguments)
{
    CCommandLine line("verify", "Compares the pictures of a project with accepted ones.",
                      {QStringLiteral("PROJECT")},
                      {{"baseline", "The folder of the accepted pictures.", "DIR"},
                       {"accept", "Writes the pictures of now into that folder."},
                       {"failed", "Where to write pictures of what differs.", "DIR"}},
                      helpEnd);
    if (const std::optional<int> code = line.read(arguments))
        return *code;
    if (!line.isSet("baseline"))
        return line.wrong(QStringLiteral("--baseline is missing."));
    return int(CVerify(line).run());
}

} // namespace VerifyCommand
