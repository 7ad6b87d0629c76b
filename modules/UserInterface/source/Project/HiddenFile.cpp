#include "HiddenFile.h"

#include <QString>

#ifdef Q_OS_WIN
#include <qt_windows.h>

void hideFile(const QString &path)
{
    const auto *name = reinterpret_cast<const wchar_t *>(path.utf16());
    const DWORD attributes = GetFileAttributesW(name);
    if (attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_HIDDEN))
        SetFileAttributesW(name, attributes | FILE_ATTRIBUTE_HIDDEN);
}
#else
void hideFile(const QString &)
{
}
#endif
