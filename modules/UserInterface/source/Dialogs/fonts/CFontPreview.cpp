#include "CFontPreview.h"

namespace {
const QString SampleType = QStringLiteral("Font_Sample_T");
constexpr int Margin = 12; // pixels about the sample

// A chunk of its own, so that the picture depends on no widget kind.
constexpr char Commands[] = "color(ink)\n"
                            "text_box(margin, margin, box_width, box_height, handle, sample, "
                            "\"left\", \"middle\")\n";
} // namespace

CFontPreview::CFontPreview(CEmulatorAdapter *adapter, const CProjectModel *project, QObject *parent)
    : QObject(parent), m_page(adapter, project), m_project(project)
{
    connect(&m_page, &CSamplePage::drawn, this,
            [this](const QImage &frame, size_t bytes, const QString &errors) {
                Q_EMIT drawn(frame.isNull() ? frame : frame.copy(QRect(QPoint(), m_size)), bytes,
                             errors);
            });
}

QString CFontPreview::itemLabel()
{
    return SampleType + QStringLiteral(" 1: ");
}

void CFontPreview::ask(const ProjectFontList &fonts, int handle, const QString &sample,
                       const QSize &size)
{
    m_page.withdraw();
    if (!m_project)
        return;
    m_size = size.boundedTo(m_project->resolution());
    m_page.begin(QStringLiteral("#10161d"), fonts);
    m_page.add(SampleType, Commands,
               {CSamplePage::text("sample", sample),
                CSamplePage::colour("ink", QStringLiteral("#e8eef4")),
                CSamplePage::number("handle", handle), CSamplePage::number("margin", Margin),
                CSamplePage::number("box_width", m_size.width() - 2 * Margin),
                CSamplePage::number("box_height", m_size.height() - 2 * Margin)});
    m_page.ask();
}
