#ifndef PLAYER_H
#define PLAYER_H

#include "kiv_panel.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The functions of the player as one compiler made them. */
typedef struct player
{
    const char *compiler;
    int (*open)(kiv_panel *, const uint8_t *, uint32_t, const kiv_bus *);
    int (*find_screen)(const kiv_panel *, const char *);
    int (*show)(kiv_panel *, int);
    int (*hit)(const kiv_panel *, int, int);
    int (*hit_behind)(const kiv_panel *, int, int, int);
} player;

extern const player player_gcc_c99, player_gcc_cxx17, player_clang_c99, player_clang_cxx17;

#ifdef __cplusplus
}

#include <vector>

/* All of them; the first is KIV::Panel, which the sanitizers see into. */
std::vector<player> players();
#endif

#endif
