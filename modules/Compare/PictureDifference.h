#pragma once

#include <QImage>
#include <QRect>
#include <QVector>

/// Where two pictures of a screen differ; the smallest difference of a colour counts, alpha does
/// not. Of pictures of different sizes all differs.
struct SPictureDifference
{
    qint64 pixels = 0;
    QRect box; ///< the least that holds all of them

    bool isEmpty() const { return pixels == 0; }
};

SPictureDifference pictureDifference(const QImage &before, const QImage &after);

/// The later picture, pale, with the pixels that differ in red. As large as both together.
QImage differencePicture(const QImage &before, const QImage &after);

/// The places in which the pictures differ, each the least box of pixels that lie close together;
/// at most MaxPlaces, else one box of all.
constexpr int MaxPlaces = 64;
QVector<QRect> differencePlaces(const QImage &before, const QImage &after);
