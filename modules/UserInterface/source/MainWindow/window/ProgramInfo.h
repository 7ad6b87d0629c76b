#pragma once

#include <QString>

/// What the program calls itself.
namespace ProgramInfo {
inline const QString Name = QStringLiteral("KIV Panel Composer");
inline const QString Version = QStringLiteral("2.06");

/// Name, version and the day of the build as the about box shows them, in a language ("de").
QString about(const QString &language);
} // namespace ProgramInfo
