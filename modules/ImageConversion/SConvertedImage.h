#pragma once

#include <QString>

/// What a bitmap or media widget has to know of its image: values for its properties of these
/// names. The file is  bfolder/basename_format.raw  for a converted image, and
/// bfolder/basename.suffix where nothing was converted: raw files (suffix "raw") and media.
struct SConvertedImage
{
    QString basename; ///< of the source file
    QString suffix;   ///< of the source file
    QString bfolder;  ///< relative to the project's working directory when it lies under it
    QString format;   ///< "None" for raw files
    int bwidth = 0;   ///< pixels; 0 for a raw file without a description beside it
    int bheight = 0;
    bool video = false;
    QString path; ///< the file, absolute
};
