#include "CPictureLook.h"
#include "CProjectModel.h"
#include "ItemGeometry.h"
#include "ItemOutline.h"
#include "ItemTree.h"
#include "PropertyKey.h"
#include "RuleSupport.h"

#include <QHash>
#include <QLocale>

// What is told by the picture itself: which items are not seen, and how well texts are read.

namespace {

constexpr int CutOfText = CRuleContext::CutOfText;

bool isDisabled(const CItemModel &item)
{
    const QString enabled = QStringLiteral("enabled");
    return item.hasProperty(enabled) && !item.propertyValue(enabled).toBool();
}

void checkContrast(CRuleContext &context, const SPictureState &picture,
                   const QHash<quint32, const CItemModel *> &items)
{
    forEachItem(*context.screen, [&](const CItemModel &item) {
        const auto found = picture.contrast.constFind(item.id());
        if (found != picture.contrast.constEnd() && items.value(item.id()) == &item &&
            !isDisabled(item) && !picture.dimmed.contains(item.id()))
            context.add(
                ERule::Contrast, ESeverity::Warning, &item,
                CRuleContext::tr("The text of %1 has a contrast of %2 : 1 to what is behind "
                                 "it; %3 : 1 is the least.")
                    .arg(context.called(item))
                    .arg(QLocale().toString(found->ratio, 'f', 1))
                    .arg(QLocale().toString(found->least)));
    });
}

void checkTextSize(CRuleContext &context, const SPictureState &picture,
                   const QHash<quint32, const CItemModel *> &items)
{
    forEachItem(*context.screen, [&](const CItemModel &item) {
        if (items.value(item.id()) != &item)
            return;
        if (!picture.ink.contains(item.id())) {
            const QString text = item.propertyText(QStringLiteral("text")).simplified();
            if (!text.isEmpty() && item.hasProperty(PropertyKey::Font))
                context.add(ERule::TextCut, ESeverity::Warning, &item,
                            CRuleContext::tr("There is no room for the text of %1.")
                                .arg(context.called(item)));
            return;
        }
        const SItemOutline outline = itemOutline(item);
        const QRectF room = outline.box.adjusted(-CutOfText, -CutOfText, CutOfText, CutOfText);
        const bool hasRoom = outline.turn != 0 || outline.box.isEmpty() ||
                             item.geometryMode() != GeometryMode::Box ||
                             room.contains(picture.ink.value(item.id()));
        if (picture.cut.contains(item.id()))
            context.add(ERule::TextCut, ESeverity::Warning, &item,
                        CRuleContext::tr("The text of %1 is cut.").arg(context.called(item)));
        else if (context.isCutByEdge(picture.ink.value(item.id())))
            context.add(ERule::TextCut, ESeverity::Warning, &item,
                        CRuleContext::tr("The text of %1 goes beyond the edge of the page.")
                            .arg(context.called(item)));
        else if (!hasRoom)
            context.add(ERule::TextCut, ESeverity::Warning, &item,
                        CRuleContext::tr("The text of %1 is larger than its box.")
                            .arg(context.called(item)));
    });
}

} // namespace

void checkPictures(CRuleContext &context, const SPictureState &picture)
{
    if (!picture.isKnown)
        return;
    QHash<quint32, const CItemModel *> items; // by the tags of the list, those that are unique
    QSet<quint32> several;
    forEachItem(*context.screen, [&](const CItemModel &item) {
        if (item.kind() != CItemModel::Kind::Widget || item.id() == 0)
            return;
        if (items.contains(item.id()))
            several.insert(item.id());
        items.insert(item.id(), &item);
    });
    for (const quint32 id : qAsConst(several))
        items.remove(id);
    checkTextSize(context, picture, items);
    checkContrast(context, picture, items);
    for (const quint32 tag : picture.hidden)
        if (const CItemModel *item = items.value(tag))
            context.add(ERule::Hidden, ESeverity::Warning, item,
                        CRuleContext::tr("%1 is hidden by what lies in front of it.")
                            .arg(context.called(*item)));
}
