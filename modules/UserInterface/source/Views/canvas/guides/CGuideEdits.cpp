#include "CGuideEdits.h"

#include "CCommandChangeGuides.h"
#include "CProjectModel.h"
#include "CScreenModel.h"

#include <QUndoStack>

void CGuideEdits::push(const ScreenGuideList &guides, const QString &text) const
{
    if (guides != m_screen->guides())
        m_screen->project()->undoStack()->push(new CCommandChangeGuides(m_screen, guides, text));
}

template<class Change>
void CGuideEdits::change(int index, const QString &text, const Change &how) const
{
    ScreenGuideList guides = m_screen->guides();
    if (index < 0 || index >= guides.size())
        return;
    how(guides[index]);
    push(ScreenGuides::bounded(guides), text);
}

int CGuideEdits::add(const SScreenGuide &guide) const
{
    ScreenGuideList guides = m_screen->guides();
    for (int index = 0; index < guides.size(); ++index) {
        if (guides.at(index).orientation == guide.orientation &&
            guides.at(index).position == guide.position)
            return index;
    }
    if (guides.size() == SScreenGuide::MostOfScreen)
        return -1;
    guides.append(guide);
    push(guides, tr("Add Guide"));
    return guides.size() - 1;
}

void CGuideEdits::move(int index, int position) const
{
    change(index, tr("Move Guide"), [position](SScreenGuide &guide) { guide.position = position; });
}

void CGuideEdits::setLocked(int index, bool locked) const
{
    change(index, locked ? tr("Lock Guide") : tr("Unlock Guide"),
           [locked](SScreenGuide &guide) { guide.isLocked = locked; });
}

void CGuideEdits::setColour(int index, const QColor &colour) const
{
    change(index, tr("Change Guide Colour"), [&](SScreenGuide &guide) { guide.color = colour; });
}

void CGuideEdits::remove(int index) const
{
    ScreenGuideList guides = m_screen->guides();
    if (index < 0 || index >= guides.size())
        return;
    guides.removeAt(index);
    push(guides, tr("Delete Guide"));
}

void CGuideEdits::clear() const
{
    push({}, tr("Clear Guides"));
}

void CGuideEdits::setAllLocked(bool locked) const
{
    ScreenGuideList guides = m_screen->guides();
    for (SScreenGuide &each : guides)
        each.isLocked = locked;
    push(guides, locked ? tr("Lock Guides") : tr("Unlock Guides"));
}
