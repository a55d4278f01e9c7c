#include <Velmora/QcAction.h>

#include "menus/MenuIcon_p.h"

#include <QVariant>

namespace Velmora {

QcAction::QcAction(QObject *parent)
    : QAction(parent)
{
}

QcAction::QcAction(const QString &text, QObject *parent)
    : QAction(text, parent)
{
}

void QcAction::SetIconPath(const QString &path)
{
    setProperty(kIconPath, path);
}

void QcAction::SetIconColor(const QString &code)
{
    if (!code.isEmpty())
        setProperty(kIconColor, code);
}

void QcAction::SetMulIconColor(const QHash<QString, QString> &codes)
{
    if (!codes.isEmpty())
        setProperty(kIconMulColor, QVariant::fromValue(codes)); // registers the type with its first call
}

} // namespace Velmora
