#pragma once

#include "IUserQuestions.h"

#include <QStringList>

#include <functional>

/// Answers as the test has set it, and writes down what it was asked and told.
class CScriptedUser final : public IUserQuestions
{
public:
    EClose closeAnswer = EClose::Cancel;
    EOverwrite overwriteAnswer = EOverwrite::Cancel;
    bool takeOverAnswer = false;
    bool saveElsewhereAnswer = false;
    bool openSavedAnswer = false;
    bool revertAnswer = false;
    bool forgetAnswer = false;
    QString openPath;
    QString savePath;
    std::optional<ProjectOptions> newOptions;

    QStringList asked; ///< names of the questions, in order
    QStringList errors;
    QStringList reasons;
    QStringList notices;
    std::function<void()> meanwhile; ///< is done while a question stands
    QString offeredFolder;           ///< of the last file dialog
    QString offeredName;

    EClose saveBeforeClosing() override { return note("close"), closeAnswer; }
    bool takeOverLock(const QString &) override { return note("takeover"), takeOverAnswer; }
    EOverwrite overwriteChanged(const QString &) override
    {
        return note("overwrite"), overwriteAnswer;
    }
    bool saveElsewhere(const QString &) override { return note("elsewhere"), saveElsewhereAnswer; }
    bool openSavedVersion(const QString &) override { return note("autosaved"), openSavedAnswer; }
    bool revert(const QString &) override { return note("revert"), revertAnswer; }
    bool forgetLeftWork(const QString &) override { return note("forget"), forgetAnswer; }
    QString projectToOpen(const QString &folder) override
    {
        note("open");
        offeredFolder = folder;
        return openPath;
    }
    QString projectToSave(const QString &folder, const QString &name) override
    {
        note("saveas");
        offeredFolder = folder;
        offeredName = name;
        return savePath;
    }
    std::optional<ProjectOptions> newProject() override { return note("new"), newOptions; }
    void showError(const QString &text, const QString &reason) override
    {
        errors.append(text);
        reasons.append(reason);
    }
    void showAutosaveError(const QString &text, const QString &reason) override
    {
        showError(text, reason);
    }
    void showNotice(const QString &text) override { notices.append(text); }

private:
    void note(const char *question)
    {
        asked.append(QLatin1String(question));
        if (meanwhile)
            meanwhile();
    }
};
