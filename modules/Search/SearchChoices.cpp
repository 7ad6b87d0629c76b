#include "SearchChoices.h"

#include "CItemFacets.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemTree.h"
#include "RomFonts.h"

#include <QMap>

#include <algorithm>

QVector<QColor> SearchChoices::colours(const CProjectModel &project, int limit)
{
    CItemFacets facets(project);
    QMap<QString, int> counts; // by name, so that equally frequent ones keep an order
    forEachItem(project, [&](CItemModel &each) {
        const QVector<SFacet> all = facets.of(each);
        for (const SFacet &facet : all) {
            if (facet.sort == SFacet::ESort::Colour)
                ++counts[facets.text(each, facet)];
        }
    });
    QStringList names = counts.keys();
    std::stable_sort(names.begin(), names.end(), [&](const QString &left, const QString &right) {
        return counts.value(left) > counts.value(right);
    });
    QVector<QColor> colours;
    for (const QString &name : qAsConst(names)) {
        if (QColor::isValidColor(name) && colours.size() < limit)
            colours.append(QColor(name));
    }
    return colours;
}

QVector<int> SearchChoices::fonts(const CProjectModel &project)
{
    QVector<int> handles;
    for (const SProjectFont &each : project.fonts())
        handles.append(each.handle);
    constexpr int mostHandles = 256;
    for (int handle = 0; handle < mostHandles; ++handle) {
        if (romfonts::isFont(handle))
            handles.append(handle);
    }
    return handles;
}

QStringList SearchChoices::images(const CProjectModel &project)
{
    QStringList names;
    forEachItem(project,
                [&names](CItemModel &each) { names.append(CItemFacets::imageName(each)); });
    names.removeAll(QString());
    names.removeDuplicates();
    names.sort();
    return names;
}

CItemModel *SearchChoices::itemWithImage(const CProjectModel &project, const QString &type,
                                         const QString &name)
{
    for (int row = 0; row < project.screenCount(); ++row) {
        CItemModel *found = findItem(*project.screen(row), [&](const CItemModel &each) {
            return each.itemTypeName() == type && CItemFacets::imageName(each) == name;
        });
        if (found)
            return found;
    }
    return nullptr;
}
