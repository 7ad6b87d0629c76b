#include "CTexts.h"

#include "RomFonts.h"

#include <algorithm>
#include <cmath>

namespace kivemu {

namespace {

constexpr uint64_t FramesKept = 120; ///< frames that may pass before an unused file is forgotten
constexpr size_t MaxPath = 1024;

bool isSame(const SFontLine &a, const SFontLine &b)
{
    return a.handle == b.handle && a.name == b.name && a.file == b.file && a.size == b.size &&
           a.bits == b.bits && a.axes == b.axes && a.fallback == b.fallback && a.extra == b.extra;
}

} // namespace

struct CTexts::SFile
{
    SFileStamp stamp;
    std::string problem;
    std::shared_ptr<CTypeface> typeface; ///< null with a problem
    uint64_t frame = 0;
};

CTexts::CTexts() = default;
CTexts::~CTexts() = default;

void CTexts::beginFrame(std::string_view fonts, std::string_view workingDirectory)
{
    ++m_frame;
    m_used.clear();
    if (m_table != fonts)
        readTable(fonts);
    m_workingDirectory = workingDirectory;
    m_messages = m_tableProblems;
}

void CTexts::readTable(std::string_view fonts)
{
    m_table = fonts;
    m_tableProblems.clear();
    std::vector<SFontLine> lines = parseFontTable(fonts, m_tableProblems);
    for (int handle = 0; handle < Handles; ++handle) {
        SHandle &known = m_handles[static_cast<size_t>(handle)];
        const auto line =
            std::find_if(lines.begin(), lines.end(),
                         [handle](const SFontLine &other) { return other.handle == handle; });
        known.isKnown = line != lines.end();
        if (known.isKnown && isSame(known.line, *line))
            continue;
        known.font.reset();
        known.typefaces.clear();
        known.line = known.isKnown ? std::move(*line) : SFontLine();
    }
}

CTextFont *CTexts::font(int handle)
{
    SHandle &known = m_handles[static_cast<size_t>(handle)];
    if (known.frame != m_frame)
        lookUp(handle);
    return known.problem.empty() ? known.font.get() : nullptr;
}

/// Once for each frame, so that a file that changes changes no frame halfway.
void CTexts::lookUp(int handle)
{
    SHandle &known = m_handles[static_cast<size_t>(handle)];
    known.frame = m_frame;
    known.problem.clear();
    std::vector<std::shared_ptr<CTypeface>> typefaces;
    if (!known.isKnown) {
        known.problem = "font " + std::to_string(handle) + " is not in the project";
    } else if (auto own = typeface(known.line, known.problem)) {
        typefaces.push_back(std::move(own));
    } else {
        known.problem = label(known.line) + ": " + known.problem;
    }
    if (!known.problem.empty()) {
        known.font.reset();
        known.typefaces.clear();
        m_messages.push_back(known.problem + "; ROM font " + std::to_string(romFont(handle)) +
                             " is drawn instead");
        return;
    }
    for (const int other : known.line.fallback) {
        const SHandle &fallback = m_handles[static_cast<size_t>(other)];
        std::string problem;
        std::shared_ptr<CTypeface> face =
            fallback.isKnown ? typeface(fallback.line, problem) : nullptr;
        if (face)
            typefaces.push_back(std::move(face));
        else
            m_messages.push_back(
                label(known.line) + ": " +
                (fallback.isKnown ? label(fallback.line) + ": " + problem
                                  : "font " + std::to_string(other) + " is not in the project") +
                "; it is no fallback therefore");
    }
    const std::string file = resolved(known.line.file);
    if (!known.font || known.typefaces != typefaces || known.font->file() != file) {
        known.typefaces = typefaces;
        known.font = std::make_unique<CTextFont>(known.line, file, std::move(typefaces), m_tools);
    }
}

std::string CTexts::label(const SFontLine &line)
{
    return "font \"" + line.name + "\" (" + line.file + ")";
}

std::string CTexts::resolved(const std::string &file) const
{
    return file.empty() || file.front() == '/' ? file : m_workingDirectory + '/' + file;
}

std::shared_ptr<CTypeface> CTexts::typeface(const SFontLine &line, std::string &problem)
{
    const std::string path = resolved(line.file);
    if (line.file.empty() || path.size() > MaxPath ||
        (m_workingDirectory.empty() && path != line.file)) {
        problem = line.file.empty() ? "no file is named"
                  : path.size() > MaxPath
                      ? "the path is longer than " + std::to_string(MaxPath) + " bytes"
                      : "the project has no working directory to look for it";
        return nullptr;
    }
    SFileStamp stamp;
    problem = stampOfFile(path, stamp);
    if (!problem.empty()) {
        const std::string named = path + ": ";
        if (problem.compare(0, named.size(), named) == 0)
            problem.erase(0, named.size());
        return nullptr;
    }
    std::string key = path;
    for (const auto &[tag, value] : line.axes)
        key += '\n' + tag + '=' + std::to_string(value);
    const auto [known, isNew] = m_files.try_emplace(key);
    SFile &file = known->second;
    if (isNew || !(file.stamp == stamp)) {
        CFontFile opened;
        file.stamp = stamp;
        file.problem = opened.open(path);
        file.typeface = file.problem.empty()
                            ? std::make_shared<CTypeface>(std::move(opened), line.axes)
                            : nullptr;
    }
    file.frame = m_frame;
    problem = file.problem;
    return file.typeface;
}

int CTexts::romFont(int handle) const
{
    constexpr int FirstRegular = 26;
    constexpr int Usual = 27;
    constexpr double LinePerEm = 1.17; // of the fonts in ROM
    const SHandle &known = m_handles[static_cast<size_t>(handle)];
    if (!known.isKnown)
        return Usual;
    int nearest = FirstRegular;
    const auto distance = [&](int font) {
        return std::abs(romfonts::height(font) - known.line.size * LinePerEm);
    };
    for (int font = FirstRegular; font <= romfonts::LastFont; ++font) {
        if (distance(font) < distance(nearest))
            nearest = font;
    }
    return nearest;
}

CGlyphBlock &CTexts::block(CTextFont &font, double degrees, uint32_t &number)
{
    CGlyphBlock &block = font.block(degrees, m_frame);
    const auto used = std::find_if(m_used.begin(), m_used.end(),
                                   [&](const SUsed &other) { return other.block == &block; });
    block.setPart(m_part);
    number = static_cast<uint32_t>(used - m_used.begin());
    if (used == m_used.end())
        m_used.push_back({&font, &block});
    return block;
}

void CTexts::takeBack(const SMark &mark)
{
    for (size_t at = 0; at < m_used.size(); ++at) {
        if (at < mark.blocks)
            m_used[at].block->takeBack(mark.part);
        else
            m_used[at].block->leaveFrame();
    }
    m_used.resize(std::min(m_used.size(), mark.blocks));
}

std::vector<CTexts::SBlock> CTexts::finish()
{
    constexpr int AngleBits = 15;
    std::vector<SBlock> blocks;
    for (const SUsed &used : m_used) {
        const SFontLine &line = used.font->line();
        const uint32_t angle = static_cast<uint32_t>(used.block->angle64());
        SBlock block{
            used.font->file(), static_cast<uint32_t>(line.handle) << AngleBits | angle, {}};
        if (used.block->glyphCount() > 0)
            block.bytes = used.block->bytes();
        blocks.push_back(std::move(block));
        if (!used.block->why().empty())
            m_messages.push_back(label(line) + ": " + used.block->why());
    }
    for (SHandle &known : m_handles) {
        if (known.font)
            known.font->endFrame(m_frame);
    }
    for (auto file = m_files.begin(); file != m_files.end();)
        file = file->second.frame + FramesKept < m_frame ? m_files.erase(file) : std::next(file);
    return blocks;
}

} // namespace kivemu
