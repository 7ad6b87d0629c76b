#include "CItemWords.h"

#include "displaylist/CommandTable.h"

CItemWords::CItemWords(QList<SPackageItem> &items) : m_items(items)
{
    for (int i = 0; i < items.size(); ++i)
        if (items[i].tag != 0)
            m_byTag[items[i].tag].append(i);
}

void CItemWords::takeCommand(const kivemu::SCommand &command, const uint32_t *words, size_t header)
{
    const size_t length = 1 + command.operandWords();
    if (command.opcode == kivemu::EOpcode::Item) {
        m_tagged = m_byTag.value(words[header + 1]);
        for (const int item : qAsConst(m_tagged))
            m_items[item].words.append({header, 0});
    }
    for (const int item : qAsConst(m_tagged))
        m_items[item].words.last().count += length;
}

void CItemWords::takeAsset(size_t asset)
{
    for (const int item : qAsConst(m_tagged))
        if (!m_items[item].assets.contains(asset))
            m_items[item].assets.append(asset);
}
