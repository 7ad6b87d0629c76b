#include "CScreen.h"

#include "CCommandAddScreen.h"
#include "CCommandChangeItemProperty.h"
#include "CProjectModel.h"
#include "CScreenCompositeView.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "ItemNames.h"
#include "PropertyKey.h"
#include "ShownText.h"

#include <QEvent>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QTabBar>
#include <QUndoStack>

#include <algorithm>

namespace {
/// Tabs of long names leave room for others.
class CShortTabs final : public QTabBar
{
public:
    using QTabBar::QTabBar;

protected:
    QSize tabSizeHint(int index) const override
    {
        constexpr int Letters = 32; // of a medium width
        const QSize hint = QTabBar::tabSizeHint(index);
        return {std::min(hint.width(), fontMetrics().averageCharWidth() * Letters), hint.height()};
    }
};
} // namespace

CScreen::CScreen(QWidget *parent) : QTabWidget(parent), m_hint(new QLabel(this))
{
    auto *shortTabs = new CShortTabs(this);
    shortTabs->setObjectName(tabBar()->objectName());
    setTabBar(shortTabs);
    setObjectName(QStringLiteral("viewProjectWindow"));
    setDocumentMode(true);
    setTabsClosable(true);
    setMovable(true);
    setElideMode(Qt::ElideRight);
    m_hint->setObjectName(QStringLiteral("noScreenHint"));
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setForegroundRole(QPalette::PlaceholderText);
    m_hint->setAttribute(Qt::WA_TransparentForMouseEvents);
    tabBar()->setContextMenuPolicy(Qt::CustomContextMenu);
    tabBar()->installEventFilter(this);
    connect(tabBar(), &QWidget::customContextMenuRequested, this, &CScreen::showTabMenu);
    connect(tabBar(), &QTabBar::tabBarDoubleClicked, this, &CScreen::renameTab);
    connect(this, &QTabWidget::tabCloseRequested, this,
            [this](int index) { removePage(page(index)); });
    connect(this, &QTabWidget::currentChanged, this, &CScreen::currentTabChanged);
    updateHint();
}

CScreen::~CScreen()
{
    const QSignalBlocker quiet(this);
    clear();
}

void CScreen::setProject(CProjectModel *project)
{
    if (m_project)
        m_project->disconnect(this);
    clear();
    m_removedOpen.clear();
    m_project = project;
    if (project) {
        connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this,
                &CScreen::rowsAboutToBeRemoved);
        connect(project, &QAbstractItemModel::rowsInserted, this, &CScreen::rowsInserted);
        connect(project, &QAbstractItemModel::rowsRemoved, this, &CScreen::updateHint);
        connect(project, &QAbstractItemModel::modelAboutToBeReset, this, &CScreen::clear);
        connect(project, &CProjectModel::propertyChanged, this, &CScreen::propertyChanged);
    }
    updateHint();
}

CScreenCompositeView *CScreen::page(int index) const
{
    return static_cast<CScreenCompositeView *>(widget(index)); // every page is one
}

CScreenCompositeView *CScreen::pageOf(const QStandardItem *screen) const
{
    for (int index = 0; index < count(); ++index) {
        if (page(index)->screen() == screen)
            return page(index);
    }
    return nullptr;
}

CScreenView *CScreen::currentView() const
{
    const CScreenCompositeView *current = page(currentIndex());
    return current ? current->view() : nullptr;
}

CScreenModel *CScreen::currentScreen() const
{
    const CScreenCompositeView *current = page(currentIndex());
    return current ? current->screen() : nullptr;
}

CScreenView *CScreen::viewOf(const CScreenModel *screen) const
{
    const CScreenCompositeView *opened = pageOf(screen);
    return opened ? opened->view() : nullptr;
}

QString CScreen::currentErrors() const
{
    const CScreenCompositeView *current = page(currentIndex());
    return current ? current->errors() : QString();
}

QList<CItemModel *> CScreen::selectedItems() const
{
    const CScreenView *view = currentView();
    return view && view->screen() ? view->selectedItems().toList() : QList<CItemModel *>();
}

bool CScreen::isGestureActive() const
{
    const CScreenView *view = currentView();
    return view && view->isGestureActive();
}

void CScreen::openScreen(CScreenModel *screen)
{
    if (!screen || !m_project)
        return;
    CScreenCompositeView *opened = pageOf(screen);
    setCurrentWidget(opened ? opened : addPage(screen, count()));
}

void CScreen::openScreens(const QVector<CScreenModel *> &screens, CScreenModel *current)
{
    openScreen(current); // the first tab is shown as soon as it is there
    for (int index = 0; index < screens.size(); ++index) {
        if (m_project && !pageOf(screens.at(index)))
            addPage(screens.at(index), index);
    }
}

void CScreen::closeScreen(CScreenModel *screen)
{
    if (CScreenCompositeView *opened = pageOf(screen))
        removePage(opened);
}

CScreenCompositeView *CScreen::addPage(CScreenModel *screen, int index)
{
    auto *added = new CScreenCompositeView(screen, this);
    connectView(added);
    index = insertTab(index, added, QString());
    showName(index, *screen);
    return added;
}

void CScreen::showName(int index, const CItemModel &screen)
{
    setTabText(index, ShownText::label(screen.name()));
    setTabToolTip(index, screen.name());
}

void CScreen::connectView(CScreenCompositeView *page)
{
    CScreenView *view = page->view();
    connect(page, &CScreenCompositeView::renderErrors, this, &CScreen::renderErrors);
    connect(view, &CScreenView::message, this, &CScreen::message);
    connect(view, &CScreenView::menuAboutToShow, this, &CScreen::menuAboutToShow);
    connect(view, &CScreenView::mouseMovedSC, this, &CScreen::cursorMoved);
    connect(view, &CScreenView::resized, this, &CScreen::viewResized);
    const auto ifCurrent = [this, view](auto signal) {
        return [this, view, signal](auto... values) {
            if (view == currentView())
                Q_EMIT(this->*signal)(values...);
        };
    };
    connect(view, &CScreenView::widgetDropped, this, ifCurrent(&CScreen::widgetCountChanged));
    connect(view, &CScreenView::bitmapDropped, this, ifCurrent(&CScreen::bitmapCountChanged));
    connect(view, &CScreenView::hiddenCounted, this, ifCurrent(&CScreen::hiddenCountChanged));
    connect(view, &CScreenView::memoryUsageChanged, this, ifCurrent(&CScreen::memoryUsageChanged));
    const CScreenScene *scene = view->screenScene();
    connect(scene, &QGraphicsScene::selectionChanged, this, [this, view] {
        if (view == currentView())
            Q_EMIT selectionChanged(selectedItems());
    });
    connect(scene, &CScreenScene::gestureReported, this, [this, view] {
        for (CItemModel *item : view->selectedItems())
            Q_EMIT liveGeometry(item);
    });
    connect(scene, &CScreenScene::gestureEnded, this, &CScreen::gestureEnded);
    connect(scene, &CScreenScene::keyItemChanged, this, &CScreen::keyItemChanged);
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
}

/// Closes a tab. The page may be in the middle of an event, so it goes later.
void CScreen::removePage(CScreenCompositeView *page)
{
    page->detach();
    page->view()->screenScene()->disconnect(this);
    page->view()->disconnect(this);
    page->disconnect(this);
    removeTab(indexOf(page));
    page->hide();
    page->deleteLater();
}

/// The page that is shown goes last, so that no other one is laid out on the way.
void CScreen::clear()
{
    for (int index = count() - 1; index >= 0; --index) {
        if (index != currentIndex())
            removePage(page(index));
    }
    if (count() > 0)
        removePage(page(0));
}

void CScreen::newTab()
{
    if (!m_project)
        return;
    auto *screen = new CScreenModel(m_project);
    m_project->undoStack()->push(new CCommandAddScreen(screen, m_project));
    openScreen(screen);
}

void CScreen::rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
{
    if (parent.isValid() || !m_project)
        return; // screens are the rows below the root
    for (int row = first; row <= last; ++row) {
        CScreenModel *screen = m_project->screen(row);
        CScreenCompositeView *opened = screen ? pageOf(screen) : nullptr;
        if (!opened || screen->isMoving())
            continue;
        m_removedOpen.insert(screen);
        removePage(opened);
    }
}

void CScreen::rowsInserted(const QModelIndex &parent, int first, int last)
{
    if (parent.isValid())
        return;
    for (int row = first; row <= last; ++row) {
        CScreenModel *screen = m_project->screen(row);
        if (screen && m_removedOpen.remove(screen) && !pageOf(screen))
            addPage(screen, count());
    }
    updateHint();
}

void CScreen::propertyChanged(CItemModel *item, const QString &key)
{
    CScreenCompositeView *opened = key == PropertyKey::Name ? pageOf(item) : nullptr;
    if (!opened)
        return;
    const int index = indexOf(opened);
    showName(index, *item);
}

void CScreen::selectItems(const QList<CItemModel *> &items)
{
    for (int index = 0; index < count(); ++index) {
        if (page(index)->screen())
            page(index)->view()->screenScene()->selectModelItems(items.toVector());
    }
}

void CScreen::updateRepaint()
{
    for (int index = 0; index < count(); ++index)
        page(index)->view()->updateRepaint();
}

void CScreen::currentTabChanged()
{
    Q_EMIT currentScreenChanged(currentScreen());
    Q_EMIT selectionChanged(selectedItems());
    if (CScreenView *view = currentView())
        view->reportCounts();
}

// --- tabs ---

void CScreen::renameTab(int index)
{
    CScreenCompositeView *renamed = page(index);
    if (!renamed)
        return;
    CScreenModel *screen = renamed->screen();
    const QString old = screen->name();
    bool accepted = false;
    const QString typed = QInputDialog::getText(this, tr("Rename Screen"), tr("Name"),
                                                QLineEdit::Normal, old, &accepted)
                              .trimmed();
    if (!accepted || typed.isEmpty() || !m_project)
        return;
    const QString name = ItemNames::wanted(*screen, typed);
    if (name != old)
        m_project->undoStack()->push(
            new CCommandChangeItemProperty(screen, PropertyKey::Name, name, old));
}

void CScreen::showTabMenu(const QPoint &position)
{
    const int index = tabBar()->tabAt(position);
    QMenu menu(this);
    if (CScreenCompositeView *clicked = page(index)) {
        menu.addAction(tr("Close"), this, [this, clicked] { removePage(clicked); });
        menu.addAction(tr("Close Others"), this,
                       [this, clicked] {
                           for (int other = count() - 1; other >= 0; --other) {
                               if (page(other) != clicked)
                                   removePage(page(other));
                           }
                       })
            ->setEnabled(count() > 1);
        menu.addAction(tr("Rename…"), this, [this, clicked] { renameTab(indexOf(clicked)); });
        menu.addSeparator();
    }
    menu.addAction(tr("New Screen"), this, &CScreen::newTab)->setEnabled(m_project != nullptr);
    menu.exec(tabBar()->mapToGlobal(position));
}

bool CScreen::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != tabBar()) { // a canvas
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonPress)
            Q_EMIT canvasEntered();
    } else if (event->type() == QEvent::MouseButtonRelease) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        CScreenCompositeView *clicked = page(tabBar()->tabAt(mouse->pos()));
        if (mouse->button() == Qt::MiddleButton && clicked) {
            removePage(clicked);
            return true;
        }
    }
    return QTabWidget::eventFilter(watched, event);
}

// --- nothing open ---

void CScreen::setHint(const QString &text)
{
    m_hintText = text;
    updateHint();
}

void CScreen::updateHint()
{
    const QString usual = !m_project ? tr("No project is open.")
                          : m_project->screenCount() == 0
                              ? tr("The project has no page. \"New Page\" makes one.")
                              : tr("No screen is open. Choose one in the project explorer or "
                                   "the navigator.");
    m_hint->setText(m_hintText.isEmpty() ? usual : m_hintText);
    m_hint->setGeometry(rect().adjusted(32, 32, -32, -32));
    m_hint->setVisible(count() == 0);
    m_hint->raise();
}

void CScreen::resizeEvent(QResizeEvent *event)
{
    QTabWidget::resizeEvent(event);
    updateHint();
}

void CScreen::changeEvent(QEvent *event)
{
    QTabWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        updateHint();
}

void CScreen::tabInserted(int index)
{
    QTabWidget::tabInserted(index);
    updateHint();
}

void CScreen::tabRemoved(int index)
{
    QTabWidget::tabRemoved(index);
    updateHint();
}
