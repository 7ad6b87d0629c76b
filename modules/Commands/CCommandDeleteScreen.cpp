#include "CCommandDeleteScreen.h"

#include "CRemovedItems.h"
#include "CScreenModel.h"
#include "RowOperations.h"
#include "ShownText.h"

#include <QStandardItemModel>

CCommandDeleteScreen::CCommandDeleteScreen(CScreenModel *screen, QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Delete %1").arg(ShownText::name(screen->text())), parent),
      m_project(screen->model()),
      m_row(screen->row())
{
    Q_ASSERT(m_project);
}

void CCommandDeleteScreen::redo()
{
    m_screen = RowOperations::take(m_project->invisibleRootItem(), m_row);
    CRemovedItems::of(m_project).keep(m_screen);
}

void CCommandDeleteScreen::undo()
{
    CRemovedItems::of(m_project).release(m_screen);
    RowOperations::insert(m_project->invisibleRootItem(), m_row, m_screen);
    m_screen = nullptr;
}
