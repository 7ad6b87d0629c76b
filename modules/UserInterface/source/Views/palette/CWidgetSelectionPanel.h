#pragma once

#include <QWidget>

class CWidgetSelectionView;
class QLineEdit;

/// What the palette's dock holds: the palette and, above it, a line that filters it.
class CWidgetSelectionPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CWidgetSelectionPanel(QWidget *parent = nullptr);

    CWidgetSelectionView *view() const { return m_view; }

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();

    QLineEdit *const m_filter;
    CWidgetSelectionView *const m_view;
};
