#pragma once

#include <QString>
#include <QStringList>

/// The chip code of a platform name: 0x100 for "QX100", 0x110 for "QX110" and so on. Any name that
/// does not begin with "QX1" gives 0x100; one whose rest is not hexadecimal gives 0.
quint32 chipCodeOfPlatform(const QString &platform);

/// Alternatives in the texts of a widget library, chosen by the chip that it is loaded for.
namespace PlatformFilter {
/// Whether one of the filter's comma-separated conditions holds: "QX100" (this chip),
/// "QX110.." (from it on), "..QX101" (up to it), "QX100..QX110" (between, both included).
bool matches(const QString &filter, quint32 chipCode);

/// The first alternative of "text@filter|text@filter|text" that has no filter or one that matches;
/// empty when there is none.
QString resolve(const QString &alternatives, quint32 chipCode);

/// The entries of an enumeration's type text, "enum:A|B@QX110..|C", that the chip has.
QStringList enumerationEntries(const QString &typeText, quint32 chipCode);
} // namespace PlatformFilter
