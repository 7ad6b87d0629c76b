#include "CGridComboWidget.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>

namespace {
constexpr int ControlWidth = 100;
constexpr int SwatchSide = 12;
constexpr int SwatchButtonSide = 14;
constexpr int Spacing = 4;
} // namespace

CGridComboWidget::CGridComboWidget(QWidget *parent)
    : QWidget(parent),
      m_checkBox(new QCheckBox(this)),
      m_typeCombo(new QComboBox(this)),
      m_spinBox(new QSpinBox(this)),
      m_slider(new QSlider(Qt::Horizontal, this)),
      m_colourButton(new QToolButton(this))
{
    setObjectName(QStringLiteral("gridWidget"));
    m_checkBox->setObjectName(QStringLiteral("gridCheckBox"));
    m_checkBox->setChecked(m_showGrid);
    m_typeCombo->setObjectName(QStringLiteral("gridTypeCombo"));
    m_typeCombo->addItems({QString(), QString(), QString()});

    m_spinBox->setObjectName(QStringLiteral("gridSpinBox"));
    m_spinBox->setRange(MinimumSpacing, MaximumSpacing);
    m_spinBox->setMaximumWidth(ControlWidth);
    m_spinBox->setKeyboardTracking(false);

    m_slider->setObjectName(QStringLiteral("gridSlider"));
    m_slider->setRange(MinimumSpacing, MaximumSpacing);
    m_slider->setTickInterval(20);
    m_slider->setSingleStep(5);
    m_slider->setPageStep(20);
    m_slider->setTickPosition(QSlider::TicksBothSides);
    m_slider->setMinimumWidth(ControlWidth / 2);
    m_slider->setMaximumWidth(ControlWidth);

    m_colourButton->setObjectName(QStringLiteral("gridColourButton"));
    m_colourButton->setMaximumSize(SwatchButtonSide, SwatchButtonSide);
    m_colourButton->setIconSize({SwatchSide, SwatchSide});
    retranslate();
    showSpacing();
    showColour();
    showStyle();

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Spacing, 0, Spacing, 0);
    layout->setSpacing(Spacing);
    for (QWidget *control : std::initializer_list<QWidget *>{m_checkBox, m_typeCombo, m_spinBox,
                                                             m_slider, m_colourButton})
        layout->addWidget(control);

    connect(m_checkBox, &QCheckBox::clicked, this, &CGridComboWidget::toggleChanged);
    connect(m_typeCombo, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CGridComboWidget::gridTypeChanged);
    connect(m_spinBox, qOverload<int>(&QSpinBox::valueChanged), this,
            &CGridComboWidget::valueChanged);
    connect(m_slider, &QSlider::valueChanged, this, &CGridComboWidget::valueChanged);
    connect(m_colourButton, &QToolButton::clicked, this, &CGridComboWidget::chooseColor);
}

void CGridComboWidget::retranslate()
{
    const QSignalBlocker blocker(m_typeCombo);
    m_checkBox->setText(tr("Grid"));
    m_typeCombo->setItemText(0, tr("Line"));
    m_typeCombo->setItemText(1, tr("Dashes"));
    m_typeCombo->setItemText(2, tr("Dots"));
    m_colourButton->setToolTip(tr("Change the grid colour"));
    m_colourButton->setAccessibleName(m_colourButton->toolTip());
}

void CGridComboWidget::setGrid(bool on, int spacing, QColor colour, Qt::PenStyle style)
{
    m_showGrid = on;
    m_gridSize = qBound(MinimumSpacing, spacing, MaximumSpacing);
    m_gridColor = colour;
    m_gridType = qBound<int>(Qt::SolidLine, style, Qt::DotLine);
    showEnabled();
    showSpacing();
    showColour();
    showStyle();
    announce();
}

void CGridComboWidget::toggleChanged(bool on)
{
    m_showGrid = on;
    showEnabled();
    announce();
}

void CGridComboWidget::toggleGrid()
{
    toggleChanged(!m_showGrid);
}

void CGridComboWidget::gridTypeChanged(int index)
{
    m_gridType = index + 1;
    announce();
}

void CGridComboWidget::chooseType()
{
    const QStringList types{tr("Line"), tr("Dashes"), tr("Dots")};
    const QString chosen = QInputDialog::getItem(this, tr("Choose Grid Type"), tr("Grid"), types,
                                                 m_gridType - 1, false);
    const int index = types.indexOf(chosen);
    if (index >= 0)
        m_gridType = index + 1;
    showStyle();
    announce();
}

void CGridComboWidget::chooseColor()
{
    const QColor chosen = QColorDialog::getColor(m_gridColor, this, QString());
    if (!chosen.isValid())
        return;
    m_gridColor = chosen;
    showColour();
    announce();
}

void CGridComboWidget::valueChanged(int spacing)
{
    if (spacing == m_gridSize)
        return;
    m_gridSize = spacing;
    showSpacing();
    announce();
}

void CGridComboWidget::announce()
{
    Q_EMIT gridChanged(m_showGrid, m_gridSize, m_gridColor, gridType());
}

void CGridComboWidget::showSpacing()
{
    const QSignalBlocker spinBoxBlocker(m_spinBox);
    const QSignalBlocker sliderBlocker(m_slider);
    m_spinBox->setValue(m_gridSize);
    m_slider->setValue(m_gridSize);
}

void CGridComboWidget::showColour()
{
    QPixmap swatch(SwatchSide, SwatchSide);
    swatch.fill(m_gridColor);
    m_colourButton->setIcon(swatch);
}

void CGridComboWidget::showEnabled()
{
    m_checkBox->setChecked(m_showGrid);
    for (QWidget *control :
         std::initializer_list<QWidget *>{m_typeCombo, m_spinBox, m_slider, m_colourButton})
        control->setEnabled(m_showGrid);
}

void CGridComboWidget::showStyle()
{
    const QSignalBlocker blocker(m_typeCombo);
    m_typeCombo->setCurrentIndex(m_gridType - 1);
}
