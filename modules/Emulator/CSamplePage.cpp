#include "CSamplePage.h"

#include "CEmulatorAdapter.h"
#include "IModelItem.h"
#include "PropertyKey.h"

namespace {
CWidgetProperty made(const QString &name, PropertyType type, const QString &text)
{
    CWidgetProperty property(name, type);
    property.setValueFromText(text);
    return property;
}
} // namespace

/// The screen, or a sample on it.
class CSamplePage::CItem final : public IModelItem
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

CSamplePage::CSamplePage(CEmulatorAdapter *adapter, const CProjectModel *project, QObject *parent)
    : QObject(parent), m_adapter(adapter), m_project(project)
{
    const void *const self = static_cast<IModelIterator *>(this);
    connect(adapter, &CEmulatorAdapter::emulatorBackgroundFrameDLCallback, this,
            [this, self](const QString &, const QByteArray &, const void *observer, size_t ramG,
                         const char *errors) {
                if (observer != self)
                    return;
                m_bytes = ramG;
                m_errors = QString::fromUtf8(errors);
            });
    connect(adapter, &CEmulatorAdapter::emulatorBackgroundFrameCallback, this,
            [this, self](bool, const argb8888 *pixels, uint32_t width, uint32_t height,
                         const void *observer) {
                if (observer != self)
                    return;
                QImage frame;
                if (pixels) // valid during the signal only
                    frame = QImage(reinterpret_cast<const uchar *>(pixels), int(width), int(height),
                                   int(width * sizeof(argb8888)), QImage::Format_RGB32)
                                .copy();
                Q_EMIT drawn(frame, m_bytes, m_errors);
            });
}

CSamplePage::~CSamplePage()
{
    withdraw();
}

CWidgetProperty CSamplePage::text(const char *name, const QString &text)
{
    return made(QLatin1String(name), PropertyType::String, text);
}

CWidgetProperty CSamplePage::colour(const char *name, const QString &colour)
{
    return made(QLatin1String(name), PropertyType::Rgb, colour);
}

CWidgetProperty CSamplePage::number(const char *name, int value)
{
    return made(QLatin1String(name), PropertyType::Int, QString::number(value));
}

void CSamplePage::begin(const QString &colour, const ProjectFontList &fonts)
{
    withdraw();
    const QString folder = m_project ? m_project->workingDirectory() : QString();
    m_items.clear();
    add(TypeName::Screen, "",
        {made(PropertyKey::Name, PropertyType::String, QStringLiteral("Samples")),
         made(PropertyKey::Color, PropertyType::Rgb, colour),
         made(PropertyKey::WorkingDirectory, PropertyType::String, folder),
         made(PropertyKey::Fonts, PropertyType::String, ProjectFonts::rendererText(fonts))});
}

void CSamplePage::add(const QString &type, const char *commands,
                      std::vector<CWidgetProperty> properties)
{
    m_items.push_back(std::make_unique<CItem>(type, commands, std::move(properties)));
}

void CSamplePage::ask()
{
    m_current = 0;
    IModelIterator *const walk = this;
    m_adapter->renderBackground(walk, walk);
}

void CSamplePage::withdraw()
{
    m_adapter->withdraw(static_cast<IModelIterator *>(this));
}

void CSamplePage::next()
{
    ++m_current;
}

IModelItem *CSamplePage::current()
{
    return m_current < m_items.size() ? m_items[m_current].get() : nullptr;
}
