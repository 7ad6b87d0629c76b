#pragma once

#include "CBatchField.h"

class QComboBox;

/// One of some entries.
class CBatchList final : public CBatchField
{
    Q_OBJECT

public:
    CBatchList(CBatchEditor *editor, const QString &key, QWidget *parent);

    void show(const CBatchItems::SProperty &property) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QComboBox *const m_box;
};
