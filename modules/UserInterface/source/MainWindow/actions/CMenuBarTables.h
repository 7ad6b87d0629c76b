#pragma once

#include "CMenuBar.h"

#include <vector>

/// What CMenuBar makes its actions, menus and tool bar from.
namespace MenuBarTables {
enum class ECheck : char { None, Off, On };

struct SAction
{
    CMenuBar::EAction id;
    const char *text;
    const char *icon; ///< name of a picture below ":/images/", or null
    const char *tip;  ///< or null
    /// Separated by "; ", the one that the menu shows first; or null. Spelt out: what a system
    /// binds to a standard key may have company, like a second key that deletes.
    const char *keys;
    ECheck check;
    void (*trigger)(CMainWindow &window, const CMenuBar &bar); ///< or null
};

/// One entry of a menu: an action, a separator, or a sub-menu.
struct SEntry
{
    SEntry(CMenuBar::EAction entry) : action(entry) {}
    SEntry(CMenuBar::EMenu entry) : menu(entry) {}
    CMenuBar::EAction action = CMenuBar::Separator;
    CMenuBar::EMenu menu = CMenuBar::MenuCount; ///< MenuCount: no sub-menu
};

struct SMenu
{
    CMenuBar::EMenu id;
    const char *title;
    bool isTopLevel;
    std::vector<SEntry> entries;
};

const std::vector<SAction> &actions(); ///< in the order of EAction
const std::vector<SMenu> &menus();     ///< in the order of EMenu

/// Without the marks of mnemonics, which stand in brackets behind texts of languages that have no
/// letters for them.
QString plain(QString text);
} // namespace MenuBarTables
