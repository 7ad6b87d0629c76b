#pragma once

#include <QByteArray>

struct SPackageContent;

/// panel.h: constants for screens, items and assets, and the declaration of the blob. Holds
/// nothing that follows from names but the lines of what is named.
QByteArray packageHeader(const SPackageContent &content);
/// panel.c: the blob as an array. Both are C99, C11 and C++17.
QByteArray packageCode(const SPackageContent &content, const QByteArray &blob);
