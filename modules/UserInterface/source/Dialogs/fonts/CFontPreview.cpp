#include "CFontPreview.h"

#include "CEmulatorAdapter.h"
#include "IModelItem.h"
#include "PropertyKey.h"

#include <vector>

namespace {
const QString SampleType = QStringLiteral("Font_Sample_T");
constexpr int Margin = 12; // pixels about the sample

// A chunk of its own, so that the picture depends on no widget kind.
constexpr char Commands[] = "color(ink)\n"
                            "text_box(margin, margin, box_width, box_height, handle, sample, "
                            "\"left\", \"middle\")\n";

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

/// The screen, or the one item on it.
class CFontPreview::CItem final : public IModelItem
{
public:
    CItem(const QString &type, const char *commands) : m_type(type.toUtf8()), m_commands(commands)
    {
    }

    void set(std::vector<CWidgetProperty> properties) { m_properties = std::move(properties); }

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

CFontPreview::CFontPreview(CEmulatorAdapter *adapter, const CProjectModel *project, QObject *parent)
    : QObject(parent),
      m_adapter(adapter),
      m_project(project),
      m_screen(std::make_unique<CItem>(TypeName::Screen, "")),
      m_text(std::make_unique<CItem>(SampleType, Commands))
{
    connect(adapter, &CEmulatorAdapter::emulatorBackgroundFrameDLCallback, this,
            [this](const QString &, const QByteArray &, const void *observer, size_t ramG,
                   const char *errors) {
                if (observer != this)
                    return;
                m_bytes = ramG;
                m_errors = QString::fromUtf8(errors);
            });
    connect(adapter, &CEmulatorAdapter::emulatorBackgroundFrameCallback, this,
            [this](bool, const argb8888 *buffer, uint32_t width, uint32_t height,
                   const void *observer) { takeFrame(buffer, width, height, observer); });
}

CFontPreview::~CFontPreview()
{
    m_adapter->withdraw(this);
}

QString CFontPreview::itemLabel()
{
    return SampleType + QStringLiteral(" 1: ");
}

void CFontPreview::ask(const ProjectFontList &fonts, int handle, const QString &sample,
                       const QSize &size)
{
    m_adapter->withdraw(this);
    if (!m_project)
        return;
    m_size = size.boundedTo(m_project->resolution());
    m_screen->set(
        {made(PropertyKey::Name, PropertyType::String, QStringLiteral("Preview")),
         made(PropertyKey::Color, PropertyType::Rgb, QStringLiteral("#10161d")),
         made(PropertyKey::WorkingDirectory, PropertyType::String, m_project->workingDirectory()),
         made(PropertyKey::Fonts, PropertyType::String, ProjectFonts::rendererText(fonts))});
    m_text->set({made(QStringLiteral("sample"), PropertyType::String, sample),
                 made(QStringLiteral("ink"), PropertyType::Rgb, QStringLiteral("#e8eef4")),
                 number(QStringLiteral("handle"), handle), number(QStringLiteral("margin"), Margin),
                 number(QStringLiteral("box_width"), m_size.width() - 2 * Margin),
                 number(QStringLiteral("box_height"), m_size.height() - 2 * Margin)});
    m_current = m_screen.get();
    m_adapter->renderBackground(this, this);
}

void CFontPreview::next()
{
    m_current = m_current == m_screen.get() ? m_text.get() : nullptr;
}

IModelItem *CFontPreview::current()
{
    return m_current;
}

void CFontPreview::takeFrame(const argb8888 *buffer, uint32_t width, uint32_t height,
                             const void *observer)
{
    if (observer != this)
        return;
    QImage picture;
    if (buffer) // valid during the signal only
        picture = QImage(reinterpret_cast<const uchar *>(buffer), static_cast<int>(width),
                         static_cast<int>(height), static_cast<int>(width * sizeof(argb8888)),
                         QImage::Format_RGB32)
                      .copy(QRect(QPoint(), m_size));
    Q_EMIT drawn(picture, m_bytes, m_errors);
}
