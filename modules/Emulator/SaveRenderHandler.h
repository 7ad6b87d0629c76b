#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <cstddef>

/// Keeps the display list that answers one background render. Connect its slot to the adapter's
/// emulatorBackgroundFrameDLCallback; it takes every answer that it is told, whoever asked.
class SaveRenderHandler : public QObject
{
    Q_OBJECT

public:
    /// The text with every command on a line of its own.
    static QString oneCommandPerLine(QString dlText);

public Q_SLOTS:
    void emulatorFrameDLCallback(QString dlTextBuffer, QByteArray dlBinBuffer, void *observer,
                                 size_t RAM_G_Usage, char *errorMessages);

public:
    Q_INVOKABLE bool hasObtainedData() const { return m_obtained; }
    Q_INVOKABLE QString getScreenTextData() const { return m_text; }
    Q_INVOKABLE QByteArray getScreenByteData() const { return m_bytes; }
    Q_INVOKABLE void resetData();

private:
    QString m_text;
    QByteArray m_bytes;
    bool m_obtained = false;
};
