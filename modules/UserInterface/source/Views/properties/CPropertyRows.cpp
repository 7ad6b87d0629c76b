#include "CPropertyRows.h"

#include "CPropertyEditorFactory.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTreeWidget>
#include <QtTreePropertyBrowser>

namespace {
constexpr int ValueColumn = 1;
} // namespace

CPropertyRows::CPropertyRows(QtTreePropertyBrowser *browser, CPropertyEditorFactory *factory)
    : QObject(browser),
      m_browser(browser),
      m_factory(factory),
      m_tree(browser->findChild<QTreeWidget *>())
{
    m_tree->viewport()->installEventFilter(this);
    connect(factory, &CPropertyEditorFactory::nextWanted, this, &CPropertyRows::goOn);
}

bool CPropertyRows::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress)
        pressed(*static_cast<QMouseEvent *>(event));
    else if (event->type() == QEvent::MouseButtonRelease)
        released(*static_cast<QMouseEvent *>(event));
    return QObject::eventFilter(watched, event);
}

void CPropertyRows::pressed(const QMouseEvent &event)
{
    const QModelIndex index = m_tree->indexAt(event.pos());
    const bool opens = event.button() == Qt::LeftButton && index.column() == ValueColumn;
    m_pressed = opens ? index : QModelIndex();
}

void CPropertyRows::released(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || !m_pressed.isValid() ||
        m_tree->indexAt(event.pos()) != m_pressed)
        return;
    m_pressed = QModelIndex();
    if (const QtBrowserItem *current = m_browser->currentItem())
        m_factory->use(current->property());
}

/// From the row that is edited, over those without an editor.
void CPropertyRows::goOn(bool forward)
{
    QTreeWidgetItem *item = m_tree->currentItem();
    do {
        item = forward ? m_tree->itemBelow(item) : m_tree->itemAbove(item);
    } while (item && !edit(item));
    if (item)
        return;
    m_tree->setFocus();
    QKeyEvent leave(QEvent::KeyPress, forward ? Qt::Key_Tab : Qt::Key_Backtab,
                    forward ? Qt::NoModifier : Qt::ShiftModifier);
    QCoreApplication::sendEvent(m_tree, &leave);
}

bool CPropertyRows::edit(QTreeWidgetItem *item)
{
    if (!(item->flags() & Qt::ItemIsEnabled))
        return false;
    m_tree->setCurrentItem(item, ValueColumn);
    const QtBrowserItem *current = m_browser->currentItem();
    if (!current || !current->property()->hasValue())
        return false;
    m_tree->editItem(item, ValueColumn);
    return true;
}
