#pragma once

#include <Velmora/QcToolButton.h>
#include <Velmora/VelmoraExport.h>

#include <QString>

namespace Velmora {

/// A tool button whose icon has two colours that the host chooses, also while the program runs.
class VELMORA_EXPORT QcToolColorButton : public QcToolButton
{
    Q_OBJECT
    Q_PROPERTY(QString iconColorParams MEMBER m_iconColor WRITE SetIconColor)
    Q_PROPERTY(QString iconDisableColorParams MEMBER m_iconDisableColor WRITE SetIconDisableColor)

public:
    explicit QcToolColorButton(QWidget *parent = nullptr);

    /// The colour codes of the icon: \a iconDisableColor while disabled and unchecked, \a iconColor in the seven other states;
    /// "icon/icon_toolbar_disable" and "icon/icon_toolbar" at first. They show at once and follow the colour table. The tables of
    /// all eight states and the radius return to their defaults: what the host set there is undone, the icon path stays.
    void setChangeColor(const QString &iconColor, const QString &iconDisableColor);

protected:
    void UpdateUiParams() override;

private:
    void SetIconColor(const QString &code) { setChangeColor(code, m_iconDisableColor); }
    void SetIconDisableColor(const QString &code) { setChangeColor(m_iconColor, code); }

    QString m_iconColor = QStringLiteral("icon/icon_toolbar");
    QString m_iconDisableColor = QStringLiteral("icon/icon_toolbar_disable");
};

} // namespace Velmora
