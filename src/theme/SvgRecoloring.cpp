#include "theme/SvgRecoloring_p.h"

#include <QDebug>
#include <QDomDocument>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

namespace Velmora {

namespace {

constexpr int kIndent = 1;
constexpr int kDeepestNesting = 512;

void RecolorAttribute(QDomElement &element, const QString &name, const QColor &color)
{
    const QString opacityName = name + QLatin1String("-opacity");
    // Fully transparent construction shapes stay out of the recolouring; an opacity that is no number counts as 0.
    if (element.hasAttribute(opacityName) && element.attribute(opacityName).toDouble() == 0.0)
        return;
    element.setAttribute(name, color.name());
    element.setAttribute(opacityName, QString::number(color.alphaF(), 'g', 6));
}

/// Applies \a rule to the paint attributes of \a element and of all elements in it.
template <typename Rule>
void VisitPaintAttributes(QDomElement element, const Rule &rule)
{
    for (const QString &name : {QStringLiteral("fill"), QStringLiteral("stroke")}) {
        if (element.hasAttribute(name))
            rule(element, name);
    }
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        VisitPaintAttributes(child, rule);
}

/// Parses \a text once, applies \a rule and writes it again; one warning for each of \a colorCount colours if it does not parse.
template <typename Rule>
QString Rewrite(const QString &text, const QString &path, qsizetype colorCount, const Rule &rule)
{
    QDomDocument document;
    if (IsNestedTooDeep(text) || !document.setContent(text)) {
        for (qsizetype i = 0; i < colorCount; ++i)
            qWarning() << "QcStyleManager::GetAdjustedSvgData: Failed to parse XML content." << path;
        return text;
    }
    VisitPaintAttributes(document.documentElement(), rule);
    return document.toString(kIndent);
}

/// The offset behind the tag that opens at \a start, where a quoted ">" does not end it.
QString::size_type EndOfTag(const QString &text, QString::size_type start)
{
    QChar quote;
    for (auto i = start; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (!quote.isNull())
            quote = c == quote ? QChar() : quote;
        else if (c == QLatin1Char('"') || c == QLatin1Char('\''))
            quote = c;
        else if (c == QLatin1Char('>'))
            return i + 1;
    }
    return text.size();
}

QString::size_type EndOfPassage(const QString &text, QString::size_type start, QLatin1String terminator)
{
    const auto found = text.indexOf(terminator, start);
    return found < 0 ? text.size() : found + QString::size_type(terminator.size());
}

/// By a true parser, for documents whose declarations may hide tags. What it cannot follow to the end counts as too deep,
/// since another parser might follow it further.
bool NestsTooDeepWithDeclarations(const QString &svg)
{
    QXmlStreamReader reader(svg);
    reader.setNamespaceProcessing(false);
    int depth = 0;
    while (!reader.atEnd() && depth <= kDeepestNesting) {
        reader.readNext();
        if (reader.isStartElement())
            ++depth;
        else if (reader.isEndElement())
            --depth;
    }
    return reader.hasError() || depth > kDeepestNesting;
}

} // namespace

QString RecolorSvg(const QString &text, const QString &path, const QColor &color)
{
    static const QRegularExpression colorPattern(QStringLiteral("#([a-zA-Z]|[0-9]){6}"));
    QSet<QString> colors;
    int matches = 0;
    for (auto match = colorPattern.globalMatch(text); match.hasNext(); ++matches)
        colors.insert(match.next().captured());
    if (matches == 0)
        return text;
    return Rewrite(text, path, matches, [&](QDomElement &element, const QString &name) {
        if (colors.contains(element.attribute(name)))
            RecolorAttribute(element, name, color);
    });
}

QString RecolorSvg(const QString &text, const QString &path, const QVector<SvgSubstitution> &substitutions)
{
    if (substitutions.isEmpty())
        return text;
    return Rewrite(text, path, substitutions.size(), [&](QDomElement &element, const QString &name) {
        // One after the other, so that the result of one substitution may be taken up by a later one.
        for (const SvgSubstitution &substitution : substitutions) {
            if (element.attribute(name) == substitution.first)
                RecolorAttribute(element, name, substitution.second);
        }
    });
}

bool IsSvg(const QString &path)
{
    return QFileInfo(path).suffix() == QLatin1String("svg");
}

bool IsNestedTooDeep(const QString &svg)
{
    int depth = 0;
    for (auto i = svg.indexOf(QLatin1Char('<')); i >= 0; i = svg.indexOf(QLatin1Char('<'), i)) {
        const QStringView rest = QStringView(svg).mid(i + 1, qMin<qsizetype>(8, svg.size() - i - 1));
        if (rest.startsWith(QLatin1String("!--"))) {
            i = EndOfPassage(svg, i + 4, QLatin1String("-->"));
        } else if (rest.startsWith(QLatin1String("![CDATA["))) {
            i = EndOfPassage(svg, i + 9, QLatin1String("]]>"));
        } else if (rest.startsWith(QLatin1Char('?'))) {
            i = EndOfPassage(svg, i + 2, QLatin1String("?>"));
        } else if (rest.startsWith(QLatin1Char('!'))) {
            // Entities may hold tags, and quotes or comment marks that belong to none.
            return NestsTooDeepWithDeclarations(svg);
        } else {
            const bool closes = rest.startsWith(QLatin1Char('/'));
            i = EndOfTag(svg, i + 1);
            const bool empty = svg.at(i - 1) == QLatin1Char('>') && svg.at(i - 2) == QLatin1Char('/');
            if (closes)
                depth = qMax(0, depth - 1);
            else if (!empty && ++depth > kDeepestNesting)
                return true;
        }
    }
    return false;
}

} // namespace Velmora
