#pragma once

#include "SConvertedImage.h"

#include <QObject>
#include <optional>

class CConversionPaths;
struct SToolCall;

/// Turns images into the chip's bitmap formats by the tools beside the program, into the folder of
/// converted images of the open project. A conversion takes as long as its tool, under a modal box
/// with a Cancel button; the event loop runs on meanwhile. Every failure is a false result, and
/// failed() says why.
/// A source file of the same name replaces the one converted before.
class CImageFileConverter : public QObject
{
    Q_OBJECT
public:
    explicit CImageFileConverter(QObject *parent = nullptr);

    /// Converts into the format of this name. A source whose suffix is "raw" is only copied.
    bool convert(const QString &source, const QString &formatName);
    /// The same by the format's code.
    bool convert(const QString &source, int formatCode);

    /// What the conversion of this source into this format has left; nothing when its output is
    /// not there or its size is not known or not in 1 .. MaxImageSide.
    static std::optional<SConvertedImage> convertedImage(const QString &source,
                                                         const QString &formatName);
    /// The same for a media file (.jpg, .png, .avi), which stays where it is; the format is
    /// "RGB565", as the chip decodes it unless it is mono. failed() says why there is nothing.
    std::optional<SConvertedImage> mediaImage(const QString &file);

    /// Frame size of an AVI video; see CAviReader.
    static bool aviFrameSize(const QString &file, quint32 &width, quint32 &height);

    /// Absolute path; empty when no project is open.
    static QString convertedImagesFolder();

    static constexpr int MaxImageSide = 2048;                   ///< pixels; the most that is drawn
    static constexpr qint64 MaxSourceBytes = 256 * 1024 * 1024; ///< far above any image for a chip

Q_SIGNALS:
    void failed(const QString &reason);
    /// The conversion was done, but there is something to know about its outcome.
    void warned(const QString &text);

private:
    bool convertRaw(const QString &source, const CConversionPaths &paths);
    bool convertGeneral(const QString &source, int formatCode, const CConversionPaths &paths);
    bool convertPaletted(const QString &source, int formatCode, const CConversionPaths &paths);
    bool convertDxt1(const QString &source, int formatCode, const CConversionPaths &paths);
    /// Leaves the quantised image under the name that the splitter is given.
    bool quantise(const QString &folder, const CConversionPaths &paths);

    /// Runs a tool that must leave this file, made anew.
    bool runTool(const SToolCall &call, const QString &output);
    /// Makes the folder and puts the source into it.
    bool placeSource(const QString &source, const QString &folder);
    bool copyFile(const QString &source, const QString &target);
    bool failAsTooLarge(const QString &source);
    bool fail(const QString &reason);
};
