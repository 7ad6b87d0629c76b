#pragma once

#include "CBatchField.h"

class QCheckBox;

/// On, off, or differing; a click makes it on for all, the next one off.
class CBatchSwitch final : public CBatchField
{
    Q_OBJECT

public:
    CBatchSwitch(CBatchEditor *editor, const QString &key, QWidget *parent);

    void show(const CBatchItems::SProperty &property) override;

private:
    QCheckBox *const m_box;
};
