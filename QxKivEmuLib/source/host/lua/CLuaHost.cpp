#include "CLuaHost.h"

#include "CLuaSandbox.h"
#include "CPlainLocale.h"
#include "SandboxLibraries.h"
#include "host/draw/CDrawContext.h"
#include "host/items/CItemRunner.h"
#include "pictures/FileReading.h"

namespace kivemu {

namespace {

constexpr size_t MaxScript = size_t{1} << 20; ///< bytes; the compiler cannot be stopped
constexpr Argb Black = 0xFF000000;

std::string fileName(const std::string &path)
{
    const size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

void reportOverflow(const CDisplayListWriter &writer, size_t budget, const CSnapshot &snapshot,
                    CErrorList &errors)
{
    const std::optional<uint32_t> id = writer.overflowItem();
    if (!id)
        return;
    const std::optional<size_t> item = snapshot.findItem(*id);
    const std::string subject = item ? snapshot.label(*item) : "render";
    errors.add(subject, "RAM_DL is full from here on: the screen needs " +
                            std::to_string(writer.bytesWanted()) + " bytes, the chip has " +
                            std::to_string(budget));
}

} // namespace

CLuaHost::CLuaHost(const SChipLimits &chip, const SScriptLimits &limits)
    : m_chip(chip), m_limits(limits), m_loadError("no render script is loaded"), m_assets(chip.ramG)
{
}

CLuaHost::~CLuaHost() = default;

SScriptText SScriptText::read(const std::string &path)
{
    SScriptText script;
    std::vector<uint8_t> bytes;
    script.name = fileName(path);
    script.problem = readRegularFile(path, MaxScript, bytes);
    if (script.problem.empty())
        script.text.assign(bytes.begin(), bytes.end());
    return script;
}

bool CLuaHost::load(const SScriptText &script)
{
    m_items.reset();
    m_sandbox.reset();
    m_script = script.text;
    m_name = script.name;
    if (!script.problem.empty()) {
        m_loadError = "the render script cannot be read: " + script.problem;
        return false;
    }
    const CPlainLocale locale;
    return startState();
}

/// Makes a state and runs the script in it.
bool CLuaHost::startState()
{
    m_items.reset();
    m_sandbox = std::make_unique<CLuaSandbox>(m_limits.memory);
    lua_State *state = m_sandbox->state();
    if (!state) {
        m_sandbox.reset();
        m_loadError = "not enough memory for the render script";
        return false;
    }
    m_items = std::make_unique<CItemRunner>(*m_sandbox, m_limits.itemWork);
    SLuaContext &context = m_sandbox->context();
    context.itemTables = &m_items->tables();
    context.assets = &m_assets;
    context.texts = &m_texts;
    if (m_cancelled)
        context.watchdog.followCancel(*m_cancelled);
    context.watchdog.start(state, m_limits);
    m_loadError = m_sandbox->compile(m_script, m_name.c_str());
    if (m_loadError.empty()) {
        lua_pushcfunction(state, finishLoading);
        lua_insert(state, -2);
        if (const int status = lua_pcall(state, 1, 0, 0))
            m_loadError = m_sandbox->popError(status);
    }
    m_scriptText = context.watchdog.reach().text();
    context.watchdog.stop();
    if (!m_loadError.empty()) {
        m_items.reset();
        m_sandbox.reset();
    }
    return m_loadError.empty();
}

/// Runs the compiled script, which is the argument.
int CLuaHost::finishLoading(lua_State *state)
{
    CItemRunner::addFunctions(state);
    lua_call(state, 0, 0);
    lua_getglobal(state, "render");
    if (!lua_isfunction(state, -1))
        luaL_error(state, "the render script defines no function 'render'");
    freezeGlobalTables(state);
    return 0;
}

SDrawing CLuaHost::draw(const CSnapshot &snapshot, int width, int height)
{
    const CPlainLocale locale;
    SDrawing result;
    CDisplayListWriter writer(m_chip.ramDl);
    CDrawContext drawing(writer, width, height);
    m_assets.beginFrame(snapshot.screenText("working_directory"));
    m_texts.beginFrame(snapshot.screenText("fonts"), snapshot.screenText("working_directory"));
    if (!snapshot.problem().empty())
        result.errors.add(snapshot.problem());
    const bool hasState = m_sandbox || (m_loadError.empty() && startState());
    if (!hasState)
        result.errors.add(m_loadError);
    if (hasState && snapshot.hasScreen())
        runRender(snapshot, drawing, width, height, result);
    else
        drawing.clear(Black);
    const std::vector<uint32_t> fonts = placeFonts(result.errors);
    m_assets.endFrame();
    writer.finish();
    reportOverflow(writer, m_chip.ramDl, snapshot, result.errors);
    result.words = writer.words();
    for (const size_t at : writer.fontWords())
        result.words[at] = fonts[result.words[at]];
    result.ramDlNeeded = writer.bytesWanted();
    result.ramGNeeded = m_assets.bytesNeeded();
    return result;
}

/// Puts the glyphs that the frame uses behind its bitmaps. Gives where each block lies; one for
/// which there is no room gets an address where nothing is.
std::vector<uint32_t> CLuaHost::placeFonts(CErrorList &errors)
{
    std::vector<uint32_t> addresses;
    for (CTexts::SBlock &block : m_texts.finish()) {
        std::optional<uint32_t> address;
        if (!block.bytes.empty()) {
            address = m_assets.placeFont(block.file, block.turn, std::move(block.bytes));
            if (!address)
                errors.add(m_assets.error());
        }
        addresses.push_back(address.value_or(static_cast<uint32_t>(m_chip.ramG)));
    }
    for (const std::string &message : m_texts.messages())
        errors.add(message);
    return addresses;
}

/// What callRender needs; its address goes through Lua.
struct CLuaHost::SFrame
{
    CLuaHost *host;
    int width;
    int height;
};

void CLuaHost::runRender(const CSnapshot &snapshot, CDrawContext &drawing, int width, int height,
                         SDrawing &result)
{
    SLuaContext &context = m_sandbox->context();
    lua_State *state = m_sandbox->state();
    m_items->beginFrame(snapshot, result.errors);
    context.drawing = &drawing;
    context.items = m_items.get();
    context.frameNumber = ++m_frameNumber;
    context.memoryRefused = false;
    context.watchdog.start(state, m_limits);
    context.watchdog.reachText(m_scriptText);
    SFrame frame{this, width, height};
    lua_pushcfunction(state, callRender);
    lua_pushlightuserdata(state, &frame);
    const int status = lua_pcall(state, 1, 0, 0);
    if (status != LUA_OK)
        result.errors.add(m_sandbox->popError(status));
    const bool wasKilled = context.watchdog.isExpired() || context.memoryRefused;
    context.watchdog.stop();
    context.drawing = nullptr;
    context.items = nullptr;
    m_items->endFrame();
    result.cutTexts = m_items->cutTexts();
    // What a stopped script leaves behind may be anything.
    if (wasKilled || status == LUA_ERRMEM || status == LUA_ERRERR)
        m_sandbox->context().isSpent = true;
    tidyState();
}

int CLuaHost::callRender(lua_State *state)
{
    const SFrame frame = *static_cast<const SFrame *>(lua_touserdata(state, 1));
    CItemTables &tables = frame.host->m_items->tables();
    SLuaContext &context = contextOf(state);
    const CReach reach = context.watchdog.reach();
    lua_getglobal(state, "render");
    tables.pushScreen(state, frame.width, frame.height);
    tables.pushItems(state);
    context.watchdog.resetReach(reach); // what items hold counts while they run
    lua_call(state, 2, 0);
    return 0;
}

/// Keeps the state's memory at a size that leaves the next frame room.
void CLuaHost::tidyState()
{
    const auto dropUnused = [](lua_State *state) {
        contextOf(state).itemTables->dropUnused(state);
        lua_gc(state, LUA_GCCOLLECT);
        return 0;
    };
    SLuaContext &context = m_sandbox->context();
    if (!context.isSpent && context.memoryUsed > m_limits.memory / 4) {
        lua_pushcfunction(m_sandbox->state(), dropUnused);
        const int status = lua_pcall(m_sandbox->state(), 0, 0, 0);
        context.isSpent = status != LUA_OK || context.memoryUsed > m_limits.memory / 2;
    }
    if (context.isSpent) {
        m_items.reset();
        m_sandbox.reset();
    }
}

} // namespace kivemu
