#pragma once

#include "CBatchLine.h"

class QLabel;

/// A number: typed as for a property, also relative to what each item has; stepped with the arrow
/// keys, and dragged by its label.
class CBatchNumber final : public CBatchLine
{
    Q_OBJECT

public:
    /// `unit`: what one of the numbers that are shown stands for.
    CBatchNumber(CBatchEditor *editor, const QString &key, double unit, QWidget *parent);

    void show(const CBatchItems::SProperty &property) override;
    void dragBy(QLabel *label);

protected:
    QString textOf(const CWidgetProperty &property) const override;
    QString take(const QString &text) override;
    void takePending() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void step(int steps);

    const double m_unit;
    double m_step = 1;
    int m_steps = 0; ///< by keys, not recorded yet
};
