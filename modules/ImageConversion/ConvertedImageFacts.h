#pragma once

#include <QSize>
#include <QString>

/// Size of an image as its description (the tools' NAME.json beside NAME.raw) tells it. Invalid
/// when there is none, or when it does not go with the .raw file or lies about its size.
QSize describedSize(const QString &rawFile);
