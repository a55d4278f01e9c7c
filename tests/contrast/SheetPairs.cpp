#include "contrast/Pairs.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QRegularExpression>

namespace VelmoraTest {

namespace {

using Declarations = QMap<QString, QString>; // "color", "background", "border" to a colour code

/// One step of a selector, "Velmora--QcSelector:hover": what it selects, and when.
struct Step
{
    QString element;
    QString condition;
};

/// What a sheet says of one element, such as "Velmora--QcLineEditFrame QLineEdit", in each condition; the empty one is at rest.
using Element = QMap<QString, Declarations>;
using Sheet = QMap<QString, Element>;

/// A sheet's control lies where its class puts it, if that is not just any surface.
QStringList GroundsOf(const QString &control)
{
    if (control == QLatin1String("QcLoadingDialog")) // which has no ground of its own, and is shown on a veil
        return {QStringLiteral("*"), QStringLiteral("overlay/overlay_primary")};
    return {QStringLiteral("*")};
}

/// The code in "1px solid ${brand/brand}" or "${#FFFFFF, 0.7}"; a word without "${" is a colour name or none at all.
QString CodeIn(const QString &value)
{
    static const QRegularExpression code(QStringLiteral("\\$\\{[^}]*\\}"));
    return code.match(value).captured();
}

Declarations DeclarationsIn(const QString &body)
{
    Declarations declarations;
    for (const QString &line : body.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QString name = line.section(QLatin1Char(':'), 0, 0).trimmed();
        const QString code = CodeIn(line.section(QLatin1Char(':'), 1));
        if (name == QLatin1String("color") && Paints(code))
            declarations.insert(name, code);
        else if (name == QLatin1String("background") || name == QLatin1String("background-color"))
            declarations.insert(QStringLiteral("background"), code);
        else if (name.startsWith(QLatin1String("border")) && !name.endsWith(QLatin1String("radius")))
            declarations.insert(QStringLiteral("border"), code);
    }
    return declarations;
}

Step StepOf(const QString &text)
{
    // A pseudo-element, "::handle", is an element of its own; ":hover" and "[draging = true]" are conditions.
    static const QRegularExpression condition(QStringLiteral("\\[[^\\]]*\\]|(?<!:):(?!:)[a-z-]+"));
    static const QStringList orientations = {QStringLiteral(":vertical"), QStringLiteral(":horizontal")};
    Step step = {text, QString()};
    for (auto match = condition.globalMatch(text); match.hasNext();) {
        const QString found = match.next().captured();
        step.element.remove(found);
        if (!orientations.contains(found))
            step.condition += found;
    }
    return step;
}

/// "A:disabled B::part" as the element "A B ::part" and the condition ":disabled".
Step ElementOf(QString selector)
{
    static const QRegularExpression blanksInBrackets(QStringLiteral("\\s*=\\s*"));
    selector.replace(blanksInBrackets, QStringLiteral("=")).replace(QLatin1String("::"), QLatin1String(" ::"));
    Step whole;
    for (const QString &part : selector.simplified().split(QLatin1Char(' '))) {
        const Step step = StepOf(part);
        whole.element += (whole.element.isEmpty() ? QString() : QStringLiteral(" ")) + step.element;
        whole.condition += step.condition;
    }
    return whole;
}

Sheet ParseSheet(QString text)
{
    static const QRegularExpression rule(QStringLiteral("([^{}]+)\\{((?:\\$\\{[^}]*\\}|[^{}])*)\\}"));
    static const QRegularExpression comment(QStringLiteral("/\\*.*?\\*/"), QRegularExpression::DotMatchesEverythingOption);
    Sheet sheet;
    for (auto rules = rule.globalMatch(text.remove(comment)); rules.hasNext();) {
        const auto match = rules.next();
        for (const QString &selector : match.captured(1).split(QLatin1Char(','))) {
            const Step element = ElementOf(selector);
            Declarations &declarations = sheet[element.element][element.condition];
            const Declarations more = DeclarationsIn(match.captured(2));
            for (auto entry = more.cbegin(); entry != more.cend(); ++entry)
                declarations.insert(entry.key(), entry.value());
        }
    }
    return sheet;
}

/// The elements that enclose \a element, outermost first.
QStringList Enclosing(const Sheet &sheet, const QString &element)
{
    QStringList enclosing;
    for (auto end = element.indexOf(QLatin1Char(' ')); end >= 0; end = element.indexOf(QLatin1Char(' '), end + 1)) {
        if (sheet.contains(element.left(end)))
            enclosing.append(element.left(end));
    }
    return enclosing;
}

/// What \a element has under \a condition: what is said at rest, and over it what is said under the condition.
Declarations Effective(const Sheet &sheet, const QString &element, const QString &condition)
{
    Declarations declarations = sheet.value(element).value(QString());
    const Declarations special = sheet.value(element).value(condition);
    for (auto entry = special.cbegin(); entry != special.cend(); ++entry)
        declarations.insert(entry.key(), entry.value());
    return declarations;
}

QStringList ConditionsOf(const Sheet &sheet, const QString &element)
{
    QStringList conditions = sheet.value(element).keys();
    for (const QString &enclosing : Enclosing(sheet, element))
        conditions += sheet.value(enclosing).keys();
    conditions.append(QString());
    conditions.removeDuplicates();
    return conditions;
}

void AddElement(Looks &looks, const Sheet &sheet, const QString &control, const QString &element, const QString &condition)
{
    QStringList outside = GroundsOf(control);
    for (const QString &enclosing : Enclosing(sheet, element)) {
        const QString ground = Effective(sheet, enclosing, condition).value(QStringLiteral("background"));
        if (Paints(ground))
            outside.append(ground);
    }
    const Declarations own = Effective(sheet, element, condition);
    const QString ground = own.value(QStringLiteral("background"));
    QStringList inside = outside;
    if (Paints(ground))
        inside.append(ground);

    const bool isEnabled = !condition.contains(QLatin1String(":disabled"));
    const Kind graphic = isEnabled ? Kind::Graphic : Kind::DisabledGraphic;
    QString where = element.section(QLatin1Char(' '), 1);
    where = QStringLiteral("%1%2").arg(where.isEmpty() ? QStringLiteral("itself") : where, condition);
    const auto add = [&](const char *part, Kind kind, const QString &code, const QStringList &grounds) {
        if (Paints(code))
            looks.pairs.append({control, QStringLiteral("%1, %2").arg(where, QLatin1String(part)), kind, code, grounds});
    };
    const QString text = own.value(QStringLiteral("color"));
    add("text", KindOfText(text, isEnabled), text, inside);
    add("border", graphic, own.value(QStringLiteral("border")), outside);
    if (element.contains(QLatin1String("::"))) // a handle or the like is seen by its fill
        add("fill", graphic, ground, outside);
}

} // namespace

Looks LooksOfSheet(const QString &text)
{
    Looks looks;
    const Sheet sheet = ParseSheet(text);
    for (const QString &element : sheet.keys()) {
        const QString control = element.section(QLatin1Char(' '), 0, 0).remove(QStringLiteral("Velmora--"));
        for (const QString &condition : ConditionsOf(sheet, element))
            AddElement(looks, sheet, control, element, condition);
    }
    return looks;
}

Looks SheetLooks()
{
    Looks looks;
    const QDir folder(QStringLiteral(":/qss"));
    for (const QString &name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            qWarning("cannot read %s", qPrintable(name));
        looks.pairs += LooksOfSheet(QString::fromUtf8(file.readAll())).pairs;
    }
    return looks;
}

} // namespace VelmoraTest
