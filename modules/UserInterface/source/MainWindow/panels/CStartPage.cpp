#include "CStartPage.h"

#include "BackgroundWork.h"
#include "CMenuBar.h"
#include "CProjectPictures.h"
#include "PictureFile.h"
#include "ProgramInfo.h"
#include "ShownText.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace {
const QString FileLink = QStringLiteral("project:");
const QString ExampleLink = QStringLiteral("example:");
const QString RecoverLink = QStringLiteral("recover:"); // and the index
const QString ForgetLink = QStringLiteral("forget:");
constexpr int MaxMargin = 48;
constexpr int MaxWidth = 1080; // pixels, of texts and pictures
constexpr int Gap = 16;
constexpr double TitleSize = 1.5; // of other texts
constexpr PictureFile::SLimits PreviewLimits = {1024, 4 << 20};

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

/// The text of a rich text reads its images by itself, from anywhere and without limits; so it gets
/// them as we have read them.
QString addressOf(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(bytes.toBase64());
}

/// In a field of the size that all have.
QImage framed(const QImage &picture)
{
    QImage field(CProjectPictures::Size * 2, QImage::Format_ARGB32_Premultiplied);
    field.fill(Qt::transparent);
    QRect place(QPoint(), picture.size().scaled(field.size(), Qt::KeepAspectRatio));
    place.moveBottomLeft(field.rect().bottomLeft()); // its name stands below
    QPainter painter(&field);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, picture);
    return field;
}

QString plainPicture(const QColor &colour)
{
    QImage field(CProjectPictures::Size, QImage::Format_ARGB32_Premultiplied);
    field.fill(colour);
    return addressOf(field);
}

/// For a project that has no picture (yet).
QString emptyPicture()
{
    static QPair<QRgb, QString> last; // to write a picture takes as long as all the rest
    QColor colour = QGuiApplication::palette().color(QPalette::WindowText);
    colour.setAlpha(24);
    if (last.second.isEmpty() || last.first != colour.rgba())
        last = {colour.rgba(), plainPicture(colour)};
    return last.second;
}

QString tableRow(const QString &cells)
{
    return QStringLiteral("<table style=\"margin:4px 0 12px 0\" cellspacing=\"0\" "
                          "cellpadding=\"0\"><tr>%1</tr></table>")
        .arg(cells);
}

QString tableCell(const QString &content, int width)
{
    return QStringLiteral("<td width=\"%1\">%2</td>").arg(width + Gap).arg(content);
}

/// With its colour: a document takes that of links from the palette only when it is read. Under the
/// picture, if there is one, in that width.
QString link(const QString &target, const QString &text, const QString &picture = {}, int width = 0)
{
    const QString image =
        picture.isEmpty()
            ? QString()
            : QStringLiteral("<img src=\"%1\" width=\"%2\"><br>").arg(picture).arg(width);
    return QStringLiteral("<a style=\"text-decoration:none;color:%1\" href=\"%2\">%3%4</a>")
        .arg(QGuiApplication::palette().color(QPalette::Link).name(), target.toHtmlEscaped(), image,
             text.toHtmlEscaped());
}
} // namespace

CStartPage::CStartPage(const QString &examples, QWidget *parent)
    : QWidget(parent), m_area(new QScrollArea(this)), m_label(new QLabel)
{
    setObjectName(QStringLiteral("startPage"));
    setAutoFillBackground(true);
    m_label->setObjectName(QStringLiteral("startPageText"));
    m_label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    m_label->setFocusPolicy(Qt::StrongFocus);
    m_label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_label->setWordWrap(true);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setWidgetResizable(true);
    makeContent();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_area);
    connect(m_label, &QLabel::linkActivated, this, &CStartPage::follow);
    connect(qGuiApp, &QGuiApplication::paletteChanged, this, &CStartPage::showTexts);
    parent->installEventFilter(this);
    setGeometry(parent->rect());
    BackgroundWork::run(
        this,
        [examples, isFine = devicePixelRatioF() > 1] { return examplesBelow(examples, isFine); },
        [this](const QVector<SExample> &found) {
            m_examples = found;
            showTexts();
        });
    showTexts();
}

void CStartPage::makeContent()
{
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setSpacing(Gap);
    m_title = new QLabel(ProgramInfo::Name);
    m_title->setObjectName(QStringLiteral("startPageTitle"));
    QFont large = m_title->font();
    large.setPointSizeF(large.pointSizeF() * TitleSize);
    m_title->setFont(large);
    m_title->setWordWrap(true);
    m_new = new QPushButton;
    m_new->setObjectName(QStringLiteral("startPageNew"));
    m_open = new QPushButton;
    m_open->setObjectName(QStringLiteral("startPageOpen"));
    connect(m_new, &QPushButton::clicked, this, &CStartPage::newProjectWanted);
    connect(m_open, &QPushButton::clicked, this, &CStartPage::openWanted);
    auto *buttons = new QHBoxLayout;
    m_buttons = buttons;
    buttons->setSpacing(Gap / 2);
    buttons->addWidget(m_new, 0, Qt::AlignLeft);
    buttons->addWidget(m_open, 1, Qt::AlignLeft);
    layout->addWidget(m_title);
    layout->addLayout(buttons);
    layout->addWidget(m_label);
    layout->addStretch();
    m_area->setWidget(content);
}

QVector<CStartPage::SExample> CStartPage::examplesBelow(const QString &folder, bool isFine)
{
    QVector<SExample> examples;
    const QStringList projects = projectsBelow(folder);
    for (const QString &project : projects) {
        const QString start = QFileInfo(project).path() + QStringLiteral("/preview");
        QString error; // then it is shown without
        QImage image =
            PictureFile::read(start + QStringLiteral(".png"), "png", PreviewLimits, &error);
        SExample example{project, image.width(), {}};
        if (!image.isNull() && isFine) {
            const QImage fine =
                PictureFile::read(start + QStringLiteral("@2x.png"), "png", PreviewLimits, &error);
            image = fine.isNull() ? image : fine;
        }
        if (!image.isNull())
            example.picture = addressOf(image);
        examples.append(example);
    }
    return examples;
}

void CStartPage::setRecentProjects(const QStringList &paths)
{
    m_recent = paths;
    showTexts();
    readPictures();
}

void CStartPage::readPictures()
{
    using Found = QHash<QString, QString>;
    BackgroundWork::run(
        this,
        [paths = m_recent] {
            Found found;
            for (const QString &path : paths) {
                const QImage picture = CProjectPictures::read(path);
                if (!picture.isNull())
                    found.insert(path, addressOf(framed(picture)));
            }
            return found;
        },
        [this](const Found &found) {
            m_pictures = found;
            showTexts();
        });
}

void CStartPage::setLeftWork(const QVector<CRecoveryCopy::SLeft> &left)
{
    m_left = left;
    showTexts();
}

void CStartPage::setVisible(bool visible)
{
    QWidget::setVisible(visible);
    if (visible && m_areTextsOld)
        showTexts();
}

void CStartPage::showTexts()
{
    m_new->setText(tr("New project..."));
    m_open->setText(tr("Open a project..."));
    m_areTextsOld = isHidden();
    if (m_areTextsOld)
        return;
    const auto heading = [](const QString &text) {
        return QStringLiteral("<p style=\"margin:20px 0 8px 0;font-weight:600\">%1</p>")
            .arg(text.toHtmlEscaped());
    };
    QString html;
    if (!m_left.isEmpty())
        html += heading(tr("Unsaved work of a session that ended unexpectedly")) + leftWorkInRows();
    if (!m_recent.isEmpty())
        html += heading(tr("Recent projects")) + recentProjects();
    if (!m_examples.isEmpty())
        html += heading(tr("Examples")) + examples();
    if (m_label->text() != html)
        m_label->setText(html);
}

QString CStartPage::leftWorkInRows() const
{
    QString rows;
    for (int i = 0; i < m_left.size(); ++i) {
        const QString index = QString::number(i);
        const QString when = m_left[i].written.toString(tr("yyyy-MM-dd hh:mm", "form of a time"));
        rows += paragraph(link(RecoverLink + index,
                               tr("Recover \"%1\"").arg(ShownText::name(m_left[i].projectName))) +
                          QStringLiteral("&nbsp;&nbsp;%1&nbsp;&nbsp;").arg(when.toHtmlEscaped()) +
                          link(ForgetLink + index, tr("Delete")));
    }
    return rows;
}

int CStartPage::room() const
{
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const QMargins margins = m_area->widget()->layout()->contentsMargins();
    return std::min(width() - margins.left() - margins.right() - bar, MaxWidth);
}

/// Each with its picture, or an empty one: side by side, in as many rows as the width asks for.
QString CStartPage::recentProjects() const
{
    const int width = std::max(1, std::min(CProjectPictures::Size.width(), room() - Gap));
    const int inARow = std::max(1, (room() + Gap) / (width + Gap));
    const QString quiet = QGuiApplication::palette().color(QPalette::PlaceholderText).name();
    const QString empty = emptyPicture();
    const auto cut = [this, width](const QString &text, Qt::TextElideMode where) {
        return m_label->fontMetrics().elidedText(text, where, width);
    };
    QString rows;
    QString cells;
    for (int i = 0; i < m_recent.size(); ++i) {
        const QFileInfo info(m_recent[i]);
        const QString folder = ShownText::name(QDir::toNativeSeparators(info.path()));
        cells += tableCell(
            link(FileLink + m_recent[i],
                 cut(ShownText::name(CMenuBar::shortened(info.fileName())), Qt::ElideMiddle),
                 m_pictures.value(m_recent[i], empty), width) +
                QStringLiteral("<br><span style=\"color:%1\">%2</span>")
                    .arg(quiet, cut(folder, Qt::ElideLeft).toHtmlEscaped()),
            width);
        if ((i + 1) % inARow == 0 || i + 1 == m_recent.size()) {
            rows += tableRow(cells);
            cells.clear();
        }
    }
    return rows;
}

/// The same, as wide as each is.
QString CStartPage::examples() const
{
    QString rows;
    QString cells;
    int used = 0;
    for (const SExample &example : m_examples) {
        const int width = std::min(example.width, room() - Gap);
        if (used > 0 && used + width > room()) {
            rows += tableRow(cells);
            cells.clear();
            used = 0;
        }
        used += width + Gap;
        const QString name = ShownText::name(QFileInfo(example.project).completeBaseName());
        cells +=
            tableCell(link(ExampleLink + example.project, name, example.picture, width), width);
    }
    return rows + tableRow(cells);
}

void CStartPage::follow(const QString &link)
{
    if (link.startsWith(ExampleLink))
        Q_EMIT exampleWanted(link.mid(ExampleLink.size()));
    else if (link.startsWith(RecoverLink))
        Q_EMIT recoveryWanted(m_left.value(link.midRef(RecoverLink.size()).toInt()));
    else if (link.startsWith(ForgetLink))
        Q_EMIT forgetWanted(m_left.value(link.midRef(ForgetLink.size()).toInt()));
    else
        Q_EMIT projectWanted(link.mid(FileLink.size()));
}

void CStartPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        showTexts();
}

void CStartPage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const int margin = std::min(width() / 12, MaxMargin);
    m_area->widget()->layout()->setContentsMargins(margin, margin, margin, margin);
    m_label->setMaximumWidth(MaxWidth);
    const int wide = m_new->sizeHint().width() + Gap + m_open->sizeHint().width();
    m_buttons->setDirection(wide > room() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    showTexts();
}

bool CStartPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}
