#pragma once

#include <QString>
#include <QStringList>

class CConversionPaths;

/// Which name belongs to which image in a folder of converted images. A base name belongs to one
/// image: to its source, which lies there as a copy, and to what was made of it. Another image of
/// the same name gets a base name of its own, so that no file there ever changes and whoever refers
/// to one, also from the undo history, finds what he left.
namespace ImageNames {
/// The name to try at the n-th attempt: "logo.png", "logo_2.png", "logo_3.png", ...
QString numbered(const QString &name, int number);

/// What lies in the folder under the base name: names of sources and of what was made of them.
QStringList filesOf(const QString &folder, const QString &base);
/// Whether a file was made of the image, in any format: base_FORMAT.raw, .json, .lut.
bool isOutput(const QString &fileName, const QString &base);
/// The copy of the source that lies in the folder, as a path; empty when there is none.
QString sourceIn(const QString &folder, const QString &base);

/// The files of the image in one format, with their paths, whether they are there or not.
QStringList outputs(const CConversionPaths &paths, int formatCode);
bool areOutputsEqual(const CConversionPaths &one, const CConversionPaths &other, int formatCode);
/// Puts the source beside what was made of it in this format alone, if no source lies there: else
/// it could not be converted into another one.
void completeSource(const CConversionPaths &paths, int formatCode, const QString &source);

enum class EState {
    /// Nothing is there, or the same source, in other formats. The .raw file is made last: what a
    /// killed conversion has left without it may be made anew.
    Free,
    Made, ///< maybe the same: it was made in this format, of this source or of an unknown one
    Taken ///< belongs to another image
};
EState stateOf(const CConversionPaths &paths, int formatCode, const QString &source);
} // namespace ImageNames
