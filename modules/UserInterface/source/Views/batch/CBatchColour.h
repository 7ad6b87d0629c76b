#pragma once

#include "CBatchLine.h"

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

private:
    void choose();

    QAction *const m_swatch;
};
