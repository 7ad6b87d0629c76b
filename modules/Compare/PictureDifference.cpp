#include "PictureDifference.h"

#include <algorithm>
#include <utility>

namespace {

constexpr QRgb ColourBits = 0x00ffffff;
constexpr QRgb Differs = 0xffe5484d;

const QRgb *line(const QImage &picture, int y)
{
    return reinterpret_cast<const QRgb *>(picture.constScanLine(y));
}

constexpr int CellSide = 8; // pixels; differences in cells that touch are one place

/// Boxes of the pixels that differ, cell by cell; null where none do.
class CCells
{
public:
    CCells(const QImage &before, const QImage &after)
        : m_columns((before.width() + CellSide - 1) / CellSide),
          m_rows((before.height() + CellSide - 1) / CellSide),
          m_boxes(m_columns * m_rows)
    {
        for (int y = 0; y < before.height(); ++y)
            for (int x = 0; x < before.width(); ++x)
                if (((line(before, y)[x] ^ line(after, y)[x]) & ColourBits) != 0)
                    m_boxes[y / CellSide * m_columns + x / CellSide] |= QRect(x, y, 1, 1);
    }

    /// Takes the cells of one place; a null box when none are left.
    QRect take()
    {
        while (m_next < m_boxes.size() && m_boxes.at(m_next).isNull())
            ++m_next;
        QRect place;
        QVector<int> open;
        if (m_next < m_boxes.size())
            open.append(m_next);
        while (!open.isEmpty()) {
            const int cell = open.takeLast();
            place |= std::exchange(m_boxes[cell], QRect());
            for (int row = cell / m_columns - 1; row <= cell / m_columns + 1; ++row)
                for (int column = cell % m_columns - 1; column <= cell % m_columns + 1; ++column)
                    if (row >= 0 && row < m_rows && column >= 0 && column < m_columns &&
                        !m_boxes.at(row * m_columns + column).isNull())
                        open.append(row * m_columns + column);
        }
        return place;
    }

private:
    const int m_columns;
    const int m_rows;
    QVector<QRect> m_boxes;
    int m_next = 0;
};

/// A quarter of the colour's grey on white.
QRgb pale(QRgb colour)
{
    const int grey = 191 + qGray(colour) / 4;
    return qRgb(grey, grey, grey);
}

} // namespace

SPictureDifference pictureDifference(const QImage &before, const QImage &after)
{
    const QImage a = before.convertToFormat(QImage::Format_RGB32);
    const QImage b = after.convertToFormat(QImage::Format_RGB32);
    if (a.size() != b.size()) {
        const QSize all = a.size().expandedTo(b.size());
        return {qint64{all.width()} * all.height(), QRect(QPoint(0, 0), all)};
    }
    qint64 pixels = 0;
    int left = a.width();
    int right = -1;
    int top = -1;
    int bottom = -1;
    for (int y = 0; y < a.height(); ++y) {
        const QRgb *lineA = line(a, y);
        const QRgb *lineB = line(b, y);
        for (int x = 0; x < a.width(); ++x) {
            if (((lineA[x] ^ lineB[x]) & ColourBits) == 0)
                continue;
            ++pixels;
            left = std::min(left, x);
            right = std::max(right, x);
            top = top < 0 ? y : top;
            bottom = y;
        }
    }
    if (pixels == 0)
        return {};
    return {pixels, QRect(QPoint(left, top), QPoint(right, bottom))};
}

QImage differencePicture(const QImage &before, const QImage &after)
{
    const QImage a = before.convertToFormat(QImage::Format_RGB32);
    const QImage b = after.convertToFormat(QImage::Format_RGB32);
    QImage result(a.size().expandedTo(b.size()), QImage::Format_RGB32);
    result.fill(Differs);
    const QSize common = a.size().boundedTo(b.size());
    for (int y = 0; y < common.height(); ++y) {
        auto *out = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < common.width(); ++x)
            if (((line(a, y)[x] ^ line(b, y)[x]) & ColourBits) == 0)
                out[x] = pale(line(b, y)[x]);
    }
    return result;
}

QVector<QRect> differencePlaces(const QImage &before, const QImage &after)
{
    const QImage a = before.convertToFormat(QImage::Format_RGB32);
    const QImage b = after.convertToFormat(QImage::Format_RGB32);
    const SPictureDifference all = pictureDifference(a, b);
    if (all.isEmpty() || a.size() != b.size())
        return all.isEmpty() ? QVector<QRect>() : QVector<QRect>{all.box};
    CCells cells(a, b);
    QVector<QRect> places;
    for (QRect place = cells.take(); !place.isNull(); place = cells.take()) {
        if (places.size() == MaxPlaces)
            return {all.box};
        places.append(place);
    }
    return places;
}
