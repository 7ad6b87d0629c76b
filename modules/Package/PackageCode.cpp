#include "PackageCode.h"

#include "SPackageContent.h"

namespace {

/// A text within a comment: on one line, and nothing that ends it or that a compiler warns about.
QByteArray inComment(const QString &text)
{
    QString shown;
    for (const uint c : text.toUcs4()) {
        const QChar::Category category = QChar::category(c);
        const bool isHidden = category == QChar::Other_Control || category == QChar::Other_Format ||
                              category == QChar::Other_Surrogate ||
                              category == QChar::Separator_Line ||
                              category == QChar::Separator_Paragraph;
        if (isHidden || c == '\\')
            shown += QLatin1Char(' ');
        else
            shown += QString::fromUcs4(&c, 1);
    }
    for (const char *pair : {"*/", "/*", "//", "??"}) {
        const QString text2 = QString::fromLatin1(pair);
        shown.replace(text2, text2.left(1) + QLatin1Char(' ') + text2.right(1));
    }
    return shown.simplified().toUtf8();
}

QByteArray title(const SPackageContent &content, const char *file)
{
    return QByteArray("/* ") + file + ": " + inComment(content.project) + ", for the " +
           inComment(content.platform) + ". Written by KIV Panel Composer; do not edit. */\n";
}

QByteArray hex(uint32_t value)
{
    return "0x" + QByteArray::number(value, 16).toUpper();
}

void define(QByteArray &text, const char *name, const QByteArray &value)
{
    text += QByteArray("#define ") + name + ' ' + value + "\n";
}

class CEnum
{
public:
    CEnum(QByteArray &text, const char *meaning) : m_text(text), m_meaning(meaning) {}
    ~CEnum()
    {
        if (m_isOpen)
            m_text += "};\n";
    }
    void add(const QString &identifier, int value, const QString &comment)
    {
        if (!m_isOpen)
            m_text += QByteArray("\n/* ") + m_meaning + " */\nenum {\n";
        m_isOpen = true;
        m_text += "    " + identifier.toLatin1() + " = " + QByteArray::number(value) + ", /* " +
                  inComment(comment) + " */\n";
    }

private:
    QByteArray &m_text;
    const char *const m_meaning;
    bool m_isOpen = false;
};

/// ISO C forbids a comma behind the last name in older forms, but C99 and C++11 take it.
void addScreens(QByteArray &text, const SPackageContent &content)
{
    CEnum screens(text, "Screens, for kiv_panel_show().");
    for (int i = 0; i < content.screens.size(); ++i)
        screens.add(content.screens[i].identifier, i, content.screens[i].name);
}

void addItems(QByteArray &text, const SPackageContent &content)
{
    CEnum items(text, "Items, as kiv_panel_hit() gives them.");
    int index = 0;
    for (const SPackageScreen &screen : content.screens)
        for (const SPackageItem &item : screen.items)
            items.add(item.identifier, index++, item.type);
}

/// Records of assets: one for each block that an asset lies in, by the first of them.
void addAssets(QByteArray &text, const SPackageContent &content)
{
    CEnum assets(text, "Assets: the first record of each.");
    QList<size_t> records;
    for (const CRamGPlan::SBlock &block : content.plan->blocks())
        for (const size_t asset : content.plan->groups()[block.group].assets)
            records.append(asset);
    for (int i = 0; i < content.assets.size(); ++i)
        assets.add(content.assets[i].identifier, records.indexOf(static_cast<size_t>(i)),
                   content.assets[i].files[0]);
}

} // namespace

QByteArray packageHeader(const SPackageContent &content)
{
    int items = 0;
    for (const SPackageScreen &screen : content.screens)
        items += screen.items.size();
    QByteArray text = title(content, "panel.h");
    text += "#ifndef PANEL_H\n#define PANEL_H\n\n#include <stdint.h>\n\n";
    define(text, "PANEL_CHIP", hex(content.chipCode) + 'u');
    define(text, "PANEL_WIDTH", QByteArray::number(content.frame.width()));
    define(text, "PANEL_HEIGHT", QByteArray::number(content.frame.height()));
    define(text, "PANEL_SCREEN_COUNT", QByteArray::number(content.screens.size()));
    define(text, "PANEL_ITEM_COUNT", QByteArray::number(items));
    define(text, "PANEL_ASSET_COUNT", QByteArray::number(content.assets.size()));
    define(text, "PANEL_RAM_G_BYTES", QByteArray::number(content.ramGBudget) + 'u');
    define(text, "PANEL_RAM_DL_BYTES", QByteArray::number(content.ramDlBudget) + 'u');
    text += "\n#ifdef __cplusplus\nextern \"C\" {\n#endif\n\n"
            "/* The bytes of panel.bin, and how many they are. */\n"
            "extern const uint8_t panel_blob[];\n"
            "extern const uint32_t panel_blob_size;\n"
            "\n#ifdef __cplusplus\n}\n#endif\n";
    addScreens(text, content);
    addItems(text, content);
    addAssets(text, content);
    return text + "\n#endif\n";
}

QByteArray packageCode(const SPackageContent &content, const QByteArray &blob)
{
    constexpr int PerLine = 16;
    constexpr char Digits[] = "0123456789ABCDEF";
    const QByteArray size = QByteArray::number(blob.size());
    QByteArray text = title(content, "panel.c");
    text += "#include \"panel.h\"\n\nconst uint32_t panel_blob_size = " + size +
            "u;\n\nconst uint8_t panel_blob[" + size + "] = {";
    text.reserve(text.size() + blob.size() * 6);
    for (int i = 0; i < blob.size(); ++i) {
        const auto byte = static_cast<uint8_t>(blob[i]);
        text += i % PerLine == 0 ? "\n    0x" : " 0x";
        text += Digits[byte >> 4];
        text += Digits[byte & 15];
        text += ',';
    }
    return text + "\n};\n";
}
