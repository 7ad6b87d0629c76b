#pragma once

#include "ProjectFonts.h"
#include "fontfiles/FontInfo.h"

#include <QString>
#include <QWidget>

#include <vector>

class CElidedLabel;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QToolButton;
class QLabel;
class QLineEdit;
class QListWidget;
class QSpinBox;

/// The fields of one font, and what its file says about itself.
class CFontForm : public QWidget
{
    Q_OBJECT

public:
    explicit CFontForm(QWidget *parent = nullptr);

    /// `others`: all fonts of the project, of which the fallback fonts are chosen.
    void show(const SProjectFont &font, const ProjectFontList &others);
    void showInfo(const kivemu::SFontInfo &info);
    const SProjectFont &font() const { return m_font; }

    /// "Brand Sans Bold", or the file's name when it says nothing of itself.
    static QString fullName(const kivemu::SFontInfo &info, const QString &file);

Q_SIGNALS:
    /// By the user.
    void changed();
    /// The user wants another file for the font.
    void fileWanted();

private:
    struct SAxisField
    {
        QString tag;
        double standard;
        QDoubleSpinBox *value;
    };

    void layOut();
    void showFallback(const ProjectFontList &others);
    void showAxes(const std::vector<kivemu::SFontAxis> &axes);
    void showLicence(const kivemu::SFontInfo &info);
    void take();
    QString axesText() const;

    SProjectFont m_font;
    bool m_isFilling = false;
    QFormLayout *m_form;
    QLineEdit *const m_name;
    QSpinBox *const m_handle;
    CElidedLabel *const m_file;
    QToolButton *const m_chooseFile;
    QDoubleSpinBox *const m_size;
    QComboBox *const m_bits;
    QListWidget *const m_fallback;
    QLineEdit *const m_extra;
    CElidedLabel *const m_licence;
    QLabel *const m_embedding;
    QWidget *const m_axes;
    std::vector<SAxisField> m_axisFields;
};
