#pragma once

#include "CToolRunner.h"

#include <QStringList>

class CConversionPaths;

/// How the image tools beside the program are called.
namespace ImageTools {
/// The call that leaves the file of a format, to be run in its folder, where the source lies; for a
/// palette format the quantiser goes before. No program for codes that are no format's.
SToolCall conversion(const CConversionPaths &paths, int formatCode, const QString &programFolder);
SToolCall quantiser(const CConversionPaths &paths, int formatCode, const QString &programFolder);
bool needsQuantiser(int formatCode);
/// The names under which quantisers leave their output: they always write PNG, and keep all of a
/// name that has more than one dot, or not. The first is what the conversion is given.
QStringList quantisedNames(const CConversionPaths &paths);
} // namespace ImageTools
