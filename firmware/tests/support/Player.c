/* Compiled by each compiler; see CMakeLists.txt. */
#include "kiv_panel.c"

#include "Player.h"

#define TEXT_OF(name) #name
#define TEXT(name) TEXT_OF(name)

const player KIV_PLAYER = {TEXT(KIV_PLAYER), kiv_panel_open, kiv_panel_find_screen,
                           kiv_panel_show,   kiv_panel_hit,  kiv_panel_hit_behind};
