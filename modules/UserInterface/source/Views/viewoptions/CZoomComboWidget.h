#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QSlider;
class QSpinBox;

/// Sets how large every screen is shown: a percentage, or a fit to the page or its width.
/// Announces every change with one signal that carries the whole state.
class CZoomComboWidget final : public QWidget
{
    Q_OBJECT

public:
    /// The numbers are kept in the settings file.
    enum Type { FreeValue = 0, FitToPage = 1, FitToWidth = 2 };

    static constexpr int MinimumPercent = 50;
    static constexpr int MaximumPercent = 3000;

    explicit CZoomComboWidget(QWidget *parent = nullptr);

    int zoomPercent() const { return m_zoomPercent; }
    int zoomType() const { return m_zoomType; }
    void retranslate();

Q_SIGNALS:
    void zoomChanged(int percent, int type);

public Q_SLOTS:
    /// Takes both and announces them, also when nothing differs.
    void setZoom(int percent, int type);
    /// Back to the free value of 100 percent. Announces nothing when the percentage was 100 before,
    /// so that a fitted view stays as it is until the next change.
    void resetZoom();
    void zoomFitToPage();
    void zoomFitToWidth();
    void valueChanged(int percent);
    void zoomTypeIndexChanged(int type);

private:
    void showPercent();
    void showType();

    QLabel *m_label;
    QSpinBox *m_spinBox;
    QSlider *m_slider;
    QComboBox *m_typeCombo;
    int m_zoomPercent = 100;
    int m_zoomType = FreeValue;
};
