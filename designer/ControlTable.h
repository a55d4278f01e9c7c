#pragma once

#include <QString>

#include <vector>

QT_BEGIN_NAMESPACE
class QWidget;
struct QMetaObject;
QT_END_NAMESPACE

namespace VelmoraDesigner {

/// What a control has room for in a form.
enum class Room {
    Nothing,
    Children, ///< as any frame has
    Content,  ///< one page, made by setContentWidget()
    Pages,    ///< of which one shows, made by addWidget()
};

/// A control of the kit as Designer offers it.
struct Control
{
    const QMetaObject *type;
    QWidget *(*make)(QWidget *parent);
    const char *group;
    const char *title; ///< in the widget box
    int width;         ///< where it is dropped on a form without a layout
    int height;
    Room room;
    const char *toolTip;
    const char *whatsThis;
    const char *firstProperties; ///< as a form's file writes them; "" for none
    const char *firstPages;      ///< likewise

    /// "Velmora::QcPrimaryButton".
    QString ClassName() const;
    /// "QcPrimaryButton".
    QString ShortName() const;
    /// The class of Qt from which it derives: what tools do without the plugin.
    QString QtClass() const;
    /// "Velmora/QcPrimaryButton.h".
    QString Header() const;
    /// What the first one in a form is called: "primaryButton".
    QString ObjectName() const;
    /// All of it as Designer wants it.
    QString DomXml() const;
};

/// In the order of the widget box.
const std::vector<Control> &Controls();

/// Whether the property called \a name holds a colour code.
bool IsColorCode(const QString &name);

} // namespace VelmoraDesigner
