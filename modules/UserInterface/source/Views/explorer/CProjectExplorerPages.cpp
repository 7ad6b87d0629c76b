// The explorer's context menu: whole screens through the clipboard and page files.
#include "CPageOperations.h"
#include "CProjectExplorerView.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "FileNames.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>

namespace {

CPageOperations::Screens readOnly(const QVector<CScreenModel *> &screens)
{
    return CPageOperations::Screens(screens.begin(), screens.end());
}

} // namespace

QMenu *CProjectExplorerView::makeContextMenu(QWidget *parent)
{
    auto *menu = new QMenu(parent);
    const auto add = [this, menu](const QString &text, void (CProjectExplorerView::*slot)(),
                                  bool enabled) {
        menu->addAction(text, this, slot)->setEnabled(enabled);
    };
    const bool hasScreens = !selectedScreens().isEmpty();
    const bool canPaste =
        m_project && CPageOperations::canPaste(QGuiApplication::clipboard()->mimeData());
    add(tr("Cut Page"), &CProjectExplorerView::cut, hasScreens);
    add(tr("Copy Page"), &CProjectExplorerView::copy, hasScreens);
    add(tr("Paste Page"), &CProjectExplorerView::paste, canPaste);
    add(tr("Save Page"), &CProjectExplorerView::saveScreen, hasScreens);
    add(tr("Load Page"), &CProjectExplorerView::loadScreen, m_project != nullptr);
    return menu;
}

void CProjectExplorerView::showContextMenu(QPoint position)
{
    QMenu *menu = makeContextMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(viewport()->mapToGlobal(position));
}

void CProjectExplorerView::cut()
{
    const QVector<CScreenModel *> screens = selectedScreens();
    if (!m_project || screens.isEmpty())
        return;
    QString error;
    toClipboard(CPageOperations(m_project).cut(screens, &error), error);
}

void CProjectExplorerView::copy()
{
    const QVector<CScreenModel *> screens = selectedScreens();
    if (screens.isEmpty())
        return;
    QString error;
    toClipboard(CPageOperations::copy(readOnly(screens), &error), error);
}

void CProjectExplorerView::toClipboard(QMimeData *pages, const QString &error)
{
    if (pages)
        QGuiApplication::clipboard()->setMimeData(pages);
    else
        Q_EMIT message(error);
}

void CProjectExplorerView::paste()
{
    if (!m_project)
        return;
    const int before = m_project->rowCount();
    const QString error =
        CPageOperations(m_project).paste(QGuiApplication::clipboard()->mimeData());
    if (!error.isEmpty())
        Q_EMIT message(error);
    selectPagesFrom(before);
}

/// What was just added is behind all others, often out of sight; the last one is shown.
void CProjectExplorerView::selectPagesFrom(int row)
{
    const int last = m_project->rowCount() - 1;
    if (row > last)
        return;
    const QItemSelection added(m_project->index(row, 0), m_project->index(last, 0));
    selectionModel()->setCurrentIndex(m_project->index(last, 0), QItemSelectionModel::NoUpdate);
    selectionModel()->select(added, QItemSelectionModel::ClearAndSelect);
    Q_EMIT screenActivated(m_project->screen(last));
}

void CProjectExplorerView::saveScreen()
{
    const QVector<CScreenModel *> screens = selectedScreens();
    if (screens.isEmpty())
        return;
    const QString proposed = FileNames::safe(screens.first()->name(), QStringLiteral(".page"));
    const QString path = askForPageFile(QFileDialog::AcceptSave, proposed);
    if (path.isEmpty())
        return;
    const QString error = CPageOperations::save(readOnly(screens), path);
    if (!error.isEmpty())
        Q_EMIT message(error);
}

void CProjectExplorerView::loadScreen()
{
    if (!m_project)
        return;
    const QString path = askForPageFile(QFileDialog::AcceptOpen);
    if (path.isEmpty() || !m_project)
        return;
    const int before = m_project->rowCount();
    const QString error = CPageOperations(m_project).load(path);
    if (!error.isEmpty())
        Q_EMIT message(error);
    selectPagesFrom(before);
}

QString CProjectExplorerView::askForPageFile(QFileDialog::AcceptMode mode, const QString &proposed)
{
    const bool isForSaving = mode == QFileDialog::AcceptSave;
    QFileDialog dialog(this, isForSaving ? tr("Save Page") : tr("Load Page"),
                       m_project->workingDirectory());
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(isForSaving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setViewMode(QFileDialog::Detail);
    dialog.setNameFilter(tr("Project Files (*.xml *.page)"));
    dialog.setDefaultSuffix(QStringLiteral("page"));
    if (!proposed.isEmpty())
        dialog.selectFile(proposed);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}
