#pragma once

#include <QHash>
#include <QString>

#include <optional>

/// What the life of a project has to ask and tell the user. The window implements it with dialogs,
/// tests with a script. Questions return when they are answered; telling returns at once.
class IUserQuestions
{
public:
    enum class EClose { Save, Discard, Cancel };
    enum class EOverwrite { Overwrite, SaveAs, Cancel };
    using ProjectOptions = QHash<QString, QString>; ///< property name to value text

    virtual ~IUserQuestions() = default;

    /// Whether to save the project before it is closed.
    virtual EClose saveBeforeClosing() = 0;
    /// The project is open in another copy of the program: true takes its lock over.
    virtual bool takeOverLock(const QString &projectFile) = 0;
    /// The file is no longer as this program has left it.
    virtual EOverwrite overwriteChanged(const QString &projectFile) = 0;
    /// Another copy has taken the project over, so it cannot be saved here: true for Save As.
    virtual bool saveElsewhere(const QString &projectFile) = 0;
    /// The program has ended without closing the project, whose file holds what was saved
    /// automatically: true opens the version that the user saved last in its place.
    virtual bool openSavedVersion(const QString &projectFile) = 0;
    /// Whether all that was done since the last save by the user is to be given up.
    virtual bool revert(const QString &projectFile) = 0;
    /// Whether work that was never saved is to be given up.
    virtual bool forgetLeftWork(const QString &projectName) = 0;

    /// A file to open or to save; empty when cancelled.
    virtual QString projectToOpen(const QString &folder) = 0;
    virtual QString projectToSave(const QString &folder, const QString &name) = 0;
    /// The properties of a new project; nothing when cancelled.
    virtual std::optional<ProjectOptions> newProject() = 0;

    /// One of the fixed error texts, and the reason, which may be empty. Shown each time.
    virtual void showError(const QString &text, const QString &reason) = 0;
    /// The same for an automatic save, which nobody waits for: it must not take the keys from what
    /// the user is doing, and offers Save As.
    virtual void showAutosaveError(const QString &text, const QString &reason) = 0;
    /// Something worth knowing that interrupts nobody.
    virtual void showNotice(const QString &text) = 0;
};
