#pragma once

#include <QColor>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QSlider;
class QSpinBox;
class QToolButton;

/// Sets the grid that every screen shows: on or off, spacing, colour and line style.
/// Announces every change with one signal that carries the whole state.
class CGridComboWidget final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int MinimumSpacing = 1;
    static constexpr int MaximumSpacing = 200;

    explicit CGridComboWidget(QWidget *parent = nullptr);

    bool isGridShown() const { return m_showGrid; }
    int gridSize() const { return m_gridSize; } ///< scene units
    QColor gridColor() const { return m_gridColor; }
    Qt::PenStyle gridType() const { return static_cast<Qt::PenStyle>(m_gridType); }
    void retranslate();

Q_SIGNALS:
    void gridChanged(bool on, int spacing, QColor colour, Qt::PenStyle style);

public Q_SLOTS:
    void setGrid(bool on, int spacing, QColor colour, Qt::PenStyle style);
    void toggleChanged(bool on);
    void toggleGrid();
    void gridTypeChanged(int index);
    /// Asks for the line style; announces the state in every case.
    void chooseType();
    /// Asks for the colour; announces nothing when cancelled.
    void chooseColor();
    void valueChanged(int spacing);

private:
    void announce();
    void showSpacing();
    void showColour();
    void showEnabled();
    void showStyle();

    QCheckBox *m_checkBox;
    QComboBox *m_typeCombo;
    QSpinBox *m_spinBox;
    QSlider *m_slider;
    QToolButton *m_colourButton;
    bool m_showGrid = true;
    int m_gridSize = 20;
    QColor m_gridColor = Qt::red;
    int m_gridType = Qt::SolidLine;
};
