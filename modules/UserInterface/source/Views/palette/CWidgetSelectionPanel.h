#pragma once

#include <QWidget>

class CWidgetSelectionView;
class QLineEdit;

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
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void retranslate();

    QLineEdit *const m_filter;
    CWidgetSelectionView *const m_view;
};
