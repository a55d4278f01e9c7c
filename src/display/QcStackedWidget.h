#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QList>

namespace Velmora {

/// Shows one of several pages, and sizes only that one.
///
/// A page fills the whole stack, its frame included, from the moment it becomes the current one. A hidden page keeps its size, so that
/// a resize costs the same however many pages there are, and no page's size hint or minimum reaches the stack: give it a size, or put it
/// into a layout that does.
///
/// Pages are children of the stack. One that is deleted or given another parent leaves the stack as by removeWidget(); the pointer
/// that widgetRemoved() then brings is good for comparison only.
///
/// The keyboard stays in the stack: if it was on the page that hides, it moves to the widget of the next page that had it last, else to
/// that page's first stop of the Tab key, else to the page. Assistive technology sees the current page alone.
///
/// Handlers of the signals, and of a page's show and hide, may change or delete pages and delete the stack. If they choose another page
/// while one is about to show, theirs holds.
class VELMORA_EXPORT QcStackedWidget : public QFrame
{
    Q_OBJECT

public:
    explicit QcStackedWidget(QWidget *parent = nullptr);

    /// Appends \a widget, hidden, and returns its index. The first page becomes the current one and shows; no signal says so.
    /// A page already in stays where it is, and its index is returned. Null, the stack itself and what the stack lies in are refused
    /// with -1.
    Q_INVOKABLE int addWidget(QWidget *widget);
    /// The same before the page at \a index, which is brought into 0 to count(). The current index stays the number it is: after an
    /// insertion at or before it, it names another page, while the one that showed stays on the screen until the next change.
    int insertWidget(int index, QWidget *widget);
    /// Takes \a widget out and returns the index that it had, or -1 if it is no page. It stays a child of the stack, as visible as it was.
    ///
    /// If it was the current one, the page at 0 becomes that. Index 0 itself does not change, though: after the removal of the current
    /// page at 0 the next one stays hidden until the next change of the index.
    int removeWidget(QWidget *widget);

    int count() const;
    /// -1 if there is no page.
    int currentIndex() const;
    /// -1 if \a widget is no page.
    int indexOf(QWidget *widget) const;
    /// Null out of range.
    QWidget *widget(int index) const;
    /// Null if there is no page.
    QWidget *currentWidget() const;

public Q_SLOTS:
    /// Shows the page at \a index in place of the current one. The current index and one out of range do nothing.
    void setCurrentIndex(int index);
    /// The same for a page; another widget does nothing.
    void setCurrentWidget(QWidget *pWidget);

Q_SIGNALS:
    /// Another page was chosen. Not emitted where a page only changes its number.
    void currentChanged(int index);
    /// The page that had \a index left the stack; currentIndex() counts without it already.
    void widgetRemoved(int index, QWidget *pWidget);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void childEvent(QChildEvent *event) override;

private:
    void TakeOut(int index);
    void ShowWhole(QWidget *page);
    void ShowOnlyCurrent(QWidget *dropped);
    bool HoldKeyboardOf(const QWidget *page);

    int m_currentIndex = -1;
    QList<QWidget *> m_pages;
};

} // namespace Velmora
