#include <Velmora/ThemeChecks.h>

#include "core/ApplicationEvents_p.h"
#include "theme/ThemeChecks_p.h"

#include <QCoreApplication>
#include <QDebug>
#include <QWidget>

#include <memory>

namespace Velmora {

namespace {

std::unique_ptr<ThemeChecks> &TheChecks()
{
    static std::unique_ptr<ThemeChecks> checks;
    return checks;
}

bool isTableLoaded = false;

/// True for a class of the kit, and for one of a host that derives from it.
bool IsOfKit(const QWidget &widget)
{
    for (const QMetaObject *type = widget.metaObject(); type; type = type->superClass()) {
        if (QByteArray(type->className()).startsWith("Velmora::"))
            return true;
    }
    return false;
}

} // namespace

void ThemeChecks::TellUnknown(const QString &token, const QString &table)
{
    if (table.isEmpty() || m_unknownTokens.contains(token))
        return;
    m_unknownTokens.insert(token);
    qWarning().noquote() << QStringLiteral("Theme check: %1 has no token \"%2\"").arg(table, token);
}

void ThemeChecks::NoteRegistered(const QWidget *widget)
{
    if (isTableLoaded || m_registered.contains(widget))
        return;
    m_registered.insert(widget);
    connect(widget, &QObject::destroyed, this, &ThemeChecks::Forget);
}

void ThemeChecks::WatchPaints()
{
    if (QCoreApplication::instance() && !isTableLoaded)
        WatchApplicationEvents(this, {QEvent::Paint});
}

void ThemeChecks::EndWatching()
{
    UnwatchApplicationEvents(this);
}

bool ThemeChecks::NeedsTable(const QWidget &widget) const
{
    return IsOfKit(widget) || m_registered.contains(&widget);
}

void ThemeChecks::Forget(const QObject *widget)
{
    m_registered.remove(widget);
    m_paintedTooEarly.remove(widget);
}

bool ThemeChecks::eventFilter(QObject *watched, QEvent * /*event*/)
{
    if (!watched->isWidgetType() || m_paintedTooEarly.contains(watched) || !NeedsTable(*static_cast<QWidget *>(watched)))
        return false;
    m_paintedTooEarly.insert(watched);
    connect(watched, &QObject::destroyed, this, &ThemeChecks::Forget);
    qWarning().noquote() << QStringLiteral("Theme check: %1 \"%2\" is painted before a colour table is loaded")
                                .arg(QLatin1String(watched->metaObject()->className()), watched->objectName());
    return false;
}

ThemeChecks *ActiveThemeChecks()
{
    return TheChecks().get();
}

void TellChecksOfTable()
{
    isTableLoaded = true;
    if (TheChecks())
        TheChecks()->EndWatching();
}

void FollowThemeChecks()
{
    if (qEnvironmentVariableIntValue("VELMORA_THEME_CHECKS") != 0)
        SetThemeChecksEnabled(true);
    if (TheChecks())
        TheChecks()->WatchPaints();
}

void SetThemeChecksEnabled(bool enabled)
{
    if (enabled == ThemeChecksEnabled())
        return;
    TheChecks() = enabled ? std::make_unique<ThemeChecks>() : nullptr;
    if (enabled)
        TheChecks()->WatchPaints();
}

bool ThemeChecksEnabled()
{
    return TheChecks() != nullptr;
}

} // namespace Velmora
