#include "CAviReader.h"

#include "RegularFile.h"

#include <QFile>
#include <QtEndian>
#include <algorithm>
#include <optional>

namespace {

struct SRange
{
    qint64 start;
    qint64 end;
};

constexpr qint64 FrameSizeOffset = 32;
constexpr qint64 NumberBytes = 4;

std::optional<QByteArray> readAt(QIODevice &device, qint64 position, qint64 count)
{
    if (!device.seek(position))
        return std::nullopt;
    QByteArray bytes = device.read(count);
    return bytes.size() == count ? std::make_optional(bytes) : std::nullopt;
}

/// The data of the first chunk in `within` that has this id and, unless empty, this form; the form
/// itself is not part of it.
std::optional<SRange> findChunk(QIODevice &device, SRange within, const char *id, const char *form)
{
    const qint64 headerBytes = 8;
    const qint64 formBytes = qstrlen(form);
    qint64 position = within.start;
    for (int i = 0; i < CAviReader::MaxChunks && position + headerBytes <= within.end; ++i) {
        const auto header = readAt(device, position, headerBytes);
        if (!header)
            return std::nullopt;
        const qint64 size = qFromLittleEndian<quint32>(header->constData() + 4);
        const qint64 start = position + headerBytes;
        const SRange data{start + formBytes, std::min(start + size, within.end)};
        if (header->startsWith(id) && data.start <= data.end &&
            readAt(device, start, formBytes) == QByteArray(form))
            return data;
        position = start + size + size % 2; // chunks begin at even places
    }
    return std::nullopt;
}

} // namespace

bool CAviReader::frameSize(QIODevice &device, quint32 &width, quint32 &height)
{
    const auto riff = findChunk(device, {0, device.size()}, "RIFF", "AVI ");
    const auto list = riff ? findChunk(device, *riff, "LIST", "hdrl") : std::nullopt;
    const auto header = list ? findChunk(device, *list, "avih", "") : std::nullopt;
    if (!header || header->end - header->start < FrameSizeOffset + 2 * NumberBytes)
        return false;
    const auto sizes = readAt(device, header->start + FrameSizeOffset, 2 * NumberBytes);
    if (!sizes)
        return false;
    width = qFromLittleEndian<quint32>(sizes->constData());
    height = qFromLittleEndian<quint32>(sizes->constData() + NumberBytes);
    return true;
}

bool CAviReader::frameSize(const QString &file, quint32 &width, quint32 &height)
{
    QFile device(file);
    return openRegularFile(device, file) &&
           frameSize(device, width, height);
}
