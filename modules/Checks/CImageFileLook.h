#pragma once

#include "CFileStamp.h"

#include <QHash>
#include <QSet>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

class CItemModel;
class CProjectModel;

/// The image files of a project as its items tell of them; nothing of the disk is looked at.
struct SImageFiles
{
    /// An image that was converted, once for each source and each name of what was made of it.
    struct SImage
    {
        const CItemModel *item; ///< the first that shows it; not followed by CImageFileLook
        QString source;         ///< absolute
        QString folder;         ///< where it lies
        QString base;           ///< what its files are called
        QString suffix;         ///< of its source
        QSize size;             ///< pixels; empty when it is not known
        QString key() const { return QStringList{source, folder, base}.join(QChar(0)); }
    };
    /// What is there.
    struct SState
    {
        QSet<QString> changed; ///< keys of images whose source is another picture now
        QStringList unused;    ///< converted images that no item shows; absolute, in their order
    };

    static SImageFiles of(const CProjectModel &project);
    /// The file that the item's image was made of; empty for media, which stay as they are.
    static QString sourceOf(const CItemModel &item);

    QString folder; ///< of converted images; empty when the project lies nowhere
    QSet<QString> used;
    QVector<SImage> images;
};

/// Looks at the image files of a project. May take a while, so it may be done by any thread, one at
/// a time; what was found is kept for the next time, as long as the files are not written.
class CImageFileLook
{
public:
    SImageFiles::SState look(const SImageFiles &files);

private:
    struct SKnown
    {
        CFileStamp source;
        CFileStamp copy;
        bool isChanged = false;
    };
    bool isChanged(const SImageFiles::SImage &image, const QString &copy) const;

    QHash<QString, SKnown> m_known;
};
