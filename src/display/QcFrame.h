#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QString>

namespace Velmora {

/// A painted surface: a rounded background and any of four one-pixel border sides, in theme colours.
class VELMORA_EXPORT QcFrame : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QString backgroundColorParams MEMBER m_backgroundColorParams WRITE setBackgroundColorParams)
    Q_PROPERTY(QString borderColorParams MEMBER m_borderColorParams WRITE setBorderColorParams)
    Q_PROPERTY(int borderRadius MEMBER m_borderRadius WRITE setBorderRadius)
    Q_PROPERTY(BorderSides borderSides READ ShownSides WRITE setBorderSides)

public:
    enum BorderSide {
        Left = 1,
        Top = 2,
        Right = 4,
        Bottom = 8,
    };
    Q_DECLARE_FLAGS(BorderSides, BorderSide)
    Q_FLAG(BorderSides)

    explicit QcFrame(QWidget *parent = nullptr);

    /// The colour code of the background, "transparent" at first. An empty code paints opaque black.
    void setBackgroundColorParams(const QString &code);
    /// The colour code of the border, "transparent" at first.
    void setBorderColorParams(const QString &code);
    /// Corner radius in pixels, 0 at first. Rounds the background and, with all four sides, the border.
    void setBorderRadius(int radius);
    /// Which sides have a border; none at first. All four make one rounded outline, fewer are straight
    /// lines with square corners.
    void setBorderSides(QFlags<BorderSide> sides);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    BorderSides ShownSides() const { return m_borderSides; }

    QString m_backgroundColorParams = QStringLiteral("transparent");
    QString m_borderColorParams = QStringLiteral("transparent");
    int m_borderRadius = 0;
    QFlags<BorderSide> m_borderSides;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(QcFrame::BorderSides)

} // namespace Velmora
