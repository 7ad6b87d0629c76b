#include "PanelCheck.h"

#include "support/OpenPanel.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr int MostScreens = 8; ///< that are shown; a list may take long to draw
constexpr int FrameSide = 32;  ///< pixels of what is drawn

std::string checkShown(kiv_panel &panel, const STestPackage &package, int screen, CChip &chip)
{
    if (kiv_panel_show(&panel, screen) != 0)
        return "a screen of an open package is not shown";
    const STestPackage::SScreen &shown = package.screens[static_cast<size_t>(screen)];
    for (const uint16_t load : shown.loads) {
        const STestPackage::SBlock &block = package.blocks[load];
        if (std::memcmp(chip.ramG().data() + block.address, block.bytes.data(),
                        block.bytes.size()) != 0)
            return "a block of the screen is not in RAM_G";
    }
    if (!chip.errors().empty())
        return chip.errors().front();
    for (const int at : {-1, 0, 15, 2047, INT32_MAX}) {
        for (int hit = kiv_panel_hit(&panel, at, at / 2); hit >= 0;) {
            if (kiv_panel_item_name(&panel, hit) == nullptr)
                return "what is hit is no item";
            const int next = kiv_panel_hit_behind(&panel, at, at / 2, hit);
            if (next >= 0 && next <= hit)
                return "what lies behind an item is in front of it";
            hit = next;
        }
    }
    return {};
}

} // namespace

std::string checkPanel(const uint8_t *data, size_t size)
{
    std::vector<uint8_t> blob(data, data + size);
    if (size >= 12)
        seal(blob);
    SOpenPanel open(players().front(), blob);
    kiv_panel &panel = open.panel;
    CChip &chip = open.chip;
    if (open.error != 0) {
        return open.error < 0 && kiv_panel_screen_count(&panel) == 0 &&
                       kiv_panel_show(&panel, 0) < 0
                   ? ""
                   : "a refused package has screens";
    }
    const STestPackage package = STestPackage::fromBytes(blob);
    std::vector<std::string> listErrors; // of no interest here
    const int count = std::min(kiv_panel_screen_count(&panel), MostScreens);
    for (int i = 0; i < 2 * count; ++i) {
        const int screen = i < count ? i : 2 * count - 1 - i;
        const std::string wrong = checkShown(panel, package, screen, chip);
        if (!wrong.empty())
            return wrong;
        if (i < count)
            chip.draw(FrameSide, FrameSide, &listErrors);
    }
    return {};
}
