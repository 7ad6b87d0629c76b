#include "DiffCommand.h"

#include "CCommandLine.h"
#include "CContentSum.h"
#include "CExportJob.h"
#include "CMessages.h"
#include "CPackedPictures.h"
#include "CProjectModel.h"
#include "CProjectRun.h"
#include "CScreenModel.h"
#include "CScreenshotWriter.h"
#include "CStateReader.h"
#include "ChangesText.h"
#include "CommandOutput.h"
#include "FileNames.h"
#include "ProjectChanges.h"
#include "StopSignals.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSet>

namespace {

const char *const helpEnd = R"end(
Items are the same when they have the same id and kind, otherwise the same name and kind, otherwise
the same kind and place. A screen that was renamed is known by what lies on it. Both projects are
drawn, and pictures are compared pixel by pixel.

--png writes, for each screen whose picture differs, NAME.old.png, NAME.new.png and NAME.diff.png:
the new picture, pale, with what differs in red. Of a screen that was added or removed there is the one
picture.

As a tool of git, which hands over files without the images beside them, and /dev/null for a project
that was added or removed, of which all screens are new or gone:
  git config difftool.nyx.cmd 'panel-export diff --folder "$(dirname "$MERGED")" "$LOCAL" "$REMOTE"'
  git config diff.nyx.textconv 'panel-export diff --describe'
with "*.nyx diff=nyx" in .gitattributes, so that git diff shows a line for each value.

Exit codes: 0 equal, 1 different, 2 the command line is wrong, 3 a project could not be opened or
drawn, or an output not written.
)end";

QByteArray joined(const QStringList &lines)
{
    return lines.isEmpty() ? QByteArray()
                           : (lines.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8();
}

class CDiff
{
public:
    explicit CDiff(const CCommandLine &line)
        : m_line(line),
          m_messages(true),
          m_before(line.word(0), m_messages),
          m_after(line.word(1), m_messages)
    {
    }

    CExportJob::EExit run()
    {
        using EExit = CExportJob::EExit;
        if (!CProjectRun::loadProgramData(m_messages) || !open(m_before, 0) || !open(m_after, 1))
            return EExit::Failed;
        if (m_line.isSet("folder"))
            for (CProjectRun *each : {&m_before, &m_after})
                each->project().setWorkingDirectory(
                    QFileInfo(m_line.value("folder")).absoluteFilePath());
        const ProjectState before = CStateReader::read(m_before.project());
        const ProjectState after = CStateReader::read(m_after.project());
        const SProjectChanges changes = projectChanges(*before, *after);
        if (!comparePictures(changes.pairs))
            return EExit::Failed;
        const QJsonObject json = ChangesText::toJson(changes, m_differences);
        const bool isEqual = json.value(QStringLiteral("equal")).toBool();
        if (m_line.value("json") != QLatin1String("-"))
            CommandOutput::print(joined(ChangesText::toLines(changes, m_differences)), m_messages);
        if (m_line.isSet("json"))
            CommandOutput::write(m_line.value("json"), QJsonDocument(json).toJson(), m_messages);
        if (m_messages.hasFailed())
            return EExit::Failed;
        return isEqual ? EExit::Done : EExit::Findings;
    }

private:
    /// git gives /dev/null for a file that was added or removed.
    bool open(CProjectRun &run, int word) const
    {
        if (m_line.word(word) != QLatin1String("/dev/null"))
            return run.open();
        run.openNothing();
        return true;
    }

    /// There is one emulator, so pictures wait for each other, packed: only those of screens that
    /// are not drawn by the same list from the same memory. Those are drawn once more.
    bool comparePictures(const QVector<SScreenPair> &pairs)
    {
        QHash<const CItemModel *, QByteArray> earlier;
        const auto keep = [&earlier](SScreenExport &&screen) {
            earlier.insert(screen.screen, drawingOf(screen));
        };
        if (!m_before.renderAll(keep))
            return false;
        QHash<const CItemModel *, SScreenPair> pairOf;
        for (const SScreenPair &pair : pairs)
            pairOf.insert(pair.after->item, pair);
        QVector<const CScreenModel *> removed;
        const QStringList names = pictureNames(pairs, removed);
        CPackedPictures later;
        QHash<const CItemModel *, SScreenPair> waiting; // by the earlier ones
        const bool isComplete = m_after.renderAll([&](SScreenExport &&screen) {
            const auto pair = pairOf.constFind(screen.screen);
            if (pair == pairOf.cend()) {
                write(names.value(screen.screen->row()) + QStringLiteral(".new.png"), screen.frame);
            } else if (!screen.memory.isKnown ||
                       earlier.value(pair->before->item) != drawingOf(screen)) {
                later.add(screen.screen, screen.frame);
                waiting.insert(pair->before->item, *pair);
            }
        });
        QList<int> rows;
        for (int row = 0; row < m_before.project().screenCount(); ++row) {
            const CScreenModel *screen = m_before.project().screen(row);
            if (waiting.contains(screen) || (m_line.isSet("png") && removed.contains(screen)))
                rows.append(row);
        }
        bool isDrawn = true;
        const auto take = [&](SScreenExport &&screen) {
            const auto pair = waiting.constFind(screen.screen);
            if (pair == waiting.cend())
                write(
                    names.value(m_after.project().screenCount() + removed.indexOf(screen.screen)) +
                        QStringLiteral(".old.png"),
                    screen.frame);
            else
                compare(screen.frame, *pair->after, later.take(pair->after->item),
                        names.value(pair->after->item->row()));
        };
        if (isComplete && !rows.isEmpty())
            m_before.render(rows, take, [&](const CScreenModel &screen) {
                isDrawn = false;
                m_messages.fail(QStringLiteral("%1: screen \"%2\": The emulator gave no answer.")
                                    .arg(m_line.word(0), screen.name()));
            });
        return isComplete && isDrawn && StopSignals::exitCode() == 0;
    }

    /// Two that are the same draw the same picture.
    static QByteArray drawingOf(const SScreenExport &screen)
    {
        CContentSum sum;
        for (const QByteArray &bytes : {screen.bytes, screen.memory.bytes})
            sum.add(bytes.constData(), static_cast<size_t>(bytes.size()));
        sum.add(static_cast<uint64_t>(screen.frame.width()));
        sum.add(static_cast<uint64_t>(screen.frame.height()));
        return sum.result();
    }

    void compare(const QImage &before, const SItemState &screen, const QImage &after,
                 const QString &name)
    {
        const SPictureDifference difference = pictureDifference(before, after);
        if (difference.isEmpty())
            return;
        m_differences.insert(&screen, difference);
        write(name + QStringLiteral(".old.png"), before);
        write(name + QStringLiteral(".new.png"), after);
        if (m_line.isSet("png"))
            write(name + QStringLiteral(".diff.png"), differencePicture(before, after));
    }

    void write(const QString &file, const QImage &picture)
    {
        if (m_line.isSet("png"))
            CommandOutput::write(QDir(m_line.value("png")).filePath(file),
                                 CScreenshotWriter::toPng(picture), m_messages);
    }

    /// Without suffix, of the screens in the rows of the later project, then of those that are
    /// gone.
    QStringList pictureNames(const QVector<SScreenPair> &pairs,
                             QVector<const CScreenModel *> &removed) const
    {
        QStringList names;
        for (int row = 0; row < m_after.project().screenCount(); ++row)
            names.append(m_after.project().screen(row)->name());
        QSet<const CItemModel *> kept;
        for (const SScreenPair &pair : pairs)
            kept.insert(pair.before->item);
        for (int row = 0; row < m_before.project().screenCount(); ++row) {
            const CScreenModel *screen = m_before.project().screen(row);
            if (!kept.contains(screen)) {
                removed.append(screen);
                names.append(screen->name());
            }
        }
        return FileNames::unusedForAll(names, QString());
    }

    const CCommandLine &m_line;
    CMessages m_messages;
    CProjectRun m_before;
    CProjectRun m_after;
    PictureDifferences m_differences;
};

int describe(const QString &file)
{
    CMessages messages(true);
    CProjectRun run(file, messages);
    if (!CProjectRun::loadProgramData(messages) || !run.open())
        return int(CExportJob::EExit::Failed);
    CommandOutput::print(joined(ChangesText::describe(*CStateReader::read(run.project()))),
                         messages);
    return int(messages.hasFailed() ? CExportJob::EExit::Failed : CExportJob::EExit::Done);
}

} // namespace

namespace DiffCommand {

int run(const QStringList &arguments)
{
    const bool describes = arguments.contains(QStringLiteral("--describe"));
    CCommandLine line("diff", "Tells what differs between two states of a project.",
                      describes ? QStringList{QStringLiteral("PROJECT")}
                                : QStringList{QStringLiteral("BEFORE"), QStringLiteral("AFTER")},
                      {{"json",
                        "Writes the differences in JSON; - is the standard output, without "
                        "the lines for people.",
                        "FILE|-"},
                       {"png", "Writes pictures of the screens that differ into a folder.", "DIR"},
                       {"folder", "Takes the images of both projects from this folder.", "DIR"},
                       {"describe", "Prints one project instead, a line for each value."}},
                      helpEnd);
    if (const std::optional<int> code = line.read(arguments))
        return *code;
    return describes ? describe(line.word(0)) : int(CDiff(line).run());
}

} // namespace DiffCommand
