#include "BenchScreen.h"

#include "RomFonts.h"

#include <string>

namespace {

constexpr char Button[] = R"lua(
color(fill_color)
fill_rect(x_coordinate, y_coordinate, width, height, corner)
gradient(x_coordinate + 1, y_coordinate + 1, width - 2, height - 2, mix(fill_color, "#ffffff", 0.1),
         fill_color, 90, corner - 1)
color(border_color)
line_width(border)
stroke_rect(x_coordinate, y_coordinate, width, height, corner)
color(text_color)
text(x_coordinate + width / 2, y_coordinate + height / 2, font, text_fit(font, label, width - 8),
     "center", "middle")
)lua";

constexpr char Gauge[] = R"lua(
local share = fraction(value, minimum, maximum)
line_width(thickness)
for i = 0, 29 do
  color(i < 20 and low_color or i < 26 and value_color or fill_color)
  arc(x_coordinate, y_coordinate, radius, 140 + i * 260 / 30, 260 / 30, "butt")
end
color(text_color)
line_width(1.5)
local a = math.rad(140 + 260 * share)
line(x_coordinate, y_coordinate, x_coordinate + radius * 0.8 * math.cos(a),
     y_coordinate + radius * 0.8 * math.sin(a))
disc(x_coordinate, y_coordinate, 3)
text(x_coordinate, y_coordinate + radius, font, string.format("%.1f", value), "center")
)lua";

constexpr char Bar[] = R"lua(
color(border_color)
fill_rect(x_coordinate, y_coordinate, width, height, corner)
color(value_color)
fill_rect(x_coordinate, y_coordinate, width * fraction(value, minimum, maximum), height, corner)
)lua";

constexpr char Plot[] = R"lua(
local points = {}
for i = 0, 199 do
  points[2 * i + 1] = x_coordinate + width * i / 199
  points[2 * i + 2] = y_coordinate + height / 2 + 30 * math.sin(i * 0.16 + value)
end
color(value_color)
line_width(thickness)
polyline(points)
)lua";

constexpr char Lamps[] = R"lua(
for i = 0, 24 do
  color(i % 3 == 0 and value_color or fill_color)
  disc(x_coordinate + i * 37 % width, y_coordinate + i * 53 % height, 3 + i % 4)
end
)lua";

constexpr char Label[] = R"lua(
color(text_color)
text(x_coordinate, y_coordinate, font, label .. string.format(" %5.1f", value), align)
)lua";

void addKind(CTestModel &model, const char *type, const char *commands, int index)
{
    model.add(commands, type)
        .set("x_coordinate", 6 + index % 6 * 79)
        .set("y_coordinate", 8 + index / 6 * 36)
        .set("width", 70)
        .set("height", 28)
        .set("name", std::string(type) + std::to_string(index))
        .set("label", "Key " + std::to_string(index))
        .set("fill_color", "#2d4459")
        .set("border_color", "#a0c3e6")
        .set("value_color", "#e0b030")
        .set("low_color", "#3fbf6f")
        .set("text_color", "#ffffff")
        .set("corner", 8)
        .set("border", 2)
        .set("thickness", 3)
        .set("radius", 38)
        .set("font", 27)
        .set("minimum", 0)
        .set("maximum", 100)
        .set("value", index * 7 % 100)
        .set("align", "left");
}

struct SKind
{
    const char *type;
    const char *commands;
    int count; ///< on the operator's screen
};

constexpr SKind Kinds[] = {{"Button_T", Button, 24}, {"Gauge_T", Gauge, 4}, {"Bar_T", Bar, 6},
                           {"Plot_T", Plot, 1},      {"Lamps_T", Lamps, 4}, {"Label_T", Label, 24}};

} // namespace

const char *const BenchScript = R"lua(
function fraction(value, low, high)
  return math.max(0, math.min(1, (value - low) / (high - low)))
end
function render(screen, items)
  clear(screen.color)
  for i = 1, #items do
    draw_item(items[i])
  end
end
)lua";

void fillBenchScreen(CTestModel &model)
{
    for (const SKind &kind : Kinds) {
        for (int i = 0; i < kind.count; ++i)
            addKind(model, kind.type, kind.commands, i);
    }
}

void fillBenchWidgets(CTestModel &model, int count)
{
    constexpr SKind Small[] = {Kinds[0], Kinds[2], Kinds[5]};
    for (int i = 0; i < count; ++i)
        addKind(model, Small[i % 3].type, Small[i % 3].commands, i);
}

void fillBenchTexts(CTestModel &model, bool isInOwnFont)
{
    constexpr int RomFont = 27;
    constexpr int OwnFont = 3;
    const std::string size = std::to_string(romfonts::emSize(RomFont));
    model.screen().set("fonts", std::to_string(OwnFont) + "\tOwn\t" KIV_FONT_REGULAR "\t" + size +
                                    "\t8\t\t\t");
    for (int i = 0; i < 60; ++i) {
        addKind(model, "Label_T", Label, i);
        model.item(static_cast<size_t>(i))
            .set("label", "Temperature of tank " + std::to_string(i))
            .set("x_coordinate", 6 + i % 4 * 250)
            .set("y_coordinate", 24 + i / 4 * 40)
            .set("font", isInOwnFont ? OwnFont : RomFont);
    }
}
