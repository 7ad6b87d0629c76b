#pragma once

#include <QByteArray>

#include <cstdint>

struct SPackageContent;

/// panel.bin: see docs/package-format.md.
constexpr uint32_t PackageFormatVersion = 1;
QByteArray packageBlob(const SPackageContent &content);

/// The check sum of a blob: CRC-32, polynomial 0xEDB88320.
uint32_t crc32(const QByteArray &bytes, int from = 0);
