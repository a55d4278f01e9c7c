#include "buttons/StateColorProperties_p.h"

#include "core/ApplicationEvents_p.h"

#include <Velmora/QcButton.h>

#include <QCoreApplication>
#include <QDynamicPropertyChangeEvent>
#include <QPointer>
#include <QVariant>

#include <algorithm>
#include <iterator>

namespace Velmora {

namespace {

/// Of each look in ButtonState::kAll.
constexpr const char *kNames[] = {"disabled", "normal", "hover", "pressed", "checkedDisabled", "checked", "checkedHover", "checkedPressed"};
static_assert(std::size(kNames) == ButtonState::kAll.size());

const char *NameOf(QStyle::State look)
{
    const auto place = std::find(ButtonState::kAll.cbegin(), ButtonState::kAll.cend(), int(look)) - ButtonState::kAll.cbegin();
    return kNames[place];
}

} // namespace

void StateColorProperties::Watch()
{
    static QPointer<StateColorProperties> instance; // a child of the application
    if (instance)
        return;
    instance = new StateColorProperties(QCoreApplication::instance());
    WatchApplicationEvents(instance, {QEvent::DynamicPropertyChange});
}

QString StateColorProperties::CodeOf(const QcButton &button, const char *ending, QStyle::State look, const CodeTable &table)
{
    if (!button.dynamicPropertyNames().isEmpty()) { // few have any
        const QString code = button.property(QByteArray(NameOf(look)) + ending).toString();
        if (!code.isEmpty())
            return code;
    }
    return table.value(look);
}

bool StateColorProperties::eventFilter(QObject *watched, QEvent *event)
{
    const bool isColor = static_cast<const QDynamicPropertyChangeEvent *>(event)->propertyName().endsWith("ColorParams");
    if (auto *button = isColor ? qobject_cast<QcButton *>(watched) : nullptr)
        button->update();
    return false;
}

} // namespace Velmora
