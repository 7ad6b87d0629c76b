#include "CZoomComboWidget.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>

namespace {
constexpr int ControlWidth = 100;
constexpr int Spacing = 4;
} // namespace

CZoomComboWidget::CZoomComboWidget(QWidget *parent)
    : QWidget(parent),
      m_label(new QLabel(this)),
      m_spinBox(new QSpinBox(this)),
      m_slider(new QSlider(Qt::Horizontal, this)),
      m_typeCombo(new QComboBox(this))
{
    setObjectName(QStringLiteral("zoomWidget"));
    m_spinBox->setObjectName(QStringLiteral("zoomSpinBox"));
    m_spinBox->setRange(MinimumPercent, MaximumPercent);
    m_spinBox->setValue(m_zoomPercent);
    m_spinBox->setMaximumWidth(ControlWidth);
    m_spinBox->setSuffix(QStringLiteral(" %"));
    m_spinBox->setKeyboardTracking(false); // a typed 150 must not zoom to 1 and 15 on its way

    m_slider->setObjectName(QStringLiteral("zoomSlider"));
    m_slider->setRange(MinimumPercent, MaximumPercent);
    m_slider->setValue(m_zoomPercent);
    m_slider->setTickInterval(400);
    m_slider->setSingleStep(10);
    m_slider->setPageStep(100);
    m_slider->setTickPosition(QSlider::TicksBothSides);
    m_slider->setMinimumWidth(ControlWidth / 2);
    m_slider->setMaximumWidth(ControlWidth);

    m_typeCombo->setObjectName(QStringLiteral("zoomTypeCombo"));
    m_typeCombo->addItems({QString(), QString(), QString()});
    retranslate();

    m_label->setBuddy(m_spinBox);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Spacing, 0, Spacing, 0);
    layout->setSpacing(Spacing);
    for (QWidget *control :
         std::initializer_list<QWidget *>{m_label, m_spinBox, m_slider, m_typeCombo})
        layout->addWidget(control);

    connect(m_spinBox, qOverload<int>(&QSpinBox::valueChanged), this,
            &CZoomComboWidget::valueChanged);
    connect(m_slider, &QSlider::valueChanged, this, &CZoomComboWidget::valueChanged);
    connect(m_typeCombo, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CZoomComboWidget::zoomTypeIndexChanged);
}

void CZoomComboWidget::retranslate()
{
    m_label->setText(tr("Zoom"));
    m_typeCombo->setItemText(FreeValue, tr("Value"));
    m_typeCombo->setItemText(FitToPage, tr("Page"));
    m_typeCombo->setItemText(FitToWidth, tr("Width"));
}

void CZoomComboWidget::setZoom(int percent, int type)
{
    m_zoomPercent = percent;
    m_zoomType = type;
    showPercent();
    showType();
    Q_EMIT zoomChanged(percent, type);
}

void CZoomComboWidget::resetZoom()
{
    m_zoomType = FreeValue;
    showType();
    valueChanged(100);
}

void CZoomComboWidget::zoomFitToPage()
{
    zoomTypeIndexChanged(FitToPage);
}

void CZoomComboWidget::zoomFitToWidth()
{
    zoomTypeIndexChanged(FitToWidth);
}

void CZoomComboWidget::valueChanged(int percent)
{
    if (percent == m_zoomPercent)
        return;
    m_zoomPercent = percent;
    showPercent();
    Q_EMIT zoomChanged(m_zoomPercent, m_zoomType);
}

void CZoomComboWidget::zoomTypeIndexChanged(int type)
{
    if (type == m_zoomType)
        return;
    m_zoomType = type;
    showType();
    Q_EMIT zoomChanged(m_zoomPercent, m_zoomType);
}

// Spin box and slider may hold another value than the state: a fitted percentage can lie outside
// their range, and must not come back cut through their signals.
void CZoomComboWidget::showPercent()
{
    const QSignalBlocker spinBoxBlocker(m_spinBox);
    const QSignalBlocker sliderBlocker(m_slider);
    m_spinBox->setValue(m_zoomPercent);
    m_slider->setValue(m_zoomPercent);
}

void CZoomComboWidget::showType()
{
    const QSignalBlocker blocker(m_typeCombo);
    m_typeCombo->setCurrentIndex(m_zoomType);
    m_spinBox->setEnabled(m_zoomType == FreeValue);
    m_slider->setEnabled(m_zoomType == FreeValue);
}
