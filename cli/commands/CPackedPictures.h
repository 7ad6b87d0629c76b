#pragma once

#include <QByteArray>
#include <QHash>
#include <QImage>

class CItemModel;

/// Pictures of screens that wait, in a fraction of their memory.
class CPackedPictures
{
public:
    void add(const CItemModel *screen, const QImage &picture);
    /// Null when there is none. It is gone here then.
    QImage take(const CItemModel *screen);

private:
    struct SPacked
    {
        QSize size;
        QByteArray bytes;
    };
    QHash<const CItemModel *, SPacked> m_pictures;
};
