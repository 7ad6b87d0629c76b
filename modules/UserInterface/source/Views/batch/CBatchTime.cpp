#include "CBatchTime.h"

#include "CBatchEditor.h"

#include <QTime>

QString CBatchTime::take(const QString &text)
{
    for (const char *form : {"H:m:s", "H:m", "HHmmss"}) {
        const QTime time = QTime::fromString(text.trimmed(), QLatin1String(form));
        if (!time.isValid())
            continue;
        editor()->set(key(), time);
        return {};
    }
    return tr("A time is typed as 18:30:00");
}
