#pragma once

#include "CTestModel.h"
#include "displaylist/DisplayListText.h"
#include "host/lua/CLuaHost.h"

/// The least script that draws every item on a background.
constexpr char PlainScript[] = R"lua(
function render(screen, items)
  clear(screen.color)
  for _, item in ipairs(items) do draw_item(item) end
end
)lua";

/// For tests that are not about the clock: enough also for a sanitizer on a busy machine.
constexpr kivemu::SScriptLimits patientLimits()
{
    kivemu::SScriptLimits limits;
    limits.frameTime = std::chrono::seconds(60);
    limits.itemTime = std::chrono::seconds(30);
    return limits;
}
constexpr kivemu::SScriptLimits PatientLimits = patientLimits();

/// One frame of a model, as text.
struct SHostRun
{
    SHostRun(kivemu::CLuaHost &host, CTestModel &model, int width = 480, int height = 272)
    {
        kivemu::CSnapshot snapshot;
        CTestIterator iterator(model);
        snapshot.take(&iterator);
        const kivemu::SDrawing drawing = host.draw(snapshot, width, height);
        words = drawing.words;
        ramDlNeeded = drawing.ramDlNeeded;
        list = kivemu::disassemble(words.data(), words.size());
        errors = drawing.errors.text();
        cutTexts = drawing.cutTexts;
    }
    bool has(const std::string &command) const { return list.find(command) != std::string::npos; }

    std::vector<uint32_t> words;
    std::string list;
    std::string errors;
    std::vector<uint32_t> cutTexts;
    size_t ramDlNeeded;
};
