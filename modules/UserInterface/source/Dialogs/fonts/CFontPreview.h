#pragma once

#include "CSamplePage.h"

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QSize>

#include <cstddef>

class CEmulatorAdapter;

/// Lets the emulator draw a sample text in one font of a list, as the chip would: a picture, the
/// graphics memory that its glyphs take, and what is wrong.
/// Requests: only the newest is answered; one that is not answered yet goes with this object.
class CFontPreview final : public QObject
{
    Q_OBJECT

public:
    /// The project tells the size of the frame and the folder of relative files.
    CFontPreview(CEmulatorAdapter *adapter, const CProjectModel *project,
                 QObject *parent = nullptr);

    /// What messages call the sample; they begin with it.
    static QString itemLabel();
    /// `size`: of the wanted piece of the frame, pixels.
    void ask(const ProjectFontList &fonts, int handle, const QString &sample, const QSize &size);

Q_SIGNALS:
    /// `bytes`: of graphics memory; `errors`: one a line.
    void drawn(const QImage &picture, size_t bytes, const QString &errors);

private:
    CSamplePage m_page;
    const QPointer<const CProjectModel> m_project;
    QSize m_size;
};
