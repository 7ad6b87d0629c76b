#include "CBatchField.h"

#include <QHBoxLayout>

CBatchField::CBatchField(CBatchEditor *editor, const QString &key, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_key(key)
{
    setObjectName(key);
}

QString CBatchField::mixedText()
{
    return tr("mixed");
}

void CBatchField::setContent(QWidget *content)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    setFocusProxy(content);
}
