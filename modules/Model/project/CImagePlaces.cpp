#include "CImagePlaces.h"

#include "CItemModel.h"
#include "ItemTree.h"
#include "PropertyKey.h"

void CImagePlaces::noteAll(const CItemModel &item)
{
    forEachItem(item, [this](const CItemModel &each) {
        if (each.kind() != CItemModel::Kind::Widget || !each.hasProperty(PropertyKey::BitmapFolder))
            return;
        for (const QString &key :
             {PropertyKey::BitmapFolder, PropertyKey::FileName, PropertyKey::BaseName})
            note(key, each.propertyText(key));
    });
}

void CImagePlaces::note(const QString &key, const QString &text)
{
    if (text.isEmpty())
        return;
    if (key == PropertyKey::BitmapFolder)
        m_folders.insert(text);
    else if (key == PropertyKey::FileName)
        m_files.insert(text);
    else if (key == PropertyKey::BaseName)
        m_names.insert(text);
}

bool CImagePlaces::isPlace(const QString &key)
{
    return key == PropertyKey::BitmapFolder || key == PropertyKey::FileName;
}

void CImagePlaces::move(const QHash<QString, QString> &texts)
{
    for (QString &each : m_moved)
        each = texts.value(each, each);
    for (auto it = texts.cbegin(); it != texts.cend(); ++it)
        m_moved.insert(it.key(), it.value());
    for (auto it = m_moved.begin(); it != m_moved.end();)
        it = it.key() == it.value() ? m_moved.erase(it) : std::next(it);
    // Of what was called otherwise before, nothing is in use any more.
    for (QSet<QString> *each : {&m_folders, &m_files}) {
        QSet<QString> now;
        for (const QString &text : qAsConst(*each))
            now.insert(today(text));
        *each = now;
    }
}

void CImagePlaces::update(CItemModel &item) const
{
    forEachItem(item, [this](CItemModel &each) {
        for (const QString &key : {PropertyKey::BitmapFolder, PropertyKey::FileName}) {
            const QString text = each.propertyText(key);
            if (!text.isEmpty() && today(text) != text)
                each.setProperty(key, today(text), CItemModel::Notify::No);
        }
    });
}
