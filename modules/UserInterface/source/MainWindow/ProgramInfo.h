#pragma once

#include <QString>

/// What the program calls itself.
namespace ProgramInfo {
inline const QString Name = QStringLiteral("KIV Panel Composer");
inline const QString Version = QStringLiteral("2.06");
} // namespace ProgramInfo
