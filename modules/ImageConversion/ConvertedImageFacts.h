#pragma once

#include <QSize>
#include <QString>

/// Size of an image as its description (the tools' NAME.json beside NAME.raw) tells it. Invalid
/// when there is none, or when it does not go with the .raw file or lies about its size.
QSize describedSize(const QString &rawFile);

/// A camera's mark says how a picture is to be turned: the image tools do so, the chip does not.
enum class ETurn { AsMarked, AsStored };

/// Size that an image file of the kind its suffix names will have when it is read, asked without
/// decoding it. Invalid when it cannot be told.
QSize imageFileSize(const QString &file, ETurn turn);
