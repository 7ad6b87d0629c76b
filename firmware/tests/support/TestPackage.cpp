#include "TestPackage.h"

#include <algorithm>

namespace {

using Bytes = STestPackage::Bytes;

enum EKind { Screens = 1, Loads, Blocks, Assets, Items, Names, Lists, Data };
constexpr uint32_t HeaderBytes = 32;
constexpr uint32_t EntryBytes = 12;
constexpr uint32_t LastKind = Data;

void append(Bytes &bytes, uint32_t value, size_t count = 4)
{
    bytes.resize(bytes.size() + count);
    setNumber(bytes, bytes.size() - count, value, static_cast<int>(count));
}

uint32_t appendName(Bytes &names, const std::string &name)
{
    if (name.empty())
        return 0;
    const auto offset = static_cast<uint32_t>(names.size());
    names.insert(names.end(), name.begin(), name.end());
    names.push_back(0);
    return offset;
}

std::string nameAt(const Bytes &blob, uint32_t offset)
{
    return reinterpret_cast<const char *>(&blob[STestPackage::sectionBegin(blob, Names) + offset]);
}

} // namespace

uint32_t numberAt(const Bytes &blob, size_t offset, int bytes)
{
    uint32_t value = 0;
    for (int i = 0; i < bytes; ++i)
        value |= static_cast<uint32_t>(blob.at(offset + static_cast<size_t>(i))) << 8 * i;
    return value;
}

void setNumber(Bytes &blob, size_t offset, uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        blob.at(offset + static_cast<size_t>(i)) = static_cast<uint8_t>(value >> 8 * i);
}

void seal(Bytes &blob)
{
    uint32_t sum = 0xFFFFFFFF;
    const size_t end = std::min<size_t>(blob.size(), numberAt(blob, 8));
    for (size_t i = 8; i < end; ++i) {
        sum ^= blob[i];
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1 ^ (sum & 1 ? 0xEDB88320 : 0);
    }
    setNumber(blob, 4, ~sum);
}

uint32_t STestPackage::sectionBegin(const Bytes &blob, uint32_t kind)
{
    return numberAt(blob, HeaderBytes + EntryBytes * (kind - 1) + 4);
}

uint32_t STestPackage::sectionBytes(const Bytes &blob, uint32_t kind)
{
    return numberAt(blob, HeaderBytes + EntryBytes * (kind - 1) + 8);
}

Bytes STestPackage::toBytes() const
{
    std::array<Bytes, LastKind + 1> sections;
    sections[Names].push_back(0);
    for (const SBlock &block : blocks) {
        append(sections[Blocks], block.address);
        append(sections[Blocks], static_cast<uint32_t>(block.bytes.size()));
        append(sections[Blocks], static_cast<uint32_t>(sections[Data].size()));
        sections[Data].insert(sections[Data].end(), block.bytes.begin(), block.bytes.end());
    }
    for (const SAsset &asset : assets) {
        for (const uint32_t number : {asset.block, asset.address, asset.bytes})
            append(sections[Assets], number);
    }
    for (const SScreen &screen : screens) {
        append(sections[Screens], appendName(sections[Names], screen.name));
        for (const size_t number :
             {sections[Lists].size(), 4 * screen.list.size(), sections[Loads].size() / 2,
              screen.loads.size(), sections[Items].size() / 24, screen.items.size()})
            append(sections[Screens], static_cast<uint32_t>(number));
        for (const uint32_t word : screen.list)
            append(sections[Lists], word);
        for (const uint16_t block : screen.loads)
            append(sections[Loads], block, 2);
        for (const SItem &item : screen.items) {
            append(sections[Items], item.id);
            append(sections[Items], appendName(sections[Names], item.name));
            for (const int16_t number : item.outline)
                append(sections[Items], static_cast<uint16_t>(number), 2);
        }
    }

    Bytes blob = {'K', 'I', 'V', 'P'};
    for (const uint32_t number : {0U, 0U, 1U, chip})
        append(blob, number);
    append(blob, static_cast<uint32_t>(width), 2);
    append(blob, static_cast<uint32_t>(height), 2);
    append(blob, LastKind);
    append(blob, 0);
    uint32_t offset = HeaderBytes + EntryBytes * LastKind;
    for (uint32_t kind = 1; kind <= LastKind; ++kind) {
        const auto bytes = static_cast<uint32_t>(sections[kind].size());
        for (const uint32_t number : {kind, offset, bytes})
            append(blob, number);
        offset += (bytes + 3) / 4 * 4;
    }
    for (uint32_t kind = 1; kind <= LastKind; ++kind) {
        blob.insert(blob.end(), sections[kind].begin(), sections[kind].end());
        blob.resize((blob.size() + 3) / 4 * 4);
    }
    setNumber(blob, 8, static_cast<uint32_t>(blob.size()));
    seal(blob);
    return blob;
}

STestPackage STestPackage::fromBytes(const Bytes &blob)
{
    STestPackage package;
    package.chip = numberAt(blob, 16);
    package.width = static_cast<int>(numberAt(blob, 20, 2));
    package.height = static_cast<int>(numberAt(blob, 22, 2));
    const auto begin = [&](EKind kind) { return sectionBegin(blob, kind); };
    const auto end = [&](EKind kind) { return begin(kind) + sectionBytes(blob, kind); };
    const auto field = [&](uint32_t record, uint32_t index) {
        return numberAt(blob, record + 4 * index);
    };
    for (uint32_t at = begin(Blocks); at < end(Blocks); at += 12) {
        const auto data = blob.begin() + begin(Data) + field(at, 2);
        package.blocks.push_back({field(at, 0), Bytes(data, data + field(at, 1))});
    }
    for (uint32_t at = begin(Assets); at < end(Assets); at += 12)
        package.assets.push_back({field(at, 0), field(at, 1), field(at, 2)});
    for (uint32_t at = begin(Screens); at < end(Screens); at += 28) {
        SScreen screen{nameAt(blob, field(at, 0)), {}, {}, {}};
        for (uint32_t i = 0; i < field(at, 2); i += 4)
            screen.list.push_back(numberAt(blob, begin(Lists) + field(at, 1) + i));
        for (uint32_t i = 0; i < field(at, 4); ++i) {
            const uint32_t load = begin(Loads) + 2 * (field(at, 3) + i);
            screen.loads.push_back(static_cast<uint16_t>(numberAt(blob, load, 2)));
        }
        for (uint32_t i = 0; i < field(at, 6); ++i) {
            const uint32_t item = begin(Items) + 24 * (field(at, 5) + i);
            SItem read{field(item, 0), nameAt(blob, field(item, 1)), {}};
            for (uint32_t number = 0; number < 8; ++number)
                read.outline[number] =
                    static_cast<int16_t>(numberAt(blob, item + 8 + 2 * number, 2));
            screen.items.push_back(std::move(read));
        }
        package.screens.push_back(std::move(screen));
    }
    return package;
}

STestPackage STestPackage::example()
{
    STestPackage package;
    for (const uint32_t address : {0U, 16U, 32U, 24U}) {
        const auto fill = static_cast<uint8_t>(package.blocks.size() + 1);
        package.assets.push_back({static_cast<uint32_t>(package.blocks.size()), address, 13});
        package.blocks.push_back({address, Bytes(16, fill)});
    }
    const std::vector<std::vector<uint16_t>> loads = {{0, 1, 2}, {0, 3}, {1}, {}};
    for (const auto &blocks : loads) {
        const auto number = static_cast<uint32_t>(package.screens.size());
        // A ground of its own, an 8 x 2 bitmap of L8 from each block, and the end.
        SScreen screen{
            "Screen " + std::to_string(number), {0x01000010 * number + 0x01000000}, {}, {}};
        for (const uint16_t block : blocks) {
            screen.list.insert(screen.list.end(),
                               {0x20000003, package.blocks[block].address, 0x21000000, 8,
                                2U << 16 | 8U, 0x25000000, block * 128U, 32U << 16 | 128U});
        }
        screen.list.push_back(0);
        screen.loads = blocks;
        screen.items = {{10 * number + 1, "front", {160, 160, 320, 160, 320, 320, 160, 320}},
                        {10 * number + 2, "", {0, 0, 640, 0, 640, 640, 0, 640}}};
        package.screens.push_back(std::move(screen));
    }
    package.screens[3].name = package.screens[0].name; // found by the first of that name
    return package;
}
