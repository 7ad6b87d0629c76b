#include "CPropertyRows.h"

#include "CPropertyDelegate.h"
#include "CPropertyEditorFactory.h"
#include "CPropertyLayout.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTreeWidget>
#include <QtTreePropertyBrowser>

namespace {
constexpr int ValueColumn = 1;
constexpr int Still = 2; // pixels that a click may move
} // namespace

CPropertyRows::CPropertyRows(QtTreePropertyBrowser *browser, CPropertyEditorFactory *factory,
                             CPropertyDelegate *delegate, const CPropertyLayout *layout)
    : QObject(browser),
      m_browser(browser),
      m_factory(factory),
      m_delegate(delegate),
      m_layout(layout),
      m_tree(browser->findChild<QTreeWidget *>())
{
    m_tree->viewport()->installEventFilter(this);
    m_tree->installEventFilter(this);
    connect(factory, &CPropertyEditorFactory::nextWanted, this, &CPropertyRows::goOn);
}

bool CPropertyRows::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_tree) {
        if (event->type() == QEvent::KeyPress)
            m_delegate->setPart(0); // a row that keys open begins with its first value
        return false;
    }
    if (event->type() == QEvent::MouseButtonPress) {
        const auto &press = *static_cast<QMouseEvent *>(event);
        pressed(press);
        // A letter is held for a drag; its editor opens when it is let go.
        if (press.button() == Qt::LeftButton && m_delegate->letterAt(press.pos()) >= 0)
            return true;
    }
    if (event->type() == QEvent::MouseButtonRelease)
        released(*static_cast<QMouseEvent *>(event));
    return QObject::eventFilter(watched, event);
}

void CPropertyRows::pressed(const QMouseEvent &event)
{
    const QModelIndex index = m_tree->indexAt(event.pos());
    const bool opens = event.button() == Qt::LeftButton && index.column() == ValueColumn;
    m_pressed = opens ? index : QModelIndex();
    m_pressedAt = event.pos();
    if (const QTreeWidgetItem *item = m_tree->itemAt(event.pos()))
        m_delegate->setPart(m_delegate->partAt(item, event.pos()));
}

void CPropertyRows::released(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || !m_pressed.isValid() ||
        m_tree->indexAt(event.pos()) != m_pressed)
        return;
    m_pressed = QModelIndex();
    const int letter = m_delegate->letterAt(m_pressedAt);
    if (letter >= 0 && (event.pos() - m_pressedAt).manhattanLength() <= Still)
        edit(m_tree->itemAt(event.pos()), letter);
    QtProperty *current = m_delegate->currentProperty();
    if (letter < 0 && current)
        m_factory->use(current);
}

/// From the value that is edited, over rows without an editor.
void CPropertyRows::goOn(bool forward)
{
    QTreeWidgetItem *item = m_tree->currentItem();
    const int part = m_delegate->part();
    m_tree->setFocus(); // ends the edit; the next may be in the same row
    if (m_layout->pair(item) && forward == (part == 0) && edit(item, 1 - part))
        return;
    do {
        item = forward ? m_tree->itemBelow(item) : m_tree->itemAbove(item);
    } while (item && !edit(item, !forward && m_layout->pair(item) ? 1 : 0));
    if (item)
        return;
    QKeyEvent leave(QEvent::KeyPress, forward ? Qt::Key_Tab : Qt::Key_Backtab,
                    forward ? Qt::NoModifier : Qt::ShiftModifier);
    QCoreApplication::sendEvent(m_tree, &leave);
}

bool CPropertyRows::edit(QTreeWidgetItem *item, int part)
{
    if (!(item->flags() & Qt::ItemIsEnabled) || m_layout->isHeading(item))
        return false;
    m_tree->setCurrentItem(item, ValueColumn);
    const QtBrowserItem *current = m_browser->currentItem();
    if (!current || !current->property()->hasValue())
        return false;
    m_delegate->setPart(part);
    m_tree->editItem(item, ValueColumn);
    return true;
}
