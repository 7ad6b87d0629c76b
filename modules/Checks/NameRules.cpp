#include "CProjectModel.h"
#include "CScreenModel.h"
#include "Identifiers.h"
#include "ItemTree.h"
#include "PropertyKey.h"
#include "RuleSupport.h"

#include <QHash>

#include <algorithm>

// What items are called, for people and in C.

namespace {

QString nameInC(const QString &name)
{
    return Identifiers::unique(QString(), {name}, QStringLiteral("UNNAMED")).first();
}

} // namespace

void checkNames(CRuleContext &context)
{
    QHash<QString, QVector<const CItemModel *>> named;
    QHash<QString, const CItemModel *> inC;
    forEachItem(*context.screen, [&](const CItemModel &item) {
        if (item.kind() == CItemModel::Kind::Widget && !item.name().isEmpty())
            named[item.name()].append(&item);
    });
    forEachItem(*context.screen, [&](const CItemModel &item) {
        const auto same = named.constFind(item.name());
        if (same == named.constEnd() || same->first() != &item)
            return; // told with the first
        if (same->size() > 1) {
            const auto isOlder = [](const CItemModel *a, const CItemModel *b) {
                return a->id() < b->id(); // ids are given in their order
            };
            context
                .add(ERule::DuplicateName, ESeverity::Note,
                     *std::max_element(same->begin(), same->end(), isOlder),
                     CRuleContext::tr("%1 items of the screen are called %2.")
                         .arg(same->size())
                         .arg(context.called(item)))
                .property = PropertyKey::Name;
        }
        const CItemModel *&first = inC[nameInC(item.name())];
        if (first)
            context
                .add(ERule::Identifier, ESeverity::Note, &item,
                     CRuleContext::tr("%1 and %2 are the same name in C; one gets a number.")
                         .arg(context.called(*first), context.called(item)))
                .property = PropertyKey::Name;
        else
            first = &item;
    });
}
