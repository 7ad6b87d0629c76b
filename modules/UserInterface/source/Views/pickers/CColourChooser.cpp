#include "CColourChooser.h"

#include "CColourDialog.h"
#include "CItemModel.h"
#include "CLiveEdit.h"
#include "CProjectModel.h"
#include "ProjectColours.h"

CColourChooser::CColourChooser(QObject *parent) : QObject(parent)
{
}

CColourChooser::~CColourChooser()
{
    cancel();
}

void CColourChooser::choose(const QVector<CItemModel *> &items, const QString &key, QWidget *beside)
{
    cancel();
    if (items.isEmpty() || !items.constFirst()->project())
        return;
    m_edit = std::make_unique<CLiveEdit>(items, key);
    m_dialog =
        new CColourDialog(QColor(items.constFirst()->propertyText(key)),
                          ProjectColours::of(*items.constFirst()->project()), beside->window());
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_dialog, &CColourDialog::colourTried, this, &CColourChooser::show);
    connect(m_dialog, &QDialog::finished, this,
            [this](int result) { end(result == QDialog::Accepted); });
    m_dialog->standBeside(beside);
    m_dialog->open();
}

void CColourChooser::show(const QColor &colour)
{
    for (int index = 0; m_edit && index < m_edit->items().size(); ++index)
        m_edit->show(index, colour);
}

void CColourChooser::end(bool isKept)
{
    if (m_edit && isKept)
        m_edit->keep(tr("Change Colour"));
    m_edit.reset();
}

void CColourChooser::cancel()
{
    end(false);
    if (m_dialog)
        m_dialog->reject();
}
