#include "CGuideMenu.h"

#include "CGuideEdits.h"
#include "CScreenModel.h"
#include "GuideLook.h"

#include <QColorDialog>
#include <QInputDialog>
#include <QMenu>
#include <QPainter>

namespace {
constexpr int Swatch = 12; ///< pixels

struct SNamedColour
{
    const char *name;
    QRgb colour;
};
const SNamedColour Colours[] = {
    {QT_TRANSLATE_NOOP("CGuideMenu", "&Red"), 0xffe5484d},
    {QT_TRANSLATE_NOOP("CGuideMenu", "&Orange"), 0xfff2872b},
    {QT_TRANSLATE_NOOP("CGuideMenu", "&Green"), 0xff2fa86b},
    {QT_TRANSLATE_NOOP("CGuideMenu", "&Blue"), 0xff2d7ff9},
};

QIcon swatch(const QColor &colour)
{
    QPixmap pixmap(Swatch, Swatch);
    pixmap.fill(colour);
    return QIcon(pixmap);
}
} // namespace

CGuideMenu::CGuideMenu(CScreenModel *screen, QWidget *parent)
    : QObject(parent), m_screen(screen), m_parent(parent)
{
}

bool CGuideMenu::isThere(int index) const
{
    return m_screen && index >= 0 && index < m_screen->guides().size();
}

void CGuideMenu::fill(QMenu *menu, int index)
{
    if (!isThere(index))
        return;
    menu->addAction(tr("&Position..."), this, [this, index] { askPosition(index); });
    QAction *locked = menu->addAction(tr("&Locked"));
    locked->setCheckable(true);
    locked->setChecked(m_screen->guides().at(index).isLocked);
    connect(locked, &QAction::toggled, this, [this, index](bool on) {
        if (isThere(index))
            CGuideEdits(m_screen).setLocked(index, on);
    });
    fillColours(menu->addMenu(tr("&Colour")), index);
    menu->addSeparator();
    QAction *remove = menu->addAction(tr("&Delete Guide"), this, [this, index] {
        if (isThere(index))
            CGuideEdits(m_screen).remove(index);
    });
    remove->setShortcut(QKeySequence::Delete);
    remove->setEnabled(!locked->isChecked());
}

void CGuideMenu::fillColours(QMenu *menu, int index)
{
    const auto add = [&](const QString &name, const QColor &colour) {
        const QColor shown = GuideLook::colourOf({Qt::Vertical, 0, colour, false});
        menu->addAction(swatch(shown), name, this, [this, index, colour] {
            if (isThere(index))
                CGuideEdits(m_screen).setColour(index, colour);
        });
    };
    add(tr("&Usual"), QColor());
    for (const SNamedColour &each : Colours)
        add(tr(each.name), QColor(each.colour));
    menu->addAction(tr("O&ther..."), this, [this, index] { askColour(index); });
}

/// The dialogs let other events through: the guides may be others when they close.
void CGuideMenu::askColour(int index)
{
    if (!isThere(index))
        return;
    const QPointer<CGuideMenu> alive(this);
    const SScreenGuide guide = m_screen->guides().at(index);
    const QColor chosen = QColorDialog::getColor(GuideLook::colourOf(guide), m_parent);
    if (alive && chosen.isValid() && isThere(index) && m_screen->guides().at(index) == guide)
        CGuideEdits(m_screen).setColour(index, chosen);
}

void CGuideMenu::askPosition(int index)
{
    if (!isThere(index))
        return;
    const QPointer<CGuideMenu> alive(this);
    const SScreenGuide guide = m_screen->guides().at(index);
    bool isGiven = false;
    const int position = QInputDialog::getInt(
        m_parent, tr("Guide Position"),
        guide.orientation == Qt::Vertical ? tr("Pixels from the left:")
                                          : tr("Pixels from the top:"),
        guide.position, -SScreenGuide::Farthest, SScreenGuide::Farthest, 1, &isGiven);
    if (alive && isGiven && isThere(index) && m_screen->guides().at(index) == guide)
        CGuideEdits(m_screen).move(index, position);
}
