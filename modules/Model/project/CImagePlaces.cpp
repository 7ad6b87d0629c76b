#include "CImagePlaces.h"

#include "CItemModel.h"
#include "PropertyKey.h"

void CImagePlaces::noteAll(const CItemModel &item)
{
    if (item.kind() == CItemModel::Kind::Widget && item.hasProperty(PropertyKey::BitmapFolder)) {
        for (const QString &key :
             {PropertyKey::BitmapFolder, PropertyKey::FileName, PropertyKey::BaseName})
            note(key, item.propertyText(key));
    }
    for (int row = 0; row < item.rowCount(); ++row) {
        if (const CItemModel *child = item.childItem(row))
            noteAll(*child);
    }
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

void CImagePlaces::update(CItemModel *item) const
{
    for (const QString &key : {PropertyKey::BitmapFolder, PropertyKey::FileName}) {
        const QString text = item->propertyText(key);
        if (!text.isEmpty() && today(text) != text)
            item->setProperty(key, today(text), CItemModel::Notify::No);
    }
    for (int row = 0; row < item->rowCount(); ++row) {
        if (CItemModel *child = item->childItem(row))
            update(child);
    }
}
