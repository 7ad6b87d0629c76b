#pragma once

#include "CImageFileLook.h"
#include "CPictureLook.h"
#include "SFinding.h"
#include "SScreenExport.h"

class CProjectModel;

/// What will go wrong on the device. Findings that somebody ignores (Rules::IgnoredKey) are among
/// them, with the reason. Texts are in the user's language. Reads the model: the GUI thread only.
namespace ProjectChecks {

/// Names of project properties, each with the value that counts when the project has none.
extern const QString DotsPerInch; ///< of the device's display; 150
extern const QString MemoryShare; ///< percent of a memory from which on it is told; 80

/// A screen by itself. `render` is what the emulator made of it as it is now, with frame and
/// memory; `picture`: as CPictureLook found it.
Findings ofScreen(const CItemModel &screen, const SScreenExport &render,
                  const SPictureState &picture);

/// The images that a screen draws: what tells their contents apart, and their files. Any thread may
/// ask.
using ImageContents = QVector<QPair<QByteArray, QString>>;
ImageContents imagesOf(const SScreenExport &render);

/// What several screens have to do with each other. `images`: of all screens.
Findings ofProject(const CProjectModel &project, const ImageContents &images);

/// What lies in the project's files. `state`: as CImageFileLook found it.
Findings ofFiles(const CProjectModel &project, const SImageFiles::SState &state);

} // namespace ProjectChecks
