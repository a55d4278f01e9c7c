#include <Velmora/QcMultiLineText.h>

#include "core/AccessibleAction_p.h"
#include "core/InstallAccessible_p.h"
#include "display/MultiLineTextAccessible_p.h"
#include "display/TextLayout_p.h"
#include "display/TextPieces_p.h"

#include <QAbstractTextDocumentLayout>
#include <QAccessibleWidget>
#include <QPointer>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QVariant>

#include <algorithm>

namespace Velmora {

namespace {

QTextDocument &DocumentOf(const QcMultiLineText &text)
{
    return *text.findChild<QTextDocument *>(QString(), Qt::FindDirectChildrenOnly);
}

/// The links that the screen shows: a cut text has fewer.
QVector<TextLink> LinksIn(const QcMultiLineText &text)
{
    return LinksOf(DocumentOf(text));
}

/// Where \a link is drawn in \a text.
QRect PlaceOf(const QcMultiLineText &text, const TextLink &link)
{
    return RectOf(DocumentOf(text), link.begin, link.end).toAlignedRect();
}

/// One of a text's links. Which one its number says, so that it changes with the text, and is none when there are fewer.
class LinkAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    LinkAccessible(QcMultiLineText *text, int index)
        : m_text(text)
        , m_index(index)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }

    bool isValid() const override { return m_text && m_index < LinksIn(*m_text).size(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return isValid() ? parent()->window() : nullptr; }
    QAccessible::Role role() const override { return QAccessible::Link; }
    QAccessibleInterface *parent() const override { return m_text ? QAccessible::queryAccessibleInterface(m_text) : nullptr; }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && isValid() ? SelectionOf(DocumentOf(*m_text), Link()).selectedText() : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}

    QRect rect() const override
    {
        if (!isValid())
            return QRect();
        const QRect place = PlaceOf(*m_text, Link());
        return QRect(m_text->mapToGlobal(place.topLeft()), place.size());
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        state = parent()->state();
        state.linked = true;
        state.focused = m_text->hasFocus() && m_text->property("markedLink").toInt() == m_index;
        return state;
    }

    QStringList actionNames() const override { return isValid() && m_text->isEnabled() ? QStringList(pressAction()) : QStringList(); }

    void doAction(const QString &name) override
    {
        if (!actionNames().contains(name))
            return;
        const auto press = [text = m_text.data(), index = m_index, href = Link().href] {
            if (LinksIn(*text).value(index).href == href) // not of another text by now
                Q_EMIT text->signalAnchorClicked(href);
        };
        DoActionLater(*m_text, press);
    }

    QStringList keyBindingsForAction(const QString & /*name*/) const override { return QStringList(); }

private:
    TextLink Link() const { return LinksIn(*m_text).at(m_index); }

    QPointer<QcMultiLineText> m_text;
    int m_index;
};

/// The whole text is its name; what can be read by pieces is what the screen shows of it.
class MultiLineTextAccessible : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit MultiLineTextAccessible(QcMultiLineText *widget)
        : QAccessibleWidget(widget, QAccessible::StaticText)
    {
    }

    ~MultiLineTextAccessible() override
    {
        for (const QAccessible::Id id : qAsConst(m_links))
            QAccessible::deleteAccessibleInterface(id);
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name || !widget()->accessibleName().isEmpty())
            return QAccessibleWidget::text(kind);
        return QTextDocumentFragment::fromHtml(widget()->property("text").toString()).toPlainText();
    }

    int childCount() const override { return int(LinksIn(*Text()).size()); }

    QAccessibleInterface *child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        while (m_links.size() <= index) // owned by Qt's accessibility cache
            m_links.append(QAccessible::registerAccessibleInterface(new LinkAccessible(Text(), int(m_links.size()))));
        return QAccessible::accessibleInterface(m_links.at(index));
    }

    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QPoint point = Text()->mapFromGlobal(QPoint(x, y));
        const QVector<TextLink> links = LinksIn(*Text());
        const auto isThere = [&](const TextLink &link) { return PlaceOf(*Text(), link).contains(point); };
        return child(int(std::find_if(links.begin(), links.end(), isThere) - links.begin()));
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return int(m_links.indexOf(QAccessible::uniqueId(const_cast<QAccessibleInterface *>(child))));
    }

    QAccessibleInterface *focusChild() const override
    {
        QAccessibleInterface *marked = child(widget()->property("markedLink").toInt());
        return marked && widget()->hasFocus() ? marked : QAccessibleWidget::focusChild();
    }

    // --- Text ---

    int characterCount() const override { return Pieces().Length(); }
    QString text(int start, int end) const override { return Pieces().Text(start, end); }
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override
    {
        return Pieces().Before(offset, type, start, end);
    }
    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override
    {
        return Pieces().At(offset, type, start, end);
    }
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override
    {
        return Pieces().After(offset, type, start, end);
    }

    /// That of the link which has the keyboard.
    int cursorPosition() const override
    {
        const int marked = widget()->hasFocus() ? widget()->property("markedLink").toInt() : -1;
        return marked < 0 ? -1 : LinksIn(*Text()).at(marked).begin;
    }
    void setCursorPosition(int /*position*/) override {}

    int selectionCount() const override { return 0; }
    void selection(int /*index*/, int *start, int *end) const override { *start = *end = 0; }
    void addSelection(int /*start*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}

    QRect characterRect(int offset) const override
    {
        if (offset < 0 || offset >= characterCount())
            return QRect();
        const QRect place = RectOf(DocumentOf(*Text()), offset, offset + 1).toAlignedRect();
        return place.isEmpty() ? QRect() : QRect(widget()->mapToGlobal(place.topLeft()), place.size());
    }

    int offsetAtPoint(const QPoint &point) const override
    {
        const QPoint place = widget()->mapFromGlobal(point);
        const int nearest = DocumentOf(*Text()).documentLayout()->hitTest(place, Qt::FuzzyHit); // the gap between two characters
        for (const int offset : {nearest, nearest - 1}) {
            if (characterRect(offset).contains(point))
                return offset;
        }
        return -1;
    }

    void scrollToSubstring(int /*start*/, int /*end*/) override {}
    QString attributes(int /*offset*/, int *start, int *end) const override
    {
        *start = *end = 0; // none
        return QString();
    }

private:
    QcMultiLineText *Text() const { return static_cast<QcMultiLineText *>(widget()); }
    TextPieces Pieces() const { return TextPieces(&DocumentOf(*Text())); }

    mutable QVector<QAccessible::Id> m_links;
};

} // namespace

void InstallTextAccessibility()
{
    InstallAccessible<MultiLineTextAccessible, QcMultiLineText>();
}

} // namespace Velmora
