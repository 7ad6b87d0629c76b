#include "CSampleSheet.h"

#include "CEmulatorAdapter.h"

#include <algorithm>

namespace {
constexpr int Gap = 2; // pixels between two

// Chunks of their own, so that the pictures depend on no widget kind.
constexpr char TextCommands[] = "color('#ffffff')\n"
                                "text_box(left, top, box_width, box_height, handle, sample, "
                                "\"left\", \"middle\")\n";
constexpr char SymbolCommands[] = "symbol(sample, left + box_width / 2, top + box_height / 2, "
                                  "math.min(box_width, box_height), '#ffffff')\n";
} // namespace

CSampleSheet::CSampleSheet(const CProjectModel *project, QObject *parent)
    : QObject(parent), m_page(CEmulatorAdapter::instance(), project), m_project(project)
{
    connect(&m_page, &CSamplePage::drawn, this, &CSampleSheet::takeFrame);
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
    m_page.withdraw();
    m_samples = samples;
    m_pages = m_project ? pagesOf(samples, m_project->resolution()) : QVector<Page>();
    askForPage();
}

void CSampleSheet::askForPage()
{
    if (m_pages.isEmpty() || !m_project)
        return;
    m_page.begin(QStringLiteral("#000000"), m_project->fonts());
    for (const SPlace &place : qAsConst(m_pages.first())) {
        const SSample &sample = m_samples.at(place.index);
        m_page.add(QStringLiteral("Sample_T"),
                   sample.font == SSample::None ? SymbolCommands : TextCommands,
                   {CSamplePage::text("sample", sample.text),
                    CSamplePage::number("handle", sample.font),
                    CSamplePage::number("left", place.rect.left()),
                    CSamplePage::number("top", place.rect.top()),
                    CSamplePage::number("box_width", place.rect.width()),
                    CSamplePage::number("box_height", place.rect.height())});
    }
    m_page.ask();
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
