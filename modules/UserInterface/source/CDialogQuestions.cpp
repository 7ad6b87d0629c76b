#include "CDialogQuestions.h"

#include "CConfigurationDialog.h"
#include "FileNames.h"

#include <QDir>
#include <QErrorMessage>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

CDialogQuestions::CDialogQuestions(QWidget *window, QErrorMessage *errors,
                                   const CPlatformTable *platforms)
    : m_window(window), m_errors(errors), m_platforms(platforms)
{
}

IUserQuestions::EClose CDialogQuestions::saveBeforeClosing()
{
    QMessageBox box(QMessageBox::Question, QString(),
                    tr("Do you want to save the current project before closing it?"),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, m_window);
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        return EClose::Save;
    case QMessageBox::Discard:
        return EClose::Discard;
    default:
        return EClose::Cancel;
    }
}

bool CDialogQuestions::takeOverLock(const QString &)
{
    return QMessageBox::warning(
               m_window, tr("Project already open"),
               tr("The project is already open in another instance of this application. Are you "
                  "sure you want to continue?"),
               QMessageBox::Yes | QMessageBox::Abort, QMessageBox::Abort) == QMessageBox::Yes;
}

IUserQuestions::EOverwrite CDialogQuestions::overwriteChanged(const QString &projectFile)
{
    QMessageBox box(QMessageBox::Warning, tr("Project changed on disk"),
                    tr("%1 was changed by another program since it was opened here. Do you want "
                       "to replace those changes by yours?")
                        .arg(QDir::toNativeSeparators(projectFile)),
                    QMessageBox::Cancel, m_window);
    const QAbstractButton *overwrite = box.addButton(tr("Replace"), QMessageBox::DestructiveRole);
    QPushButton *saveAs = box.addButton(tr("Save As..."), QMessageBox::AcceptRole);
    box.setDefaultButton(saveAs);
    box.exec();
    return box.clickedButton() == overwrite ? EOverwrite::Overwrite
           : box.clickedButton() == saveAs  ? EOverwrite::SaveAs
                                            : EOverwrite::Cancel;
}

bool CDialogQuestions::saveElsewhere(const QString &projectFile)
{
    QMessageBox box(QMessageBox::Warning, tr("Project taken over"),
                    tr("%1 was taken over by another instance of this application and cannot be "
                       "saved here. You can save your version under another name.")
                        .arg(QDir::toNativeSeparators(projectFile)),
                    QMessageBox::Cancel, m_window);
    QPushButton *saveAs = box.addButton(tr("Save As..."), QMessageBox::AcceptRole);
    box.setDefaultButton(saveAs);
    box.exec();
    return box.clickedButton() == saveAs;
}

bool CDialogQuestions::openAutosaved(const QString &projectFile)
{
    return QMessageBox::question(
               m_window, tr("Automatically saved version"),
               tr("The program ended unexpectedly while %1 was open, and had saved changes "
                  "automatically. Do you want to open the version with these changes? With No, "
                  "the version that you saved last is opened. The file stays as it is until you "
                  "change or save the project.")
                   .arg(QDir::toNativeSeparators(projectFile)),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes) == QMessageBox::Yes;
}

QString CDialogQuestions::projectToOpen(const QString &folder)
{
    QFileDialog dialog(m_window, QString(), folder, tr("Project Files (*.xml *.nyx)"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setViewMode(QFileDialog::List);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString CDialogQuestions::projectToSave(const QString &folder, const QString &name)
{
    QFileDialog dialog(m_window, tr("Save As"), folder, tr("Project Files (*.xml *.nyx)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("nyx"));
    dialog.selectFile(FileNames::safe(name));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

std::optional<IUserQuestions::ProjectOptions> CDialogQuestions::newProject()
{
    // The dialog makes the project's folder the current one, against which the program's own data
    // files are meant.
    const QString current = QDir::currentPath();
    CConfigurationDialog dialog(*m_platforms, m_savingFolder, m_window);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    QDir::setCurrent(current);
    if (!accepted)
        return std::nullopt;
    return dialog.options();
}

void CDialogQuestions::setReport(Report report)
{
    m_report = std::move(report);
    for (const QString &each : qAsConst(m_early))
        m_report(each);
    m_early.clear();
}

void CDialogQuestions::showError(const QString &text, const QString &reason)
{
    showNotice(text);
    if (!reason.isEmpty())
        showNotice(reason);
    m_errors->showMessage(text);
}

void CDialogQuestions::showNotice(const QString &text)
{
    if (m_report)
        m_report(text);
    else
        m_early.append(text);
}
