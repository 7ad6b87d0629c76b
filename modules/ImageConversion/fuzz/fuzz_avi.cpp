#include "CAviReader.h"

#include <QBuffer>
#include <QtEndian>
#include <cstdlib>

// Whatever the file says: nothing outside it is read, and what is read stands in it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    quint32 width = 0;
    quint32 height = 0;
    if (!CAviReader::frameSize(buffer, width, height))
        return 0;
    QByteArray numbers(8, '\0');
    qToLittleEndian(width, numbers.data());
    qToLittleEndian(height, numbers.data() + 4);
    if (!bytes.contains("avih") || !bytes.contains(numbers))
        std::abort();
    return 0;
}
