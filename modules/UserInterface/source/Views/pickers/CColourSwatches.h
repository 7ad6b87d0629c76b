#pragma once

#include <QColor>
#include <QStringList>
#include <QVector>
#include <QWidget>

/// Rows of colours, one of which is taken by a click, or by the arrow keys and Space.
class CColourSwatches : public QWidget
{
    Q_OBJECT

public:
    explicit CColourSwatches(QWidget *parent = nullptr);

    /// `texts`: a tool tip for each.
    void setColours(const QVector<QColor> &colours, const QStringList &texts);
    const QVector<QColor> &colours() const { return m_colours; }
    QRect rectOf(int index) const;

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

Q_SIGNALS:
    void chosen(const QColor &colour);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    int columns(int width) const;
    int indexAt(const QPoint &position) const;

    QVector<QColor> m_colours;
    QStringList m_texts;
    int m_current = 0; ///< for the keys
};
