#include "dock/LayoutMutator.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

#include <functional>

namespace VelmoraTest {

namespace {

const char *const kNumbers[] = {"0",     "-1",     "1",        "2",        "3",    "77",         "1.5",
                                "127",   "128",    "4096",     "30000",    "1e10", "2147483647", "-2147483648",
                                "1e300", "-1e300", "16777215", "16777216", "null", "\"1\"",      "[]"};
const char *const kKeys[] = {"children",    "currentIndex", "dockWidgetList", "floatingWidgets", "height", "nodeType",
                             "orientation", "sizes",        "type",           "width",           "x",      "y"};

QByteArray Written(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// Calls \a change with every value below \a value, outer ones first; what it returns takes the value's place.
QJsonValue Changed(const QJsonValue &value, const std::function<QJsonValue(const QJsonValue &)> &change)
{
    const QJsonValue changed = change(value);
    if (changed.isObject()) {
        QJsonObject object = changed.toObject();
        for (const QString &key : object.keys())
            object[key] = Changed(object.value(key), change);
        return object;
    }
    if (changed.isArray()) {
        QJsonArray array;
        for (const QJsonValue &entry : changed.toArray())
            array.append(Changed(entry, change));
        return array;
    }
    return changed;
}

int CountOf(const QJsonObject &object)
{
    int count = 0;
    Changed(object, [&count](const QJsonValue &value) {
        ++count;
        return value;
    });
    return count;
}

/// Where the numbers of a text begin.
QList<int> NumbersIn(const QByteArray &text)
{
    QList<int> places;
    for (int i = 1; i < text.size(); ++i)
        if ((isdigit(text[i]) || text[i] == '-') && (text[i - 1] == ':' || text[i - 1] == ',' || text[i - 1] == '['))
            places.append(i);
    return places;
}

/// Where the quotes of the keys of a text begin.
QList<int> KeysIn(const QByteArray &text)
{
    QList<int> places;
    for (int end = int(text.indexOf("\":")); end >= 0; end = int(text.indexOf("\":", end + 1)))
        places.append(int(text.lastIndexOf('"', end - 1)));
    return places;
}

} // namespace

LayoutMutator::LayoutMutator(quint32 seed, const QByteArrayList &layouts)
    : m_random(seed)
    , m_layouts(layouts)
{
}

QByteArray LayoutMutator::Next()
{
    QByteArray text = m_layouts.at(Below(int(m_layouts.size())));
    for (int i = 1 + Below(3); i > 0; --i)
        text = Damaged(text);
    return text;
}

QByteArray LayoutMutator::Damaged(const QByteArray &text)
{
    switch (Below(16)) {
    case 0:
        return Cut(text);
    case 1:
        return Splice(text);
    case 2:
        return Byte(text);
    case 3:
    case 4:
    case 5:
        return Number(text);
    case 6:
    case 7:
        return RenamedKey(text);
    case 8:
        return DoubledKey(text);
    case 9:
    case 10:
        return MovedSubtree(text, false);
    case 11:
    case 12:
        return MovedSubtree(text, true);
    case 13:
    case 14:
        return OtherType(text);
    default:
        return Deeper(text);
    }
}

QByteArray LayoutMutator::Cut(const QByteArray &text)
{
    return text.left(Below(int(text.size())));
}

QByteArray LayoutMutator::Splice(QByteArray text)
{
    const QByteArray &other = m_layouts.at(Below(int(m_layouts.size())));
    const int from = Below(int(other.size()));
    return text.insert(Below(int(text.size())), other.mid(from, Below(int(other.size() - from))));
}

QByteArray LayoutMutator::Byte(QByteArray text)
{
    if (!text.isEmpty())
        text[Below(int(text.size()))] = char(Below(256));
    return text;
}

QByteArray LayoutMutator::Number(QByteArray text)
{
    const QList<int> numbers = NumbersIn(text);
    if (numbers.isEmpty())
        return text;
    const int from = numbers.at(Below(int(numbers.size())));
    int to = from;
    while (to < text.size() && text[to] != ',' && text[to] != ']' && text[to] != '}')
        ++to;
    return text.replace(from, to - from, kNumbers[Below(int(std::size(kNumbers)))]);
}

QByteArray LayoutMutator::RenamedKey(QByteArray text)
{
    const QList<int> keys = KeysIn(text);
    if (keys.isEmpty())
        return text;
    const int from = keys.at(Below(int(keys.size()))) + 1;
    return text.replace(from, text.indexOf('"', from) - from, kKeys[Below(int(std::size(kKeys)))]);
}

QByteArray LayoutMutator::DoubledKey(QByteArray text)
{
    const QList<int> keys = KeysIn(text);
    if (keys.isEmpty())
        return text;
    const QByteArray value = kNumbers[Below(int(std::size(kNumbers)))];
    return text.insert(keys.at(Below(int(keys.size()))), QByteArray("\"") + kKeys[Below(int(std::size(kKeys)))] + "\":" + value + ",");
}

/// Another node, or a list of them, takes the place of one.
QByteArray LayoutMutator::MovedSubtree(const QByteArray &text, bool isCopy)
{
    const QJsonObject root = QJsonDocument::fromJson(text).object();
    const int count = CountOf(root);
    const int source = Below(count);
    const int target = Below(count);
    QJsonValue moved;
    int number = 0;
    Changed(root, [&](const QJsonValue &value) {
        if (number++ == source)
            moved = value;
        return value;
    });
    number = 0;
    const QJsonValue changed = Changed(root, [&](const QJsonValue &value) -> QJsonValue {
        const int here = number++;
        if (here == target && here > 0) {
            number += 1 << 20; // neither is met again in what is put here
            return moved;
        }
        return !isCopy && here == source && here > 0 ? QJsonValue(QJsonObject()) : value;
    });
    return Written(changed.toObject());
}

QByteArray LayoutMutator::OtherType(const QByteArray &text)
{
    const QJsonObject root = QJsonDocument::fromJson(text).object();
    const QJsonValue others[] = {
        QJsonValue(), true, 3.5, QStringLiteral("2"), QJsonArray{1, 2, 3}, QJsonObject{{QStringLiteral("type"), 1}}};
    const QJsonValue other = others[Below(int(std::size(others)))];
    const int target = 1 + Below(CountOf(root) - 1);
    int number = 0;
    return Written(Changed(root, [&](const QJsonValue &value) { return number++ == target ? other : value; }).toObject());
}

QByteArray LayoutMutator::Deeper(const QByteArray &text)
{
    QJsonObject root = QJsonDocument::fromJson(text).object();
    for (int i = 1 + Below(Below(20) == 0 ? 140 : 6); i > 0; --i) {
        const QJsonArray children{root};
        root = QJsonObject{{QStringLiteral("orientation"), 1 + Below(2)}, {QStringLiteral("children"), children}};
    }
    return Written(root);
}

} // namespace VelmoraTest
