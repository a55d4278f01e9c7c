#pragma once

#include "support/Pixels.h"
#include "support/TestCase.h"

#include <QFile>
#include <QImage>
#include <QMap>
#include <QMetaProperty>
#include <QUiLoader>
#include <QWidget>

#include <memory>

namespace VelmoraTest {

/// What a form shows, and what it says of itself.
struct Look
{
    QImage picture;
    QMap<QString, QString> facts; ///< "name.property" and its value
};

/// Those that can be compared from one object to the next.
inline void AddFacts(const QString &name, const QWidget &widget, QMap<QString, QString> &facts)
{
    const QMetaObject &type = *widget.metaObject();
    facts.insert(name, QLatin1String(type.className()));
    for (int i = 0; i < type.propertyCount(); ++i) {
        const QVariant value = type.property(i).read(&widget);
        QString text;
        QDebug(&text) << value;
        if (!text.contains(QLatin1String("0x"))) // an address
            facts.insert(name + QLatin1Char('.') + QLatin1String(type.property(i).name()), text);
    }
}

/// \a form and all with a name in it, once it has been shown.
inline Look LookOf(QWidget &form)
{
    form.show();
    DrainEvents();
    Look look{Render(form), {}};
    AddFacts(QStringLiteral("form"), form, look.facts);
    look.facts.remove(QStringLiteral("form.objectName")); // uic leaves a name that a window has
    const auto widgets = form.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_")))
            AddFacts(widget->objectName(), *widget, look.facts);
    }
    form.hide();
    return look;
}

/// What the facts of two forms do not have in common, in words.
inline QStringList Differences(const Look &actual, const Look &expected)
{
    QStringList differences;
    for (auto fact = expected.facts.cbegin(); fact != expected.facts.cend(); ++fact) {
        if (actual.facts.value(fact.key()) != *fact)
            differences.append(QStringLiteral("%1 is %2, not %3").arg(fact.key(), actual.facts.value(fact.key()), *fact));
    }
    for (auto fact = actual.facts.cbegin(); fact != actual.facts.cend(); ++fact) {
        if (!expected.facts.contains(fact.key()))
            differences.append(QStringLiteral("%1 is %2").arg(fact.key(), *fact));
    }
    return differences;
}

/// The form of a file, by a loader that finds the plugin as any does.
inline std::unique_ptr<QWidget> Loaded(const char *name)
{
    QFile file(QStringLiteral(FORMS "/%1.ui").arg(QLatin1String(name)));
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    return std::unique_ptr<QWidget>(QUiLoader().load(&file));
}

} // namespace VelmoraTest
