#include "SaveRenderHandler.h"

#include <utility>

QString SaveRenderHandler::oneCommandPerLine(QString dlText)
{
    return dlText.replace(QLatin1Char(';'), QLatin1String(";\n"));
}

void SaveRenderHandler::emulatorFrameDLCallback(QString dlTextBuffer, QByteArray dlBinBuffer,
                                                void *, size_t, char *)
{
    m_text = oneCommandPerLine(std::move(dlTextBuffer));
    m_bytes = std::move(dlBinBuffer);
    m_obtained = true;
}

void SaveRenderHandler::resetData()
{
    m_text.clear();
    m_bytes.clear();
    m_obtained = false;
}
