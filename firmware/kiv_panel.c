/* kiv_panel - draws the screens of a package on a KIV graphics controller.
 *
 * Copyright (c) The KIV Panel Composer authors
 *
 * Permission to use, copy, modify and distribute this file for any purpose, with or without fee, is
 * granted to everyone, provided that this notice stays in all copies of the source. It comes as it
 * is, without warranty of any kind; its authors are not liable for any damage that arises from it.
 */
#include "kiv_panel.h"

#include <stddef.h>

/* A blob is a header, a directory of sections, and the sections. kiv_panel_open checks all that the
 * other functions rely on, so that these take what they read as it is. Numbers are read byte by
 * byte: the blob may lie at an odd address, and the processor may be of either byte order. */

enum { HEADER_BYTES = 32, ENTRY_BYTES = 12, FORMAT_VERSION = 1 };

/* Where fields lie in the header. */
enum {
    MAGIC = 0,
    CRC = 4,
    BYTES = 8,
    VERSION = 12,
    CHIP = 16,
    WIDTH = 20,
    HEIGHT = 22,
    SECTIONS = 24,
    RESERVED = 28
};
enum { CRC_BEGIN = 8 };

/* The sections that every blob has; their kinds are one more. */
enum section { SCREENS, LOADS, BLOCKS, ASSETS, ITEMS, NAMES, LISTS, DATA, KNOWN_SECTIONS };
enum { SCREEN_BYTES = 28, LOAD_BYTES = 2, BLOCK_BYTES = 12, ASSET_BYTES = 12, ITEM_BYTES = 24 };

/* Where fields lie in the records. */
enum {
    SCREEN_NAME = 0,
    SCREEN_LIST = 4,
    SCREEN_LIST_BYTES = 8,
    SCREEN_LOAD = 12,
    SCREEN_LOADS = 16,
    SCREEN_ITEM = 20,
    SCREEN_ITEMS = 24
};
enum { BLOCK_ADDRESS = 0, BLOCK_SIZE = 4, BLOCK_DATA = 8 };
enum { ASSET_BLOCK = 0, ASSET_ADDRESS = 4, ASSET_SIZE = 8 };
enum { ITEM_ID = 0, ITEM_NAME = 4, ITEM_OUTLINE = 8 };

static uint32_t u16_at(const uint8_t *bytes)
{
    return bytes[0] | (uint32_t)bytes[1] << 8;
}

static uint32_t u32_at(const uint8_t *bytes)
{
    return u16_at(bytes) | u16_at(bytes + 2) << 16;
}

static int32_t i16_at(const uint8_t *bytes)
{
    return (int32_t)(u16_at(bytes) ^ 0x8000u) - 0x8000;
}

/* Whether `count` things from `first` on are not all among `whole` things. */
static int is_outside(uint32_t first, uint32_t count, uint32_t whole)
{
    return first > whole || count > whole - first;
}

static const uint8_t *directory_entry(const uint8_t *blob, uint32_t index)
{
    return blob + HEADER_BYTES + ENTRY_BYTES * index;
}

static const uint8_t *section_of(const uint8_t *blob, enum section section)
{
    return blob + u32_at(directory_entry(blob, section) + 4);
}

static uint32_t section_bytes(const uint8_t *blob, enum section section)
{
    return u32_at(directory_entry(blob, section) + 8);
}

static const uint8_t *screen_at(const uint8_t *blob, uint32_t index)
{
    return section_of(blob, SCREENS) + SCREEN_BYTES * index;
}

static const uint8_t *block_at(const uint8_t *blob, uint32_t index)
{
    return section_of(blob, BLOCKS) + BLOCK_BYTES * index;
}

static const uint8_t *load_at(const uint8_t *blob, uint32_t index)
{
    return section_of(blob, LOADS) + LOAD_BYTES * index;
}

static const uint8_t *item_at(const uint8_t *blob, uint32_t index)
{
    return section_of(blob, ITEMS) + ITEM_BYTES * index;
}

static uint32_t crc_of(const uint8_t *bytes, uint32_t count)
{
    /* A table of 16 is eight times faster than bit by bit and a sixteenth of the full one. */
    static const uint32_t table[16] = {0x00000000, 0x1DB71064, 0x3B6E20C8, 0x26D930AC,
                                       0x76DC4190, 0x6B6B51F4, 0x4DB26158, 0x5005713C,
                                       0xEDB88320, 0xF00F9344, 0xD6D6A3E8, 0xCB61B38C,
                                       0x9B64C2B0, 0x86D3D2D4, 0xA00AE278, 0xBDBDF21C};
    uint32_t crc = 0xFFFFFFFFu;
    for (; count > 0; --count) {
        crc ^= *bytes++;
        crc = crc >> 4 ^ table[crc & 15];
        crc = crc >> 4 ^ table[crc & 15];
    }
    return ~crc;
}

/* What a chip's code decides. */
typedef struct limits
{
    uint32_t ram_g;
    uint32_t ram_dl;
    uint32_t side;
} limits;

static limits limits_of(uint32_t chip)
{
    limits found = {0x40000, 0x2000, 512};
    if (chip >= 0x110 && chip <= 0x113) {
        found.ram_g = 0x100000;
        found.ram_dl = 0x8000;
        found.side = 2048;
    }
    return found;
}

static int check_header(const uint8_t *blob, uint32_t size)
{
    uint32_t bytes;
    if (size < HEADER_BYTES)
        return KIV_ERROR_SIZE;
    if (u32_at(blob + MAGIC) != 0x5056494Bu)
        return KIV_ERROR_MAGIC;
    if (u32_at(blob + VERSION) != FORMAT_VERSION || u32_at(blob + RESERVED) != 0)
        return KIV_ERROR_VERSION;
    bytes = u32_at(blob + BYTES);
    if (bytes > size || bytes < HEADER_BYTES || bytes % 4 != 0)
        return KIV_ERROR_SIZE;
    if (u32_at(blob + CRC) != crc_of(blob + CRC_BEGIN, bytes - CRC_BEGIN))
        return KIV_ERROR_CRC;
    return 0;
}

static int check_frame(const uint8_t *blob, uint32_t side)
{
    const uint32_t width = u16_at(blob + WIDTH);
    const uint32_t height = u16_at(blob + HEIGHT);
    return width < 1 || width > side || height < 1 || height > side ? KIV_ERROR_CHIP : 0;
}

/* Sections lie behind each other in the order of the directory. Those of unknown kinds come after
 * the known ones. */
static int check_sections(const uint8_t *blob)
{
    static const uint8_t record_bytes[KNOWN_SECTIONS] = {
        SCREEN_BYTES, LOAD_BYTES, BLOCK_BYTES, ASSET_BYTES, ITEM_BYTES, 1, 4, 1};
    const uint32_t whole = u32_at(blob + BYTES);
    const uint32_t count = u32_at(blob + SECTIONS);
    uint32_t end;
    uint32_t kind = 0;
    uint32_t i;
    if (count < KNOWN_SECTIONS || count > (whole - HEADER_BYTES) / ENTRY_BYTES)
        return KIV_ERROR_SECTION;
    end = HEADER_BYTES + ENTRY_BYTES * count;
    for (i = 0; i < count; ++i) {
        const uint8_t *entry = directory_entry(blob, i);
        const uint32_t offset = u32_at(entry + 4);
        const uint32_t bytes = u32_at(entry + 8);
        if (i < KNOWN_SECTIONS ? u32_at(entry) != i + 1 : u32_at(entry) <= kind)
            return KIV_ERROR_SECTION;
        if (offset < end || offset % 4 != 0 || is_outside(offset, bytes, whole))
            return KIV_ERROR_SECTION;
        if (i < KNOWN_SECTIONS && bytes % record_bytes[i] != 0)
            return KIV_ERROR_SECTION;
        kind = u32_at(entry);
        end = offset + bytes;
    }
    /* Every name then ends within the section, and there is an empty one. */
    end = section_bytes(blob, NAMES);
    if (end == 0 || section_of(blob, NAMES)[0] != 0 || section_of(blob, NAMES)[end - 1] != 0)
        return KIV_ERROR_SECTION;
    return 0;
}

static int check_blocks(const uint8_t *blob, uint32_t ram_g)
{
    const uint32_t count = section_bytes(blob, BLOCKS) / BLOCK_BYTES;
    uint32_t i;
    if (count > KIV_PANEL_MOST_BLOCKS)
        return KIV_ERROR_BLOCK;
    for (i = 0; i < count; ++i) {
        const uint8_t *block = block_at(blob, i);
        const uint32_t address = u32_at(block + BLOCK_ADDRESS);
        const uint32_t bytes = u32_at(block + BLOCK_SIZE);
        const uint32_t data = u32_at(block + BLOCK_DATA);
        if (((address | bytes | data) & 3) != 0 || bytes == 0 ||
            is_outside(address, bytes, ram_g) || is_outside(data, bytes, section_bytes(blob, DATA)))
            return KIV_ERROR_BLOCK;
    }
    return 0;
}

static int check_assets(const uint8_t *blob)
{
    const uint32_t count = section_bytes(blob, ASSETS) / ASSET_BYTES;
    uint32_t i;
    for (i = 0; i < count; ++i) {
        const uint8_t *asset = section_of(blob, ASSETS) + ASSET_BYTES * i;
        const uint32_t block = u32_at(asset + ASSET_BLOCK);
        const uint32_t address = u32_at(asset + ASSET_ADDRESS);
        uint32_t begin;
        if (block >= section_bytes(blob, BLOCKS) / BLOCK_BYTES)
            return KIV_ERROR_ASSET;
        begin = u32_at(block_at(blob, block) + BLOCK_ADDRESS);
        if (address % 4 != 0 || address < begin ||
            is_outside(address - begin, u32_at(asset + ASSET_SIZE),
                       u32_at(block_at(blob, block) + BLOCK_SIZE)))
            return KIV_ERROR_ASSET;
    }
    return 0;
}

static int check_items(const uint8_t *blob)
{
    const uint32_t count = section_bytes(blob, ITEMS) / ITEM_BYTES;
    uint32_t i;
    for (i = 0; i < count; ++i) {
        if (u32_at(item_at(blob, i) + ITEM_NAME) >= section_bytes(blob, NAMES))
            return KIV_ERROR_ITEM;
    }
    return 0;
}

/* The blocks of one screen lie behind each other in RAM_G. So none of them pushes out another one,
 * and there are never more of them than blocks, however often the same loads are shared. */
static int check_loads(const uint8_t *blob, uint32_t first, uint32_t count)
{
    uint32_t end = 0;
    if (is_outside(first, count, section_bytes(blob, LOADS) / LOAD_BYTES))
        return KIV_ERROR_SCREEN;
    for (; count > 0; ++first, --count) {
        const uint32_t block = u16_at(load_at(blob, first));
        if (block >= section_bytes(blob, BLOCKS) / BLOCK_BYTES ||
            u32_at(block_at(blob, block) + BLOCK_ADDRESS) < end)
            return KIV_ERROR_SCREEN;
        end = u32_at(block_at(blob, block) + BLOCK_ADDRESS) +
              u32_at(block_at(blob, block) + BLOCK_SIZE);
    }
    return 0;
}

/* A list ends with END, so that the chip never goes on into the rest of a longer one. */
static int check_list(const uint8_t *blob, uint32_t offset, uint32_t bytes, uint32_t ram_dl)
{
    if (((offset | bytes) & 3) != 0 || bytes == 0 || bytes > ram_dl ||
        is_outside(offset, bytes, section_bytes(blob, LISTS)) ||
        u32_at(section_of(blob, LISTS) + offset + bytes - 4) != 0)
        return KIV_ERROR_SCREEN;
    return 0;
}

static int check_screens(const uint8_t *blob, uint32_t ram_dl)
{
    const uint32_t count = section_bytes(blob, SCREENS) / SCREEN_BYTES;
    uint32_t i;
    for (i = 0; i < count; ++i) {
        const uint8_t *screen = screen_at(blob, i);
        if (u32_at(screen + SCREEN_NAME) >= section_bytes(blob, NAMES) ||
            check_list(blob, u32_at(screen + SCREEN_LIST), u32_at(screen + SCREEN_LIST_BYTES),
                       ram_dl) != 0 ||
            check_loads(blob, u32_at(screen + SCREEN_LOAD), u32_at(screen + SCREEN_LOADS)) != 0 ||
            is_outside(u32_at(screen + SCREEN_ITEM), u32_at(screen + SCREEN_ITEMS),
                       section_bytes(blob, ITEMS) / ITEM_BYTES))
            return KIV_ERROR_SCREEN;
    }
    return count == 0 ? KIV_ERROR_SCREEN : 0;
}

static int check_blob(const uint8_t *blob, uint32_t size)
{
    limits chip;
    int error = check_header(blob, size);
    if (error != 0)
        return error;
    chip = limits_of(u32_at(blob + CHIP));
    if ((error = check_frame(blob, chip.side)) != 0 || (error = check_sections(blob)) != 0 ||
        (error = check_blocks(blob, chip.ram_g)) != 0 || (error = check_assets(blob)) != 0 ||
        (error = check_items(blob)) != 0)
        return error;
    return check_screens(blob, chip.ram_dl);
}

int kiv_panel_open(kiv_panel *panel, const uint8_t *blob, uint32_t size, const kiv_bus *bus)
{
    uint32_t i;
    int error;
    if (panel == NULL)
        return KIV_ERROR_ARGUMENT;
    panel->blob = NULL;
    panel->bus = bus;
    panel->screens = 0;
    panel->shown = -1;
    for (i = 0; i < sizeof panel->loaded; ++i)
        panel->loaded[i] = 0;
    if (blob == NULL || bus == NULL || bus->write == NULL || bus->show == NULL)
        return KIV_ERROR_ARGUMENT;
    error = check_blob(blob, size);
    if (error == 0) {
        panel->blob = blob;
        panel->screens = (int32_t)(section_bytes(blob, SCREENS) / SCREEN_BYTES);
    }
    return error;
}

uint32_t kiv_panel_chip(const kiv_panel *panel)
{
    return panel->blob ? u32_at(panel->blob + CHIP) : 0;
}

int kiv_panel_width(const kiv_panel *panel)
{
    return panel->blob ? (int)u16_at(panel->blob + WIDTH) : 0;
}

int kiv_panel_height(const kiv_panel *panel)
{
    return panel->blob ? (int)u16_at(panel->blob + HEIGHT) : 0;
}

int kiv_panel_screen_count(const kiv_panel *panel)
{
    return panel->screens;
}

static const char *name_at(const uint8_t *blob, uint32_t offset)
{
    return (const char *)(section_of(blob, NAMES) + offset);
}

const char *kiv_panel_screen_name(const kiv_panel *panel, int screen)
{
    if (screen < 0 || screen >= panel->screens)
        return NULL;
    return name_at(panel->blob, u32_at(screen_at(panel->blob, (uint32_t)screen) + SCREEN_NAME));
}

int kiv_panel_find_screen(const kiv_panel *panel, const char *name)
{
    int i;
    for (i = 0; name != NULL && i < panel->screens; ++i) {
        const char *ours = kiv_panel_screen_name(panel, i);
        const char *theirs = name;
        for (; *ours == *theirs && *ours != 0; ++ours)
            ++theirs;
        if (*ours == *theirs)
            return i;
    }
    return -1;
}

/* Takes all blocks that a piece of RAM_G belongs to as gone. */
static void forget_blocks(kiv_panel *panel, uint32_t begin, uint32_t end)
{
    const uint32_t count = section_bytes(panel->blob, BLOCKS) / BLOCK_BYTES;
    uint32_t i;
    for (i = 0; i < count; ++i) {
        const uint8_t *block = block_at(panel->blob, i);
        const uint32_t address = u32_at(block + BLOCK_ADDRESS);
        if (address < end && begin < address + u32_at(block + BLOCK_SIZE))
            panel->loaded[i / 8] &= (uint8_t) ~(1u << i % 8);
    }
}

static void load_block(kiv_panel *panel, uint32_t index)
{
    const uint8_t *block = block_at(panel->blob, index);
    const uint32_t address = u32_at(block + BLOCK_ADDRESS);
    const uint32_t bytes = u32_at(block + BLOCK_SIZE);
    if ((panel->loaded[index / 8] >> index % 8 & 1) != 0)
        return;
    forget_blocks(panel, address, address + bytes);
    panel->bus->write(panel->bus->context, KIV_RAM_G, address,
                      section_of(panel->blob, DATA) + u32_at(block + BLOCK_DATA), bytes);
    panel->loaded[index / 8] |= (uint8_t)(1u << index % 8);
}

int kiv_panel_show(kiv_panel *panel, int screen)
{
    const kiv_bus *bus = panel->bus;
    const uint8_t *record;
    uint32_t load;
    uint32_t end;
    if (screen < 0 || screen >= panel->screens)
        return KIV_ERROR_ARGUMENT;
    /* The chip may still be reading either memory for the list before. */
    if (bus->wait != NULL)
        bus->wait(bus->context);
    record = screen_at(panel->blob, (uint32_t)screen);
    load = u32_at(record + SCREEN_LOAD);
    for (end = load + u32_at(record + SCREEN_LOADS); load < end; ++load)
        load_block(panel, u16_at(load_at(panel->blob, load)));
    bus->write(bus->context, KIV_RAM_DL, 0,
               section_of(panel->blob, LISTS) + u32_at(record + SCREEN_LIST),
               u32_at(record + SCREEN_LIST_BYTES));
    bus->show(bus->context);
    panel->shown = screen;
    return 0;
}

/* Whether a point (in 1/16 pixel) lies to the right of all four edges of an outline. */
static int is_within(const uint8_t *outline, int32_t x, int32_t y)
{
    int i;
    for (i = 0; i < 4; ++i) {
        const uint8_t *from = outline + 4 * i;
        const uint8_t *to = outline + 4 * (i + 1) % 16;
        const int32_t from_x = i16_at(from);
        const int32_t from_y = i16_at(from + 2);
        const int64_t across = (int64_t)(i16_at(to) - from_x) * (y - from_y);
        const int64_t along = (int64_t)(i16_at(to + 2) - from_y) * (x - from_x);
        if (across <= along)
            return 0;
    }
    return 1;
}

/* The first item under a pixel of the shown screen, from an item of the package on. */
static int hit_from(const kiv_panel *panel, int x, int y, uint32_t begin)
{
    const uint8_t *screen;
    uint32_t item;
    uint32_t end;
    if (panel->shown < 0 || x < 0 || y < 0 || x >= kiv_panel_width(panel) ||
        y >= kiv_panel_height(panel))
        return -1;
    screen = screen_at(panel->blob, (uint32_t)panel->shown);
    item = u32_at(screen + SCREEN_ITEM);
    end = item + u32_at(screen + SCREEN_ITEMS);
    for (item = begin > item ? begin : item; item < end; ++item) {
        if (is_within(item_at(panel->blob, item) + ITEM_OUTLINE, 16 * x + 8, 16 * y + 8))
            return (int)item;
    }
    return -1;
}

int kiv_panel_hit(const kiv_panel *panel, int x, int y)
{
    return hit_from(panel, x, y, 0);
}

int kiv_panel_hit_behind(const kiv_panel *panel, int x, int y, int item)
{
    return item < 0 ? -1 : hit_from(panel, x, y, (uint32_t)item + 1);
}

static const uint8_t *find_item(const kiv_panel *panel, int item)
{
    if (panel->blob == NULL || item < 0 ||
        (uint32_t)item >= section_bytes(panel->blob, ITEMS) / ITEM_BYTES)
        return NULL;
    return item_at(panel->blob, (uint32_t)item);
}

uint32_t kiv_panel_item_id(const kiv_panel *panel, int item)
{
    const uint8_t *found = find_item(panel, item);
    return found ? u32_at(found + ITEM_ID) : 0;
}

const char *kiv_panel_item_name(const kiv_panel *panel, int item)
{
    const uint8_t *found = find_item(panel, item);
    return found ? name_at(panel->blob, u32_at(found + ITEM_NAME)) : NULL;
}
