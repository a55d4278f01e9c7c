#include "support/Pixels.h"
#include "support/TestCase.h"
#include "support/Tokens.h"

#include <Velmora/QcDialog.h>
#include <Velmora/QcFrame.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcStackedWidget.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcWindow.h>
#include <Velmora/Translations.h>

#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerContainerExtension>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QDesignerWidgetBoxInterface>
#include <QtDesigner/QDesignerWidgetFactoryInterface>
#include <QtDesigner/QExtensionManager>

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMetaProperty>
#include <QPointer>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUndoStack>

#include <algorithm>
#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Designer without its windows: the parts that its plugins meet.
struct Designer
{
    Designer()
    {
        top.menuBar()->addMenu("File");
        top.menuBar()->addMenu("Help");
        QDesignerComponents::initializeResources();
        core = QDesignerComponents::createFormEditor(&top);
        core->setTopLevel(&top);
        core->setWidgetBox(QDesignerComponents::createWidgetBox(core, &top));
        core->setPropertyEditor(QDesignerComponents::createPropertyEditor(core, &top));
        core->setObjectInspector(QDesignerComponents::createObjectInspector(core, &top));
        core->setActionEditor(QDesignerComponents::createActionEditor(core, &top));
        new QDesignerIntegration(core, &top);
        QDesignerComponents::createTaskMenu(core, &top);
        QDesignerComponents::initializePlugins(core);
        core->widgetBox()->setFileName(":/qt-project.org/widgetbox/widgetbox.xml");
        core->widgetBox()->load();
        top.show();
    }

    QMainWindow top;
    QDesignerFormEditorInterface *core = nullptr;
};

Designer *designer = nullptr;

} // namespace

/// The plugin in Designer.
class tst_InDesigner : public VelmoraTest::TestCase
{
    Q_OBJECT

private:
    /// A form that holds what the control called \a className is dropped as, or is that, of a window.
    QDesignerFormWindowInterface *OpenForm(const QString &className)
    {
        QString xml = DomXmlOf(className);
        xml.replace("<ui language=\"c++\"", "<ui version=\"4.0\"");
        if (xml.contains("name=\"content\""))
            return OpenContents(xml);
        const auto begin = xml.indexOf("<widget");
        xml.insert(begin,
                   "<class>Form</class><widget class=\"QWidget\" name=\"Form\"><property name=\"geometry\"><rect><x>0</x><y>0</y>"
                   "<width>700</width><height>500</height></rect></property>");
        xml.insert(xml.indexOf("<customwidgets>"), "</widget>");
        return OpenContents(xml);
    }

    QDesignerFormWindowInterface *OpenContents(const QString &xml)
    {
        QDesignerFormWindowManagerInterface *manager = Manager();
        m_form.reset(manager->createFormWindow(&designer->top));
        m_form->setContents(xml);
        manager->setActiveFormWindow(m_form.get());
        m_form->resize(720, 520);
        m_form->show();
        DrainEvents();
        return m_form.get();
    }

    static QString DomXmlOf(const QString &className)
    {
        QDesignerWidgetBoxInterface *box = designer->core->widgetBox();
        for (int category = 0; category < box->categoryCount(); ++category) {
            for (int i = 0; i < box->widgetCount(category); ++i) {
                const QString xml = box->widget(category, i).domXml();
                if (xml.contains(QStringLiteral("class=\"%1\"").arg(className)))
                    return xml;
            }
        }
        return QString();
    }

    template <typename Control>
    Control *The()
    {
        return m_form->mainContainer()->findChild<Control *>();
    }

    /// The first one whose very class is \a className.
    QWidget *InstanceOf(const QString &className)
    {
        QWidget *form = m_form->mainContainer();
        QList<QWidget *> widgets = form->findChildren<QWidget *>();
        widgets.prepend(form);
        const auto found = std::find_if(widgets.cbegin(), widgets.cend(),
                                        [&](const QWidget *widget) { return widget->metaObject()->className() == className; });
        return found == widgets.cend() ? nullptr : *found;
    }

    /// Of all controls in the widget box.
    static QStringList ClassNames()
    {
        QStringList names;
        QDesignerWidgetBoxInterface *box = designer->core->widgetBox();
        for (int category = 0; category < box->categoryCount(); ++category) {
            for (int i = 0; i < box->widgetCount(category); ++i) {
                static const QRegularExpression ofKit("class=\"(Velmora::\\w+)\"");
                const QRegularExpressionMatch found = ofKit.match(box->widget(category, i).domXml());
                if (found.hasMatch())
                    names.append(found.captured(1));
            }
        }
        return names;
    }

    /// Those that the kit adds to its classes of Qt. Not the focus, from which Designer keeps widgets of a form, nor what decides about
    /// another one.
    static QVector<QMetaProperty> PropertiesOf(const QWidget &control)
    {
        const QByteArrayList exceptions = {"focusPolicy", "autoAlignment"};
        QVector<QMetaProperty> properties;
        for (int i = 0; i < control.metaObject()->propertyCount(); ++i) {
            const QMetaProperty property = control.metaObject()->property(i);
            const bool isOfKit = QByteArray(property.enclosingMetaObject()->className()).startsWith("Velmora::");
            if (isOfKit && property.isWritable() && property.isDesignable() && !exceptions.contains(property.name()))
                properties.append(property);
        }
        return properties;
    }

    static int NumberOf(const QVariant &value)
    {
        return value.userType() == QMetaType::Int ? value.toInt() : *static_cast<const int *>(value.constData()); // an enumeration
    }

    static QVariant Changed(const QMetaProperty &property, const QWidget &control)
    {
        const QVariant value = property.read(&control);
        if (property.isEnumType()) {
            for (int i = 0;; ++i) {
                const int other = property.enumerator().value(i);
                if (other != 0 && other != NumberOf(value))
                    return other;
            }
        }
        switch (value.userType()) {
        case QMetaType::Bool:
            return !value.toBool();
        case QMetaType::Int:
            return value.toInt() + 1;
        case QMetaType::Double:
            return value.toDouble() + 1;
        default:
            return value.toString() + QStringLiteral("x");
        }
    }

    static QString TextOf(const QVariant &value)
    {
        QString text;
        QDebug(&text) << value;
        return text;
    }

    static QString ValueOf(const QMetaProperty &property, const QWidget &control)
    {
        const QVariant value = property.read(&control);
        return TextOf(property.isEnumType() ? NumberOf(value) : value);
    }

    static QStringList ValuesOf(const QWidget &control)
    {
        QStringList values;
        const QVector<QMetaProperty> properties = PropertiesOf(control);
        for (const QMetaProperty &property : properties)
            values.append(QString(property.name()) + ": " + ValueOf(property, control));
        return values;
    }

    QDesignerContainerExtension *PagesOf(QObject *object)
    {
        return qt_extension<QDesignerContainerExtension *>(designer->core->extensionManager(), object);
    }

    /// What the context menu of \a widget says of its colour \a property.
    QAction *ActionFor(QObject *widget, const QString &property)
    {
        auto *tasks = qt_extension<QDesignerTaskMenuExtension *>(designer->core->extensionManager(), widget);
        if (!tasks)
            return nullptr;
        const auto actions = tasks->taskActions();
        for (QAction *action : actions) {
            if (action->text().contains(property))
                return action;
        }
        return nullptr;
    }

    /// Triggers \a action and, in the dialog that opens, calls \a answer.
    template <typename Answer>
    void Choose(QAction *action, const Answer &answer)
    {
        bool hasAnswered = false;
        QTimer::singleShot(0, this, [&] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            answer(dialog);
            hasAnswered = true;
        });
        action->trigger();
        QVERIFY(hasAnswered);
    }

    static QDesignerFormWindowManagerInterface *Manager() { return designer->core->formWindowManager(); }

    /// Of a container's context menu. Designer keeps all this to its end.
    struct PageActions
    {
        PageActions() = default;
        PageActions(const PageActions &) = delete;
        PageActions(PageActions &&) = default;
        PageActions &operator=(const PageActions &) = delete;
        PageActions &operator=(PageActions &&) = delete;
        ~PageActions()
        {
            delete extension;
            const QWidgetList after = QApplication::topLevelWidgets();
            for (QWidget *widget : after) {
                if (qobject_cast<QMenu *>(widget) && !before.contains(widget))
                    delete widget;
            }
        }

        QWidgetList before = QApplication::topLevelWidgets();
        QObject *extension = nullptr;
        QAction *insert = nullptr;
        QAction *remove = nullptr;
    };

    PageActions PageActionsOf(QObject *container)
    {
        PageActions found;
        // Where Designer keeps the tasks that it has itself.
        found.extension = designer->core->extensionManager()->extension(container, "QDesignerInternalTaskMenuExtension");
        const auto *tasks = qobject_cast<QDesignerTaskMenuExtension *>(found.extension);
        const auto actions = tasks ? tasks->taskActions() : QList<QAction *>();
        for (QAction *action : actions) {
            if (!action->menu())
                continue;
            if (action->text().startsWith("Insert"))
                found.insert = action->menu()->actions().value(0);
            else if (action->text().startsWith("Page"))
                found.remove = action->menu()->actions().value(0);
        }
        return found;
    }

    /// A stack in a frame, and in its first page a frame with a button.
    QString NestedForm()
    {
        const char *begin = R"(<ui version="4.0"><class>Form</class><widget class="QWidget" name="Form"><property name="geometry"><rect>)"
                            R"(<x>0</x><y>0</y><width>700</width><height>500</height></rect></property>)"
                            R"(<widget class="Velmora::QcFrame" name="frame"><property name="geometry"><rect><x>10</x><y>10</y>)"
                            R"(<width>300</width><height>200</height></rect></property>)"
                            R"(<widget class="Velmora::QcStackedWidget" name="stack"><property name="geometry"><rect><x>10</x><y>10</y>)"
                            R"(<width>280</width><height>180</height></rect></property>)"
                            R"(<widget class="QWidget" name="page"><widget class="Velmora::QcFrame" name="inner">)"
                            R"(<property name="geometry"><rect><x>5</x><y>5</y><width>200</width><height>100</height></rect></property>)"
                            R"(<widget class="Velmora::QcPrimaryButton" name="button"/></widget></widget>)"
                            R"(<widget class="QWidget" name="page_2"/></widget></widget></widget>)";
        const QString dropped = DomXmlOf("Velmora::QcStackedWidget");
        return begin + dropped.mid(dropped.indexOf("<customwidgets>"));
    }

    static QList<QAction *> TableActions() { return designer->top.menuBar()->actions().at(1)->menu()->actions(); }

    static void Write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    /// By the dialog that \a action opens, which is cancelled for an empty \a path. What is told then is for \a then.
    void ChooseFile(QAction *action, const QString &path, const std::function<void()> &then = nullptr)
    {
        Choose(action, [&](QDialog *dialog) {
            auto *files = qobject_cast<QFileDialog *>(dialog);
            QVERIFY(files);
            if (then)
                QTimer::singleShot(0, dialog->parent(), then);
            files->selectFile(path);
            dialog->done(path.isEmpty() ? QDialog::Rejected : QDialog::Accepted);
        });
        DrainEvents();
    }

    void SetUp() override { QCursor::setPos(1900, 1900); } // no hover

    void TearDown() override
    {
        m_form.reset();
        UseTable(Table::Light);
        DrainEvents();
    }

    std::unique_ptr<QDesignerFormWindowInterface> m_form;

private Q_SLOTS:
    void the_widget_box_has_the_groups_of_the_kit()
    {
        QDesignerWidgetBoxInterface *box = designer->core->widgetBox();
        QMap<QString, int> groups;
        for (int i = 0; i < box->categoryCount(); ++i) {
            if (box->category(i).name().startsWith("Velmora"))
                groups.insert(box->category(i).name(), box->widgetCount(i));
        }
        const QMap<QString, int> expected = {
            {"Velmora Buttons", 17}, {"Velmora Inputs", 7}, {"Velmora Display", 2}, {"Velmora Containers", 5}};
        QCOMPARE(groups, expected);
    }

    void a_form_names_class_base_and_header_of_what_it_holds()
    {
        const QString saved = OpenForm("Velmora::QcPrimaryButton")->contents();
        QVERIFY(The<QcPrimaryButton>());
        QVERIFY2(saved.contains("<class>Velmora::QcPrimaryButton</class>"), qPrintable(saved));
        QVERIFY(saved.contains("<extends>QPushButton</extends>"));
        QVERIFY(saved.contains("<header location=\"global\">Velmora/QcPrimaryButton.h</header>"));
    }

    void controls_are_painted_on_forms_in_the_colours_of_the_table()
    {
        OpenForm("Velmora::QcPrimaryButton");
        const auto *button = The<QcPrimaryButton>();
        const QImage picture = Render(*m_form);
        const QPoint corner = button->mapTo(m_form.get(), QPoint(8, 4));
        COMPARE_COLOR(PixelAt(picture, corner), TokenOf(Table::Light, "brand/brand"));
    }

    void the_program_designer_keeps_its_own_look()
    {
        OpenForm("Velmora::QcPrimaryButton");
        QVERIFY(qApp->styleSheet().isEmpty());
        QCOMPARE(designer->top.palette(), QApplication::palette());
    }

    // --- Pages ---

    void a_stack_shows_the_page_that_was_added_last()
    {
        OpenForm("Velmora::QcStackedWidget");
        auto *stack = The<QcStackedWidget>();
        QDesignerContainerExtension *pages = PagesOf(stack);
        QVERIFY(pages);
        QCOMPARE(pages->count(), 2);

        QWidget *first = pages->widget(0);
        auto *inserted = new QWidget;
        pages->insertWidget(0, inserted);
        QCOMPARE(pages->widget(0), inserted);
        QCOMPARE(pages->currentIndex(), 0);
        QVERIFY(inserted->isVisible());
        QVERIFY(!first->isVisible());

        auto *added = new QWidget;
        pages->addWidget(added);
        QCOMPARE(pages->currentIndex(), 3);
        QVERIFY(added->isVisible());
        pages->setCurrentIndex(1);
        QVERIFY(first->isVisible());
    }

    void a_page_that_is_removed_gives_way_to_the_next_one()
    {
        OpenForm("Velmora::QcStackedWidget");
        QDesignerContainerExtension *pages = PagesOf(The<QcStackedWidget>());
        const std::unique_ptr<QWidget> removed(pages->widget(0));
        QWidget *second = pages->widget(1);
        QVERIFY(pages->canRemove(0));
        pages->setCurrentIndex(0);
        pages->remove(0);
        QCOMPARE(pages->count(), 1);
        QVERIFY(!removed->isVisible());
        QVERIFY(second->isVisible());
        QVERIFY(!pages->canRemove(0));
        pages->remove(7); // there is none
        QCOMPARE(pages->count(), 1);
    }

    void the_context_menu_of_a_stack_inserts_and_deletes_pages()
    {
        OpenForm("Velmora::QcStackedWidget");
        auto *stack = The<QcStackedWidget>();
        const PageActions actions = PageActionsOf(stack);
        QVERIFY(actions.insert && actions.remove);
        actions.insert->trigger();
        QCOMPARE(stack->count(), 3);
        actions.remove->trigger();
        QCOMPARE(stack->count(), 2);
        m_form->commandHistory()->undo();
        QCOMPARE(stack->count(), 3);
        m_form->commandHistory()->undo();
        QCOMPARE(stack->count(), 2);
    }

    void a_deleted_page_comes_back_with_all_that_lies_on_it()
    {
        OpenContents(NestedForm());
        auto *stack = The<QcStackedWidget>();
        const QPointer<QWidget> button = The<QcPrimaryButton>();
        const PageActions actions = PageActionsOf(stack);
        QVERIFY(actions.remove);
        actions.remove->trigger();
        QCOMPARE(stack->count(), 1);
        QVERIFY(!m_form->contents().contains("QcPrimaryButton\" name"));
        for (int i = 0; i < 3; ++i) {
            m_form->commandHistory()->undo();
            DrainEvents();
            QCOMPARE(stack->count(), 2);
            QVERIFY(button && stack->widget(0)->isAncestorOf(button) && button->isVisible());
            m_form->commandHistory()->redo();
            DrainEvents();
            QCOMPARE(stack->count(), 1);
            QVERIFY(!stack->isAncestorOf(button));
        }
        m_form->commandHistory()->undo();
        const QString saved = m_form->contents();
        OpenContents(saved);
        QVERIFY(The<QcStackedWidget>()->widget(0)->findChild<QcPrimaryButton *>());
    }

    void containers_in_containers_are_copied_with_all_that_lies_in_them()
    {
        OpenContents(NestedForm());
        m_form->clearSelection();
        m_form->selectWidget(The<QcFrame>());
        DrainEvents();
        QVERIFY(Manager()->action(QDesignerFormWindowManagerInterface::CopyAction)->isEnabled());
        Manager()->action(QDesignerFormWindowManagerInterface::CopyAction)->trigger();
        Manager()->action(QDesignerFormWindowManagerInterface::PasteAction)->trigger();
        DrainEvents();
        const auto buttons = m_form->mainContainer()->findChildren<QcPrimaryButton *>();
        QCOMPARE(buttons.size(), 2);
        QVERIFY(buttons.at(0)->objectName() != buttons.at(1)->objectName());
        const QString saved = m_form->contents();
        m_form->commandHistory()->undo();
        DrainEvents();
        QCOMPARE(m_form->contents().count("class=\"Velmora::QcPrimaryButton\""), 1);
        m_form->commandHistory()->redo();
        DrainEvents();
        QCOMPARE(m_form->contents(), saved);

        OpenContents(saved);
        const auto stacks = m_form->mainContainer()->findChildren<QcStackedWidget *>();
        QCOMPARE(stacks.size(), 2);
        for (const QcStackedWidget *stack : stacks) {
            QCOMPARE(stack->count(), 2);
            QVERIFY(stack->widget(0)->findChild<QcPrimaryButton *>());
            QVERIFY(qobject_cast<QcFrame *>(stack->parentWidget()));
        }
    }

    void a_form_keeps_the_pages_of_a_stack()
    {
        OpenForm("Velmora::QcStackedWidget");
        const QString saved = m_form->contents();
        QVERIFY(saved.contains("<addpagemethod>addWidget</addpagemethod>"));
        OpenContents(saved);
        QCOMPARE(The<QcStackedWidget>()->count(), 2);
    }

    void windows_and_dialogs_are_forms_with_a_content_data()
    {
        QTest::addColumn<QString>("className");
        QTest::newRow("window") << "Velmora::QcWindow";
        QTest::newRow("dialog") << "Velmora::QcDialog";
    }

    void windows_and_dialogs_are_forms_with_a_content()
    {
        QFETCH(QString, className);
        OpenForm(className);
        QWidget *window = m_form->mainContainer();
        QCOMPARE(QString(window->metaObject()->className()), className);
        QVERIFY(!window->isWindow()); // but a part of Designer's
        QDesignerContainerExtension *pages = PagesOf(window);
        QVERIFY(pages);
        QCOMPARE(pages->count(), 1);
        QCOMPARE(pages->widget(0)->objectName(), QStringLiteral("content"));
        QVERIFY(!pages->canAddWidget());
        QVERIFY(!pages->canRemove(0));
        const PageActions actions = PageActionsOf(window);
        QVERIFY(actions.insert && !actions.insert->isEnabled());
        QVERIFY(actions.remove && !actions.remove->isEnabled());
        const QString saved = m_form->contents();
        QVERIFY2(saved.contains("<addpagemethod>setContentWidget</addpagemethod>"), qPrintable(saved));
        QVERIFY(saved.contains("name=\"content\""));
        QVERIFY(!saved.contains("m_contentFrame"));
    }

    // --- Properties ---

    void each_property_of_the_kit_can_be_edited_undone_and_saved_data()
    {
        QTest::addColumn<QString>("className");
        const QStringList names = ClassNames();
        for (const QString &name : names)
            QTest::newRow(qPrintable(name)) << name;
    }

    void each_property_of_the_kit_can_be_edited_undone_and_saved()
    {
        QFETCH(QString, className);
        OpenForm(className);
        QWidget *control = InstanceOf(className);
        QVERIFY(control);
        const auto *sheet = qt_extension<QDesignerPropertySheetExtension *>(designer->core->extensionManager(), control);
        const QVector<QMetaProperty> properties = PropertiesOf(*control);
        const QStringList before = ValuesOf(*control);
        for (const QMetaProperty &property : properties) {
            const QString name = property.name();
            QVERIFY2(sheet->isVisible(sheet->indexOf(name)), property.name());
            const QVariant changed = Changed(property, *control);
            m_form->cursor()->setWidgetProperty(control, name, changed);
            QVERIFY2(ValueOf(property, *control) == TextOf(changed), property.name());
        }
        const QString saved = m_form->contents();
        const QStringList values = ValuesOf(*control);
        for (int i = 0; i < properties.size(); ++i)
            m_form->commandHistory()->undo();
        QCOMPARE(ValuesOf(*control), before);

        OpenContents(saved);
        QCOMPARE(ValuesOf(*InstanceOf(className)), values);
        for (const QMetaProperty &property : properties) {
            // By a setter of the class only if it is called as uic thinks.
            const char *way = property.hasStdCppSet() ? "" : " stdset=\"0\"";
            const QString written = QStringLiteral("<property name=\"%1\"%2>").arg(property.name(), way);
            QVERIFY2(saved.contains(written), qPrintable(written));
        }
    }

    // --- Colours ---

    void a_chosen_colour_becomes_the_property_and_can_be_undone()
    {
        OpenForm("Velmora::QcFrame");
        auto *frame = The<QcFrame>();
        QAction *action = ActionFor(frame, "backgroundColorParams");
        QVERIFY(action);
        Choose(action, [](QDialog *dialog) {
            auto *tokens = dialog->findChild<QListWidget *>("tokens");
            QCOMPARE(tokens->currentItem()->text(), QStringLiteral("bg/bg_secondary")); // the present one
            tokens->setCurrentItem(tokens->findItems("brand/brand", Qt::MatchExactly).value(0));
            dialog->accept();
        });
        QCOMPARE(frame->property("backgroundColorParams").toString(), QStringLiteral("brand/brand"));
        const QString saved = m_form->contents();
        QVERIFY2(saved.contains("<string notr=\"true\">brand/brand</string>"), qPrintable(saved));
        QVERIFY(m_form->isDirty());

        m_form->commandHistory()->undo();
        QCOMPARE(frame->property("backgroundColorParams").toString(), QStringLiteral("bg/bg_secondary"));
        QVERIFY(!m_form->contents().contains("brand/brand<"));
        m_form->commandHistory()->redo();
        QCOMPARE(frame->property("backgroundColorParams").toString(), QStringLiteral("brand/brand"));
    }

    void a_colour_that_is_chosen_for_the_first_time_is_no_text_for_translators()
    {
        OpenForm("Velmora::QcLabel"); // has no colour of its icon yet
        const int forms = designer->core->formWindowManager()->formWindowCount();
        Choose(ActionFor(The<QcLabel>(), "iconColorParams"), [](QDialog *dialog) {
            dialog->findChild<QLineEdit *>("code")->setText("${brand/brand, 0.5} <&>");
            dialog->accept();
        });
        const QString saved = m_form->contents();
        QVERIFY2(saved.contains("<string notr=\"true\">${brand/brand, 0.5} &lt;&amp;&gt;</string>"), qPrintable(saved));
        QCOMPARE(designer->core->formWindowManager()->formWindowCount(), forms);
        QCOMPARE(designer->core->formWindowManager()->activeFormWindow(), m_form.get());

        m_form->commandHistory()->undo();
        QVERIFY(!m_form->contents().contains("iconColorParams"));
    }

    void each_property_of_a_control_that_is_a_colour_can_be_chosen_data()
    {
        QTest::addColumn<QString>("className");
        QTest::addColumn<QStringList>("properties");
        QTest::newRow("frame") << "Velmora::QcFrame" << QStringList{"backgroundColorParams", "borderColorParams"};
        QTest::newRow("label") << "Velmora::QcLabel" << QStringList{"iconColorParams"};
        QTest::newRow("button, disabled too") << "Velmora::QcToolColorButton" << QStringList{"iconColorParams", "iconDisableColorParams"};
    }

    void each_property_of_a_control_that_is_a_colour_can_be_chosen()
    {
        QFETCH(QString, className);
        QFETCH(QStringList, properties);
        OpenForm(className);
        QWidget *control = nullptr;
        const auto widgets = m_form->mainContainer()->findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            if (widget->metaObject()->className() == className)
                control = widget;
        }
        QVERIFY(control);
        for (const QString &property : properties) {
            QAction *action = ActionFor(control, property);
            QVERIFY2(action, qPrintable(property));
            Choose(action, [](QDialog *dialog) {
                dialog->findChild<QLineEdit *>("code")->setText("brand/brand_hover");
                dialog->accept();
            });
            QCOMPARE(control->property(property.toLatin1()).toString(), QStringLiteral("brand/brand_hover"));
        }
        const QString saved = m_form->contents();
        QCOMPARE(saved.count("<string notr=\"true\">brand/brand_hover</string>"), properties.size());
    }

    void the_colour_of_a_buttons_state_becomes_a_property_of_the_form_and_can_be_undone()
    {
        OpenForm("Velmora::QcPrimaryButton");
        auto *button = The<QcPrimaryButton>();
        const auto ground = [&] { return PixelAt(Render(*m_form), button->mapTo(m_form.get(), QPoint(8, 4))); };
        designer->core->propertyEditor()->setObject(button);
        QAction *states = ActionFor(button, "Farben der Zust");
        QVERIFY(states && states->menu());
        const QList<QAction *> actions = states->menu()->actions();
        QCOMPARE(std::count_if(actions.cbegin(), actions.cend(), [](const QAction *entry) { return !entry->isSeparator(); }), 24);
        const auto normal = [](const QAction *action) { return action->text().startsWith("normalBackgroundColorParams"); };
        QAction *action = *std::find_if(actions.cbegin(), actions.cend(), normal);
        const auto choose = [&](const QString &code) {
            Choose(action, [&](QDialog *dialog) {
                dialog->findChild<QLineEdit *>("code")->setText(code);
                dialog->accept();
            });
            DrainEvents();
        };
        choose("base/red/red-60");
        COMPARE_COLOR(ground(), TokenOf(Table::Light, "base/red/red-60"));
        const QString saved = m_form->contents();
        const QRegularExpression written("<property name=\"normalBackgroundColorParams\" stdset=\"0\">\\s*"
                                         "<string notr=\"true\">base/red/red-60</string>");
        QVERIFY2(written.match(saved).hasMatch(), qPrintable(saved));

        choose("brand/brand_press");
        COMPARE_COLOR(ground(), TokenOf(Table::Light, "brand/brand_press"));
        m_form->commandHistory()->undo();
        DrainEvents();
        COMPARE_COLOR(ground(), TokenOf(Table::Light, "base/red/red-60"));
        m_form->commandHistory()->undo();
        DrainEvents();
        COMPARE_COLOR(ground(), TokenOf(Table::Light, "brand/brand"));
        QVERIFY(!m_form->contents().contains("normalBackgroundColorParams"));
        QVERIFY(!m_form->commandHistory()->canUndo());
        m_form->commandHistory()->redo();
        DrainEvents();
        COMPARE_COLOR(ground(), TokenOf(Table::Light, "base/red/red-60"));
        QVERIFY(written.match(m_form->contents()).hasMatch());

        m_form->clearSelection();
        m_form->selectWidget(button);
        DrainEvents();
        Manager()->action(QDesignerFormWindowManagerInterface::CopyAction)->trigger();
        Manager()->action(QDesignerFormWindowManagerInterface::PasteAction)->trigger();
        DrainEvents();
        QCOMPARE(m_form->contents().count(written), 2);
        m_form->commandHistory()->undo();
        DrainEvents();

        m_form->commandHistory()->undo();
        choose("brand/brand_press");
        COMPARE_COLOR(ground(), TokenOf(Table::Light, "brand/brand_press"));
        QVERIFY(m_form->contents().contains("<string notr=\"true\">brand/brand_press</string>"));

        OpenContents(saved); // as another day
        button = The<QcPrimaryButton>();
        COMPARE_COLOR(ground(), TokenOf(Table::Light, "base/red/red-60"));
    }

    void a_chooser_that_is_cancelled_changes_nothing()
    {
        OpenForm("Velmora::QcFrame");
        Choose(ActionFor(The<QcFrame>(), "borderColorParams"), [](QDialog *dialog) {
            dialog->findChild<QLineEdit *>("code")->setText("#123456");
            dialog->reject();
        });
        QCOMPARE(The<QcFrame>()->property("borderColorParams").toString(), QStringLiteral("border/border_tertairy"));
        QVERIFY(!m_form->commandHistory()->canUndo());
    }

    void a_choice_that_is_the_present_one_changes_nothing()
    {
        OpenForm("Velmora::QcPrimaryButton");
        const auto accept = [](QDialog *dialog) { dialog->accept(); };
        Choose(ActionFor(The<QcPrimaryButton>(), "Farben der Zust")->menu()->actions().constLast(), accept);
        QVERIFY(!m_form->commandHistory()->canUndo());
        QVERIFY(!m_form->contents().contains("checkedDisabledTextColorParams"));
        OpenForm("Velmora::QcFrame");
        Choose(ActionFor(The<QcFrame>(), "borderColorParams"), accept);
        QVERIFY(!m_form->isDirty());
    }

    void a_chooser_may_be_open_while_its_form_or_its_control_goes_data()
    {
        QTest::addColumn<bool>("isForm");
        QTest::newRow("form") << true;
        QTest::newRow("control") << false;
    }

    void a_chooser_may_be_open_while_its_form_or_its_control_goes()
    {
        QFETCH(bool, isForm);
        OpenForm("Velmora::QcFrame");
        QAction *action = ActionFor(The<QcFrame>(), "borderColorParams");
        bool hasGone = false;
        QTimer::singleShot(0, this, [&] {
            const QPointer<QWidget> dialog = QApplication::activeModalWidget();
            QVERIFY(dialog);
            if (isForm)
                m_form.reset();
            else
                delete The<QcFrame>();
            hasGone = true;
            if (dialog)
                qobject_cast<QDialog *>(dialog)->accept();
        });
        action->trigger();
        QVERIFY(hasGone);
        QVERIFY(!QApplication::activeModalWidget());
    }

    void codes_that_nothing_knows_open_and_are_saved_as_they_are_data()
    {
        QTest::addColumn<QString>("code");
        for (const char *code :
             {"no/such_token", "${no/such_token, 0.5}", "${brand/brand, much}", "a,b,c,", "#12", "", "${", "\xE2\x82\xAC"})
            QTest::newRow(code) << QString::fromUtf8(code);
    }

    void codes_that_nothing_knows_open_and_are_saved_as_they_are()
    {
        QFETCH(QString, code);
        QString form = NestedForm();
        form.replace("name=\"inner\">",
                     "name=\"inner\"><property name=\"backgroundColorParams\"><string notr=\"true\">" + code + "</string></property>");
        form.replace("name=\"button\"/>",
                     "name=\"button\"><property name=\"hoverTextColorParams\" stdset=\"0\"><string notr=\"true\">" + code
                         + "</string></property></widget>");
        OpenContents(form);
        auto *inner = m_form->mainContainer()->findChild<QcFrame *>("inner");
        QCOMPARE(inner->property("backgroundColorParams").toString(), code);
        QVERIFY(!Render(*m_form).isNull());
        QVERIFY(m_form->contents().count("<string notr=\"true\">" + code + "</string>") >= 2 || code.isEmpty());
        Choose(ActionFor(inner, "backgroundColorParams"), [&](QDialog *dialog) {
            QCOMPARE(dialog->findChild<QLineEdit *>("code")->text(), code);
            dialog->accept();
        });
        QVERIFY(!m_form->isDirty());
    }

    void a_code_that_is_no_token_can_be_typed()
    {
        OpenForm("Velmora::QcFrame");
        Choose(ActionFor(The<QcFrame>(), "borderColorParams"), [](QDialog *dialog) {
            dialog->findChild<QLineEdit *>("code")->setText("${brand/brand, 0.5}");
            dialog->accept();
        });
        QCOMPARE(The<QcFrame>()->property("borderColorParams").toString(), QStringLiteral("${brand/brand, 0.5}"));
    }

    void the_chooser_shows_every_token_in_its_colour()
    {
        OpenForm("Velmora::QcFrame");
        Choose(ActionFor(The<QcFrame>(), "borderColorParams"), [](QDialog *dialog) {
            auto *tokens = dialog->findChild<QListWidget *>("tokens");
            QStringList codes;
            for (int row = 0; row < tokens->count(); ++row)
                codes.append(tokens->item(row)->text());
            QCOMPARE(codes, TokensOf(Table::Light));
            const QListWidgetItem *item = tokens->findItems("base/red/red-60", Qt::MatchExactly).value(0);
            for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) {
                const QImage swatch = item->icon().pixmap(20, mode).toImage();
                COMPARE_COLOR(swatch.pixelColor(10, 5), TokenOf(Table::Light, "base/red/red-60"));
            }
            QVERIFY(!item->toolTip().isEmpty());

            dialog->findChild<QLineEdit *>("search")->setText("RED-60");
            QVERIFY(!item->isHidden());
            QVERIFY(tokens->findItems("brand/brand", Qt::MatchExactly).value(0)->isHidden());
            dialog->reject();
        });
    }

    void a_token_is_found_and_chosen_by_the_keyboard_alone()
    {
        OpenForm("Velmora::QcFrame");
        Choose(ActionFor(The<QcFrame>(), "borderColorParams"), [](QDialog *dialog) {
            dialog->activateWindow();
            auto *search = dialog->findChild<QLineEdit *>("search");
            QTRY_VERIFY(search->hasFocus());
            QTest::keyClicks(search, "red-60");
            QTest::keyClick(search, Qt::Key_Down);
            QVERIFY(dialog->findChild<QListWidget *>("tokens")->hasFocus());
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
            QVERIFY(!dialog->isVisible());
        });
        QCOMPARE(The<QcFrame>()->property("borderColorParams").toString(), QStringLiteral("base/red/red-60"));
    }

    void the_plugin_speaks_the_language_of_designer_and_leaves_forms_alone()
    {
        if (!QFile::exists(TranslationsFolder() + "/velmora_de.qm"))
            QSKIP("built without translations");
        QStringList tables;
        const auto actions = TableActions();
        for (const QAction *action : actions)
            tables.append(action->text());
        const QStringList expected = {"&Hell", "&Dunkel", "Hoher Kontrast, h&ell", "Hoher Kontrast, d&unkel", "", "Andere D&atei..."};
        QCOMPARE(tables, expected);
        OpenForm("Velmora::QcFrame");
        QAction *action = ActionFor(The<QcFrame>(), "borderColorParams");
        QCOMPARE(action->text(), QString::fromUtf8("borderColorParams wählen..."));
        Choose(action, [](QDialog *dialog) {
            QCOMPARE(dialog->findChild<QLineEdit *>("search")->placeholderText(), QStringLiteral("Suchen"));
            dialog->reject();
        });
        QCOMPARE(QCoreApplication::translate("QcDialog", "Minimize"), QStringLiteral("Minimize"));
    }

    // --- The table ---

    void the_menu_stands_before_help_and_chooses_the_table_of_forms()
    {
        const QList<QAction *> menus = designer->top.menuBar()->actions();
        QCOMPARE(menus.size(), 3);
        QCOMPARE(menus.at(1)->text(), QStringLiteral("Vel&mora"));
        const QList<QAction *> tables = TableActions().mid(0, 4);
        QVERIFY(tables.at(0)->isChecked());

        OpenForm("Velmora::QcPrimaryButton");
        const QPoint corner = The<QcPrimaryButton>()->mapTo(m_form.get(), QPoint(8, 4));
        const QPoint ground = m_form->mainContainer()->mapTo(m_form.get(), QPoint(503, 403)); // between two dots of the grid
        tables.at(1)->trigger();
        DrainEvents();
        QVERIFY(tables.at(1)->isChecked());
        QVERIFY(!tables.at(0)->isChecked());
        const QImage picture = Render(*m_form);
        COMPARE_COLOR(PixelAt(picture, corner), TokenOf(Table::Dark, "brand/brand"));
        COMPARE_COLOR(PixelAt(picture, ground), TokenOf(Table::Dark, "bg/bg_box"));
        for (QAction *table : tables) {
            table->trigger();
            QVERIFY(QcStyleManager::GetInstance()->GetColor("brand/brand").isValid());
        }
        tables.at(0)->trigger();
        COMPARE_COLOR(QcStyleManager::GetInstance()->GetColor("brand/brand"), TokenOf(Table::Light, "brand/brand"));
    }

    void plain_widgets_of_a_form_are_on_the_ground_of_the_table_enabled_or_not()
    {
        OpenContents(R"(<ui version="4.0"><class>Form</class><widget class="QWidget" name="Form"><property name="geometry"><rect><x>0</x>)"
                     R"(<y>0</y><width>400</width><height>200</height></rect></property><widget class="QPushButton" name="button">)"
                     R"(<property name="enabled"><bool>false</bool></property></widget><widget class="QLineEdit" name="edit">)"
                     R"(<property name="geometry"><rect><x>0</x><y>50</y><width>90</width><height>30</height></rect></property>)"
                     R"(<property name="placeholderText"><string>MMMMM</string></property></widget></widget></ui>)");
        TableActions().at(1)->trigger();
        DrainEvents();
        const QImage button = Render(*m_form->mainContainer()->findChild<QWidget *>("button"));
        QVERIFY(button.pixelColor(button.rect().center()).lightness() < 80);
        auto *edit = m_form->mainContainer()->findChild<QLineEdit *>("edit");
        QVERIFY(InkBox(Render(*edit).copy(edit->rect().adjusted(4, 4, -4, -4)), TokenOf(Table::Dark, "bg/bg_float")).width() > 20);
        QCOMPARE(edit->palette().color(QPalette::PlaceholderText), TokenOf(Table::Dark, "text/text_secondary"));
        TableActions().at(0)->trigger();
    }

    void a_table_of_ones_own_is_shown_and_its_tokens_are_offered()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("own.ini");
        Write(path, "; mine\nbrand/brand = #123456 ; the first\nmine/one = #abcdef, 0.5\nnone\nbrand/brand = \"#654321\" ; the last\n");
        OpenForm("Velmora::QcPrimaryButton");
        const QPoint corner = The<QcPrimaryButton>()->mapTo(m_form.get(), QPoint(8, 4));
        QAction *own = TableActions().constLast();
        ChooseFile(own, path);
        COMPARE_COLOR(PixelAt(Render(*m_form), corner), QColor("#654321"));
        QVERIFY(own->isChecked());

        Write(path, "brand/brand = #00ff00\n");
        ChooseFile(own, path); // once more
        COMPARE_COLOR(PixelAt(Render(*m_form), corner), QColor("#00ff00"));
        Write(path, "brand/brand = #654321 ; the last\nmine/one = #abcdef, 0.5\n");
        ChooseFile(own, path);
        QVERIFY(QFile::remove(path));

        OpenForm("Velmora::QcFrame");
        Choose(ActionFor(The<QcFrame>(), "borderColorParams"), [](QDialog *dialog) {
            const auto *tokens = dialog->findChild<QListWidget *>("tokens");
            QCOMPARE(tokens->count(), 2);
            QCOMPARE(tokens->item(0)->text(), QStringLiteral("brand/brand"));
            QCOMPARE(tokens->item(0)->toolTip(), QStringLiteral("the last"));
            COMPARE_COLOR(tokens->item(0)->icon().pixmap(20).toImage().pixelColor(10, 5), QColor("#654321"));
            QCOMPARE(tokens->item(1)->text(), QStringLiteral("mine/one"));
            dialog->reject();
        });
        TableActions().constFirst()->trigger();
        QVERIFY(!own->isChecked());
        COMPARE_COLOR(QcStyleManager::GetInstance()->GetColor("brand/brand"), TokenOf(Table::Light, "brand/brand"));
    }

    void a_file_without_colours_leaves_the_table_as_it_is_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("damaged") << QByteArray("\x01=\xff\n=\n;=#fff\nbrand/brand = #12\nbrand/brand #123456\n[brand\n").prepend('\0');
    }

    void a_file_without_colours_leaves_the_table_as_it_is()
    {
        QFETCH(QByteArray, content);
        QTemporaryDir folder;
        const QString path = folder.filePath("damaged.ini");
        Write(path, content);
        const QList<QAction *> tables = TableActions();
        tables.at(1)->trigger();
        QString told;
        ChooseFile(tables.constLast(), path, [&] {
            auto *message = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(message);
            told = message->text();
            message->accept();
        });
        QVERIFY2(told.contains(path), qPrintable(told));
        QVERIFY(tables.at(1)->isChecked() && !tables.constLast()->isChecked());
        COMPARE_COLOR(QcStyleManager::GetInstance()->GetColor("brand/brand"), TokenOf(Table::Dark, "brand/brand"));
        ChooseFile(tables.constLast(), QString()); // cancelled
        QVERIFY(tables.at(1)->isChecked());
        tables.at(0)->trigger();
    }

    void a_form_looks_the_same_opened_before_and_after_its_table_was_chosen()
    {
        QFile file(FORMS "/every_control.ui");
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString form = QString::fromUtf8(file.readAll());
        OpenContents(form);
        UseTable(Table::Dark);
        DrainEvents();
        const QImage before = Render(*m_form->mainContainer());
        OpenContents(form);
        const QImage after = Render(*m_form->mainContainer());
        QCOMPARE(before, after);
    }
};

int main(int argc, char **argv)
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale::German);
    LogGuard quiet;          // the start-up facts have a test of their own
    designer = new Designer; // to the end of the process: its parts know each other in no order
    DrainEvents();
    quiet.TakeFaults();
    tst_InDesigner test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_InDesigner.moc"
