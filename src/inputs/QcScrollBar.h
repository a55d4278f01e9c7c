#pragma once

#include <Velmora/VelmoraExport.h>

#include <QPointer>
#include <QScrollBar>

#include <optional>

namespace Velmora {

/// A thin scroll bar, 10 pixels across, that floats on a scroll area instead of taking room in its layout.
///
/// The area's own bar, the original, stays in charge of range and value; this one mirrors it and hands the user's scrolling
/// back:
///
///     area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the original does not hide by itself
///     auto *bar = new QcScrollBar(Qt::Vertical, area);
///     bar->SetOriginalScrollBar(area->verticalScrollBar());     // before the area is filled
///
/// The bar is a child of the area, or of its viewport, at whose right (also right to left) or bottom edge it stands, 2 pixels
/// from it, and as long as it; it lays itself out. Two bars of one area overlap in its corner. Item views and text edits move the
/// children of their viewport when they scroll: there, two bars belong on the area.
///
/// The handle shows while the mouse is over the parent, 4 pixels thin, and 8 while the mouse is over the handle. Its colour,
/// `base/neutral/neutral-50`, is made for dark grounds in both built-in tables, where it is a translucent white. A host that
/// scrolls on light ground overrides it in a table of its own.
///
/// A stylesheet sees the property `objectPropertyHover`, true while the handle shows.
class VELMORA_EXPORT QcScrollBar : public QScrollBar
{
    Q_OBJECT
    Q_PROPERTY(DisplayMode displayMode READ getDisplayModeM WRITE setDisplayModeM)

public:
    enum DisplayMode : int {
        DisplayOnHover, ///< the handle shows while the parent is under the mouse
        DisplayAlways,  ///< the handle always shows
    };
    Q_ENUM(DisplayMode)

    /// A bar without a \a parent places itself nowhere and, once it has something to scroll, shows as a window.
    explicit QcScrollBar(Qt::Orientation orientation, QWidget *parent = nullptr);

    /// Mirrors \a bar, which stays its owner's, in place of an earlier one. Nothing is copied now: the next change of its range
    /// brings everything. Until then, and whenever the original's maximum is not above 0, this bar is hidden. Null, and the present
    /// original again, do nothing; an original that dies leaves this bar as it stands.
    void SetOriginalScrollBar(QPointer<QScrollBar> bar);

    /// When the handle shows. It is looked at when the mouse next enters or leaves the parent or the range next changes.
    void setDisplayModeM(DisplayMode mode);
    DisplayMode getDisplayModeM() const;

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private Q_SLOTS:
    void OnOriginalScrollBarRangeChanged(int min, int max);
    void OnOriginalScrollBarValueChanged(int value);
    void OnCurrentScrollBarValueChanged(int value);

private:
    void UpdatePropertyHover();
    void updateGeometry();
    template <typename Change>
    bool Mirror(int value, const Change &change);
    bool MirrorValue(int value);
    void MirrorSteps();
    void WatchParent();

    const char *m_hoverProperty = "objectPropertyHover";
    QPointer<QScrollBar> m_original;
    int m_horizontalMargin = 2;
    int m_verticalMargin = 2;
    DisplayMode m_displayMode = DisplayOnHover;
    QMetaObject::Connection m_forwarding;
    std::optional<int> m_mirrored; // the value that is being taken over from the original
    QPointer<QWidget> m_watchedParent;
};

} // namespace Velmora
