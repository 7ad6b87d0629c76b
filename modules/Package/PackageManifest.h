#pragma once

#include <QByteArray>

struct SPackageContent;

/// manifest.json: what is in the package, for people and scripts; docs/package-manifest.schema.json
/// describes it.
QByteArray packageManifest(const SPackageContent &content, const QByteArray &blob);
