#include "CEditCommands.h"

#include "CItemModel.h"
#include "CMainPanels.h"
#include "CMenuBar.h"
#include "CPageOperations.h"
#include "CProjectExplorerView.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenView.h"
#include "CSelectionCommands.h"
#include "ItemClipboard.h"
#include "ItemTree.h"

#include <QAbstractSpinBox>
#include <QClipboard>
#include <QDockWidget>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextEdit>

#include <algorithm>

namespace {
/// A line or a text: what has the focus, or is the text of what has it.
QWidget *textIn(QWidget *focused)
{
    if (qobject_cast<QAbstractSpinBox *>(focused))
        return focused->findChild<QLineEdit *>();
    const bool isText = qobject_cast<QLineEdit *>(focused) || qobject_cast<QTextEdit *>(focused) ||
                        qobject_cast<QPlainTextEdit *>(focused);
    return isText ? focused : nullptr;
}

void removeSelected(QWidget *text)
{
    if (auto *line = qobject_cast<QLineEdit *>(text)) {
        if (line->hasSelectedText() && !line->isReadOnly())
            line->del();
    } else if (auto *rich = qobject_cast<QTextEdit *>(text)) {
        if (!rich->isReadOnly())
            rich->textCursor().removeSelectedText();
    } else if (auto *plain = qobject_cast<QPlainTextEdit *>(text)) {
        if (!plain->isReadOnly())
            plain->textCursor().removeSelectedText();
    }
}

template<typename Edit>
void deselect(Edit *edit)
{
    QTextCursor cursor = edit->textCursor();
    cursor.clearSelection();
    edit->setTextCursor(cursor);
}

void deselectIn(QWidget *text)
{
    if (auto *line = qobject_cast<QLineEdit *>(text))
        line->deselect();
    else if (auto *rich = qobject_cast<QTextEdit *>(text))
        deselect(rich);
    else if (auto *plain = qobject_cast<QPlainTextEdit *>(text))
        deselect(plain);
}
} // namespace

void CEditCommands::watchKeysOf(const CMenuBar &menus)
{
    for (const CMenuBar::EAction each :
         {CMenuBar::Cut, CMenuBar::Copy, CMenuBar::Paste, CMenuBar::PasteInPlace,
          CMenuBar::Duplicate, CMenuBar::Delete, CMenuBar::SelectAll, CMenuBar::SelectNone,
          CMenuBar::SelectInverse})
        m_keys.watch(menus.action(each));
}

/// Whether it was for the text that has the focus, or for the panels that edit properties.
bool CEditCommands::isForFocused(EText what) const
{
    QWidget *const focused = m_window->focusWidget();
    QWidget *const text = textIn(focused);
    if (!text)
        return m_keys.isByKey() && focused &&
               (m_panels->propertiesDock()->isAncestorOf(focused) ||
                m_panels->batchDock()->isAncestorOf(focused));
    switch (what) { // slots of all three kinds of text; where one must not be written, they know
    case EText::Cut:
        QMetaObject::invokeMethod(text, "cut");
        break;
    case EText::Copy:
        QMetaObject::invokeMethod(text, "copy");
        break;
    case EText::Paste:
        QMetaObject::invokeMethod(text, "paste");
        break;
    case EText::SelectAll:
        QMetaObject::invokeMethod(text, "selectAll");
        break;
    case EText::Delete:
        removeSelected(text);
        break;
    case EText::SelectNone:
        deselectIn(text);
        break;
    case EText::SelectInverse:
    case EText::Duplicate:
        break; // a text has none, and what lies unseen behind it is not meant
    }
    return true;
}

ItemOperations::Items CEditCommands::items() const
{
    return ItemOperations::inOrder(m_panels->selectedItems().toVector());
}

bool CEditCommands::arePagesSelected() const
{
    const QList<CItemModel *> selected = m_panels->selectedItems();
    return std::any_of(selected.begin(), selected.end(), [](const CItemModel *each) {
        return each->kind() == CItemModel::Kind::Screen;
    });
}

void CEditCommands::copy()
{
    if (isForFocused(EText::Copy))
        return;
    if (arePagesSelected())
        m_panels->explorer()->copy();
    else if (QMimeData *copied = ItemClipboard::toMimeData(items()))
        QGuiApplication::clipboard()->setMimeData(copied);
}

void CEditCommands::cut()
{
    if (isForFocused(EText::Cut))
        return;
    if (arePagesSelected()) {
        m_panels->explorer()->cut();
        return;
    }
    ItemClipboard::cut(items());
}

/// What was copied last is pasted, widgets or pages.
void CEditCommands::paste()
{
    if (isForFocused(EText::Paste))
        return;
    if (!CPageOperations::canPaste(QGuiApplication::clipboard()->mimeData())) {
        runOnView(&CSelectionCommands::paste);
        return;
    }
    m_panels->explorer()->setFocus(); // the pages will be selected there
    m_panels->explorer()->paste();
}

void CEditCommands::pasteInPlace()
{
    if (!isForFocused(EText::Paste))
        runOnView(&CSelectionCommands::pasteInPlace);
}

void CEditCommands::duplicate()
{
    if (!isForFocused(EText::Duplicate))
        runOnView(&CSelectionCommands::duplicate);
}

void CEditCommands::remove()
{
    if (!isForFocused(EText::Delete))
        ItemOperations::remove(items(), tr("Delete Selected Items"));
}

void CEditCommands::selectAll()
{
    if (!isForFocused(EText::SelectAll))
        runOnView(&CSelectionCommands::selectAll);
}

void CEditCommands::selectNone()
{
    if (isForFocused(EText::SelectNone))
        return;
    const CScreenView *view = m_panels->screens()->currentView();
    if (!view || !view->commands()->leaveGroup()) // out of a group first
        m_panels->select({});
}

void CEditCommands::selectInverse()
{
    if (!isForFocused(EText::SelectInverse))
        runOnView(&CSelectionCommands::selectInverse);
}

/// Without pages themselves.
ItemOperations::Items CEditCommands::itemsOfPages() const
{
    ItemOperations::Items selected = items();
    const auto isScreen = [](const CItemModel *each) { return !each->parentItem(); };
    selected.erase(std::remove_if(selected.begin(), selected.end(), isScreen), selected.end());
    return selected;
}

void CEditCommands::lock()
{
    ItemOperations::toggleLock(itemsOfPages());
}

void CEditCommands::hide()
{
    ItemOperations::toggleHidden(itemsOfPages());
}

void CEditCommands::showHidden()
{
    ItemOperations::Items hidden;
    if (CScreenModel *page = m_panels->screens()->currentScreen())
        forEachItem(*page, [&hidden](CItemModel &each) {
            if (each.isHidden())
                hidden.append(&each);
        });
    ItemOperations::setHidden(hidden, false);
}

void CEditCommands::order(ItemOperations::EOrder where)
{
    ItemOperations::order(items(), where);
}

void CEditCommands::runOnView(void (CSelectionCommands::*command)())
{
    if (const CScreenView *view = m_panels->screens()->currentView())
        (view->commands()->*command)();
}
