#include "CPicturePairs.h"

#include "BackgroundWork.h"

#include <QSet>

#include <cstring>
#include <iterator>

CPicturePairs::SPacked CPicturePairs::packed(const QImage &picture, int number)
{
    return {picture.size(), qCompress(picture.constBits(), int(picture.sizeInBytes()), 1), number};
}

QImage CPicturePairs::unpacked(const SPacked &picture)
{
    const QByteArray bytes = picture.bytes.isEmpty() ? QByteArray() : qUncompress(picture.bytes);
    QImage image(picture.size, QImage::Format_RGB32);
    if (bytes.isEmpty() || image.sizeInBytes() != bytes.size())
        return {};
    std::memcpy(image.bits(), bytes.constData(), size_t(bytes.size()));
    return image;
}

void CPicturePairs::setPairs(const Pages &pairs, const QVector<const CItemModel *> &others)
{
    QSet<const CItemModel *> kept(others.begin(), others.end());
    for (auto each = pairs.cbegin(); each != pairs.cend(); ++each) {
        kept.insert(each.key());
        kept.insert(each.value());
    }
    for (auto each = m_packed.begin(); each != m_packed.end();)
        each = kept.contains(each.key()) ? std::next(each) : m_packed.erase(each);
    const Pages old = std::exchange(m_pairs, pairs);
    for (auto each = m_differences.begin(); each != m_differences.end();)
        each = m_pairs.contains(each.key()) ? std::next(each) : m_differences.erase(each);
    for (auto each = m_pairs.cbegin(); each != m_pairs.cend(); ++each)
        if (old.value(each.key()) != each.value())
            compare(each.key());
}

void CPicturePairs::add(const CItemModel *page, const QImage &picture)
{
    const int number = ++m_number;
    m_asked.insert(page, number);
    ++m_working;
    BackgroundWork::run(
        this, [picture, number] { return packed(picture, number); },
        [this, page](const SPacked &result) {
            if (m_asked.value(page) == result.number) {
                m_packed.insert(page, result);
                Q_EMIT taken();
                compare(m_pairs.contains(page) ? page : m_pairs.key(page));
            }
            finish();
        });
}

void CPicturePairs::compare(const CItemModel *page)
{
    const CItemModel *earlier = m_pairs.value(page);
    const SPacked before = m_packed.value(earlier);
    const SPacked after = m_packed.value(page);
    m_differences.remove(page);
    if (before.bytes.isEmpty() || after.bytes.isEmpty())
        return;
    ++m_working;
    BackgroundWork::run(
        this,
        [before, after] {
            return before.size == after.size && before.bytes == after.bytes
                       ? SPictureDifference()
                       : pictureDifference(unpacked(before), unpacked(after));
        },
        [this, page, earlier, numbers = std::make_pair(before.number, after.number)](
            const SPictureDifference &difference) {
            const bool isCurrent = m_pairs.value(page) == earlier &&
                                   m_packed.value(earlier).number == numbers.first &&
                                   m_packed.value(page).number == numbers.second;
            if (isCurrent && !difference.isEmpty())
                m_differences.insert(page, difference);
            finish();
        });
}

void CPicturePairs::fetch(const CItemModel *before, const CItemModel *now)
{
    const int number = ++m_fetch;
    BackgroundWork::run(
        this,
        [before = m_packed.value(before), now = m_packed.value(now)] {
            SShown shown{unpacked(before), unpacked(now), {}, {}};
            if (!shown.before.isNull() && !shown.now.isNull()) {
                shown.difference = differencePicture(shown.before, shown.now);
                shown.places = differencePlaces(shown.before, shown.now);
            }
            return shown;
        },
        [this, number](const SShown &shown) {
            if (number == m_fetch)
                Q_EMIT fetched(shown);
        });
}

void CPicturePairs::finish()
{
    if (--m_working == 0)
        Q_EMIT compared();
}

/// What is being worked out is thrown away when it comes.
void CPicturePairs::clear()
{
    m_pairs.clear();
    m_packed.clear();
    m_asked.clear();
    m_differences.clear();
}
