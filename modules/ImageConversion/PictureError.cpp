#include "PictureError.h"

#include <QPainter>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr int Window = 8;
constexpr int Step = 4;
constexpr double Most = 255;

QImage laidOn(Qt::GlobalColor ground, const QImage &picture)
{
    QImage result(picture.size(), QImage::Format_RGB32);
    result.fill(ground);
    QPainter(&result).drawImage(0, 0, picture);
    return result;
}

const QRgb *row(const QImage &picture, int y)
{
    return reinterpret_cast<const QRgb *>(picture.constScanLine(y));
}

/// ITU-R BT.601, as everybody's figures of this measure.
std::vector<double> luminances(const QImage &picture)
{
    std::vector<double> result;
    result.reserve(static_cast<size_t>(picture.width()) * static_cast<size_t>(picture.height()));
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb c = row(picture, y)[x];
            result.push_back(0.299 * qRed(c) + 0.587 * qGreen(c) + 0.114 * qBlue(c));
        }
    return result;
}

double similarityOfWindow(const std::vector<double> &a, const std::vector<double> &b, int width,
                          const QRect &window)
{
    double sumA = 0;
    double sumB = 0;
    double squaresA = 0;
    double squaresB = 0;
    double products = 0;
    for (int y = window.top(); y <= window.bottom(); ++y)
        for (int x = window.left(); x <= window.right(); ++x) {
            const size_t i =
                static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x);
            sumA += a[i];
            sumB += b[i];
            squaresA += a[i] * a[i];
            squaresB += b[i] * b[i];
            products += a[i] * b[i];
        }
    const double count = double(window.width()) * window.height();
    const double meanA = sumA / count;
    const double meanB = sumB / count;
    const double varianceA = squaresA / count - meanA * meanA;
    const double varianceB = squaresB / count - meanB * meanB;
    const double covariance = products / count - meanA * meanB;
    constexpr double C1 = (0.01 * Most) * (0.01 * Most);
    constexpr double C2 = (0.03 * Most) * (0.03 * Most);
    return (2 * meanA * meanB + C1) * (2 * covariance + C2) /
           ((meanA * meanA + meanB * meanB + C1) * (varianceA + varianceB + C2));
}

double similarity(const QImage &a, const QImage &b)
{
    const std::vector<double> lightsA = luminances(a);
    const std::vector<double> lightsB = luminances(b);
    const int across = std::min(Window, a.width()); // small pictures are one window
    const int down = std::min(Window, a.height());
    double sum = 0;
    int count = 0;
    for (int y = 0; y + down <= a.height(); y += Step)
        for (int x = 0; x + across <= a.width(); x += Step) {
            sum += similarityOfWindow(lightsA, lightsB, a.width(), QRect(x, y, across, down));
            ++count;
        }
    return count == 0 ? 1 : sum / count;
}

/// Of pictures of one size, not empty, without alpha.
double squaresOf(const QImage &a, const QImage &b)
{
    double squares = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb one = row(a, y)[x];
            const QRgb other = row(b, y)[x];
            const int red = qRed(one) - qRed(other);
            const int green = qGreen(one) - qGreen(other);
            const int blue = qBlue(one) - qBlue(other);
            squares += red * red + green * green + blue * blue;
        }
    return squares;
}

bool hasTransparentParts(const QImage &picture)
{
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; picture.hasAlphaChannel() && y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(row(image, y)[x]) < 255)
                return true;
    return false;
}

} // namespace

SPictureError pictureError(const QImage &original, const QImage &made)
{
    SPictureError error;
    if (original.size() != made.size() || original.isNull())
        return error;
    QVector<Qt::GlobalColor> grounds{Qt::black};
    if (hasTransparentParts(original))
        grounds.append(Qt::white);
    error.ssim = 0;
    for (const Qt::GlobalColor ground : grounds) {
        const QImage a = laidOn(ground, original);
        const QImage b = laidOn(ground, made);
        error.squares += squaresOf(a, b) / grounds.size();
        error.ssim += similarity(a, b) / grounds.size();
    }
    const double mean = error.squares / (3.0 * original.width() * original.height());
    error.psnr =
        mean > 0 ? 10 * std::log10(Most * Most / mean) : std::numeric_limits<double>::infinity();
    return error;
}
