#pragma once

#include <QVector>

#include <cstddef>

/// Which formats images should have so that every screen fits, with the least visible loss.
namespace FormatFit {

/// One way to keep an image.
struct SOption
{
    size_t bytes = 0;
    double loss = 0; ///< squared error over all pixels; adds up over images
};

struct SImage
{
    QVector<SOption> options; ///< at least one
};

struct SScreen
{
    QVector<int> images;   ///< that it shows, as indices, each once
    size_t otherBytes = 0; ///< that are needed whatever the images are
    size_t budget = 0;
};

struct SChoice
{
    QVector<int> options; ///< index of the option of each image
    bool fits = false;    ///< every screen does
};

/// A multiple-choice knapsack with one limit for each screen, solved along the lower convex hull of
/// each image's options, as its linear relaxation is (Sinha and Zoltners, 1979): all begin with
/// their best option, then, as long as a screen is too large, that image takes its next smaller one
/// which loses least for each byte saved on such screens; in the end each takes back what there is
/// room for. For one limit the loss is at most that of the last step above the optimum.
SChoice choose(const QVector<SImage> &images, const QVector<SScreen> &screens);

} // namespace FormatFit
