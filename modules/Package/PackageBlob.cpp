#include "PackageBlob.h"

#include "SPackageContent.h"
#include "displaylist/DisplayListText.h"

#include <QHash>
#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace {

constexpr int HeaderBytes = 32;
constexpr int EntryBytes = 12;

class CBytes
{
public:
    void u16(uint32_t value) { put(static_cast<quint16>(value)); }
    void u32(size_t value) { put(static_cast<quint32>(value)); }
    void append(const QByteArray &bytes) { m_bytes += bytes; }
    void fill(int size) { m_bytes += QByteArray(size - m_bytes.size(), '\0'); }
    void align()
    {
        while (m_bytes.size() % 4 != 0)
            m_bytes += '\0';
    }
    int size() const { return m_bytes.size(); }
    QByteArray &bytes() { return m_bytes; }

private:
    template<typename Number>
    void put(Number value)
    {
        const Number little = qToLittleEndian(value);
        m_bytes.append(reinterpret_cast<const char *>(&little), sizeof little);
    }

    QByteArray m_bytes;
};

/// Texts, each once; offset 0 is the empty one.
class CNames
{
public:
    CNames() { offset(QString()); }
    uint32_t offset(const QString &name)
    {
        QString text = name;
        const QByteArray bytes = text.remove(QChar(u'\0')).toUtf8();
        const auto known = m_offsets.constFind(bytes);
        if (known != m_offsets.constEnd())
            return *known;
        const auto place = static_cast<uint32_t>(m_bytes.size());
        m_offsets.insert(bytes, place);
        m_bytes += bytes + '\0';
        return place;
    }
    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
    QHash<QByteArray, uint32_t> m_offsets;
};

struct SSections
{
    CBytes screens;
    CBytes loads;
    CBytes blocks;
    CBytes assets;
    CBytes items;
    CNames names;
    CBytes lists;
    CBytes data;
};

void addItem(SSections &sections, const SPackageItem &item)
{
    constexpr double Sixteenths = 16;
    constexpr double Least = -32768;
    constexpr double Most = 32767;
    sections.items.u32(item.tag);
    sections.items.u32(sections.names.offset(item.name));
    for (const QPointF &corner : item.outline)
        for (const double place : {corner.x(), corner.y()}) {
            const double cut = std::clamp(std::round(place * Sixteenths), Least, Most);
            const bool isBox = !item.bounds.isEmpty() && cut == cut;
            sections.items.u16(isBox ? static_cast<uint16_t>(static_cast<int16_t>(cut)) : 0);
        }
}

/// Screens that load the same share their loads.
size_t addLoads(SSections &sections, const std::vector<size_t> &blocks,
                std::vector<std::pair<std::vector<size_t>, size_t>> &known)
{
    const auto found = std::find_if(known.begin(), known.end(),
                                    [&](const auto &each) { return each.first == blocks; });
    if (found != known.end())
        return found->second;
    const auto first = static_cast<size_t>(sections.loads.size() / 2);
    for (const size_t block : blocks)
        sections.loads.u16(static_cast<uint32_t>(block));
    known.push_back({blocks, first});
    return first;
}

void addScreens(SSections &sections, const SPackageContent &content)
{
    std::vector<std::pair<std::vector<size_t>, size_t>> known;
    size_t firstItem = 0;
    for (int i = 0; i < content.screens.size(); ++i) {
        const SPackageScreen &screen = content.screens[i];
        const std::vector<size_t> &blocks = content.plan->loads()[static_cast<size_t>(i)];
        const std::vector<uint8_t> list = kivemu::toBytes(screen.words);
        CBytes &record = sections.screens;
        record.u32(sections.names.offset(screen.name));
        record.u32(static_cast<size_t>(sections.lists.size()));
        record.u32(list.size());
        record.u32(addLoads(sections, blocks, known));
        record.u32(blocks.size());
        record.u32(firstItem);
        record.u32(static_cast<size_t>(screen.items.size()));
        sections.lists.append(
            QByteArray(reinterpret_cast<const char *>(list.data()), static_cast<int>(list.size())));
        for (const SPackageItem &item : screen.items)
            addItem(sections, item);
        firstItem += static_cast<size_t>(screen.items.size());
    }
}

/// Groups of the plan in their order; the data of each is where all of its blocks take it from.
void addMemory(SSections &sections, const SPackageContent &content)
{
    const CRamGPlan &plan = *content.plan;
    std::vector<int> dataOf;
    for (const CRamGPlan::SGroup &group : plan.groups()) {
        const int start = sections.data.size();
        dataOf.push_back(start);
        for (size_t i = 0; i < group.assets.size(); ++i) {
            sections.data.fill(start + static_cast<int>(group.offsets[i]));
            sections.data.append(content.assets[static_cast<int>(group.assets[i])].bytes);
        }
        sections.data.fill(start + static_cast<int>(group.bytes));
    }
    for (size_t i = 0; i < plan.blocks().size(); ++i) {
        const CRamGPlan::SBlock &block = plan.blocks()[i];
        sections.blocks.u32(block.address);
        sections.blocks.u32(block.bytes);
        sections.blocks.u32(static_cast<size_t>(dataOf[block.group]));
        const CRamGPlan::SGroup &group = plan.groups()[block.group];
        for (size_t asset = 0; asset < group.assets.size(); ++asset) {
            sections.assets.u32(i);
            sections.assets.u32(block.address + group.offsets[asset]);
            sections.assets.u32(static_cast<size_t>(
                content.assets[static_cast<int>(group.assets[asset])].bytes.size()));
        }
    }
}

} // namespace

uint32_t crc32(const QByteArray &bytes, int from)
{
    static const auto table = [] {
        std::array<uint32_t, 256> rows{};
        for (uint32_t byte = 0; byte < rows.size(); ++byte) {
            uint32_t value = byte;
            for (int bit = 0; bit < 8; ++bit)
                value = (value & 1) != 0 ? value >> 1 ^ 0xEDB88320 : value >> 1;
            rows[byte] = value;
        }
        return rows;
    }();
    uint32_t sum = 0xFFFFFFFF;
    for (int i = from; i < bytes.size(); ++i)
        sum = sum >> 8 ^ table[(sum ^ static_cast<uint8_t>(bytes[i])) & 0xFF];
    return sum ^ 0xFFFFFFFF;
}

QByteArray packageBlob(const SPackageContent &content)
{
    SSections sections;
    addScreens(sections, content);
    addMemory(sections, content);
    const QByteArray parts[] = {sections.screens.bytes(), sections.loads.bytes(),
                                sections.blocks.bytes(),  sections.assets.bytes(),
                                sections.items.bytes(),   sections.names.bytes(),
                                sections.lists.bytes(),   sections.data.bytes()};
    constexpr auto Count = static_cast<uint32_t>(std::size(parts));
    CBytes directory;
    CBytes body;
    constexpr size_t BodyStart = HeaderBytes + size_t{Count} * EntryBytes;
    uint32_t kind = 0;
    for (const QByteArray &part : parts) {
        directory.u32(++kind);
        directory.u32(BodyStart + static_cast<size_t>(body.size()));
        directory.u32(static_cast<size_t>(part.size()));
        body.append(part);
        body.align();
    }
    CBytes blob;
    blob.u32(BodyStart + static_cast<size_t>(body.size()));
    blob.u32(PackageFormatVersion);
    blob.u32(content.chipCode);
    blob.u16(static_cast<uint32_t>(content.frame.width()));
    blob.u16(static_cast<uint32_t>(content.frame.height()));
    blob.u32(Count);
    blob.u32(0);
    blob.append(directory.bytes());
    blob.append(body.bytes());
    CBytes start;
    start.append("KIVP");
    start.u32(crc32(blob.bytes()));
    return start.bytes() + blob.bytes();
}
