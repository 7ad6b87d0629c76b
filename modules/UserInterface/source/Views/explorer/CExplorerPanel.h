#pragma once

#include <QWidget>

class CFilterLine;
class CProjectExplorerView;

/// What the explorer's dock holds: the tree and, above it, a line that filters it. Enter there
/// chooses the first row that fits, Down leads into the tree, Esc shows all again.
class CExplorerPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CExplorerPanel(QWidget *parent = nullptr);

    CProjectExplorerView *view() const { return m_view; }

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();

    CProjectExplorerView *const m_view;
    CFilterLine *const m_filter;
};
