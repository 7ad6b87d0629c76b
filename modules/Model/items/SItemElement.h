#pragma once

#include "ItemAttributes.h"

#include <vector>

/// An element as it was read: what an item is made of, as long as it is none yet and attributes may
/// change.
struct SItemElement
{
    QString tag;
    ItemAttributes attributes; ///< each name once
    std::vector<SItemElement> children;

    bool hasAttribute(const QString &name) const { return find(name) != nullptr; }
    QString attribute(const QString &name, const QString &otherwise = {}) const
    {
        const ItemAttribute *found = find(name);
        return found ? found->text : otherwise;
    }
    void setAttribute(const QString &name, const QString &text)
    {
        if (const ItemAttribute *found = find(name))
            attributes[int(found - attributes.constData())].text = text;
        else
            attributes.append({name, text});
    }

private:
    const ItemAttribute *find(const QString &name) const
    {
        for (const ItemAttribute &each : attributes) {
            if (each.name == name)
                return &each;
        }
        return nullptr;
    }
};
