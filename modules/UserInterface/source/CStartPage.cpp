#include "CStartPage.h"

#include "CMenuBar.h"
#include "ProgramInfo.h"

#include <QDir>
#include <QDirIterator>
#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QVBoxLayout>

namespace {
const QString NewLink = QStringLiteral("new:");
const QString OpenLink = QStringLiteral("open:");
const QString FileLink = QStringLiteral("project:");
constexpr int Margin = 48;
constexpr int MaxWidth = 640;

QStringList projectsBelow(const QString &folder)
{
    QStringList found;
    QDirIterator each(folder, {QStringLiteral("*.nyx")}, QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext())
        found.append(each.next());
    found.sort();
    return found;
}

QString paragraph(const QString &html)
{
    return QStringLiteral("<p style=\"margin:0 0 6px 0\">%1</p>").arg(html);
}

/// With its colour: a document takes that of links from the palette only when it is read. Under the
/// picture, if there is such a file.
QString link(const QString &target, const QString &text, const QString &picture = {})
{
    const QString image = QFile::exists(picture)
                              ? QStringLiteral("<img src=\"%1\"><br>").arg(picture.toHtmlEscaped())
                              : QString();
    return QStringLiteral("<a style=\"text-decoration:none;color:%1\" href=\"%2\">%3%4</a>")
        .arg(QGuiApplication::palette().color(QPalette::Link).name(), target.toHtmlEscaped(), image,
             text.toHtmlEscaped());
}
} // namespace

CStartPage::CStartPage(const QString &examples, QWidget *parent)
    : QWidget(parent), m_examples(projectsBelow(examples)), m_label(new QLabel(this))
{
    setObjectName(QStringLiteral("startPage"));
    setAutoFillBackground(true);
    m_label->setObjectName(QStringLiteral("startPageText"));
    m_label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    m_label->setFocusPolicy(Qt::StrongFocus);
    m_label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_label->setWordWrap(true);
    m_label->setMaximumWidth(MaxWidth);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->addWidget(m_label);
    connect(m_label, &QLabel::linkActivated, this, &CStartPage::follow);
    connect(qGuiApp, &QGuiApplication::paletteChanged, this, &CStartPage::showTexts);
    parent->installEventFilter(this);
    setGeometry(parent->rect());
    showTexts();
}

void CStartPage::setRecentProjects(const QStringList &paths)
{
    m_recent = paths;
    showTexts();
}

void CStartPage::showTexts()
{
    const QColor quiet = QGuiApplication::palette().color(QPalette::PlaceholderText);
    const auto heading = [](const QString &text) {
        return QStringLiteral("<p style=\"margin:20px 0 8px 0;font-weight:600\">%1</p>")
            .arg(text.toHtmlEscaped());
    };
    QString html = QStringLiteral("<p style=\"margin:0 0 16px 0;font-size:x-large\">%1</p>")
                       .arg(ProgramInfo::Name) +
                   paragraph(link(NewLink, tr("New project..."))) +
                   paragraph(link(OpenLink, tr("Open a project...")));
    if (!m_recent.isEmpty())
        html += heading(tr("Recent projects"));
    for (const QString &path : qAsConst(m_recent)) {
        const QFileInfo info(path);
        html += paragraph(
            link(FileLink + path, CMenuBar::shortened(info.fileName())) +
            QStringLiteral("&nbsp;&nbsp;<span style=\"color:%1\">%2</span>")
                .arg(quiet.name(), QDir::toNativeSeparators(info.path()).toHtmlEscaped()));
    }
    if (!m_examples.isEmpty())
        html += heading(tr("Examples")) + examplesInARow();
    m_label->setText(html);
}

QString CStartPage::examplesInARow() const
{
    QString cells;
    for (const QString &path : m_examples)
        cells += QStringLiteral("<td style=\"padding-right:16px\">%1</td>")
                     .arg(link(FileLink + path, QFileInfo(path).completeBaseName(),
                               QFileInfo(path).path() + QStringLiteral("/preview.png")));
    return QStringLiteral("<table style=\"margin-top:4px\" cellspacing=\"0\" "
                          "cellpadding=\"0\"><tr>%1</tr></table>")
        .arg(cells);
}

void CStartPage::follow(const QString &link)
{
    if (link == NewLink)
        Q_EMIT newProjectWanted();
    else if (link == OpenLink)
        Q_EMIT openWanted();
    else
        Q_EMIT projectWanted(link.mid(FileLink.size()));
}

void CStartPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        showTexts();
}

bool CStartPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}
