#include "CBatchColour.h"

#include "CBatchEditor.h"
#include "CThemeIcons.h"

#include <QAction>
#include <QEvent>
#include <QLineEdit>
#include <QPainter>

namespace {
/// One colour, or a mark where they differ.
QIcon swatch(const QColor &colour, const QWidget &widget)
{
    constexpr int side = 16;
    const qreal ratio = widget.devicePixelRatioF();
    QPixmap picture(QSize(side, side) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor outline = widget.palette().color(QPalette::Text);
    outline.setAlpha(150);
    painter.setPen(outline);
    const QRectF area(1.5, 1.5, side - 3, side - 3);
    if (colour.isValid())
        painter.setBrush(colour);
    painter.drawRoundedRect(area, 3, 3);
    if (!colour.isValid())
        painter.drawLine(area.bottomLeft() + QPointF(2, -2), area.topRight() + QPointF(-2, 2));
    painter.end();
    return CThemeIcons::untinted(picture);
}
} // namespace

CBatchColour::CBatchColour(CBatchEditor *editor, const QString &key, QWidget *parent)
    : CBatchLine(editor, key, parent),
      m_swatch(line()->addAction(QIcon(), QLineEdit::LeadingPosition))
{
    QAction *button = line()->addAction(CThemeIcons::icon(QStringLiteral(":/images/RGB.png")),
                                        QLineEdit::TrailingPosition);
    button->setObjectName(QStringLiteral("chooseColour"));
    for (QAction *each : {m_swatch, button}) {
        each->setToolTip(tr("Choose a colour"));
        connect(each, &QAction::triggered, this, &CBatchColour::choose);
    }
}

void CBatchColour::show(const CBatchItems::SProperty &property)
{
    m_colour = property.isMixed ? QColor() : QColor(property.property.text());
    m_swatch->setIcon(swatch(m_colour, *this));
    CBatchLine::show(property);
}

void CBatchColour::changeEvent(QEvent *event)
{
    CBatchLine::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        m_swatch->setIcon(swatch(m_colour, *this)); // drawn in the colours of the theme
}

QString CBatchColour::take(const QString &text)
{
    const QString name = text.trimmed();
    const QColor colour =
        QColor::isValidColor(name) ? QColor(name) : QColor(QLatin1Char('#') + name);
    if (!colour.isValid())
        return tr("A colour is typed as #rrggbb, #aarrggbb or its name");
    editor()->set(key(), colour);
    return {};
}

void CBatchColour::choose()
{
    commit();
    editor()->chooseColour(key(), line());
}
