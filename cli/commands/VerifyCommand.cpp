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
#include <QFileInfo>

namespace {

const char *const helpEnd = R"(
The folder holds a picture of each screen, NAME.png, as --png of an export writes them. Each must be
what is drawn now, to the last pixel. For each that is not, NAME.new.png and NAME.diff.png (what
differs in red) are written into the folder of --failed, or else "failed" in the baseline's; those of an
earlier run that do not hold any more are removed. --accept writes the pictures of now into the baseline
instead: all of them or, when something fails, none. Pictures of screens that are gone are told and left;
with --exact they count as a difference, and --accept removes them.

Exit codes: 0 all are equal (or were accepted), 1 not, 2 the command line is wrong, 3 the project
could not be opened or drawn, or a file not written.
)";

const char *const NewSuffix = ".new.png";
const char *const DifferenceSuffix = ".diff.png";

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
        QVector<SPicture> accepted;
        const bool isComplete = m_run.renderAll([&](SScreenExport &&screen) {
            const QString file = files.value(screen.screen->row());
            if (m_line.isSet("accept"))
                accepted.append(
                    {m_baseline.filePath(file), CScreenshotWriter::toPng(screen.frame)});
            else
                compare(screen, file);
        });
        if (isComplete && m_line.isSet("accept"))
            accept(accepted);
        lookAtOthers(files, isComplete);
        if (m_messages.hasFailed() || !isComplete)
            return EExit::Failed;
        return m_differing == 0 ? EExit::Done : EExit::Findings;
    }

private:
    struct SPicture
    {
        QString path;
        QByteArray png;
    };

    /// What was written before something failed is put back.
    void accept(const QVector<SPicture> &pictures)
    {
        QVector<SPicture> old; // without bytes: there was none
        for (const SPicture &each : pictures) {
            QFile file(each.path);
            const bool isThere = file.exists();
            if (isThere && !file.open(QIODevice::ReadOnly)) {
                m_messages.fail(QStringLiteral("%1: %2").arg(each.path, file.errorString()));
                break;
            }
            const QByteArray bytes = isThere ? file.readAll() : QByteArray();
            if (isThere && bytes == each.png)
                continue;
            CommandOutput::write(each.path, each.png, m_messages);
            if (m_messages.hasFailed())
                break;
            old.append({each.path, bytes});
        }
        if (!m_messages.hasFailed()) {
            for (const SPicture &each : pictures)
                removeFailed(QFileInfo(each.path).fileName());
            return;
        }
        for (const SPicture &each : old)
            if (each.png.isEmpty())
                QFile::remove(each.path);
            else
                CommandOutput::write(each.path, each.png, m_messages);
    }

    QString failedPath(const QString &file, const char *kind) const
    {
        const QDir failed(m_line.isSet("failed") ? m_line.value("failed")
                                                 : m_baseline.filePath(QStringLiteral("failed")));
        return failed.filePath(file.chopped(4) + QLatin1String(kind));
    }

    void removeFailed(const QString &file) const
    {
        for (const char *kind : {NewSuffix, DifferenceSuffix})
            QFile::remove(failedPath(file, kind));
    }

    void compare(const SScreenExport &screen, const QString &file)
    {
        const QString path = m_baseline.filePath(file);
        QString reason;
        const QImage accepted =
            QFile::exists(path) ? PictureFile::read(path, "png", {}, &reason) : QImage();
        const QString place =
            QStringLiteral("%1: screen \"%2\": ").arg(m_line.word(0), screen.name);
        const SPictureDifference difference = pictureDifference(accepted, screen.frame);
        removeFailed(file);
        if (!accepted.isNull() && difference.isEmpty())
            return;
        ++m_differing;
        const auto write = [&](const char *kind, const QImage &picture) {
            CommandOutput::write(failedPath(file, kind), CScreenshotWriter::toPng(picture),
                                 m_messages);
        };
        write(NewSuffix, screen.frame);
        if (accepted.isNull()) {
            m_messages.warn(place +
                            (reason.isEmpty()
                                 ? QStringLiteral("There is no accepted picture %1.").arg(path)
                                 : QStringLiteral("%1: %2").arg(path, reason)));
            return;
        }
        write(DifferenceSuffix, differencePicture(accepted, screen.frame));
        m_messages.warn(place + QStringLiteral("%1 pixels differ, in %2,%3 %4x%5.")
                                    .arg(difference.pixels)
                                    .arg(difference.box.x())
                                    .arg(difference.box.y())
                                    .arg(difference.box.width())
                                    .arg(difference.box.height()));
    }

    void lookAtOthers(const QStringList &files, bool mayRemove)
    {
        const bool isExact = m_line.isSet("exact");
        const QStringList pictures = m_baseline.entryList({QStringLiteral("*.png")}, QDir::Files);
        for (const QString &picture : pictures) {
            if (files.contains(picture))
                continue;
            const QString path = m_baseline.filePath(picture);
            if (isExact && m_line.isSet("accept")) {
                if (mayRemove && !m_messages.hasFailed() && !QFile::remove(path))
                    m_messages.fail(QStringLiteral("%1: Could not be removed.").arg(path));
                continue;
            }
            m_differing += isExact ? 1 : 0;
            m_messages.warn(QStringLiteral("%1: This picture belongs to no screen of %2.")
                                .arg(path, m_line.word(0)));
        }
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
                       {"exact", "Fails for pictures that belong to no screen, too."},
                       {"failed", "Where to write pictures of what differs.", "DIR"}},
                      helpEnd);
    if (const std::optional<int> code = line.read(arguments))
        return *code;
    if (!line.isSet("baseline"))
        return line.wrong(QStringLiteral("--baseline is missing."));
    return int(CVerify(line).run());
}

} // namespace VerifyCommand
