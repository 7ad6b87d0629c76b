#pragma once

#include "CItemImages.h"

#include <QObject>

class CProjectModel;

/// Converts an image again, whose file is another picture now or what was made of it is gone, for
/// all items that show it.
class CImageRenewal final : public QObject
{
    Q_OBJECT

public:
    /// `window`: over which it says that it converts.
    explicit CImageRenewal(QWidget *window);

    /// One step of the user, for all items or none. Turns the event loop while a tool runs.
    /// `source`: the file, absolute.
    void run(CProjectModel &project, const QString &source);

Q_SIGNALS:
    void message(const QString &text); ///< why nothing was done

private:
    CItemImages m_images;
};
