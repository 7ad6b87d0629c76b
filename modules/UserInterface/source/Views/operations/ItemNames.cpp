#include "ItemNames.h"

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemTree.h"
#include "PropertyKey.h"

#include <algorithm>
#include <limits>

QString ItemNames::Names::firstFree(const QString &stem, int number) const
{
    auto &[first, end] = m_runs[stem];
    int from = number;
    for (;;) {
        const QString name = QStringLiteral("%1 %2").arg(stem).arg(number);
        if (number >= first && number < end) {
            from = std::min(from, first);
            number = end;
        } else if (m_names.contains(name)) {
            ++number;
        } else {
            first = from;
            end = number;
            return name;
        }
    }
}

ItemNames::Names ItemNames::below(const CItemModel &parent)
{
    Names names;
    forEachItem(parent, [&](const CItemModel &each) {
        if (&each != &parent)
            names.insert(each.name());
    });
    return names;
}

ItemNames::Names ItemNames::ofScreens(const CProjectModel &project, const CItemModel *except)
{
    Names names;
    for (int row = 0; row < project.screenCount(); ++row) {
        const CScreenModel *screen = project.screen(row);
        if (screen && screen != except)
            names.insert(screen->name());
    }
    return names;
}

QString ItemNames::unused(const QString &name, const Names &taken)
{
    if (name.isEmpty() || !taken.contains(name)) // what has no name is not counted
        return name;
    QString stem = name;
    int end = stem.size();
    while (end > 0 && stem.at(end - 1).isDigit())
        --end;
    int number = 2;
    if (end > 1 && end < stem.size() && stem.at(end - 1) == QLatin1Char(' ')) {
        const int own = stem.midRef(end).toInt(); // 0 for more digits than are counted
        if (own < std::numeric_limits<int>::max() / 2)
            number = std::max(number, own + 1);
        stem.truncate(end - 1);
    }
    return taken.firstFree(stem, number);
}

QString ItemNames::wanted(const CItemModel &item, const QString &name)
{
    const bool isScreen = item.kind() == CItemModel::Kind::Screen && item.project();
    return isScreen ? unused(name, ofScreens(*item.project(), &item)) : name;
}

void ItemNames::makeUnique(CItemModel &item, Names &taken)
{
    forEachItem(item, [&taken](CItemModel &each) {
        const QString name = unused(each.name(), taken);
        if (name != each.name() && each.hasProperty(PropertyKey::Name))
            each.setProperty(PropertyKey::Name, name, CItemModel::Notify::No);
        taken.insert(name);
    });
}
