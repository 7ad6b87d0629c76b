/* kiv_panel - draws the screens of a package on a KIV graphics controller.
 *
 * Copyright (c) The KIV Panel Composer authors
 *
 * Permission to use, copy, modify and distribute this file for any purpose, with or without fee, is
 * granted to everyone, provided that this notice stays in all copies of the source. It comes as it
 * is, without warranty of any kind; its authors are not liable for any damage that arises from it.
 *
 * C99, also compiles as C++. Allocates nothing, has no global state and needs no library. */
#ifndef KIV_PANEL_H
#define KIV_PANEL_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { KIV_RAM_G = 0, KIV_RAM_DL = 1 };

/* What kiv_panel_open and kiv_panel_show give when something is wrong. */
enum {
    KIV_ERROR_ARGUMENT = -1, /* a pointer is null, or there is no such screen */
    KIV_ERROR_SIZE = -2,     /* fewer bytes than the blob says that it has, or than any has */
    KIV_ERROR_MAGIC = -3,    /* not a package */
    KIV_ERROR_VERSION = -4,  /* a package of a version that this player does not know */
    KIV_ERROR_CRC = -5,      /* the bytes are not those that were written */
    KIV_ERROR_CHIP = -6,     /* the frame is empty or larger than the chip's largest */
    KIV_ERROR_SECTION = -7,  /* a section is missing, out of order or outside of the blob */
    KIV_ERROR_SCREEN = -8,   /* a screen's list, loads, items or name */
    KIV_ERROR_BLOCK = -9,  /* a block lies outside of RAM_G or of the data, or there are too many */
    KIV_ERROR_ASSET = -10, /* an asset lies outside of its block */
    KIV_ERROR_ITEM = -11   /* an item's name */
};

/* The way to the chip: SPI, QSPI or a parallel bus. */
typedef struct kiv_bus
{
    void *context; /* handed to the three functions */
    /* Writes bytes to an offset of KIV_RAM_G or KIV_RAM_DL. Offset and count are multiples of 4 and
     * lie within the memory of the chip; the bytes lie within the blob, at any address. */
    void (*write)(void *context, int memory, uint32_t offset, const uint8_t *bytes, uint32_t count);
    void (*show)(void *context); /* makes the list in RAM_DL current */
    /* Returns when the chip has drawn the last list, at once when there is none. May be null when
     * `show` itself waits for that. */
    void (*wait)(void *context);
} kiv_bus;

enum { KIV_PANEL_MOST_BLOCKS = 512 };

/* Belongs to the caller, who does not change it. At most 128 bytes. */
typedef struct kiv_panel
{
    const uint8_t *blob; /* null: not open */
    const kiv_bus *bus;
    int32_t screens;
    int32_t shown;                             /* index of a screen; -1: none yet */
    uint8_t loaded[KIV_PANEL_MOST_BLOCKS / 8]; /* a bit for each block that lies in RAM_G */
} kiv_panel;

/* Checks everything in a blob, which may come from anywhere and lie at any address. `size` is the
 * number of bytes that may be read there; the blob may be shorter. Writes nothing to the chip.
 * 0, or a negative KIV_ERROR_ code; the panel then has no screens. Blob and bus are not copied.
 * Open again when the chip has lost its memory. */
int kiv_panel_open(kiv_panel *panel, const uint8_t *blob, uint32_t size, const kiv_bus *bus);

/* What the package was made for. 0 when the panel is not open. */
uint32_t kiv_panel_chip(const kiv_panel *panel);
int kiv_panel_width(const kiv_panel *panel);  /* pixels */
int kiv_panel_height(const kiv_panel *panel); /* pixels */

int kiv_panel_screen_count(const kiv_panel *panel);
int kiv_panel_find_screen(const kiv_panel *panel, const char *name); /* index or -1 */
/* UTF-8, within the blob; null when there is no such screen. */
const char *kiv_panel_screen_name(const kiv_panel *panel, int screen);

/* Waits for the chip, loads what the screen needs and is not in RAM_G, and shows it.
 * 0, or KIV_ERROR_ARGUMENT and nothing is written. */
int kiv_panel_show(kiv_panel *panel, int screen);

/* The front-most item of the shown screen under a pixel: its index in the package, or -1. */
int kiv_panel_hit(const kiv_panel *panel, int x, int y);
/* The next one under the pixel behind an item, e.g. the button below a label; or -1. */
int kiv_panel_hit_behind(const kiv_panel *panel, int x, int y, int item);
/* The id and the name (UTF-8, may be empty) of an item; 0 and null when there is no such item. */
uint32_t kiv_panel_item_id(const kiv_panel *panel, int item);
const char *kiv_panel_item_name(const kiv_panel *panel, int item);

#ifdef __cplusplus
}
#endif

#endif
