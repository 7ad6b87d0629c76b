#include "CBatchSwitch.h"

#include "CBatchEditor.h"

#include <QCheckBox>
#include <QCoreApplication>

namespace {
/// Nobody goes back to "differing" by clicks.
class CTwoWayBox final : public QCheckBox
{
public:
    using QCheckBox::QCheckBox;

protected:
    void nextCheckState() override
    {
        setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    }
};
} // namespace

CBatchSwitch::CBatchSwitch(CBatchEditor *editor, const QString &key, QWidget *parent)
    : CBatchField(editor, key, parent), m_box(new CTwoWayBox(this))
{
    setContent(m_box);
    connect(m_box, &QCheckBox::clicked, this,
            [this] { this->editor()->set(this->key(), m_box->checkState() == Qt::Checked); });
}

void CBatchSwitch::show(const CBatchItems::SProperty &property)
{
    const bool isOn = property.property.value().toBool();
    m_box->setTristate(property.isMixed);
    m_box->setCheckState(property.isMixed ? Qt::PartiallyChecked
                         : isOn           ? Qt::Checked
                                          : Qt::Unchecked);
    m_box->setText(property.isMixed
                       ? mixedText()
                       : QCoreApplication::translate("QtBoolEdit", isOn ? "True" : "False"));
}
