#pragma once

#include <QObject>

class QWidget;

/// Shows every tool tip of the program as plain text, wherever it comes from: names, values and
/// paths in it are other people's, and HTML in one could have any file read. Here and not where
/// tool tips are set, because views make some of their own out of what a cell shows. Texts that
/// nothing could be read into are left to the widgets.
class CPlainToolTips final : public QObject
{
public:
    /// Watches the whole program while it lives.
    explicit CPlainToolTips(QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static QString toolTipAt(const QWidget &widget, const QPoint &position);
};
