#include "CRecentColours.h"

CRecentColours &CRecentColours::instance()
{
    static CRecentColours all;
    return all;
}

void CRecentColours::add(const QColor &colour)
{
    if (!colour.isValid())
        return;
    m_colours.removeAll(colour);
    m_colours.prepend(colour);
    m_colours = m_colours.mid(0, Most);
}

QStringList CRecentColours::names() const
{
    QStringList names;
    for (const QColor &each : m_colours)
        names.append(each.name(QColor::HexArgb));
    return names;
}

void CRecentColours::setNames(const QStringList &names)
{
    m_colours.clear();
    for (auto name = names.rbegin(); name != names.rend(); ++name)
        add(QColor::isValidColor(*name) ? QColor(*name) : QColor());
}
