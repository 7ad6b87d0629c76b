#pragma once

#include <QObject>

class CItemImages;
class CItemModel;
class QWidget;

/// Gives another image to an item that shows one: asks for the file, has it converted, and changes
/// the item's properties as one undo step. What fails changes nothing.
class CImageChooser : public QObject
{
    Q_OBJECT

public:
    explicit CImageChooser(QWidget *window);

    /// What another format means for an item.
    enum class EFormat {
        Value,      ///< nothing but another value: it shows no image, or a raw file, whose format
                    ///< only says what it holds
        Conversion, ///< its image is converted anew
        Lost        ///< it cannot be: what the image was made of is gone
    };
    static EFormat changeOf(const CItemModel &item, const QString &format);

    /// Asks the user for the file.
    void choose(CItemModel *item);
    /// Takes a file, in the format of this name. False when the item stays as it is.
    bool change(CItemModel *item, const QString &file, const QString &format);
    /// Converts the item's image anew. False, with a message, when the item stays as it is.
    bool changeFormat(CItemModel *item, const QString &format);

Q_SIGNALS:
    void message(const QString &text); ///< why an image could not be taken

private:
    CItemImages *const m_images;
};
