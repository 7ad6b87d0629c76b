#pragma once

#include "CProjectModel.h"
#include "CSamplePage.h"

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QVector>

/// Small pictures of texts and line drawings as the chip draws them. The emulator makes them in the
/// background, many on a page of the project's size, page after page.
class CSampleSheet final : public QObject
{
    Q_OBJECT

public:
    struct SSample
    {
        QString text;    ///< or the name of a line drawing
        int font = None; ///< in which the text is; None: a line drawing
        QSize size;      ///< pixels; cut to the page
        static constexpr int None = -1;
    };

    explicit CSampleSheet(const CProjectModel *project, QObject *parent = nullptr);

    /// Of several wishes the last one counts.
    void ask(const QVector<SSample> &samples);

Q_SIGNALS:
    /// How much of each pixel is covered (Format_Alpha8), to be filled with any colour.
    void drawn(int index, const QImage &coverage);

private:
    struct SPlace
    {
        int index = 0;
        QRect rect;
    };
    using Page = QVector<SPlace>;

    static QVector<Page> pagesOf(const QVector<SSample> &samples, const QSize &page);
    void askForPage();
    void takeFrame(const QImage &frame);

    CSamplePage m_page; ///< the first of those not answered yet
    const QPointer<const CProjectModel> m_project;
    QVector<SSample> m_samples;
    QVector<Page> m_pages; ///< those not answered yet
};
