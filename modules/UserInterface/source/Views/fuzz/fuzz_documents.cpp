#include "CWidgetLibraryManager.h"
#include "DocumentChecks.h"

#include <QCoreApplication>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qSetGlobalQHashSeed(0);
    static QCoreApplication application(*argc, *argv);
    if (!CWidgetLibraryManager::instance().initialise(QStringLiteral(KIV_WIDGET_LIBRARY), {0x110}))
        std::abort();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray wrong =
        checkDocument(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    if (!wrong.isEmpty()) {
        qCritical("%s", wrong.constData());
        std::abort();
    }
    return 0;
}
