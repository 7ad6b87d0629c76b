#include "CDialogQuestions.h"

#include "CConfigurationDialog.h"
#include "CErrorBox.h"
#include "CProjectFile.h"
#include "FileNames.h"
#include "ShownText.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace {
/// Names and paths are part of what it asks.
class CPlainBox final : public QMessageBox
{
public:
    CPlainBox(Icon icon, const QString &title, const QString &text, StandardButtons buttons,
              QWidget *window)
        : QMessageBox(icon, title, text, buttons, window)
    {
        setTextFormat(Qt::PlainText);
    }
};

QString shownPath(const QString &path)
{
    return ShownText::message(QDir::toNativeSeparators(path));
}
} // namespace

CDialogQuestions::CDialogQuestions(QWidget *window, CErrorBox *errors,
                                   const CPlatformTable *platforms)
    : m_window(window), m_errors(errors), m_platforms(platforms)
{
}

IUserQuestions::EClose CDialogQuestions::saveBeforeClosing()
{
    CPlainBox box(QMessageBox::Question, QString(),
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
    CPlainBox box(QMessageBox::Warning, tr("Project changed on disk"),
                  tr("%1 was changed by another program since it was opened here. Do you want "
                     "to replace those changes by yours?")
                      .arg(shownPath(projectFile)),
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
    CPlainBox box(QMessageBox::Warning, tr("Project taken over"),
                  tr("%1 was taken over by another instance of this application and cannot be "
                     "saved here. You can save your version under another name.")
                      .arg(shownPath(projectFile)),
                  QMessageBox::Cancel, m_window);
    QPushButton *saveAs = box.addButton(tr("Save As..."), QMessageBox::AcceptRole);
    box.setDefaultButton(saveAs);
    box.exec();
    return box.clickedButton() == saveAs;
}

bool CDialogQuestions::openSavedVersion(const QString &projectFile)
{
    CPlainBox box(QMessageBox::Question, tr("Automatically saved changes"),
                  tr("The program ended while %1 was open. The file holds changes that were saved "
                     "automatically after you had saved it last. Do you want to go back to the "
                     "version that you saved? With No, the project is opened as the file has it.")
                      .arg(shownPath(projectFile)),
                  QMessageBox::Yes | QMessageBox::No, m_window);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

bool CDialogQuestions::revert(const QString &projectFile)
{
    CPlainBox box(QMessageBox::Warning, tr("Revert"),
                  tr("Do you want to give up all changes since you last saved %1? This cannot be "
                     "undone: the list of steps to undo begins anew.")
                      .arg(shownPath(projectFile)),
                  QMessageBox::Cancel, m_window);
    const QAbstractButton *revert = box.addButton(tr("Revert"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == revert;
}

bool CDialogQuestions::forgetLeftWork(const QString &projectName)
{
    CPlainBox box(QMessageBox::Warning, tr("Unsaved work"),
                  tr("Do you want to delete the recovery copy of \"%1\"? What it holds was not "
                     "saved.")
                      .arg(ShownText::name(projectName)),
                  QMessageBox::Cancel, m_window);
    const QAbstractButton *remove = box.addButton(tr("Delete"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == remove;
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
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // it would ask about another name
    const QString offered = FileNames::safe(name);
    // The name of a folder would lead into it.
    const bool isFolder = QFileInfo(QDir(folder).filePath(offered)).isDir();
    dialog.selectFile(isFolder ? CProjectFile::withSuffix(offered) : offered);
    while (dialog.exec() == QDialog::Accepted) {
        const QString path = CProjectFile::withSuffix(dialog.selectedFiles().value(0));
        if (mayReplace(path))
            return path;
    }
    return {};
}

bool CDialogQuestions::mayReplace(const QString &path)
{
    if (!QFileInfo::exists(path))
        return true;
    CPlainBox box(QMessageBox::Warning, tr("Save As"),
                  tr("%1 already exists. Do you want to replace it?").arg(shownPath(path)),
                  QMessageBox::Yes | QMessageBox::No, m_window);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
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
    report(text, reason);
    m_errors->tell(text, reason);
}

void CDialogQuestions::showAutosaveError(const QString &text, const QString &reason)
{
    report(text, reason);
    m_errors->tellQuietly(text, reason);
}

void CDialogQuestions::report(const QString &text, const QString &reason)
{
    showNotice(text);
    if (!reason.isEmpty())
        showNotice(reason);
}

void CDialogQuestions::showNotice(const QString &text)
{
    if (m_report)
        m_report(text);
    else
        m_early.append(text);
}
