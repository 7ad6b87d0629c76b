#include "OpenProject.h"

static std::optional<SProjectPlace> s_place;

std::optional<SProjectPlace> openProjectPlace()
{
    return s_place;
}

void setOpenProjectPlace(const std::optional<SProjectPlace> &place)
{
    s_place = place;
}
