#pragma once

#include <QHash>
#include <QObject>
#include <QSize>
#include <QVariant>

#include <optional>

class CImageFileConverter;
class CItemModel;
class CProjectModel;
class QProgressDialog;
class QWidget;

/// Takes images from files for widgets that show one. However a file comes (dropped, asked for when
/// a kind is dropped, chosen in the property panel, converted anew), it goes this way; whoever asks
/// for it puts the values into the widget, by commands where they are to be undone.
class CItemImages final : public QObject
{
    Q_OBJECT

public:
    /// An image that lies ready in the project.
    struct SImage
    {
        QHash<QString, QVariant> values; ///< of the item's properties, by key
        QSize size;                      ///< pixels; empty when it is not known
        qint64 bytes = 0;                ///< of the chip's graphics memory
    };

    /// `window`: over which it asks.
    CItemImages(QWidget *window, QObject *parent);

    /// The kind of widget that shows a file; empty for files that none shows.
    static QString kindFor(const QString &file);
    /// Whether widgets of the kind are made with an image.
    static bool isKind(const QString &type);
    /// Images of media stay as they are; the chip decodes them.
    static bool isMedia(const CItemModel &item);
    /// Absolute; empty when the item has none.
    static QString folderOf(const CItemModel &item);
    /// The file that the item's image was made of, or the copy that the converter has left beside
    /// what it made; an absolute path, empty when both are gone.
    static QString sourceOf(const CItemModel &item);
    /// What a file is converted into: the item's format, or the usual one if nobody chose it.
    static QString formatFor(const CItemModel &item, const QString &file);

    /// Over all that is taken until it is deleted: modal, seen already, its Cancel ends the tool.
    void setBox(QProgressDialog *box);
    /// Asks the user for a file; empty when there is none.
    QString ask(const CItemModel &item);
    /// Converts a file into the format of this name; media stay as they are. Nothing, and a
    /// message, when it cannot be done. The item is not changed.
    std::optional<SImage> take(const CItemModel &item, const QString &file, const QString &format);
    /// Whether there is room for it in the chip's graphics memory, of which `used` bytes are needed
    /// for other things. Only the renderer knows for sure.
    static bool fits(const SImage &image, const CProjectModel &project, size_t used);

Q_SIGNALS:
    void message(const QString &text);

private:
    QWidget *const m_window; ///< not owned
    CImageFileConverter *const m_converter;
};
