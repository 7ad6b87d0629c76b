#pragma once

#include "CSampleSheet.h"

#include <QComboBox>

/// A list whose entries show pictures of themselves beside their text, made by the emulator when
/// the list is opened first.
class CPictureBox : public QComboBox
{
    Q_OBJECT

public:
    enum ERole { SizeRole = Qt::UserRole + 1, PictureRole }; ///< of entries: QSize, QImage

    /// The project tells the fonts and the size of the chip's screen; it is not owned.
    explicit CPictureBox(const CProjectModel *project, QWidget *parent = nullptr);

    /// What the entry of that index shows.
    void setSample(int index, const CSampleSheet::SSample &sample);

    void showPopup() override;

private:
    CSampleSheet m_sheet;
    QVector<CSampleSheet::SSample> m_samples; ///< by index
    bool m_isAsked = false;
};

/// The fonts that texts can have, for lists.
namespace FontEntries {
struct SEntry
{
    int handle;
    QString text; ///< "26 · 21 px", or with its name
    CSampleSheet::SSample sample;
};
/// Those of the project, then those in the chip's ROM.
QVector<SEntry> of(const CProjectModel &project);
/// The text of the entry with that handle; the bare number where there is none.
QString textOf(const QVector<SEntry> &entries, int handle);
} // namespace FontEntries
