#pragma once

#include <QHash>
#include <QObject>
#include <QVariant>

#include <optional>

class CImageFileConverter;
class CItemModel;
class QWidget;
struct SConvertedImage;

/// Gives another image to an item that shows one: asks for the file, has it converted, and changes
/// the item's properties as one undo step. What fails changes nothing.
class CImageChooser : public QObject
{
    Q_OBJECT

public:
    explicit CImageChooser(QWidget *window);

    /// The file that the item's image was made of, or the copy that the converter has left beside
    /// what it made; an absolute path, empty when both are gone.
    static QString sourceOf(const CItemModel &item);
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
    std::optional<SConvertedImage> convert(const CItemModel &item, const QString &file,
                                           const QString &format);

    QWidget *const m_window; ///< parent of the file dialog
    CImageFileConverter *const m_converter;
};
