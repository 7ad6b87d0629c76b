#include "CMenuBar.h"

#include "CEditorState.h"
#include "CGridComboWidget.h"
#include "CMainWindow.h"
#include "CMenuBarTables.h"
#include "CRecentProjects.h"
#include "CScreenView.h"
#include "CThemeIcons.h"
#include "CZoomComboWidget.h"
#include "ShownText.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <QMetaEnum>
#include <QToolBar>
#include <QUndoGroup>

using namespace MenuBarTables;

CMenuBar::CMenuBar(CMainWindow *window)
    : QObject(window),
      m_window(window),
      m_bar(window->menuBar()),
      m_zoomWidget(new CZoomComboWidget(window)),
      m_gridWidget(new CGridComboWidget(window))
{
    makeActions();
    makeMenus();
    makeToolBar();
    connectWindow();
    retranslate();
    updateRecentSubMenu();
}

CMenuBar::~CMenuBar() = default;

void CMenuBar::makeActions()
{
    for (int id = 0; id < ActionCount; ++id)
        m_actions[size_t(id)] = makeAction(id);
    m_themeGroup = new QActionGroup(this);
    m_themeGroup->addAction(m_actions[Dark]);
    m_themeGroup->addAction(m_actions[Light]);
    m_themeGroup->addAction(m_actions[Bright]);
}

QAction *CMenuBar::makeAction(int id)
{
    const SAction &row = actions()[size_t(id)];
    Q_ASSERT(row.id == id);
    const QUndoGroup *undo = m_window->undoGroup();
    QAction *action = id == Undo   ? undo->createUndoAction(m_window, tr(row.text))
                      : id == Redo ? undo->createRedoAction(m_window, tr(row.text))
                                   : new QAction(m_window);
    action->setObjectName(QString::fromLatin1(QMetaEnum::fromType<EAction>().valueToKey(row.id)));
    if (row.icon)
        action->setIcon(CThemeIcons::icon(QStringLiteral(":/images/%1.png").arg(row.icon)));
    action->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(row.keys)));
    action->setCheckable(row.check != ECheck::None);
    action->setChecked(row.check == ECheck::On);
    if (const auto trigger = row.trigger)
        connect(action, &QAction::triggered, this, [this, trigger] { trigger(*m_window, *this); });
    return action;
}

void CMenuBar::makeMenus()
{
    for (const SMenu &each : menus())
        m_menus[each.id] = new QMenu(m_window);
    for (const SMenu &each : menus()) {
        if (each.isTopLevel)
            m_bar->addMenu(m_menus[each.id]);
        fillMenu(each.id);
    }
}

void CMenuBar::fillMenu(int id)
{
    for (const SEntry &entry : menus()[size_t(id)].entries) {
        if (entry.menu != MenuCount)
            m_menus[size_t(id)]->addMenu(m_menus[entry.menu]);
        else if (entry.action == Separator)
            m_menus[size_t(id)]->addSeparator();
        else
            m_menus[size_t(id)]->addAction(m_actions[entry.action]);
    }
}

void CMenuBar::makeToolBar()
{
    m_toolBar = new QToolBar(m_window);
    m_toolBar->setObjectName(QStringLiteral("Toolbar"));
    for (QWidget *each :
         {static_cast<QWidget *>(m_zoomWidget), static_cast<QWidget *>(m_gridWidget)})
        each->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    const auto add = [this](std::initializer_list<EAction> ids) {
        for (const EAction id : ids)
            m_toolBar->addAction(m_actions[id]);
    };
    add({New, Open, CloseProject, SaveProject, SaveAs, NewPage});
    m_toolBar->addSeparator();
    add({Cut, Copy, Paste, Undo, Redo});
    m_toolBar->addWidget(m_zoomWidget);
    m_toolBar->addSeparator();
    m_toolBar->addWidget(m_gridWidget);
    m_toolBar->addSeparator();
    add({Help});
    m_window->addToolBar(m_toolBar);
}

void CMenuBar::connectWindow()
{
    connect(m_window, &CMainWindow::setZoom, m_zoomWidget, &CZoomComboWidget::setZoom);
    connect(m_zoomWidget, &CZoomComboWidget::zoomChanged, m_window, &CMainWindow::zoomChanged);
    connect(m_window, &CMainWindow::setGrid, m_gridWidget, &CGridComboWidget::setGrid);
    connect(m_gridWidget, &CGridComboWidget::gridChanged, m_window, &CMainWindow::gridChanged);
    connect(m_gridWidget, &CGridComboWidget::gridChanged, this, &CMenuBar::updateGridMenu);
    connect(m_menus[RecentMenu], &QMenu::triggered, m_window, &CMainWindow::openRecent);
    connect(m_window, &CMainWindow::listRecentProjectsUpdated, this,
            &CMenuBar::updateRecentSubMenu);
    connect(m_actions[SnapToGrid], &QAction::triggered, this, &CMenuBar::setSnapToGrid);
    const CEditorState *state = CEditorState::instance();
    connect(state, &CEditorState::snapToGridChanged, m_actions[SnapToGrid], &QAction::setChecked);
    m_actions[SnapToGrid]->setChecked(state->isSnapToGrid());
    // By the wheel over a canvas, the zoom before, and a jump to what lies beside the page.
    connect(state, &CEditorState::zoomChanged, m_zoomWidget, [this](int percent, int type) {
        if (percent != m_zoomWidget->zoomPercent() || type != m_zoomWidget->zoomType())
            m_zoomWidget->setZoom(percent, type);
    });
    // Choosing what is chosen already changes nothing, so nothing tells its mark to stay.
    for (const EAction id : {ZoomReset, FitToPage, FitToWidth})
        connect(m_actions[id], &QAction::triggered, this,
                [this] { updateZoomMenu(m_zoomWidget->zoomPercent(), m_zoomWidget->zoomType()); });
    connect(m_window, &CMainWindow::projectLoaded, this, [this] { setProjectOpen(true); });
    connect(m_window, &CMainWindow::projectClosed, this, [this] { setProjectOpen(false); });
    setProjectOpen(false);
    m_actions[Revert]->setEnabled(false);
    const QUndoGroup *undo = m_window->undoGroup();
    connect(undo, &QUndoGroup::undoTextChanged, this, &CMenuBar::updateUndoTexts);
    connect(undo, &QUndoGroup::redoTextChanged, this, &CMenuBar::updateUndoTexts);
}

void CMenuBar::retranslate()
{
    for (const SAction &row : actions()) {
        m_actions[row.id]->setText(tr(row.text));
        m_actions[row.id]->setIconText(plain(tr(row.text)));
        m_actions[row.id]->setToolTip(plain(tr(row.text)));
        if (row.tip)
            m_actions[row.id]->setStatusTip(tr(row.tip));
    }
    for (const SMenu &each : menus())
        m_menus[each.id]->setTitle(tr(each.title));
    m_toolBar->setWindowTitle(tr("Toolbar"));
    m_zoomWidget->retranslate();
    m_gridWidget->retranslate();
    updateUndoTexts();
}

/// The actions keep the words that they were made with; these are the ones of the language in
/// force.
void CMenuBar::updateUndoTexts()
{
    const QUndoGroup *undo = m_window->undoGroup();
    const auto show = [this](EAction id, const QString &command) {
        const QString verb = tr(actions()[id].text);
        const auto with = [&command](const QString &text, const QString &shown) {
            return command.isEmpty() ? text : text + QLatin1Char(' ') + shown;
        };
        m_actions[id]->setText(with(verb, ShownText::label(command)));
        m_actions[id]->setToolTip(with(plain(verb), command));
    };
    show(Undo, undo->undoText());
    show(Redo, undo->redoText());
}

void CMenuBar::setChecked(EAction id, bool checked)
{
    m_actions[id]->setChecked(checked);
}

void CMenuBar::setUnsaved(bool isUnsaved)
{
    const QString picture = QStringLiteral(":/images/%1.png").arg(actions()[SaveProject].icon);
    QAction *save = m_actions[SaveProject];
    save->setIcon(isUnsaved ? CThemeIcons::marked(picture) : CThemeIcons::icon(picture));
    const QString text = plain(tr(actions()[SaveProject].text));
    save->setToolTip(isUnsaved ? tr("%1 (there are unsaved changes)").arg(text) : text);
}

void CMenuBar::setProjectOpen(bool isOpen)
{
    for (int id = CloseProject; id <= Ungroup; ++id) {
        if (id != Exit && id != Undo && id != Redo) // the latter two follow their stack
            m_actions[size_t(id)]->setEnabled(isOpen);
    }
    for (const EAction id : {Fonts, PasteInPlace, Duplicate, ZoomSelection})
        m_actions[id]->setEnabled(isOpen);
}

void CMenuBar::setSnapToGrid()
{
    m_window->setSnapToGrid(m_actions[SnapToGrid]->isChecked());
}

QString CMenuBar::shortened(const QString &fileName)
{
    constexpr int half = MaxNameLength / 2;
    if (fileName.size() <= MaxNameLength)
        return fileName;
    return fileName.left(half) + QStringLiteral("...") + fileName.right(half);
}

void CMenuBar::updateRecentSubMenu()
{
    for (QAction *each : qAsConst(m_recentActions)) {
        m_menus[RecentMenu]->removeAction(each);
        each->deleteLater(); // the one that opens a project is still at it
    }
    m_recentActions.clear();
    for (const QFileInfo &each : m_window->recentProjects()->entries()) {
        // A mnemonic is not meant where a file name holds an ampersand.
        auto *action = new QAction(ShownText::label(shortened(each.fileName())), m_window);
        action->setWhatsThis(each.absoluteFilePath());
        action->setStatusTip(ShownText::name(each.absoluteFilePath()));
        m_recentActions.append(action);
        m_menus[RecentMenu]->addAction(action);
    }
    m_menus[RecentMenu]->setEnabled(!m_recentActions.isEmpty());
}

void CMenuBar::updateZoomMenu(int percent, int type)
{
    setChecked(ZoomReset, type == CZoomComboWidget::FreeValue && percent == 100);
    setChecked(FitToPage, type == CZoomComboWidget::FitToPage);
    setChecked(FitToWidth, type == CZoomComboWidget::FitToWidth);
}

void CMenuBar::updateGridMenu(bool on, int, QColor, Qt::PenStyle)
{
    setChecked(GridToggle, on);
}

void CMenuBar::complete(QMenu *contextMenu) const
{
    const auto ids = QMetaEnum::fromType<EAction>();
    for (QAction *entry : contextMenu->actions()) {
        bool isKnown = false;
        const int id = ids.keyToValue(entry->objectName().toLatin1().constData(), &isKnown);
        if (isKnown)
            entry->setShortcut(m_actions[size_t(id)]->shortcut());
    }
    // What the entries know of what is selected holds for the menus below them, too, for as long as
    // the context menu is there. The menu bar cannot tell: its actions are for texts as well.
    const auto follow = [this, contextMenu](EAction id, const char *entry) {
        const auto *known = contextMenu->findChild<QAction *>(QLatin1String(entry));
        action(id)->setEnabled(known && known->isEnabled());
        connect(contextMenu, &QObject::destroyed, action(id),
                [this, id] { action(id)->setEnabled(m_window->project() != nullptr); });
    };
    follow(Cut, "Cut");
    follow(Copy, "Copy");
    follow(Paste, "Paste");
    follow(PasteInPlace, "Paste");
    follow(Duplicate, "Duplicate");
    follow(Delete, "Cut");
    follow(ZoomSelection, "Copy");
    const auto *view = qobject_cast<CScreenView *>(contextMenu->parentWidget());
    action(ZoomPrevious)->setEnabled(!view || view->hasPreviousZoom());
    connect(contextMenu, &QObject::destroyed, action(ZoomPrevious),
            [this] { action(ZoomPrevious)->setEnabled(true); });
    contextMenu->addSeparator();
    contextMenu->addAction(action(Delete));
    contextMenu->addMenu(menu(ArrangeMenu));
    contextMenu->addMenu(menu(ClipboardMenu));
    contextMenu->addMenu(menu(ZoomMenu));
}
