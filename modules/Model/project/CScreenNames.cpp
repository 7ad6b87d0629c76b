#include "CScreenNames.h"

#include "CProjectModel.h"

CScreenNames::CScreenNames(const CProjectModel &project)
{
    for (int row = 0; row < project.rowCount(); ++row)
        m_taken.insert(project.item(row)->text());
}

QString CScreenNames::take()
{
    for (;;) {
        const QString name = QStringLiteral("Page %1").arg(m_next++);
        if (!m_taken.contains(name))
            return name;
    }
}
