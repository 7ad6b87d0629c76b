#pragma once

#include "CBatchLine.h"

#include <QColor>

class QAction;

/// A colour: typed as its name, or chosen in a dialog, seen on all items meanwhile.
class CBatchColour final : public CBatchLine
{
    Q_OBJECT

public:
    CBatchColour(CBatchEditor *editor, const QString &key, QWidget *parent);

    void show(const CBatchItems::SProperty &property) override;

protected:
    QString take(const QString &text) override;
    void changeEvent(QEvent *event) override;

private:
    void choose();

    QAction *const m_swatch;
    QColor m_colour; ///< shown; none where they differ
};
