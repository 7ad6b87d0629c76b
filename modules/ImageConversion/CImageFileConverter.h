#pragma once

#include "CConversionPaths.h"
#include "SConvertedImage.h"

#include <QObject>
#include <QPointer>
#include <QVector>
#include <optional>

class CProjectModel;
class QProgressDialog;
struct SToolCall;

/// Turns images into the chip's bitmap formats by the tools beside the program, into the folder of
/// converted images of the open project. A conversion takes as long as its tool, under a modal box
/// with a Cancel button; the event loop runs on meanwhile. Every failure is a false result, and
/// failed() says why; it leaves nothing behind.
/// No file of an earlier conversion is ever replaced: an image that was converted already is
/// shared, and another one of the same name gets a base name of its own (see ImageNames).
/// Several conversions in a row can have one box.
class CImageFileConverter : public QObject
{
    Q_OBJECT
public:
    explicit CImageFileConverter(QObject *parent = nullptr);

    /// The box, as CToolRunner wants it, until it is deleted.
    void setBox(QProgressDialog *box);

    /// Converts into the format of this name. A source whose suffix is "raw" is only copied.
    bool convert(const QString &source, const QString &formatName);
    /// The same by the format's code.
    bool convert(const QString &source, int formatCode);

    /// Converts, and tells what an item has to know of the outcome; nothing also when its size is
    /// not known or not in 1 .. MaxImageSide (a raw file's may be unknown).
    std::optional<SConvertedImage> convertedImage(const QString &source, const QString &formatName);
    /// The same for a media file (.jpg, .png, .avi), which stays where it is; the format is
    /// "RGB565", as the chip decodes it unless it is mono. failed() says why there is nothing.
    std::optional<SConvertedImage> mediaImage(const QString &file);

    /// Frame size of an AVI video as its header says, which may be anything; false, and the numbers
    /// unchanged, when it has none or is no regular file.
    static bool aviFrameSize(const QString &file, quint32 &width, quint32 &height);

    /// The format for an image of a widget that has none yet: its kind's usual one, or, since a
    /// JPEG has no transparent parts, "RGB565".
    static QString usualFormat(const QString &source, const QString &ofItsKind);

    /// ConvertedImages::folder() of the open project; empty when none is open.
    static QString convertedImagesFolder();

    static constexpr int MaxImageSide = 2048;                   ///< pixels; the most that is drawn
    static constexpr qint64 MaxSourceBytes = qint64{256} << 20; ///< far above any image for a chip

Q_SIGNALS:
    void failed(const QString &reason);
    /// The conversion was done, but there is something to know about its outcome.
    void warned(const QString &text);

private:
    using Paths = std::optional<CConversionPaths>;

    /// Where the image is in this format now.
    Paths place(const QString &source, int formatCode);
    Paths placeRaw(const QString &source);
    Paths run(const QString &source, const CConversionPaths &paths, int formatCode,
              const QVector<CConversionPaths> &candidates);
    bool runTools(const CConversionPaths &paths, int formatCode);
    /// Leaves the quantised image under the name that the splitter is given.
    bool quantise(const CConversionPaths &paths, int formatCode);
    /// Runs a tool that must leave this file, made anew.
    bool runTool(const SToolCall &call, const QString &output);
    bool failAsTooLarge(const QString &source);
    bool fail(const QString &reason);

    QPointer<QProgressDialog> m_box; ///< null: each tool has its own
};
