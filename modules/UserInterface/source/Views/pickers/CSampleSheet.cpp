#include "CSampleSheet.h"

#include "CEmulatorAdapter.h"
#include "IModelItem.h"
#include "PropertyKey.h"

#include <algorithm>

namespace {
const QString SampleType = QStringLiteral("Sample_T");
constexpr int Gap = 2; // pixels between two

// Chunks of their own, so that the pictures depend on no widget kind.
constexpr char TextCommands[] = "color('#ffffff')\n"
                                "text_box(left, top, box_width, box_height, handle, sample, "
                                "\"left\", \"middle\")\n";
constexpr char SymbolCommands[] = "symbol(sample, left + box_width / 2, top + box_height / 2, "
                                  "math.min(box_width, box_height), '#ffffff')\n";

CWidgetProperty made(const QString &name, PropertyType type, const QString &text)
{
    CWidgetProperty property(name, type);
    property.setValueFromText(text);
    return property;
}

CWidgetProperty number(const QString &name, int value)
{
    return made(name, PropertyType::Int, QString::number(value));
}
} // namespace

/// The screen, or a sample on it.
class CSampleSheet::CItem final : public IModelItem
{
public:
    CItem(const QString &type, const char *commands, std::vector<CWidgetProperty> properties)
        : m_type(type.toUtf8()), m_commands(commands), m_properties(std::move(properties))
    {
    }

    const char *idText() override { return "1"; }
    const char *typeName() override { return m_type.constData(); }
    int propertyCount() override { return static_cast<int>(m_properties.size()); }
    IModelProperty *property(int index) override
    {
        return &m_properties[static_cast<size_t>(index)];
    }
    const char *renderCommands() override { return m_commands; }

private:
    const QByteArray m_type;
    const char *const m_commands;
    std::vector<CWidgetProperty> m_properties;
};

CSampleSheet::CSampleSheet(const CProjectModel *project, QObject *parent)
    : QObject(parent), m_adapter(CEmulatorAdapter::instance()), m_project(project)
{
    connect(m_adapter, &CEmulatorAdapter::emulatorBackgroundFrameCallback, this,
            [this](bool, const argb8888 *pixels, uint32_t width, uint32_t height, void *observer) {
                if (observer != static_cast<IModelIterator *>(this))
                    return;
                takeFrame(pixels ? QImage(reinterpret_cast<const uchar *>(pixels), int(width),
                                          int(height), QImage::Format_RGB32)
                                       .copy()
                                 : QImage()); // valid during the signal only
            });
}

CSampleSheet::~CSampleSheet()
{
    m_adapter->withdraw(static_cast<IModelIterator *>(this));
}

/// Rows from the top to the bottom. A font of the project has a page of its own: its glyphs need
/// graphics memory, which all together might not find.
QVector<CSampleSheet::Page> CSampleSheet::pagesOf(const QVector<SSample> &samples,
                                                  const QSize &page)
{
    QVector<Page> pages;
    QPoint free;
    int rowHeight = 0;
    bool isFull = true;
    for (int index = 0; index < samples.size(); ++index) {
        const SSample &sample = samples.at(index);
        const QSize size = sample.size.boundedTo(page);
        if (size.isEmpty())
            continue;
        const bool isAlone =
            sample.font != SSample::None && sample.font < SProjectFont::HandleCount;
        if (free.x() + size.width() > page.width()) {
            free = {0, free.y() + rowHeight + Gap};
            rowHeight = 0;
        }
        if (isFull || isAlone || free.y() + size.height() > page.height()) {
            pages.append(Page());
            free = {};
            rowHeight = 0;
        }
        pages.last().append({index, {free, size}});
        free.rx() += size.width() + Gap;
        rowHeight = std::max(rowHeight, size.height());
        isFull = isAlone;
    }
    return pages;
}

void CSampleSheet::ask(const QVector<SSample> &samples)
{
    m_adapter->withdraw(static_cast<IModelIterator *>(this));
    m_samples = samples;
    m_pages = m_project ? pagesOf(samples, m_project->resolution()) : QVector<Page>();
    askForPage();
}

void CSampleSheet::askForPage()
{
    if (m_pages.isEmpty() || !m_project)
        return;
    m_items.clear();
    m_current = 0;
    m_items.push_back(std::make_unique<CItem>(
        TypeName::Screen, "",
        std::vector<CWidgetProperty>{
            made(PropertyKey::Name, PropertyType::String, QStringLiteral("Samples")),
            made(PropertyKey::Color, PropertyType::Rgb, QStringLiteral("#000000")),
            made(PropertyKey::WorkingDirectory, PropertyType::String,
                 m_project->workingDirectory()),
            made(PropertyKey::Fonts, PropertyType::String,
                 ProjectFonts::rendererText(m_project->fonts()))}));
    for (const SPlace &place : qAsConst(m_pages.first())) {
        const SSample &sample = m_samples.at(place.index);
        m_items.push_back(std::make_unique<CItem>(
            SampleType, sample.font == SSample::None ? SymbolCommands : TextCommands,
            std::vector<CWidgetProperty>{
                made(QStringLiteral("sample"), PropertyType::String, sample.text),
                number(QStringLiteral("handle"), sample.font),
                number(QStringLiteral("left"), place.rect.left()),
                number(QStringLiteral("top"), place.rect.top()),
                number(QStringLiteral("box_width"), place.rect.width()),
                number(QStringLiteral("box_height"), place.rect.height())}));
    }
    IModelIterator *const walk = this;
    m_adapter->renderBackground(walk, walk);
}

void CSampleSheet::takeFrame(const QImage &frame)
{
    if (m_pages.isEmpty())
        return;
    const Page page = m_pages.takeFirst();
    const QPointer<CSampleSheet> self(this);
    for (const SPlace &place : page) {
        if (!self || frame.isNull())
            return; // the emulator was stopped, or who listens has enough
        QImage coverage(place.rect.size(), QImage::Format_Alpha8);
        for (int y = 0; y < coverage.height(); ++y) {
            for (int x = 0; x < coverage.width(); ++x) {
                const QPoint from = place.rect.topLeft() + QPoint(x, y);
                const int seen = frame.rect().contains(from) ? qGreen(frame.pixel(from)) : 0;
                coverage.scanLine(y)[x] = static_cast<uchar>(seen);
            }
        }
        Q_EMIT drawn(place.index, coverage);
    }
    if (self)
        askForPage();
}

void CSampleSheet::next()
{
    ++m_current;
}

IModelItem *CSampleSheet::current()
{
    return m_current < m_items.size() ? m_items[m_current].get() : nullptr;
}
