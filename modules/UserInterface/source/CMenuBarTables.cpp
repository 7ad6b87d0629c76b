#include "CMenuBarTables.h"

#include "CGridComboWidget.h"
#include "CMainWindow.h"
#include "CZoomComboWidget.h"

#include <QCoreApplication>

namespace MenuBarTables {
namespace {
using W = CMainWindow;
using B = const CMenuBar;
using K = QKeySequence;
constexpr auto NoKey = QKeySequence::UnknownKey;
constexpr auto No = ECheck::None;
constexpr auto Off = ECheck::Off;
constexpr auto On = ECheck::On;

// Marks a text for the translators.
#define T(text) QT_TRANSLATE_NOOP("CMenuBar", text)
} // namespace

// clang-format off
const std::vector<SAction> &actions()
{
    static const std::vector<SAction> table = {
        {CMenuBar::New, T("&New"), "newProject", T("Create a new project"), K::New, nullptr, No,
         [](W &w, B &) { w.newProject(); }},
        {CMenuBar::Open, T("&Open"), "openProject", T("Open an existing project"), K::Open, nullptr, No,
         [](W &w, B &) { w.openProject(); }},
        {CMenuBar::CloseProject, T("&Close Project"), "closeProject", T("Close current project"), K::Close, nullptr, No,
         [](W &w, B &) { w.closeProject(); }},
        {CMenuBar::SaveProject, T("&Save Project"), "Save", T("Save current project"), K::Save, nullptr, No,
         [](W &w, B &) { w.saveProject(); }},
        {CMenuBar::SaveAs, T("&Save As"), "saveAs", T("Save current project as..."), K::SaveAs, nullptr, No,
         [](W &w, B &) { w.saveProjectAs(); }},
        {CMenuBar::NewPage, T("&New Page"), "Add", T("Add a new page to the current project"), NoKey, nullptr, No,
         [](W &w, B &) { w.newTab(); }},
        {CMenuBar::ProjectToDL, T("&Project to DL"), "exportproj", T("Export project in DL format"), NoKey, nullptr, No,
         [](W &w, B &) { w.exportProjectDL(); }},
        {CMenuBar::PageToDL, T("&Page to DL"), "exporttab", T("Export page in DL format"), NoKey, nullptr, No,
         [](W &w, B &) { w.exportTabDL(); }},
        {CMenuBar::ProjectToBinary, T("&Project to Binary"), "exportprojbin", T("Export project in Binary format"), NoKey, nullptr, No,
         [](W &w, B &) { w.exportProjectBin(); }},
        {CMenuBar::PageToBinary, T("&Page to Binary"), "exportprojbin", T("Export page in Binary format"), NoKey, nullptr, No,
         [](W &w, B &) { w.exportScreenBin(); }},
        {CMenuBar::PrintScreen, T("&Print Screen"), "print", T("Print Screen"), K::Print, nullptr, No,
         [](W &w, B &) { w.printScreen(); }},
        {CMenuBar::Exit, T("&Exit"), "Exit", T("Exit"), K::Quit, nullptr, No,
         [](W &w, B &) { w.close(); }},
        {CMenuBar::BringToFront, T("&Bring to Front"), "bringfront", T("Bring to Front"), NoKey, nullptr, No,
         [](W &w, B &) { w.orderingToFront(); }},
        {CMenuBar::SendToBack, T("&Send to Back"), "sendback", T("Send to Back"), NoKey, nullptr, No,
         [](W &w, B &) { w.orderingToBack(); }},
        {CMenuBar::BringForward, T("&Bring Forward"), "bringfront", T("Bring Forward"), NoKey, nullptr, No,
         [](W &w, B &) { w.orderingForward(); }},
        {CMenuBar::SendBackward, T("&Send Backward"), "sendback", T("Send Backward"), NoKey, nullptr, No,
         [](W &w, B &) { w.orderingBackward(); }},
        {CMenuBar::Cut, T("&Cut"), "Cut", T("Cut"), K::Cut, nullptr, No,
         [](W &w, B &) { w.cut(); }},
        {CMenuBar::Copy, T("&Copy"), "Copy", T("Copy"), K::Copy, nullptr, No,
         [](W &w, B &) { w.copy(); }},
        {CMenuBar::Paste, T("&Paste"), "Paste", T("Paste"), K::Paste, nullptr, No,
         [](W &w, B &) { w.paste(); }},
        {CMenuBar::SelectAll, T("&All"), "Selection", T("Select All"), K::SelectAll, nullptr, No,
         [](W &w, B &) { w.selectAll(); }},
        {CMenuBar::SelectNone, T("&None"), "Clear", T("Select None"), K::Deselect, nullptr, No,
         [](W &w, B &) { w.selectNone(); }},
        {CMenuBar::SelectInverse, T("&Inverse"), "invert", T("Inverse Selection"), NoKey, "Ctrl+Shift+A", No,
         [](W &w, B &) { w.selectInverse(); }},
        {CMenuBar::Delete, T("&Delete"), "cut", T("Delete Selected Items"), K::Delete, nullptr, No,
         [](W &w, B &) { w.deleteSelectedItems(); }},
        {CMenuBar::LockUnlock, T("&Lock/Unlock"), "Lock", T("Lock/Unlock selected items"), NoKey, nullptr, No,
         [](W &w, B &) { w.lockItems(); }},
        {CMenuBar::Undo, T("&Undo"), "Undo", T("Undo"), K::Undo, nullptr, No, nullptr},
        {CMenuBar::Redo, T("&Redo"), "Redo", T("Redo"), K::Redo, nullptr, No, nullptr},
        {CMenuBar::Group, T("&Group Selected"), "Selection", T("Group selected objects together"), NoKey, nullptr, No,
         [](W &w, B &) { w.group(); }},
        {CMenuBar::Ungroup, T("&Ungroup"), "Clear", T("Ungroup selected objects"), NoKey, nullptr, No,
         [](W &w, B &) { w.ungroup(); }},
        {CMenuBar::Dark, T("&Dark"), nullptr, T("Change the theme to the Dark style"), NoKey, nullptr, On,
         [](W &w, B &) { w.darkStyle(); }},
        {CMenuBar::Light, T("&Light"), nullptr, T("Change the theme to the Light style"), NoKey, nullptr, Off,
         [](W &w, B &) { w.lightStyle(); }},
        {CMenuBar::ZoomReset, T("&Zoom (100%)"), nullptr, T("Zoom to pixel size 100%"), NoKey, nullptr, Off,
         [](W &, B &b) { b.zoomWidget()->resetZoom(); }},
        {CMenuBar::FitToPage, T("&Fit to Page"), nullptr, T("Fit to Page"), NoKey, nullptr, Off,
         [](W &, B &b) { b.zoomWidget()->zoomFitToPage(); }},
        {CMenuBar::FitToWidth, T("&Fit to Width"), nullptr, T("Fit to Width"), NoKey, nullptr, Off,
         [](W &, B &b) { b.zoomWidget()->zoomFitToWidth(); }},
        {CMenuBar::RulerSize, T("&Ruler Size..."), "Test line", T("Change ruler size"), NoKey, nullptr, No, nullptr},
        {CMenuBar::GridSize, T("&Grid Size..."), "grid", T("Change grid size"), NoKey, nullptr, No, nullptr},
        {CMenuBar::GridToggle, T("&Toggle"), nullptr, T("Toggle the grid on/off"), NoKey, nullptr, Off,
         [](W &, B &b) { b.gridWidget()->toggleGrid(); }},
        {CMenuBar::GridType, T("&Type"), "grid", T("Change the grid type"), NoKey, nullptr, No,
         [](W &, B &b) { b.gridWidget()->chooseType(); }},
        {CMenuBar::GridColour, T("&Colour"), "RGB", T("Change the grid colour"), NoKey, nullptr, No,
         [](W &, B &b) { b.gridWidget()->chooseColor(); }},
        {CMenuBar::OutputWindow, T("Output Window"), nullptr, nullptr, NoKey, nullptr, On,
         [](W &w, B &) { w.toggleOutputWindow(); }},
        {CMenuBar::StatusBar, T("Status Bar"), nullptr, nullptr, NoKey, nullptr, On,
         [](W &w, B &) { w.toggleStatusBar(); }},
        {CMenuBar::ProjectWindow, T("Project Window"), nullptr, nullptr, NoKey, nullptr, On,
         [](W &w, B &) { w.toggleProjectWindow(); }},
        {CMenuBar::PropertiesWindow, T("Properties Window"), nullptr, nullptr, NoKey, nullptr, On,
         [](W &w, B &) { w.togglePropertiesWindow(); }},
        {CMenuBar::LibraryWindow, T("Library Window"), nullptr, nullptr, NoKey, nullptr, On,
         [](W &w, B &) { w.toggleLibraryWindow(); }},
        {CMenuBar::Resolution, T("&Resolution"), "screenres", T("Change target screen resolution"), NoKey, nullptr, No, nullptr},
        {CMenuBar::Search, T("&Search"), "Search text", T("Search objects by text"), K::Find, nullptr, No, nullptr},
        {CMenuBar::SpellCheck, T("&Spell Check"), "Spell checking", T("Spell check"), NoKey, nullptr, Off, nullptr},
        {CMenuBar::SnapToGrid, T("&Snap to Grid"), nullptr, T("Toggle snap to grid on/off"), NoKey, nullptr, Off, nullptr},
        {CMenuBar::Options, T("&Options"), "Settings", T("Options"), NoKey, nullptr, No,
         [](W &w, B &) { w.showOptionDialog(); }},
        {CMenuBar::Language, T("&Language"), nullptr, T("Language"), NoKey, nullptr, No,
         [](W &w, B &) { w.showLanguageDialog(); }},
        {CMenuBar::Help, T("&Help"), "help", T("KIV Panel Composer Help"), K::HelpContents, nullptr, No,
         [](W &w, B &) { w.showHelp(); }},
        {CMenuBar::About, T("&About"), nullptr, T("About"), NoKey, nullptr, No,
         [](W &w, B &) { w.showAboutBox(); }},
        {CMenuBar::Updates, T("&Updates"), "Up", T("Check for updates"), NoKey, nullptr, No,
         [](W &w, B &) { w.showUpdateDialog(); }},
    };
    return table;
}

const std::vector<SMenu> &menus()
{
    using M = CMenuBar;
    static const std::vector<SMenu> table = {
        {M::FileMenu, T("&File"), true,
         {M::New, M::Open, M::RecentMenu, M::CloseProject, M::SaveProject, M::SaveAs, M::Separator,
          M::NewPage, M::ExportMenu, M::PrintScreen, M::Separator, M::Exit}},
        {M::EditMenu, T("&Edit"), true,
         {M::OrderMenu, M::ClipboardMenu, M::SelectMenu, M::Separator, M::Delete, M::LockUnlock,
          M::Separator, M::Undo, M::Redo, M::Separator, M::GroupingMenu}},
        {M::ViewMenu, T("&View"), true, {M::ThemeMenu, M::ZoomMenu, M::GridMenu, M::WindowsMenu}},
        {M::ToolsMenu, T("&Tools"), true, {M::SnapToGrid, M::Options, M::Language}},
        {M::HelpMenu, T("&Help"), true, {M::Help, M::About, M::Updates}},
        {M::RecentMenu, T("Recent"), false, {}},
        {M::ExportMenu, T("Export"), false, {M::ProjectToDL, M::PageToDL, M::ProjectToBinary, M::PageToBinary}},
        {M::OrderMenu, T("Order"), false, {M::BringToFront, M::SendToBack, M::BringForward, M::SendBackward}},
        {M::ClipboardMenu, T("Clipboard"), false, {M::Cut, M::Copy, M::Paste}},
        {M::SelectMenu, T("Select"), false, {M::SelectAll, M::SelectNone, M::SelectInverse}},
        {M::GroupingMenu, T("Grouping"), false, {M::Group, M::Ungroup}},
        {M::ThemeMenu, T("Theme"), false, {M::Dark, M::Light}},
        {M::ZoomMenu, T("Zoom"), false, {M::ZoomReset, M::FitToPage, M::FitToWidth}},
        {M::GridMenu, T("Grid"), false, {M::GridToggle, M::GridType, M::GridColour}},
        {M::WindowsMenu, T("Windows"), false,
         {M::ProjectWindow, M::LibraryWindow, M::PropertiesWindow, M::OutputWindow, M::StatusBar}},
    };
    return table;
}
// clang-format on
} // namespace MenuBarTables
