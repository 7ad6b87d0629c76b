#pragma once

#include <QWidget>

class CFilterLine;
class CWidgetSelectionView;

/// What the palette's dock holds: the palette and, above it, a line that filters it.
/// Enter there places the best match, Down leads into the palette, Esc shows all again.
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

    CWidgetSelectionView *const m_view;
    CFilterLine *const m_filter;
};
