#include "CXmlGuard.h"
#include "CXmlWriter.h"
#include "XmlText.h"

#include <QDomDocument>
#include <QTest>

namespace {
QByteArray nested(int levels)
{
    return QByteArray("<a>").repeated(levels) + QByteArray("</a>").repeated(levels);
}

QByteArray attributes(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += " a" + QByteArray::number(i) + "=\"\"";
    return text;
}
} // namespace

/// What may be read as XML, and that everything written can be.
class tst_Xml : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void guard()
    {
        const int mebi = 1024 * 1024;
        const auto text = [](int size) { return "<a>" + QByteArray(size, 'x') + "</a>"; };
        const auto value = [](int size) { return "<a b=\"" + QByteArray(size, 'x') + "\"/>"; };
        const std::pair<QByteArray, const char *> cases[] = {
            // a part of the reason why it is refused
            {"<a b='1'>t</a>", ""},
            {"<?xml version='1.0' encoding='utf-8'?>\n<a/>", ""},
            {"<?xml version='1.0' encoding='ISO-8859-1'?><a b='\xe4'/>", ""},
            {"<!-- <a" + attributes(600) + "> --><a/>", ""},
            {nested(256), ""},
            {nested(257), "256 levels"},
            {value(4 * mebi), ""},
            {value(4 * mebi + 1), "4 MiB"},
            {text(4 * mebi + 1), "4 MiB"},
            {text(3 * mebi).replace("</a>", "<!--c--><![CDATA[") + QByteArray(2 * mebi, 'x') +
                 "]]></a>",
             "4 MiB"},
            {"<a>" + QByteArray(64 * mebi, ' ') + "</a>", "64 MiB"},
            {"<a" + attributes(512) + "/>", ""},
            {"<a" + attributes(513) + "/>", "512 attributes"},
            {"<a>" + QByteArray("<b/>").repeated(1000000) + "</a>", "250000 elements"},
            {"<!DOCTYPE a [<!ENTITY e \"lol\"><!ENTITY f \"&e;&e;\">]><a>&f;</a>",
             "Document types"},
            {"<a>&nbsp;</a>", "Line 1"},
            {QByteArray("\xff\xfe<\0a\0/\0>\0", 10), "UTF-8"},
            {"<?xml version='1.0' encoding='UTF-7'?><a/>", "UTF-7"},
            {"<a b='1' b='2'/>", "Line 1"},
            {"<a/><b/>", "Line 1"},
            {"<a><b>\n</a></b>", "Line 2"},
            {"<a b='\x01'/>", "Line 1"},
            {"<a b='\xef\xbf\xbf'/>", "Line 1"},
            {"", "Line 1"},
        };
        for (const auto &[xml, reason] : cases) {
            const std::string row = (xml.left(60) + ": " + reason).toStdString();
            const QString said = CXmlGuard::check(xml);
            QVERIFY2(said.isEmpty() == !*reason && said.contains(QLatin1String(reason)),
                     row.c_str());
            QString error;
            QVERIFY2(CXmlGuard::parse(xml, &error).has_value() == said.isEmpty(), row.c_str());
            QCOMPARE(error, said);
        }
    }

    void everyCharacterInValues()
    {
        for (uint code = 0; code <= 0x10FFFF; code += code < 0x10000 ? 1 : 0xFFF) {
            const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
            const bool forbidden = (code < 0x20 && code != 9 && code != 10 && code != 13) ||
                                   code == 0xFFFE || code == 0xFFFF;
            const QString character =
                surrogate ? QString(QChar(ushort(code))) : QString::fromUcs4(&code, 1);
            const QString value = QStringLiteral("a]]") + character + QStringLiteral(">b");
            CXmlWriter writer;
            writer.startElement("e");
            writer.attribute("v", value);
            writer.endElement();
            const auto read = CXmlGuard::parse(writer.bytes());
            QVERIFY2(read, qPrintable(QString::number(code, 16)));
            const QString kept = forbidden   ? QString()
                                 : surrogate ? QStringLiteral("?")
                                             : character;
            QCOMPARE(read->documentElement().attribute("v"),
                     QStringLiteral("a]]") + kept + QStringLiteral(">b"));
        }
    }

    void everyCharacterInNames()
    {
        int attributes = 0;
        int elements = 0;
        for (int code = 0; code <= 0xFFFF; ++code) {
            const QString first{QChar(code)};
            const QString second = QLatin1Char('a') + first;
            CXmlWriter writer;
            writer.startElement(first);
            for (const QString &name : {first, second, QStringLiteral("last")})
                writer.attribute(name, "v");
            writer.startElement(second);
            writer.endElement();
            writer.endElement();
            const auto read = CXmlGuard::parse(writer.bytes());
            QVERIFY2(read, writer.bytes().constData());
            const QDomElement root = read->documentElement();
            QVERIFY(root.hasAttribute("last"));
            for (const QString &name : {first, second}) {
                const bool isAttribute = XmlText::isAttributeName(name.toUtf8());
                const bool isElement = XmlText::isElementName(name);
                const QString tag =
                    name == first ? root.tagName() : root.firstChildElement().tagName();
                QCOMPARE(root.hasAttribute(name), isAttribute);
                QCOMPARE(tag == name, isElement);
                attributes += isAttribute;
                elements += isElement;
            }
        }
        QVERIFY(attributes > 100000 && elements > 60000); // the letters of the world
        for (const char *bad :
             {"", ":", "a:", "a:b:c", "1a", "-a", ".a", "a b", "a=", "a<", "a\"", "a&b", "a b='1'"})
            QVERIFY2(!XmlText::isAttributeName(bad) && !XmlText::isElementName(bad), bad);
    }

    void escapingTakesLinearTime()
    {
        // Quadratic escaping takes half a minute for this one.
        CXmlWriter writer;
        writer.startElement("a");
        writer.attribute(QByteArray("v"), QByteArray(3'000'000, '<'));
        writer.endElement();
        QCOMPARE(writer.bytes().size(), 3'000'000 * 4 + int(qstrlen("<a v=\"\"/>\n")));
    }
};

QTEST_APPLESS_MAIN(tst_Xml)
#include "tst_xml.moc"
