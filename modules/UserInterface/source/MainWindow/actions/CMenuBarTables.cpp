#include "CMenuBarTables.h"

#include "CEditorState.h"
#include "CGridComboWidget.h"
#include "CMainWindow.h"
#include "CZoomComboWidget.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace MenuBarTables {
namespace {
using W = CMainWindow;
using B = const CMenuBar;
constexpr auto No = ECheck::None;
constexpr auto Off = ECheck::Off;
constexpr auto On = ECheck::On;
} // namespace

// clang-format off
const std::vector<SAction> &actions()
{
    static const std::vector<SAction> table = {
        {CMenuBar::New, QT_TRANSLATE_NOOP("CMenuBar", "&New"), "newProject", QT_TRANSLATE_NOOP("CMenuBar", "Create a new project"), "Ctrl+N", No,
         [](W &w, B &) { w.newProject(); }},
        {CMenuBar::Open, QT_TRANSLATE_NOOP("CMenuBar", "&Open"), "openProject", QT_TRANSLATE_NOOP("CMenuBar", "Open an existing project"), "Ctrl+O", No,
         [](W &w, B &) { w.openProject(); }},
        {CMenuBar::CloseProject, QT_TRANSLATE_NOOP("CMenuBar", "&Close Project"), "closeProject", QT_TRANSLATE_NOOP("CMenuBar", "Close current project"), "Ctrl+W", No,
         [](W &w, B &) { w.closeProject(); }},
        {CMenuBar::SaveProject, QT_TRANSLATE_NOOP("CMenuBar", "&Save Project"), "Save", QT_TRANSLATE_NOOP("CMenuBar", "Save current project"), "Ctrl+S", No,
         [](W &w, B &) { w.saveProject(); }},
        {CMenuBar::SaveAs, QT_TRANSLATE_NOOP("CMenuBar", "&Save As"), "saveAs", QT_TRANSLATE_NOOP("CMenuBar", "Save current project as..."), "Ctrl+Shift+S", No,
         [](W &w, B &) { w.saveProjectAs(); }},
        {CMenuBar::NewPage, QT_TRANSLATE_NOOP("CMenuBar", "&New Page"), "Add", QT_TRANSLATE_NOOP("CMenuBar", "Add a new page to the current project"), nullptr, No,
         [](W &w, B &) { w.newTab(); }},
        {CMenuBar::ProjectToDL, QT_TRANSLATE_NOOP("CMenuBar", "&Project to DL"), "exportproj", QT_TRANSLATE_NOOP("CMenuBar", "Export project in DL format"), nullptr, No,
         [](W &w, B &) { w.exportProjectDL(); }},
        {CMenuBar::PageToDL, QT_TRANSLATE_NOOP("CMenuBar", "&Page to DL"), "exporttab", QT_TRANSLATE_NOOP("CMenuBar", "Export page in DL format"), nullptr, No,
         [](W &w, B &) { w.exportTabDL(); }},
        {CMenuBar::ProjectToBinary, QT_TRANSLATE_NOOP("CMenuBar", "&Project to Binary"), "exportprojbin", QT_TRANSLATE_NOOP("CMenuBar", "Export project in Binary format"), nullptr, No,
         [](W &w, B &) { w.exportProjectBin(); }},
        {CMenuBar::PageToBinary, QT_TRANSLATE_NOOP("CMenuBar", "&Page to Binary"), "exportprojbin", QT_TRANSLATE_NOOP("CMenuBar", "Export page in Binary format"), nullptr, No,
         [](W &w, B &) { w.exportScreenBin(); }},
        {CMenuBar::ExportPackage, QT_TRANSLATE_NOOP("CMenuBar", "Export Pac&kage..."), "exportproj", QT_TRANSLATE_NOOP("CMenuBar", "Export all that a firmware needs to draw the pages"), nullptr, No,
         [](W &w, B &) { w.exportPackage(); }},
        {CMenuBar::PrintScreen, QT_TRANSLATE_NOOP("CMenuBar", "&Print Screen"), "print", QT_TRANSLATE_NOOP("CMenuBar", "Print Screen"), "Ctrl+P", No,
         [](W &w, B &) { w.printScreen(); }},
        {CMenuBar::Exit, QT_TRANSLATE_NOOP("CMenuBar", "&Exit"), "Exit", QT_TRANSLATE_NOOP("CMenuBar", "Exit"), "Ctrl+Q", No,
         [](W &w, B &) { w.close(); }},
        {CMenuBar::BringToFront, QT_TRANSLATE_NOOP("CMenuBar", "&Bring to Front"), "bringfront", QT_TRANSLATE_NOOP("CMenuBar", "Bring to Front"), "Ctrl+Shift+]", No,
         [](W &w, B &) { w.orderingToFront(); }},
        {CMenuBar::SendToBack, QT_TRANSLATE_NOOP("CMenuBar", "&Send to Back"), "sendback", QT_TRANSLATE_NOOP("CMenuBar", "Send to Back"), "Ctrl+Shift+[", No,
         [](W &w, B &) { w.orderingToBack(); }},
        {CMenuBar::BringForward, QT_TRANSLATE_NOOP("CMenuBar", "&Bring Forward"), "bringfront", QT_TRANSLATE_NOOP("CMenuBar", "Bring Forward"), "Ctrl+]", No,
         [](W &w, B &) { w.orderingForward(); }},
        {CMenuBar::SendBackward, QT_TRANSLATE_NOOP("CMenuBar", "&Send Backward"), "sendback", QT_TRANSLATE_NOOP("CMenuBar", "Send Backward"), "Ctrl+[", No,
         [](W &w, B &) { w.orderingBackward(); }},
        {CMenuBar::Cut, QT_TRANSLATE_NOOP("CMenuBar", "&Cut"), "Cut", QT_TRANSLATE_NOOP("CMenuBar", "Cut"), "Ctrl+X; Shift+Del", No,
         [](W &w, B &) { w.cut(); }},
        {CMenuBar::Copy, QT_TRANSLATE_NOOP("CMenuBar", "&Copy"), "Copy", QT_TRANSLATE_NOOP("CMenuBar", "Copy"), "Ctrl+C; Ctrl+Ins", No,
         [](W &w, B &) { w.copy(); }},
        {CMenuBar::Paste, QT_TRANSLATE_NOOP("CMenuBar", "&Paste"), "Paste", QT_TRANSLATE_NOOP("CMenuBar", "Paste"), "Ctrl+V; Shift+Ins", No,
         [](W &w, B &) { w.paste(); }},
        {CMenuBar::SelectAll, QT_TRANSLATE_NOOP("CMenuBar", "&All"), "Selection", QT_TRANSLATE_NOOP("CMenuBar", "Select All"), "Ctrl+A", No,
         [](W &w, B &) { w.selectAll(); }},
        {CMenuBar::SelectNone, QT_TRANSLATE_NOOP("CMenuBar", "&None"), "Clear", QT_TRANSLATE_NOOP("CMenuBar", "Select None"), "Esc", No,
         [](W &w, B &) { w.selectNone(); }},
        {CMenuBar::SelectInverse, QT_TRANSLATE_NOOP("CMenuBar", "&Inverse"), "invert", QT_TRANSLATE_NOOP("CMenuBar", "Inverse Selection"), "Ctrl+Shift+A", No,
         [](W &w, B &) { w.selectInverse(); }},
        {CMenuBar::Delete, QT_TRANSLATE_NOOP("CMenuBar", "&Delete"), "cut", QT_TRANSLATE_NOOP("CMenuBar", "Delete Selected Items"), "Del", No,
         [](W &w, B &) { w.deleteSelectedItems(); }},
        {CMenuBar::LockUnlock, QT_TRANSLATE_NOOP("CMenuBar", "&Lock/Unlock"), "Lock", QT_TRANSLATE_NOOP("CMenuBar", "Lock/Unlock selected items"), "Ctrl+L", No,
         [](W &w, B &) { w.lockItems(); }},
        {CMenuBar::Undo, QT_TRANSLATE_NOOP("CMenuBar", "&Undo"), "Undo", QT_TRANSLATE_NOOP("CMenuBar", "Undo"), "Ctrl+Z", No, nullptr},
        {CMenuBar::Redo, QT_TRANSLATE_NOOP("CMenuBar", "&Redo"), "Redo", QT_TRANSLATE_NOOP("CMenuBar", "Redo"), "Ctrl+Shift+Z; Ctrl+Y", No, nullptr},
        {CMenuBar::Group, QT_TRANSLATE_NOOP("CMenuBar", "&Group Selected"), "Selection", QT_TRANSLATE_NOOP("CMenuBar", "Group selected objects together"), "Ctrl+G", No,
         [](W &w, B &) { w.group(); }},
        {CMenuBar::Ungroup, QT_TRANSLATE_NOOP("CMenuBar", "&Ungroup"), "Clear", QT_TRANSLATE_NOOP("CMenuBar", "Ungroup selected objects"), "Ctrl+Shift+G", No,
         [](W &w, B &) { w.ungroup(); }},
        {CMenuBar::Dark, QT_TRANSLATE_NOOP("CMenuBar", "&Dark"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Change the theme to the Dark style"), nullptr, On,
         [](W &w, B &) { w.darkStyle(); }},
        {CMenuBar::Light, QT_TRANSLATE_NOOP("CMenuBar", "&Light"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Change the theme to the Light style"), nullptr, Off,
         [](W &w, B &) { w.lightStyle(); }},
        {CMenuBar::ZoomReset, QT_TRANSLATE_NOOP("CMenuBar", "&Zoom (100%)"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Zoom to pixel size 100%"), "Ctrl+0", Off,
         [](W &, B &b) { b.zoomWidget()->resetZoom(); }},
        {CMenuBar::FitToPage, QT_TRANSLATE_NOOP("CMenuBar", "&Fit to Page"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Fit to Page"), "Ctrl+1", Off,
         [](W &, B &b) { b.zoomWidget()->zoomFitToPage(); }},
        {CMenuBar::FitToWidth, QT_TRANSLATE_NOOP("CMenuBar", "&Fit to Width"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Fit to Width"), "Ctrl+2", Off,
         [](W &, B &b) { b.zoomWidget()->zoomFitToWidth(); }},
        {CMenuBar::RulerSize, QT_TRANSLATE_NOOP("CMenuBar", "&Ruler Size..."), "Test line", QT_TRANSLATE_NOOP("CMenuBar", "Change ruler size"), nullptr, No, nullptr},
        {CMenuBar::GridSize, QT_TRANSLATE_NOOP("CMenuBar", "&Grid Size..."), "grid", QT_TRANSLATE_NOOP("CMenuBar", "Change grid size"), nullptr, No, nullptr},
        {CMenuBar::GridToggle, QT_TRANSLATE_NOOP("CMenuBar", "&Toggle"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Toggle the grid on/off"), nullptr, Off,
         [](W &, B &b) { b.gridWidget()->toggleGrid(); }},
        {CMenuBar::GridType, QT_TRANSLATE_NOOP("CMenuBar", "&Type"), "grid", QT_TRANSLATE_NOOP("CMenuBar", "Change the grid type"), nullptr, No,
         [](W &, B &b) { b.gridWidget()->chooseType(); }},
        {CMenuBar::GridColour, QT_TRANSLATE_NOOP("CMenuBar", "&Colour"), "RGB", QT_TRANSLATE_NOOP("CMenuBar", "Change the grid colour"), nullptr, No,
         [](W &, B &b) { b.gridWidget()->chooseColor(); }},
        {CMenuBar::OutputWindow, QT_TRANSLATE_NOOP("CMenuBar", "Output Window"), nullptr, nullptr, nullptr, On,
         [](W &w, B &) { w.toggleOutputWindow(); }},
        {CMenuBar::StatusBar, QT_TRANSLATE_NOOP("CMenuBar", "Status Bar"), nullptr, nullptr, nullptr, On,
         [](W &w, B &) { w.toggleStatusBar(); }},
        {CMenuBar::ProjectWindow, QT_TRANSLATE_NOOP("CMenuBar", "Project Window"), nullptr, nullptr, nullptr, On,
         [](W &w, B &) { w.toggleProjectWindow(); }},
        {CMenuBar::PropertiesWindow, QT_TRANSLATE_NOOP("CMenuBar", "Properties Window"), nullptr, nullptr, nullptr, On,
         [](W &w, B &) { w.togglePropertiesWindow(); }},
        {CMenuBar::LibraryWindow, QT_TRANSLATE_NOOP("CMenuBar", "Library Window"), nullptr, nullptr, nullptr, On,
         [](W &w, B &) { w.toggleLibraryWindow(); }},
        {CMenuBar::Resolution, QT_TRANSLATE_NOOP("CMenuBar", "&Resolution"), "screenres", QT_TRANSLATE_NOOP("CMenuBar", "Change target screen resolution"), nullptr, No, nullptr},
        {CMenuBar::Search, QT_TRANSLATE_NOOP("CMenuBar", "&Search"), "Search text", QT_TRANSLATE_NOOP("CMenuBar", "Search objects by text"), "Ctrl+F", No, nullptr},
        {CMenuBar::SpellCheck, QT_TRANSLATE_NOOP("CMenuBar", "&Spell Check"), "Spell checking", QT_TRANSLATE_NOOP("CMenuBar", "Spell check"), nullptr, Off, nullptr},
        {CMenuBar::SnapToGrid, QT_TRANSLATE_NOOP("CMenuBar", "&Snap to Grid"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Toggle snap to grid on/off"), nullptr, Off, nullptr},
        {CMenuBar::Options, QT_TRANSLATE_NOOP("CMenuBar", "&Options"), "Settings", QT_TRANSLATE_NOOP("CMenuBar", "Options"), nullptr, No,
         [](W &w, B &) { w.showOptionDialog(); }},
        {CMenuBar::Language, QT_TRANSLATE_NOOP("CMenuBar", "&Language"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Language"), nullptr, No,
         [](W &w, B &) { w.showLanguageDialog(); }},
        {CMenuBar::Help, QT_TRANSLATE_NOOP("CMenuBar", "&Help"), "help", QT_TRANSLATE_NOOP("CMenuBar", "KIV Panel Composer Help"), "F1", No,
         [](W &w, B &) { w.showHelp(); }},
        {CMenuBar::About, QT_TRANSLATE_NOOP("CMenuBar", "&About"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "About"), nullptr, No,
         [](W &w, B &) { w.showAboutBox(); }},
        {CMenuBar::Updates, QT_TRANSLATE_NOOP("CMenuBar", "&Updates"), "Up", QT_TRANSLATE_NOOP("CMenuBar", "Check for updates"), nullptr, No,
         [](W &w, B &) { w.showUpdateDialog(); }},
        {CMenuBar::Revert, QT_TRANSLATE_NOOP("CMenuBar", "&Revert"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Go back to what you saved last"), nullptr, No,
         [](W &w, B &) { w.revertProject(); }},
        {CMenuBar::Fonts, QT_TRANSLATE_NOOP("CMenuBar", "&Fonts..."), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Add fonts of your own to the project"), nullptr, No,
         [](W &w, B &) { w.showFontsDialog(); }},
        {CMenuBar::PasteInPlace, QT_TRANSLATE_NOOP("CMenuBar", "Paste in P&lace"), "Paste", QT_TRANSLATE_NOOP("CMenuBar", "Paste to where it was copied"), "Ctrl+Shift+V", No,
         [](W &w, B &) { w.pasteInPlace(); }},
        {CMenuBar::Duplicate, QT_TRANSLATE_NOOP("CMenuBar", "&Duplicate"), "Copy", QT_TRANSLATE_NOOP("CMenuBar", "Copy the selected items beside themselves"), "Ctrl+D", No,
         [](W &w, B &) { w.duplicate(); }},
        {CMenuBar::ZoomSelection, QT_TRANSLATE_NOOP("CMenuBar", "Fit to &Selection"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Show the selected items as large as the view allows"), "Ctrl+3", No,
         [](W &w, B &) { w.zoomToSelection(); }},
        {CMenuBar::ZoomPrevious, QT_TRANSLATE_NOOP("CMenuBar", "&Previous"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Zoom and place as before the last change"), "Ctrl+4", No,
         [](W &w, B &) { w.zoomToPrevious(); }},
        {CMenuBar::HideShow, QT_TRANSLATE_NOOP("CMenuBar", "&Hide/Show"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Hide the selected items while editing, or show them again; they are exported all the same"), "Ctrl+Shift+H", No,
         [](W &w, B &) { w.hideItems(); }},
        {CMenuBar::ShowHidden, QT_TRANSLATE_NOOP("CMenuBar", "Sho&w All Hidden"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Show everything on this page that is hidden while editing"), nullptr, No,
         [](W &w, B &) { w.showHiddenItems(); }},
        {CMenuBar::Bright, QT_TRANSLATE_NOOP("CMenuBar", "&Bright"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Change the theme to the Bright style"), nullptr, Off,
         [](W &w, B &) { w.brightStyle(); }},
        {CMenuBar::BatchWindow, QT_TRANSLATE_NOOP("CMenuBar", "Batch Edit"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Change the properties of all selected items at once"), nullptr, On,
         [](W &w, B &) { w.toggleBatchWindow(); }},
        {CMenuBar::GridFaint, QT_TRANSLATE_NOOP("CMenuBar", "&Faint"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Draw the grid so that it hardly covers the page"), nullptr, Off,
         [](W &, B &) { CEditorState::instance()->setGridFaint(!CEditorState::instance()->isGridFaint()); }},
        {CMenuBar::Rename, QT_TRANSLATE_NOOP("CMenuBar", "Rena&me"), nullptr, QT_TRANSLATE_NOOP("CMenuBar", "Rename the selected item or page"), "F2", No,
         [](W &w, B &) { w.renameSelected(); }},
    };
    return table;
}

const std::vector<SMenu> &menus()
{
    using M = CMenuBar;
    static const std::vector<SMenu> table = {
        {M::FileMenu, QT_TRANSLATE_NOOP("CMenuBar", "&File"), true,
         {M::New, M::Open, M::RecentMenu, M::CloseProject, M::SaveProject, M::SaveAs, M::Revert,
          M::Separator, M::NewPage, M::ExportMenu, M::ExportPackage, M::PrintScreen, M::Separator, M::Exit}},
        {M::EditMenu, QT_TRANSLATE_NOOP("CMenuBar", "&Edit"), true,
         {M::OrderMenu, M::ClipboardMenu, M::SelectMenu, M::Separator, M::Delete, M::Rename, M::LockUnlock, M::HideShow, M::ShowHidden,
          M::Separator, M::Undo, M::Redo, M::Separator, M::GroupingMenu}},
        {M::ArrangeMenu, QT_TRANSLATE_NOOP("CMenuBar", "&Arrange"), true, {}},
        {M::ViewMenu, QT_TRANSLATE_NOOP("CMenuBar", "&View"), true, {M::ThemeMenu, M::ZoomMenu, M::GridMenu, M::WindowsMenu}},
        {M::ProjectMenu, QT_TRANSLATE_NOOP("CMenuBar", "&Project"), true, {M::Fonts}},
        {M::ToolsMenu, QT_TRANSLATE_NOOP("CMenuBar", "&Tools"), true, {M::SnapToGrid, M::Options, M::Language}},
        {M::HelpMenu, QT_TRANSLATE_NOOP("CMenuBar", "&Help"), true, {M::Help, M::About, M::Updates}},
        {M::RecentMenu, QT_TRANSLATE_NOOP("CMenuBar", "Recent"), false, {}},
        {M::ExportMenu, QT_TRANSLATE_NOOP("CMenuBar", "Export"), false, {M::ProjectToDL, M::PageToDL, M::ProjectToBinary, M::PageToBinary}},
        {M::OrderMenu, QT_TRANSLATE_NOOP("CMenuBar", "Order"), false, {M::BringToFront, M::SendToBack, M::BringForward, M::SendBackward}},
        {M::ClipboardMenu, QT_TRANSLATE_NOOP("CMenuBar", "Clipboard"), false, {M::Cut, M::Copy, M::Paste, M::Separator, M::PasteInPlace, M::Duplicate}},
        {M::SelectMenu, QT_TRANSLATE_NOOP("CMenuBar", "Select"), false, {M::SelectAll, M::SelectNone, M::SelectInverse}},
        {M::GroupingMenu, QT_TRANSLATE_NOOP("CMenuBar", "Grouping"), false, {M::Group, M::Ungroup}},
        {M::ThemeMenu, QT_TRANSLATE_NOOP("CMenuBar", "Theme"), false, {M::Dark, M::Light, M::Bright}},
        {M::ZoomMenu, QT_TRANSLATE_NOOP("CMenuBar", "Zoom"), false, {M::ZoomReset, M::FitToPage, M::FitToWidth, M::ZoomSelection, M::ZoomPrevious}},
        {M::GridMenu, QT_TRANSLATE_NOOP("CMenuBar", "Grid"), false, {M::GridToggle, M::GridType, M::GridColour, M::GridFaint}},
        {M::WindowsMenu, QT_TRANSLATE_NOOP("CMenuBar", "Windows"), false,
         {M::ProjectWindow, M::LibraryWindow, M::PropertiesWindow, M::OutputWindow, M::StatusBar, M::BatchWindow}},
    };
    return table;
}
// clang-format on

QString plain(QString text)
{
    static const QRegularExpression mark(QStringLiteral("\\(&\\w\\)|&"));
    return text.remove(mark);
}
} // namespace MenuBarTables
