#pragma once

#include "CShortcutWatch.h"
#include "ItemOperations.h"

#include <QCoreApplication>

class CMainPanels;
class CMenuBar;
class CSelectionCommands;
class QMainWindow;

/// The commands of the Edit menu. Who has the focus decides what the clipboard, Delete and Select
/// All are for: a text has them for itself, in the property panel they are for the editor (keys
/// without one for nothing), and everywhere else for what is selected in the project, on whatever
/// page.
class CEditCommands
{
    Q_DECLARE_TR_FUNCTIONS(CMainWindow)

public:
    /// Neither is owned.
    CEditCommands(QMainWindow *window, CMainPanels *panels) : m_window(window), m_panels(panels) {}

    /// To be told which of the commands below come from their keys.
    void watchKeysOf(const CMenuBar &menus);

    void cut();
    void copy();
    /// Onto the page that is shown; whole pages behind all others.
    void paste();
    /// To where it was copied, without stepping aside.
    void pasteInPlace();
    void duplicate();
    void remove();
    void selectAll();
    void selectNone();
    void selectInverse();
    void lock();
    void hide(); ///< or show again what is hidden
    /// All that is hidden on the page that is shown.
    void showHidden();
    void order(ItemOperations::EOrder where);
    /// The commands for the canvas that is shown, if any.
    void runOnView(void (CSelectionCommands::*command)());

private:
    enum class EText { Cut, Copy, Paste, Duplicate, Delete, SelectAll, SelectNone, SelectInverse };

    bool isForFocused(EText what) const;
    ItemOperations::Items items() const;
    ItemOperations::Items itemsOfPages() const;
    bool arePagesSelected() const;

    QMainWindow *const m_window;
    CMainPanels *const m_panels;
    CShortcutWatch m_keys;
};
