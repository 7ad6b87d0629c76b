#include "Player.h"

std::vector<player> players()
{
    const player own = {"the library",  kiv_panel_open, kiv_panel_find_screen,
                        kiv_panel_show, kiv_panel_hit,  kiv_panel_hit_behind};
    return {own, player_gcc_c99, player_gcc_cxx17, player_clang_c99, player_clang_cxx17};
}
