#include "Pages.h"

#include <Velmora/QcDialog.h>
#include <Velmora/QcStackedWidget.h>
#include <Velmora/QcWindow.h>

#include <functional>
#include <utility>

using namespace Velmora;

namespace VelmoraDesigner {

namespace {

class StackPages : public QObject, public QDesignerContainerExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerContainerExtension)

public:
    StackPages(QcStackedWidget &stack, QObject *parent)
        : QObject(parent)
        , m_stack(stack)
    {
    }

    int count() const override { return m_stack.count(); }
    QWidget *widget(int index) const override { return m_stack.widget(index); }
    int currentIndex() const override { return m_stack.currentIndex(); }
    void setCurrentIndex(int index) override { m_stack.setCurrentIndex(index); }
    bool canAddWidget() const override { return true; }
    bool canRemove(int /*index*/) const override { return m_stack.count() > 1; }

    void addWidget(QWidget *widget) override { Show(m_stack.addWidget(widget)); }
    void insertWidget(int index, QWidget *widget) override { Show(m_stack.insertWidget(index, widget)); }

    void remove(int index) override
    {
        QWidget *page = m_stack.widget(index);
        if (!page)
            return;
        m_stack.removeWidget(page);
        page->hide();
        Show(qMin(index, m_stack.count() - 1));
    }

private:
    /// The stack's index is a number that stays while pages come and go before it: it is left first, so that the page shows.
    void Show(int index)
    {
        if (m_stack.count() > 1)
            m_stack.setCurrentIndex(index == 0 ? 1 : 0);
        m_stack.setCurrentIndex(index);
        if (QWidget *page = m_stack.widget(index))
            page->show();
    }

    QcStackedWidget &m_stack;
};

/// The one page of a window or dialog.
class WindowContent : public QObject, public QDesignerContainerExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerContainerExtension)

public:
    using Get = std::function<QWidget *()>;
    using Set = std::function<void(QWidget *)>;

    WindowContent(Get get, Set set, QObject *parent)
        : QObject(parent)
        , m_get(std::move(get))
        , m_set(std::move(set))
    {
    }

    int count() const override { return m_get() ? 1 : 0; }
    QWidget *widget(int index) const override { return index == 0 ? m_get() : nullptr; }
    int currentIndex() const override { return count() - 1; }
    void setCurrentIndex(int /*index*/) override {}
    bool canAddWidget() const override { return count() == 0; }
    bool canRemove(int /*index*/) const override { return false; }

    void addWidget(QWidget *widget) override { insertWidget(0, widget); }
    void insertWidget(int /*index*/, QWidget *widget) override
    {
        m_set(widget);
        widget->show();
    }
    void remove(int /*index*/) override {} // the one page stays

private:
    const Get m_get;
    const Set m_set;
};

template <typename Window>
QObject *MakeContent(Window *window, QObject *parent)
{
    return new WindowContent([window] { return window->getContentWidget(); },
                             [window](QWidget *content) { window->setContentWidget(content); }, parent);
}

} // namespace

PagesFactory::PagesFactory(QExtensionManager *parent)
    : QExtensionFactory(parent)
{
}

QObject *PagesFactory::createExtension(QObject *object, const QString &iid, QObject *parent) const
{
    if (iid != Q_TYPEID(QDesignerContainerExtension))
        return nullptr;
    if (auto *stack = qobject_cast<QcStackedWidget *>(object))
        return new StackPages(*stack, parent);
    if (auto *window = qobject_cast<QcWindow *>(object))
        return MakeContent(window, parent);
    if (auto *dialog = qobject_cast<QcDialog *>(object))
        return MakeContent(dialog, parent);
    return nullptr;
}

} // namespace VelmoraDesigner

#include "Pages.moc"
