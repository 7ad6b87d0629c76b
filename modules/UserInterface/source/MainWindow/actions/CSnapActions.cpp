#include "CSnapActions.h"

#include "CEditorState.h"
#include "CMenuBarTables.h"
#include "CSettings.h"

#include <QAction>
#include <QMenu>

namespace {
struct SRow
{
    const char *id; ///< by which keys for it are kept
    const char *text;
    const char *tip;
};

// clang-format off
/// In the order of EverySnapKind.
const SRow Rows[std::size(EverySnapKind)] = {
    {"snapToItems", QT_TRANSLATE_NOOP("CSnapActions", "To &Items"), QT_TRANSLATE_NOOP("CSnapActions", "Snap to edges and middles of other items")},
    {"snapToPage", QT_TRANSLATE_NOOP("CSnapActions", "To the &Page"), QT_TRANSLATE_NOOP("CSnapActions", "Snap to the edges and the middle of the page")},
    {"snapToGuides", QT_TRANSLATE_NOOP("CSnapActions", "To &Guides"), QT_TRANSLATE_NOOP("CSnapActions", "Snap to the guides of the page")},
    {"snapToGaps", QT_TRANSLATE_NOOP("CSnapActions", "To &Equal Gaps"), QT_TRANSLATE_NOOP("CSnapActions", "Snap to where the gaps between neighbours are equal")},
};
// clang-format on

/// Where the settings keep the kinds, in the same order.
constexpr bool SSettings::*Kept[std::size(EverySnapKind)] = {
    &SSettings::snapToItems, &SSettings::snapToPage, &SSettings::snapToGuides,
    &SSettings::snapToGaps};
} // namespace

CSnapActions::CSnapActions(QMenu *menu, QAction *before, QObject *parent)
    : QObject(parent), m_menu(new QMenu(menu)), m_snapping(new QAction(this))
{
    menu->insertMenu(before, m_menu);
    m_snapping->setObjectName(QStringLiteral("snapping"));
    m_snapping->setShortcut(QKeySequence(QStringLiteral("Ctrl+'")));
    m_menu->addAction(m_snapping);
    m_menu->addSeparator();
    for (size_t index = 0; index < m_kinds.size(); ++index) {
        m_kinds.at(index) = new QAction(this);
        m_kinds.at(index)->setObjectName(QLatin1String(Rows[index].id));
        m_menu->addAction(m_kinds.at(index));
    }
    for (QAction *each : m_menu->actions()) {
        each->setCheckable(!each->isSeparator());
        connect(each, &QAction::triggered, this, &CSnapActions::set);
    }
    connect(CEditorState::instance(), &CEditorState::snappingChanged, this, &CSnapActions::show);
    show();
    retranslate();
}

QAction *CSnapActions::action(ESnapKind kind) const
{
    size_t index = 0;
    while (EverySnapKind[index] != kind)
        ++index;
    return m_kinds.at(index);
}

void CSnapActions::retranslate()
{
    m_menu->setTitle(tr("S&napping"));
    m_snapping->setText(tr("&Snap While Dragging"));
    m_snapping->setStatusTip(
        tr("Bring what is dragged in line with others; while Control is held, it is not"));
    for (size_t index = 0; index < m_kinds.size(); ++index) {
        m_kinds.at(index)->setText(tr(Rows[index].text));
        m_kinds.at(index)->setStatusTip(tr(Rows[index].tip));
    }
    for (QAction *each : m_menu->actions())
        each->setIconText(MenuBarTables::plain(each->text()));
}

void CSnapActions::set() const
{
    SnapKinds kinds;
    for (const ESnapKind each : EverySnapKind)
        kinds.setFlag(each, action(each)->isChecked());
    CEditorState::instance()->setSnapping(m_snapping->isChecked(), kinds);
}

void CSnapActions::show()
{
    const CEditorState *state = CEditorState::instance();
    m_snapping->setChecked(state->isSnapping());
    for (const ESnapKind each : EverySnapKind) {
        action(each)->setChecked(state->snapKinds().testFlag(each));
        action(each)->setEnabled(state->isSnapping());
    }
}

void CSnapActions::use(const SSettings &settings)
{
    SnapKinds kinds;
    for (size_t index = 0; index < std::size(Kept); ++index)
        kinds.setFlag(EverySnapKind[index], settings.*Kept[index]);
    CEditorState::instance()->setSnapping(settings.snapping, kinds);
}

void CSnapActions::keep(SSettings &settings)
{
    const CEditorState *state = CEditorState::instance();
    settings.snapping = state->isSnapping();
    for (size_t index = 0; index < std::size(Kept); ++index)
        settings.*Kept[index] = state->snapKinds().testFlag(EverySnapKind[index]);
}
