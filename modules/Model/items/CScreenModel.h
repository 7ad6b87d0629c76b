#pragma once

#include "CItemModel.h"
#include "CWidgetProperty.h"
#include "ScreenGuides.h"

/// One screen (page) of a project. Its rows are the items on it, the front one first.
/// The emulator library is also given the project's working directory, against which the folders of
/// bitmaps are meant, and the project's fonts (ProjectFonts::rendererText()); they are in no
/// screen's element, and attributes of their names that a document has are kept but hidden by them.
/// Its guides are no property: neither the emulator library nor a panel that shows properties gets
/// to see them. Their attribute is written as it was read until they are changed.
/// The colour is handed out in its canonical form, whatever a document calls it.
class CScreenModel final : public CItemModel
{
public:
    /// A new screen with a name that no screen of the project has, "Page 1", "Page 2", ...
    explicit CScreenModel(CProjectModel *project);
    CScreenModel(const QString &name, const CWidgetLibraryModel *library,
                 IPropertyChangeObserver *observer);

    void loadFromElement(const QDomElement &element) override;
    void saveToElement(QDomElement &element) const override;
    static const QStringList &builtInKeys();

    const ScreenGuideList &guides() const { return m_guides; }
    /// As far as they are within ScreenGuides::bounded(). Tells the observer, also of equal ones.
    void setGuides(const ScreenGuideList &guides);
    /// The attribute of the guides in documents; without a text there is none.
    const CWidgetProperty &guidesAttribute() const { return m_guidesAttribute; }
    void loadGuides(const QString &text); ///< of a document; tells nobody

    int propertyCount() override;
    IModelProperty *property(int index) override;

protected:
    CItemModel *cloneEmpty() const override;
    bool isBuiltIn(const QString &name) const override;

private:
    CWidgetProperty m_color; ///< as the library gets it
    CWidgetProperty *given(const QString &key);
    bool hasFonts() const;
    QStringList givenKeys() const;

    CWidgetProperty m_workingDirectory;
    CWidgetProperty m_fonts;
    ScreenGuideList m_guides;
    CWidgetProperty m_guidesAttribute;
};
