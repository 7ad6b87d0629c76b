#pragma once

#include "CBatchField.h"
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
    void fill(const QStringList &entries);
    void fillWithFonts();
    void choose(int index);

    const SPropertyLook::EEditor m_look;
    CPictureBox *const m_box;
};
