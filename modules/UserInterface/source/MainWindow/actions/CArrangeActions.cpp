#include "CArrangeActions.h"

#include "CItemModel.h"
#include "CMainPanels.h"
#include "CMenuBarTables.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "CThemeIcons.h"

#include <QAction>
#include <QInputDialog>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>

namespace {
constexpr int MaxGap = 4096; // pixels

struct SRow
{
    const char *text;
    const char *tip;
    const char *icon;
    const char *keys; ///< or null
};

// clang-format off
/// In the order of CItemArrange::EWhat.
const SRow Rows[CItemArrange::WhatCount] = {
    {QT_TRANSLATE_NOOP("CArrangeActions", "Align &Left"), QT_TRANSLATE_NOOP("CArrangeActions", "Align the left edges"), "alignLeft", "Ctrl+Shift+L"},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Align &Centre"), QT_TRANSLATE_NOOP("CArrangeActions", "Align the middles, from left to right"), "alignCentre", "Ctrl+Shift+C"},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Align &Right"), QT_TRANSLATE_NOOP("CArrangeActions", "Align the right edges"), "alignRight", "Ctrl+Shift+R"},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Align &Top"), QT_TRANSLATE_NOOP("CArrangeActions", "Align the top edges"), "alignTop", "Ctrl+Shift+T"},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Align &Middle"), QT_TRANSLATE_NOOP("CArrangeActions", "Align the middles, from top to bottom"), "alignMiddle", "Ctrl+Shift+M"},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Align &Bottom"), QT_TRANSLATE_NOOP("CArrangeActions", "Align the bottom edges"), "alignBottom", "Ctrl+Shift+B"},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Distribute &Left Edges"), QT_TRANSLATE_NOOP("CArrangeActions", "Make the distances between left edges equal"), "distributeLeft", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Distribute &Centres"), QT_TRANSLATE_NOOP("CArrangeActions", "Make the distances between middles equal, from left to right"), "distributeCentre", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Distribute &Right Edges"), QT_TRANSLATE_NOOP("CArrangeActions", "Make the distances between right edges equal"), "distributeRight", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Distribute &Horizontally"), QT_TRANSLATE_NOOP("CArrangeActions", "Make the gaps equal, from left to right"), "distributeAcross", "Ctrl+Alt+Shift+H"},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Distribute &Top Edges"), QT_TRANSLATE_NOOP("CArrangeActions", "Make the distances between top edges equal"), "distributeTop", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Distribute &Middles"), QT_TRANSLATE_NOOP("CArrangeActions", "Make the distances between middles equal, from top to bottom"), "distributeMiddle", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Distribute &Bottom Edges"), QT_TRANSLATE_NOOP("CArrangeActions", "Make the distances between bottom edges equal"), "distributeBottom", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Distribute &Vertically"), QT_TRANSLATE_NOOP("CArrangeActions", "Make the gaps equal, from top to bottom"), "distributeDown", "Ctrl+Alt+Shift+V"},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Horizontal &Gap..."), QT_TRANSLATE_NOOP("CArrangeActions", "Line up from left to right with gaps of a given size"), "gapAcross", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Vertical Ga&p..."), QT_TRANSLATE_NOOP("CArrangeActions", "Line up from top to bottom with gaps of a given size"), "gapDown", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Same &Width"), QT_TRANSLATE_NOOP("CArrangeActions", "As wide as the item that was selected first"), "sameWidth", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Same &Height"), QT_TRANSLATE_NOOP("CArrangeActions", "As high as the item that was selected first"), "sameHeight", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Same &Size"), QT_TRANSLATE_NOOP("CArrangeActions", "As large as the item that was selected first"), "sameSize", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Centre &Horizontally"), QT_TRANSLATE_NOOP("CArrangeActions", "To the middle of the page, from left to right"), "centreAcross", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Centre &Vertically"), QT_TRANSLATE_NOOP("CArrangeActions", "To the middle of the page, from top to bottom"), "centreDown", nullptr},
    {QT_TRANSLATE_NOOP("CArrangeActions", "Centre in &Page"), QT_TRANSLATE_NOOP("CArrangeActions", "To the middle of the page"), "centreBoth", nullptr},
};
// clang-format on

QIcon iconOf(const char *name)
{
    return CThemeIcons::icon(QStringLiteral(":/images/%1.png").arg(QLatin1String(name)));
}
} // namespace

CArrangeActions::CArrangeActions(QMainWindow *window, CMainPanels *panels, QMenu *menu)
    : QObject(window), m_window(window), m_panels(panels)
{
    makeActions();
    fill(menu);
    makeToolBar();
    retranslate();
    connect(panels, &CMainPanels::selectionShown, this, &CArrangeActions::update);
    connect(panels->screens(), &CScreen::keyItemChanged, this, &CArrangeActions::update);
}

void CArrangeActions::makeActions()
{
    for (int what = 0; what < CItemArrange::WhatCount; ++what) {
        auto *action = new QAction(iconOf(Rows[what].icon), QString(), m_window);
        action->setObjectName(QString::fromLatin1(Rows[what].icon));
        action->setShortcut(QKeySequence(QLatin1String(Rows[what].keys)));
        connect(action, &QAction::triggered, this,
                [this, what] { run(CItemArrange::EWhat(what)); });
        m_actions.at(size_t(what)) = action;
    }
    m_toPage = new QAction(iconOf("alignToPage"), QString(), m_window);
    m_toPage->setObjectName(QStringLiteral("alignToPage"));
    m_toPage->setCheckable(true);
    m_toKey = new QAction(iconOf("alignToKey"), QString(), m_window);
    m_toKey->setObjectName(QStringLiteral("alignToKey"));
    m_toKey->setCheckable(true);
    connect(m_toKey, &QAction::triggered, this, &CArrangeActions::chooseKey);
    connect(m_toPage, &QAction::triggered, this, [this](bool isToPage) {
        if (isToPage) // of the references there is one at a time
            chooseKey(false);
    });
}

void CArrangeActions::fill(QMenu *menu)
{
    using W = CItemArrange;
    const auto add = [this](QMenu *to, std::initializer_list<W::EWhat> ids) {
        for (const W::EWhat each : ids)
            to->addAction(action(each));
    };
    add(menu, {W::AlignLeft, W::AlignCentre, W::AlignRight});
    menu->addSeparator();
    add(menu, {W::AlignTop, W::AlignMiddle, W::AlignBottom});
    menu->addSeparator();
    menu->addActions({m_toPage, m_toKey});
    menu->addSeparator();
    m_distribute = menu->addMenu(QString());
    add(m_distribute, {W::DistributeAcross, W::DistributeDown});
    m_distribute->addSeparator();
    add(m_distribute, {W::DistributeLeft, W::DistributeCentre, W::DistributeRight});
    m_distribute->addSeparator();
    add(m_distribute, {W::DistributeTop, W::DistributeMiddle, W::DistributeBottom});
    m_distribute->addSeparator();
    add(m_distribute, {W::GapAcross, W::GapDown});
    m_size = menu->addMenu(QString());
    add(m_size, {W::SameWidth, W::SameHeight, W::SameSize});
    m_centre = menu->addMenu(QString());
    add(m_centre, {W::CentreAcross, W::CentreDown, W::CentreBoth});
}

void CArrangeActions::makeToolBar()
{
    using W = CItemArrange;
    m_toolBar = new QToolBar(m_window);
    m_toolBar->setObjectName(QStringLiteral("ArrangeToolbar"));
    const auto add = [this](std::initializer_list<W::EWhat> ids) {
        for (const W::EWhat each : ids)
            m_toolBar->addAction(action(each));
        m_toolBar->addSeparator();
    };
    add({W::AlignLeft, W::AlignCentre, W::AlignRight, W::AlignTop, W::AlignMiddle, W::AlignBottom});
    add({W::DistributeAcross, W::DistributeDown});
    add({W::SameWidth, W::SameHeight, W::SameSize});
    add({W::CentreBoth});
    m_toolBar->addActions({m_toPage, m_toKey});
    m_window->addToolBarBreak(); // beside the other one there is no room
    m_window->addToolBar(m_toolBar);
}

void CArrangeActions::retranslate()
{
    const auto name = [](QAction *action, const QString &text) {
        action->setText(text);
        action->setIconText(MenuBarTables::plain(text).remove(QStringLiteral("...")));
        action->setToolTip(action->iconText());
    };
    for (int what = 0; what < CItemArrange::WhatCount; ++what)
        name(m_actions.at(size_t(what)), tr(Rows[what].text));
    name(m_toPage, tr("Align to &Page"));
    m_toPage->setStatusTip(tr("Align several items to the page too, not to each other"));
    name(m_toKey, tr("Align to &Key Item"));
    m_distribute->setTitle(tr("&Distribute"));
    m_size->setTitle(tr("&Same Size"));
    m_centre->setTitle(tr("Ce&ntre in Page"));
    m_toolBar->setWindowTitle(tr("Arrange"));
    update();
}

QVector<CItemModel *> CArrangeActions::items() const
{
    const CItemModel *page = m_panels->screens()->currentScreen();
    CItemModel *const key = keyItem();
    QVector<CItemModel *> items;
    for (CItemModel *each : m_panels->selectedItems()) {
        const CItemModel *above = each->parentItem();
        while (above && above != page)
            above = above->parentItem();
        if (!page || !above)
            continue;
        if (each == key)
            items.prepend(each);
        else
            items.append(each);
    }
    return items;
}

CItemModel *CArrangeActions::keyItem() const
{
    const CScreenView *view = m_panels->screens()->currentView();
    return view ? view->screenScene()->keyItem() : nullptr;
}

/// By menu or tool bar it is the item that was selected first.
void CArrangeActions::chooseKey(bool isWanted)
{
    const CScreenView *view = m_panels->screens()->currentView();
    if (view)
        view->screenScene()->setKeyItem(isWanted ? items().value(0) : nullptr);
    update();
}

CItemArrange::EReference CArrangeActions::reference() const
{
    using EReference = CItemArrange::EReference;
    return m_toPage->isChecked() ? EReference::Page
           : keyItem()           ? EReference::KeyItem
                                 : EReference::Selection;
}

void CArrangeActions::update()
{
    const CItemArrange arrange(items());
    const bool canHaveKey = items().size() > 1;
    m_toKey->setEnabled(canHaveKey);
    m_toKey->setChecked(keyItem() != nullptr);
    if (keyItem())
        m_toPage->setChecked(false);
    m_toKey->setStatusTip(
        canHaveKey ? tr("Align to one of the selected items, which stays; click it to choose it")
                   : tr("Select two or more items first"));
    for (int what = 0; what < CItemArrange::WhatCount; ++what) {
        const QString lack = arrange.lack(CItemArrange::EWhat(what));
        QAction *action = m_actions.at(size_t(what));
        action->setEnabled(lack.isEmpty());
        action->setStatusTip(lack.isEmpty() ? tr(Rows[what].tip) : lack);
        QString toolTip = action->iconText();
        if (!lack.isEmpty()) // the status bar may be hidden
            toolTip += QLatin1Char('\n') + lack;
        action->setToolTip(toolTip);
    }
}

void CArrangeActions::run(CItemArrange::EWhat what)
{
    m_panels->finishEdits();
    const QAction *action = m_actions.at(size_t(what));
    if (what == CItemArrange::GapAcross || what == CItemArrange::GapDown) {
        bool isGiven = false;
        const int gap = QInputDialog::getInt(m_window, action->iconText(),
                                             tr("Gap between neighbours, in pixels:"), m_gap,
                                             -MaxGap, MaxGap, 1, &isGiven);
        if (!isGiven)
            return;
        m_gap = gap;
    }
    CItemArrange(items(), reference()).run(what, action->iconText(), m_gap);
}
