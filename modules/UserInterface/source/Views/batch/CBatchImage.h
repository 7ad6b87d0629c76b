#pragma once

#include "CBatchField.h"

class QLineEdit;

/// The image that items show, chosen as a file.
class CBatchImage final : public CBatchField
{
    Q_OBJECT

public:
    CBatchImage(CBatchEditor *editor, const QString &key, QWidget *parent);

    void show(const CBatchItems::SProperty &property) override;

private:
    QLineEdit *const m_line;
};
