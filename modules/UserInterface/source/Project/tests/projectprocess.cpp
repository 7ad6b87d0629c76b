// A process of its own for tests: it opens a project as a copy of the program would.
//   projectprocess lock FILE              locks, says "taken" or "held", waits for a line, releases
//   projectprocess takeover FILE          as lock, taking over what is held; waits before each step
//   projectprocess save FILE              opens FILE, saves it in two versions in turn, for ever
//   projectprocess saveall FILE           as save: by hand, automatically and under another name
//   projectprocess crash FILE             locks and ends without releasing
//   projectprocess unsaved FOLDER         makes a new project, changes it, and is killed when the
//                                         recovery copy lies in FOLDER
#include "CProjectLock.h"
#include "CProjectModel.h"
#include "CProjectSession.h"
#include "CRecentProjects.h"
#include "CScriptedUser.h"
#include "ProjectTestSupport.h"

#include <QCoreApplication>

#include <csignal>
#include <iostream>
#include <string>

namespace {
void say(const char *text)
{
    std::cout << text << std::endl;
}

void waitForLine()
{
    std::string line;
    std::getline(std::cin, line);
}

const char *nameOf(CProjectLock::EResult result)
{
    return result == CProjectLock::EResult::Taken           ? "taken"
           : result == CProjectLock::EResult::HeldElsewhere ? "held"
                                                            : "unavailable";
}

int holdLock(const QString &file, bool takeOver)
{
    CProjectLock lock(file);
    auto result = lock.tryLock();
    say(nameOf(result));
    if (takeOver) {
        waitForLine();
        result = lock.takeOver();
        say(nameOf(result));
    }
    waitForLine();
    say(lock.isStillOwned() ? "owned" : "lost");
    waitForLine();
    return 0;
}

/// Two documents in turn: as it was opened, and with the change of one property.
int saveForever(const QString &path, bool inEveryWay)
{
    const QString otherPath = path.chopped(4) + QStringLiteral("2.nyx");
    CScriptedUser user;
    CRecentProjects recent;
    CProjectSession session(&user, &recent);
    if (!session.openFile(path))
        return 1;
    QUndoStack *stack = session.project()->undoStack();
    ProjectTestSupport::change(session.project(), ProjectTestSupport::largeText());
    stack->undo();
    for (int round = 0;; ++round) {
        user.savePath = round % 2 == 0 ? otherPath : path;
        const int way = inEveryWay ? round % 3 : 0;
        const bool saved = way == 0   ? session.save()
                           : way == 1 ? session.autosave() == CProjectSession::EAutosave::Saved
                                      : session.saveAs();
        if (!saved)
            return 1;
        if (round == 0)
            say("saving");
        round % 2 == 0 ? stack->redo() : stack->undo();
    }
}

void leaveUnsaved(const QString &folder)
{
    CScriptedUser user;
    user.newOptions =
        IUserQuestions::ProjectOptions{{QStringLiteral("project_name"), QStringLiteral("fresh")},
                                       {QStringLiteral("working_directory"), folder}};
    CRecentProjects recent;
    CProjectSession session(&user, &recent);
    session.setRecoveryRoot(folder);
    session.newProject();
    ProjectTestSupport::change(session.project());
    session.autosave();
    std::raise(SIGKILL);
}
} // namespace

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const QString task = arguments.value(1);
    const QString file = arguments.value(2);
    if (task == QLatin1String("lock") || task == QLatin1String("takeover"))
        return holdLock(file, task == QLatin1String("takeover"));
    if (task.startsWith(QLatin1String("save")))
        return saveForever(file, task == QLatin1String("saveall"));
    if (task == QLatin1String("unsaved"))
        leaveUnsaved(file);
    CProjectLock lock(file);
    const auto result = lock.tryLock();
    std::cout << nameOf(result) << std::endl;
    std::raise(SIGKILL);
    return 0;
}
