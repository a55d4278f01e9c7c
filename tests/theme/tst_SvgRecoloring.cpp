#include "support/ColorValue.h"
#include "support/TestCase.h"
#include "theme/SvgRecoloring_p.h"

#include <QDirIterator>
#include <QDomDocument>
#include <QFile>
#include <QMap>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

using namespace Velmora;

namespace {

const QString kPath = QStringLiteral("icon.svg");
const QString kWarning = QStringLiteral("QcStyleManager::GetAdjustedSvgData: Failed to parse XML content. \"icon.svg\"");

QColor Faint()
{
    QColor color(0x10, 0x20, 0xAB);
    color.setAlphaF(VelmoraTest::ColorValue(0.4));
    return color;
}

QString Document(const QString &body)
{
    return QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\">%1</svg>").arg(body);
}

QDomElement Root(const QString &text)
{
    QDomDocument document;
    return document.setContent(text) ? document.documentElement() : QDomElement();
}

/// \a element on one line, its attributes sorted by name: `rect fill=... stroke=...`.
QString Attributes(const QDomElement &element)
{
    QMap<QString, QString> sorted;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.size(); ++i)
        sorted.insert(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
    QString line = element.tagName();
    for (auto attribute = sorted.cbegin(); attribute != sorted.cend(); ++attribute)
        line += QLatin1Char(' ') + attribute.key() + QLatin1Char('=') + attribute.value();
    return line;
}

QString FirstShape(const QString &text)
{
    return Attributes(Root(text).firstChildElement());
}

// --- The same work done the long way, one pass over the document a colour: what the quick one must equal ---

void ApplySlowly(QDomElement element, const QString &match, const QColor &color)
{
    for (const char *name : {"fill", "stroke"}) {
        const QString attribute = QString::fromLatin1(name);
        const QString opacity = attribute + QStringLiteral("-opacity");
        if (!element.hasAttribute(attribute) || element.attribute(attribute) != match)
            continue;
        if (element.hasAttribute(opacity) && qFuzzyIsNull(element.attribute(opacity).toDouble()))
            continue;
        element.setAttribute(attribute, color.name());
        element.setAttribute(opacity, QString::number(color.alphaF(), 'g', 6));
    }
    for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (child.isElement())
            ApplySlowly(child.toElement(), match, color);
    }
}

QString SubstituteSlowly(QString text, const QVector<SvgSubstitution> &substitutions)
{
    for (const SvgSubstitution &substitution : substitutions) {
        QDomDocument document;
        if (!document.setContent(text))
            continue;
        ApplySlowly(document.documentElement(), substitution.first, substitution.second);
        text = document.toString(1);
    }
    return text;
}

QString RecolorSlowly(const QString &text, const QColor &color)
{
    QVector<SvgSubstitution> matches;
    auto match = QRegularExpression(QStringLiteral("#([a-zA-Z]|[0-9]){6}")).globalMatch(text);
    while (match.hasNext())
        matches.append({match.next().captured(), color});
    return SubstituteSlowly(text, matches);
}

QImage Picture(const QString &text)
{
    QImage image(48, 48, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(text.toUtf8()).render(&painter);
    return image;
}

} // namespace

class tst_SvgRecoloring : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_rule_for_one_attribute_data()
    {
        QTest::addColumn<QString>("shape");
        QTest::addColumn<QString>("recolored");
        const auto row = [](const char *name, const char *shape, const char *recolored) {
            QTest::newRow(name) << QString::fromLatin1(shape) << QString::fromLatin1(recolored);
        };
        for (const char *attribute : {"fill", "stroke"}) {
            const QByteArray name(attribute);
            const auto both = [&](const char *title, QByteArray shape, QByteArray recolored) {
                row(qPrintable(QString::fromLatin1(name + ": " + title)), shape.replace('@', name), recolored.replace('@', name));
            };
            both("plain", "<r @='#000000'/>", "r @=#1020ab @-opacity=0.4");
            both("lower case", "<r @='#a0b1c2'/>", "r @=#1020ab @-opacity=0.4");
            both("six letters", "<r @='#uvwxyz'/>", "r @=#1020ab @-opacity=0.4");
            both("opacity replaced", "<r @='#000000' @-opacity='0.5'/>", "r @=#1020ab @-opacity=0.4");
            both("opacity one", "<r @='#000000' @-opacity='1'/>", "r @=#1020ab @-opacity=0.4");
            both("opacity negative", "<r @='#000000' @-opacity='-1'/>", "r @=#1020ab @-opacity=0.4");
            both("opacity tiny", "<r @='#000000' @-opacity='1e-9'/>", "r @=#1020ab @-opacity=0.4");
            both("opacity nil", "<r @='#000000' @-opacity='0'/>", "r @=#000000 @-opacity=0");
            both("opacity nil with a fraction", "<r @='#000000' @-opacity='0.00'/>", "r @=#000000 @-opacity=0.00");
            both("opacity nil with a sign", "<r @='#000000' @-opacity='-0'/>", "r @=#000000 @-opacity=-0");
            both("opacity empty", "<r @='#000000' @-opacity=''/>", "r @=#000000 @-opacity=");
            both("opacity a word", "<r @='#000000' @-opacity='half'/>", "r @=#000000 @-opacity=half");
            both("opacity in percent", "<r @='#000000' @-opacity='50%'/>", "r @=#000000 @-opacity=50%");
            both("short form", "<r @='#000'/><q @='#000000'/>", "r @=#000");
            both("long form", "<r @='#00000000'/><q @='#000000'/>", "r @=#00000000");
            both("blank in front", "<r @=' #000000'/>", "r @= #000000");
            both("none", "<r @='none'/><q @='#000000'/>", "r @=none");
            both("name", "<r @='black'/><q @='#000000'/>", "r @=black");
            both("reference", "<r @='url(#abcdef)'/>", "r @=url(#abcdef)");
            both("opacity alone", "<r @-opacity='0.5'/><q @='#000000'/>", "r @-opacity=0.5");
        }
        row("neither", "<r width='4'/><q fill='#000000'/>", "r width=4");
        row("both", "<r fill='#000000' stroke='#FFFFFF'/>", "r fill=#1020ab fill-opacity=0.4 stroke=#1020ab stroke-opacity=0.4");
        row("fill kept, stroke not", "<r fill='#000000' fill-opacity='0' stroke='#000000'/>",
            "r fill=#000000 fill-opacity=0 stroke=#1020ab stroke-opacity=0.4");
        row("stroke kept, fill not", "<r fill='#000000' stroke-opacity='0' stroke='#000000'/>",
            "r fill=#1020ab fill-opacity=0.4 stroke=#000000 stroke-opacity=0");
        row("other attributes", "<r color='#000000' stop-color='#000000' opacity='0' id='#000000'/>",
            "r color=#000000 id=#000000 opacity=0 stop-color=#000000");
        row("style attribute", "<r style='fill:#000000;stroke:#000000'/>", "r style=fill:#000000;stroke:#000000");
        row("style element", "<style>r{fill:#000000}</style>", "style");
    }

    void the_rule_for_one_attribute()
    {
        QFETCH(QString, shape);
        QFETCH(QString, recolored);
        QCOMPARE(FirstShape(RecolorSvg(Document(shape), kPath, Faint())), recolored);
    }

    void every_element_is_reached()
    {
        const QString text = QStringLiteral("<svg fill='#000000'><!-- #111111 --><g fill='#222222'>text<a><b stroke='#333333'/></a>"
                                            "<?x y?><c fill='#444444'/></g><d><e><f fill='#555555'/></e></d></svg>");
        const QString recolored = RecolorSvg(text, kPath, Faint());
        const QDomElement root = Root(recolored);
        const QString fill = QStringLiteral(" fill=#1020ab fill-opacity=0.4");
        QCOMPARE(Attributes(root), QStringLiteral("svg") + fill);
        const QDomElement g = root.firstChildElement(QStringLiteral("g"));
        QCOMPARE(Attributes(g), QStringLiteral("g") + fill);
        QCOMPARE(Attributes(g.firstChildElement(QStringLiteral("a")).firstChildElement()),
                 QStringLiteral("b stroke=#1020ab stroke-opacity=0.4"));
        QCOMPARE(Attributes(g.firstChildElement(QStringLiteral("c"))), QStringLiteral("c") + fill);
        QCOMPARE(Attributes(root.lastChildElement().firstChildElement().firstChildElement()), QStringLiteral("f") + fill);
        QVERIFY(recolored.contains(QLatin1String("<!-- #111111 -->")));
        QVERIFY(recolored.contains(QLatin1String("text")));
    }

    void style_elements_keep_their_text()
    {
        QVERIFY(RecolorSvg(Document(QStringLiteral("<style>r{fill:#000000}</style>")), kPath, Faint())
                    .contains(QLatin1String("r{fill:#000000}")));
    }

    void the_opacity_has_six_digits()
    {
        QColor color(Qt::black);
        color.setAlphaF(VelmoraTest::ColorValue(0.7)); // reads back as 0.700008
        QCOMPARE(FirstShape(RecolorSvg(Document(QStringLiteral("<r fill='#FFFFFF'/>")), kPath, color)),
                 QStringLiteral("r fill=#000000 fill-opacity=0.700008"));
        QCOMPARE(FirstShape(RecolorSvg(Document(QStringLiteral("<r fill='#FFFFFF'/>")), kPath, QColor(1, 2, 3))),
                 QStringLiteral("r fill=#010203 fill-opacity=1"));
        QCOMPARE(FirstShape(RecolorSvg(Document(QStringLiteral("<r fill='#FFFFFF'/>")), kPath, QColor(Qt::transparent))),
                 QStringLiteral("r fill=#000000 fill-opacity=0"));
    }

    void an_invalid_colour_reads_as_opaque_black()
    {
        QCOMPARE(FirstShape(RecolorSvg(Document(QStringLiteral("<r fill='#FFFFFF'/>")), kPath, QColor())),
                 QStringLiteral("r fill=#000000 fill-opacity=1"));
    }

    void a_text_without_colours_comes_back_as_it_was()
    {
        for (const char *text : {"", "no XML at all", "<svg><rect/></svg>", "<svg><rect fill='#000'/></svg>", "<svg", "#12345"}) {
            const QString asRead = QString::fromLatin1(text);
            QCOMPARE(RecolorSvg(asRead, kPath, Faint()), asRead);
            QCOMPARE(RecolorSvg(asRead, kPath, QVector<SvgSubstitution>()), asRead);
        }
    }

    void a_colour_that_stands_nowhere_else_than_in_text_only_rewrites()
    {
        const QString text = QStringLiteral("<svg><!-- #000000 --><rect fill='#000'/></svg>");
        QDomDocument document;
        QVERIFY(document.setContent(text));
        QCOMPARE(RecolorSvg(text, kPath, Faint()), document.toString(1));
    }

    void substitutions_take_exactly_their_colour()
    {
        const QString text = Document(QStringLiteral("<r fill='#00FF00'/><s fill='#FF0000' stroke='#00ff00'/>"));
        const QString recolored = RecolorSvg(text, kPath, QVector<SvgSubstitution>{{QStringLiteral("#00FF00"), Faint()}});
        QCOMPARE(Attributes(Root(recolored).firstChildElement()), QStringLiteral("r fill=#1020ab fill-opacity=0.4"));
        QCOMPARE(Attributes(Root(recolored).lastChildElement()), QStringLiteral("s fill=#FF0000 stroke=#00ff00"));
    }

    void a_substitution_may_name_any_text()
    {
        const QString text = Document(QStringLiteral("<r fill='black' stroke='none'/>"));
        QCOMPARE(FirstShape(RecolorSvg(text, kPath, QVector<SvgSubstitution>{{QStringLiteral("black"), Faint()}})),
                 QStringLiteral("r fill=#1020ab fill-opacity=0.4 stroke=none"));
        QCOMPARE(FirstShape(RecolorSvg(text, kPath, QVector<SvgSubstitution>{{QStringLiteral("none"), Faint()}})),
                 QStringLiteral("r fill=black stroke=#1020ab stroke-opacity=0.4"));
    }

    void a_later_substitution_takes_up_the_result_of_an_earlier_one()
    {
        const QString text = Document(QStringLiteral("<r fill='#000000' stroke='#ff0000'/>"));
        const SvgSubstitution first(QStringLiteral("#000000"), QColor(255, 0, 0));
        const SvgSubstitution second(QStringLiteral("#ff0000"), QColor(0, 0, 255));
        QCOMPARE(FirstShape(RecolorSvg(text, kPath, {first, second})),
                 QStringLiteral("r fill=#0000ff fill-opacity=1 stroke=#0000ff stroke-opacity=1"));
        QCOMPARE(FirstShape(RecolorSvg(text, kPath, {second, first})),
                 QStringLiteral("r fill=#ff0000 fill-opacity=1 stroke=#0000ff stroke-opacity=1"));
        // A result that is fully transparent is out of reach of the next one.
        const SvgSubstitution gone(QStringLiteral("#000000"), QColor(255, 0, 0, 0));
        QCOMPARE(FirstShape(RecolorSvg(text, kPath, {gone, second})),
                 QStringLiteral("r fill=#ff0000 fill-opacity=0 stroke=#0000ff stroke-opacity=1"));
    }

    void a_text_that_does_not_parse_gives_one_warning_a_match()
    {
        const QString text = QStringLiteral("<svg><rect fill='#000000'/><rect fill='#000000'/><g fill='#FF0000'></svg>");
        for (int i = 0; i < 3; ++i)
            ExpectWarning(kWarning);
        QCOMPARE(RecolorSvg(text, kPath, Faint()), text);
    }

    void a_text_that_does_not_parse_gives_one_warning_a_substitution()
    {
        for (int i = 0; i < 2; ++i)
            ExpectWarning(kWarning);
        const QVector<SvgSubstitution> two{{QStringLiteral("#000000"), Faint()}, {QStringLiteral("#FF0000"), Faint()}};
        QCOMPARE(RecolorSvg(QStringLiteral("<svg"), kPath, two), QStringLiteral("<svg"));
    }

    void one_pass_gives_the_same_picture_as_one_pass_a_colour_data()
    {
        QTest::addColumn<QString>("text");
        QDirIterator icons(QStringLiteral(":/images"), QDir::Files, QDirIterator::Subdirectories);
        while (icons.hasNext()) {
            QFile file(icons.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            QTest::newRow(qPrintable(file.fileName())) << QString::fromUtf8(file.readAll());
        }
        QTest::newRow("text") << Document(QStringLiteral("<text x='1' y='12' fill='#000000'>a <tspan fill='#FF0000'>b</tspan> c</text>"));
        QTest::newRow("result among the colours")
            << Document(QStringLiteral("<rect width='9' height='9' fill='#1020ab'/><rect x='9' width='7' height='9' fill='#000000'/>"));
        QTest::newRow("doctype") << QStringLiteral("<!DOCTYPE svg [<!ENTITY c '#000000'>]>")
                + Document(QStringLiteral("<rect width='9' height='9' fill='&c;'/>"));
    }

    void one_pass_gives_the_same_picture_as_one_pass_a_colour()
    {
        QFETCH(QString, text);
        for (const QColor &color : {Faint(), QColor(Qt::red), QColor(0, 0, 0, 0)})
            QCOMPARE(Picture(RecolorSvg(text, kPath, color)), Picture(RecolorSlowly(text, color)));
        const QVector<SvgSubstitution> chain{{QStringLiteral("#FF0000"), QColor(0, 255, 0)},
                                             {QStringLiteral("#00ff00"), Faint()},
                                             {QStringLiteral("#005CD1"), QColor(0, 0, 255, 0)},
                                             {QStringLiteral("#0000ff"), QColor(Qt::yellow)}};
        QCOMPARE(Picture(RecolorSvg(text, kPath, chain)), Picture(SubstituteSlowly(text, chain)));
    }

    // --- Nesting ---

    void nesting_is_measured_whatever_hides_it_data()
    {
        QTest::addColumn<QString>("prolog");
        QTest::addColumn<QString>("opening");
        QTest::addColumn<int>("levels");
        QTest::addColumn<bool>("tooDeep");
        const QString none;
        const QString g = QStringLiteral("<g>");
        QTest::newRow("shallow") << none << g << 100 << false;
        QTest::newRow("at the limit") << none << g << 511 << false;
        QTest::newRow("beyond the limit") << none << g << 512 << true;
        QTest::newRow("deep") << none << g << 100000 << true;
        QTest::newRow("quoted ends of tags") << none << QStringLiteral("<g a=\"/>\" b='</g>'>") << 1000 << true;
        QTest::newRow("comments of ends") << none << QStringLiteral("<g><!-- </g> -->") << 1000 << true;
        QTest::newRow("data of ends") << none << QStringLiteral("<g><![CDATA[</g>]]>") << 1000 << true;
        QTest::newRow("instructions of ends") << none << QStringLiteral("<g><?x </g>?>") << 1000 << true;
        QTest::newRow("apostrophes in text") << none << QStringLiteral("<g>it's \"") << 1000 << true;
        QTest::newRow("doctype, shallow") << QStringLiteral("<!DOCTYPE svg>") << g << 100 << false;
        QTest::newRow("doctype, deep") << QStringLiteral("<!DOCTYPE svg>") << g << 1000 << true;
        QTest::newRow("quote in an entity") << QStringLiteral("<!DOCTYPE svg [<!ENTITY x \"<a q='\">]>") << g << 1000 << true;
        QTest::newRow("comment mark in an entity") << QStringLiteral("<!DOCTYPE svg [<!ENTITY x \"<!--\">]>") << g << 1000 << true;
        QTest::newRow("harmless entity") << QStringLiteral("<!DOCTYPE svg [<!ENTITY x \"y\">]>") << QStringLiteral("<g>&x;") << 100
                                         << false;
        QTest::newRow("unknown entity, which parsers take differently")
            << QStringLiteral("<!DOCTYPE svg [<!ENTITY x \"y\">]>") << QStringLiteral("<g>&z;") << 1000 << true;
        QTest::newRow("tags in an entity") << QStringLiteral("<!DOCTYPE svg [<!ENTITY x \"<g><g><g><g>\">]>") << QStringLiteral("&x;")
                                           << 200 << true;
    }

    void nesting_is_measured_whatever_hides_it()
    {
        QFETCH(QString, prolog);
        QFETCH(QString, opening);
        QFETCH(int, levels);
        QFETCH(bool, tooDeep);
        QCOMPARE(IsNestedTooDeep(prolog + Document(opening.repeated(levels) + QStringLiteral("</g>").repeated(levels))), tooDeep);
    }

    void siblings_are_no_nesting()
    {
        for (const char *sibling : {"<g/>", "<g></g>", "<g a='>'/>", "<g a=\"1\" />", "<!-- <g> -->", "<![CDATA[<g>]]>", "<?x <g>?>"})
            QVERIFY2(!IsNestedTooDeep(Document(QString::fromLatin1(sibling).repeated(2000))), sibling);
        for (const char *broken : {"", "<", "<>", "</", "<!", "<!--", "<![CDATA[", "<?", "<g a='", "</g></g></g>", ">"})
            QVERIFY2(!IsNestedTooDeep(QString::fromLatin1(broken)) || QByteArray(broken) == "<!", broken);
    }

    void a_document_nested_too_deep_does_not_parse()
    {
        const QString text = Document(QStringLiteral("<g fill='#000000'>") + QStringLiteral("<g>").repeated(100000));
        ExpectWarning(kWarning);
        QCOMPARE(RecolorSvg(text, kPath, Faint()), text);
    }
};

QTEST_MAIN(tst_SvgRecoloring)
#include "tst_SvgRecoloring.moc"
