#pragma once

#include <QObject>

class CImageFileConverter;
class CItemModel;

/// Brings the image that an item shows into another format: converts its file again and changes the
/// item's properties as one undo step. What fails changes nothing.
class CImageFormatChange : public QObject
{
    Q_OBJECT

public:
    explicit CImageFormatChange(QObject *parent = nullptr);

    /// Whether the item shows an image of a file.
    static bool showsImage(const CItemModel &item);
    /// The file that the item's image was made of; empty when it is not known or gone.
    static QString sourceOf(const CItemModel &item);

    /// Into the format of this name. False when the item stays as it is.
    bool change(CItemModel *item, const QString &format);

Q_SIGNALS:
    void message(const QString &text); ///< why an image could not be taken

private:
    CImageFileConverter *const m_converter;
};
