#pragma once

#include "PictureDifference.h"

#include <QHash>
#include <QImage>
#include <QObject>

class CItemModel;

/// The pictures of pages of two projects, packed, and where those that belong together differ. Both
/// are worked out in the background. Pages stand for themselves and are never looked into, so they
/// may be gone.
class CPicturePairs final : public QObject
{
    Q_OBJECT

public:
    using Pages = QHash<const CItemModel *, const CItemModel *>;

    /// What is shown of two pages; null where there is no picture.
    struct SShown
    {
        QImage before;
        QImage now;
        QImage difference;
        QVector<QRect> places; ///< in which they differ
    };

    explicit CPicturePairs(QObject *parent = nullptr) : QObject(parent) {}

    /// The earlier pages by the later ones. Pictures of others are dropped, unless they are listed.
    void setPairs(const Pages &pairs, const QVector<const CItemModel *> &others);
    /// Ends with taken().
    void add(const CItemModel *page, const QImage &picture);
    void clear();

    const CItemModel *earlierOf(const CItemModel *page) const { return m_pairs.value(page); }
    /// Ends with fetched(), unless it is called again meanwhile. Null for no page.
    void fetch(const CItemModel *before, const CItemModel *now);
    /// Empty while it is not known, and for equal ones. By the later page.
    SPictureDifference difference(const CItemModel *page) const
    {
        return m_differences.value(page);
    }

Q_SIGNALS:
    void taken();
    void fetched(const CPicturePairs::SShown &shown);
    /// All that came in has been compared.
    void compared();

private:
    struct SPacked
    {
        QSize size;
        QByteArray bytes;
        int number = 0; ///< tells an old answer from a new one
    };

    static SPacked packed(const QImage &picture, int number);
    static QImage unpacked(const SPacked &picture);
    void compare(const CItemModel *page);
    void finish();

    Pages m_pairs;
    QHash<const CItemModel *, SPacked> m_packed;
    QHash<const CItemModel *, int> m_asked; ///< number of the newest picture of each page
    QHash<const CItemModel *, SPictureDifference> m_differences;
    int m_number = 0;
    int m_fetch = 0;   ///< number of the newest question
    int m_working = 0; ///< answers that are to come
};
