#pragma once

#include <QString>

#include <cstdint>

/// How files and formats are called in what leaves this machine.
/// A file below `folder` is named from there, another one without its folder.
QString fileInPackage(const QString &path, const QString &folder);
/// The name of a bitmap format, as in the display list's header, or "FONT" for a font block; the
/// code where it has none.
QString formatInPackage(uint32_t code);
