#include "CColourDialog.h"

#include "CColourField.h"
#include "CColourSwatches.h"
#include "CRecentColours.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int MostOfProject = 36;

QString nameOf(const QColor &colour)
{
    return colour.name(colour.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
}

/// "#rrggbb", also without its "#", "#aarrggbb" or a colour's name.
QColor colourNamed(const QString &text)
{
    const QString name = text.trimmed();
    return QColor::isValidColor(name) ? QColor(name) : QColor(QLatin1Char('#') + name);
}
} // namespace

CColourDialog::CColourDialog(const QColor &start, const ProjectColours::Uses &used, QWidget *parent)
    : QDialog(parent),
      m_start(start),
      m_colour(start.isValid() ? start : QColor(Qt::black)),
      m_field(new CColourField(this)),
      m_text(new QLineEdit(this)),
      m_compare(new QLabel(this))
{
    setWindowTitle(tr("Choose a colour"));
    auto *column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(m_field);
    auto *line = new QHBoxLayout;
    line->addWidget(m_compare);
    line->addWidget(m_text, 1);
    column->addLayout(line);
    m_text->setObjectName(QStringLiteral("colourName"));
    m_text->setToolTip(tr("#rrggbb, #aarrggbb or the name of a colour"));

    QVector<QColor> colours;
    QStringList texts;
    for (const ProjectColours::SUse &each : used.mid(0, MostOfProject)) {
        colours.append(each.colour);
        texts.append(tr("%1, uses: %2").arg(nameOf(each.colour)).arg(each.count));
    }
    const auto addSwatches = [this, column](const QString &title, const char *name,
                                            const QVector<QColor> &all, const QStringList &tips) {
        if (all.isEmpty())
            return;
        column->addWidget(addHeading(title));
        auto *swatches = new CColourSwatches(this);
        swatches->setObjectName(QLatin1String(name));
        swatches->setColours(all, tips);
        column->addWidget(swatches);
        connect(swatches, &CColourSwatches::chosen, this, [this](const QColor &colour) {
            tryColour(colour);
            accept(); // one click, as from any palette
        });
    };
    addSwatches(tr("In this project"), "projectColours", colours, texts);
    texts.clear();
    const QVector<QColor> &recent = CRecentColours::instance().colours();
    for (const QColor &each : recent)
        texts.append(nameOf(each));
    addSwatches(tr("Chosen last"), "recentColours", recent, texts);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &CColourDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CColourDialog::reject);
    connect(m_field, &CColourField::colourChanged, this, &CColourDialog::tryColour);
    connect(m_text, &QLineEdit::textEdited, this, [this](const QString &text) {
        const QColor typed = colourNamed(text);
        if (typed.isValid())
            tryColour(typed);
    });
    connect(m_text, &QLineEdit::editingFinished, this,
            [this] { m_text->setText(nameOf(m_colour)); });
    showColour();
    m_text->setText(nameOf(m_colour));
    m_text->setFocus();
    m_text->selectAll();
}

QLabel *CColourDialog::addHeading(const QString &text)
{
    auto *heading = new QLabel(text, this);
    QFont font = heading->font();
    font.setWeight(QFont::DemiBold);
    heading->setFont(font);
    return heading;
}

void CColourDialog::tryColour(const QColor &colour)
{
    m_colour = colour;
    showColour();
    if (colourNamed(m_text->text()) != colour) // "#fff" may be on its way to "#ffff00"
        m_text->setText(nameOf(colour));
    Q_EMIT colourTried(colour);
}

void CColourDialog::showColour()
{
    m_field->setColour(m_colour);
    constexpr int width = 64;
    constexpr int height = 24;
    const qreal ratio = devicePixelRatioF();
    QPixmap both(QSize(width, height) * ratio);
    both.setDevicePixelRatio(ratio);
    both.fill(Qt::white);
    QPainter painter(&both);
    painter.fillRect(0, height / 2, width, height / 2, Qt::black);
    painter.fillRect(0, 0, width / 2, height, m_start.isValid() ? m_start : Qt::transparent);
    painter.fillRect(width / 2, 0, width / 2, height, m_colour);
    painter.end();
    m_compare->setPixmap(both);
    m_compare->setToolTip(tr("Before and now"));
}

void CColourDialog::standBeside(const QWidget *widget)
{
    adjustSize();
    const QRect of(widget->mapToGlobal({}), widget->size());
    const QScreen *screen = widget->screen();
    const QRect area = screen ? screen->availableGeometry() : of;
    constexpr int gap = 12;
    int x = of.left() - width() - gap;
    if (x < area.left())
        x = of.right() + gap;
    move(
        std::clamp(x, area.left(), std::max(area.left(), area.right() - width())),
        std::clamp(of.top(), area.top(), std::max(area.top(), area.bottom() - height() - 2 * gap)));
}

void CColourDialog::accept()
{
    CRecentColours::instance().add(m_colour);
    QDialog::accept();
}
