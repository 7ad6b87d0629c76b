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

    /// Whether the item shows an image of a file.
    static bool showsImage(const CItemModel &item);
    /// The file that the item's image was made of, or the copy that the converter has left beside
    /// what it made; empty when both are gone.
    static QString sourceOf(const CItemModel &item);
    /// Whether another format of the item needs its image converted anew. A raw file stays what it
    /// is; its format only says what it holds.
    static bool isConverted(const CItemModel &item, const QString &format);

    /// Asks the user for the file.
    void choose(CItemModel *item);
    /// Takes a file, in the format of this name. False when the item stays as it is.
    bool change(CItemModel *item, const QString &file, const QString &format);

Q_SIGNALS:
    void message(const QString &text); ///< why an image could not be taken

private:
    std::optional<SConvertedImage> convert(const CItemModel &item, const QString &file,
                                           const QString &format);

    QWidget *const m_window; ///< parent of the file dialog
    CImageFileConverter *const m_converter;
};
