#pragma once

#include <QColor>
#include <QIcon>
#include <QObject>
#include <QPointer>
#include <QVector>

#include <memory>

QT_BEGIN_NAMESPACE
class QGroupBox;
class QImage;
class QListView;
class QMenu;
class QStyle;
class QStyleOption;
class QToolButton;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// Paints anew, in colours of the palette, what the style Fusion draws dark whatever the palette says, or so that it is hardly seen:
/// separators in menus, combo boxes and tool bars, the outline of a group box, the arrows of a tool bar that is too narrow. It looks at
/// what has been painted, and leaves what is not Fusion's: a host's own stylesheet, style, painting or icon.
class PlainDrawings : public QObject
{
    Q_OBJECT

public:
    PlainDrawings();
    /// Gives the icons back.
    ~PlainDrawings() override;
    /// From its next painting on, if \a widget is one of those.
    void Mend(QWidget &widget);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Arrows
    {
        QPointer<QToolButton> button;
        QIcon own;
        QIcon given;
        QColor color;
    };

    void MendArrows(QToolButton &button);
    void PaintSeparators(QMenu &menu) const;
    void PaintSeparators(QListView &list) const;
    void PaintSeparator(QWidget &separator) const;
    bool IsFusionsSeparator(const QImage &painted, const QStyleOption &option) const;
    void PaintOutline(QGroupBox &group) const;

    std::unique_ptr<QStyle> m_fusion;
    QVector<Arrows> m_arrows;
    const QObject *m_painted = nullptr;
};

} // namespace Velmora
