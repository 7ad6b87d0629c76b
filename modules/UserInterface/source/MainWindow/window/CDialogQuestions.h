#pragma once

#include "IUserQuestions.h"

#include <QCoreApplication>
#include <QStringList>

#include <functional>

class CErrorBox;
class CPlatformTable;
class QWidget;

/// Asks and tells the user with dialogs.
class CDialogQuestions final : public IUserQuestions
{
    Q_DECLARE_TR_FUNCTIONS(CDialogQuestions)

public:
    using Report = std::function<void(const QString &)>;

    /// `window`: parent of all dialogs. `errors`: the one box for errors. Both live longer.
    CDialogQuestions(QWidget *window, CErrorBox *errors, const CPlatformTable *platforms);

    /// Where errors, their reasons and notices go; also those of before.
    void setReport(Report report);
    /// Folder that is offered for new projects.
    void setSavingFolder(const QString &folder) { m_savingFolder = folder; }

    EClose saveBeforeClosing() override;
    bool takeOverLock(const QString &projectFile) override;
    EOverwrite overwriteChanged(const QString &projectFile) override;
    bool saveElsewhere(const QString &projectFile) override;
    bool openSavedVersion(const QString &projectFile) override;
    bool revert(const QString &projectFile) override;
    bool forgetLeftWork(const QString &projectName) override;
    QString projectToOpen(const QString &folder) override;
    QString projectToSave(const QString &folder, const QString &name) override;
    std::optional<ProjectOptions> newProject() override;
    void showError(const QString &text, const QString &reason) override;
    void showAutosaveError(const QString &text, const QString &reason) override;
    void showNotice(const QString &text) override;

private:
    bool mayReplace(const QString &path);
    void report(const QString &text, const QString &reason);

    QWidget *const m_window;
    CErrorBox *const m_errors;
    const CPlatformTable *const m_platforms;
    Report m_report;
    QStringList m_early; ///< told before there was a place for it
    QString m_savingFolder;
};
