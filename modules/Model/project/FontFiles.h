#pragma once

#include "ProjectFonts.h"

class CProjectModel;

/// The files of a project's fonts.
namespace FontFiles {
/// The folder that takes them, absolute: beside the project's file, called after the project.
QString folder(const CProjectModel &project);

/// Copies those that lie elsewhere into the project's folder of fonts and lets the list call them
/// there. A file of the same content is shared; one of another content is never replaced.
/// Empty when all are there, otherwise the reason, and nothing has been made or changed.
QString bringIn(const CProjectModel &project, ProjectFontList &fonts);
} // namespace FontFiles
