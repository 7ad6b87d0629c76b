#pragma once

#include "CBatchField.h"
#include "CSampleSheet.h"
#include "SPropertyLook.h"

class CPictureBox;

/// One of some entries: of an enumeration, or a font by its number. Fonts and symbols have
/// pictures.
class CBatchList final : public CBatchField
{
    Q_OBJECT

public:
    CBatchList(CBatchEditor *editor, const QString &key, SPropertyLook::EEditor look,
               QWidget *parent);

    void show(const CBatchItems::SProperty &property) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct SEntry
    {
        QString text;
        QVariant value;
        CSampleSheet::SSample sample; ///< empty: none
    };
    void fill(const QVector<SEntry> &entries);
    void choose(int index);

    const SPropertyLook::EEditor m_look;
    CPictureBox *const m_box;
};
