#pragma once

#include "ItemAttributes.h"

#include <QByteArray>

class CItemModel;

/// What a document of items will come to when it is written, without writing it: no less than it
/// does.
class CSavedSize
{
public:
    void add(const ItemAttributes &attributes); ///< of the root element
    void add(const CItemModel &item);           ///< and all below it

    /// False when CXmlGuard might refuse the document.
    bool isWithinLimits() const;

private:
    void add(const CItemModel &item, int depth);
    void addAttribute(qint64 nameSize, const QByteArray &value);

    qint64 m_bytes = 0;
    qint64 m_attributes = 0;
    qint64 m_mostInOneElement = 0;
    qint64 m_longestValue = 0;
    int m_elements = 0;
    int m_depth = 0;
};
