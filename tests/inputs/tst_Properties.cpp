#include "support/TestMain.h"

#include <Velmora/Velmora.h>

#include <QDataWidgetMapper>
#include <QMetaProperty>
#include <QRegularExpressionValidator>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTextEdit>
#include <QVBoxLayout>
#include <QWizard>

using namespace Velmora;
using namespace VelmoraTest;

using Maker = QWidget *(*)(QWidget *parent);
Q_DECLARE_METATYPE(Maker)

namespace {

template <typename Widget>
QWidget *Make(QWidget *parent)
{
    return new Widget(parent);
}

/// The properties that classes of the kit declare, not those of Qt below.
QVector<QMetaProperty> OwnProperties(const QMetaObject &type)
{
    QVector<QMetaProperty> properties;
    for (int i = 0; i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        // A name that is declared twice is that of the lowest class.
        if (QByteArray(property.enclosingMetaObject()->className()).startsWith("Velmora::") && type.indexOfProperty(property.name()) == i)
            properties.append(property);
    }
    return properties;
}

/// A value of its type that the property does not have.
QVariant AnotherValue(const QMetaProperty &property, const QVariant &value)
{
    const QByteArray name = property.name();
    if (property.isEnumType()) {
        const QMetaEnum values = property.enumerator();
        return values.value(values.value(0) == value.toInt() ? 1 : 0);
    }
    if (name.endsWith("Path"))
        return QStringLiteral(":/images/close.svg");
    if (name.endsWith("Params"))
        return QStringLiteral("brand/brand_hover");
    switch (property.userType()) {
    case QMetaType::QString:
        return QString(value.toString() + QStringLiteral("x < y"));
    case QMetaType::Int:
        return value.toInt() + 40;
    case QMetaType::Double:
        return value.toDouble() + 40.5;
    case QMetaType::Bool:
        return !value.toBool();
    default:
        return {};
    }
}

QString Typed(QWidget *frame)
{
    if (auto *line = qobject_cast<QcLineEditFrame *>(frame))
        return line->getText();
    return frame->findChild<QTextEdit *>()->toPlainText();
}

class tst_Properties : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_is_written_is_read_back_and_told_once_data();
    void what_is_written_is_read_back_and_told_once();
    void an_input_has_one_value_for_its_user_data();
    void an_input_has_one_value_for_its_user();
    void a_mapper_shows_a_row_and_takes_what_is_typed_data();
    void a_mapper_shows_a_row_and_takes_what_is_typed();
    void a_mapper_keeps_what_looks_like_html_data();
    void a_mapper_keeps_what_looks_like_html();
    void a_wizard_waits_for_a_mandatory_field_data();
    void a_wizard_waits_for_a_mandatory_field();
    void a_delegate_edits_by_the_user_property_data();
    void a_delegate_edits_by_the_user_property();
    void a_limiter_tells_of_its_text_once_cut();
    void a_property_does_what_the_call_does();
    void properties_of_a_field_limit_its_numbers();
    void properties_of_a_dialog_show_its_parts();
};

void tst_Properties::what_is_written_is_read_back_and_told_once_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<int>("count");
    QTest::newRow("QcFrame") << Maker(&Make<QcFrame>) << 4;
    QTest::newRow("QcLabel") << Maker(&Make<QcLabel>) << 4;
    QTest::newRow("QcMultiLineText") << Maker(&Make<QcMultiLineText>) << 8;
    QTest::newRow("QcArrowTip") << Maker(&Make<QcArrowTip>) << 4;
    QTest::newRow("QcButton") << Maker(&Make<QcButton>) << 4;
    QTest::newRow("QcPrimaryButton") << Maker(&Make<QcPrimaryButton>) << 4;
    QTest::newRow("QcMenuTextButton") << Maker(&Make<QcMenuTextButton>) << 3;
    QTest::newRow("QcToolButton") << Maker(&Make<QcToolButton>) << 2;
    QTest::newRow("QcToolColorButton") << Maker(&Make<QcToolColorButton>) << 4;
    QTest::newRow("QcCombinedToolButton") << Maker(&Make<QcCombinedToolButton>) << 2;
    QTest::newRow("QcMenuToolButton") << Maker(&Make<QcMenuToolButton>) << 3;
    QTest::newRow("QcLineEditFrame") << Maker(&Make<QcLineEditFrame>) << 9;
    QTest::newRow("QcTextEditFrame") << Maker(&Make<QcTextEditFrame>) << 4;
    QTest::newRow("QcTextEditLimiter") << Maker(&Make<QcTextEditLimiter>) << 4;
    QTest::newRow("QcDoubleSpinBox") << Maker(&Make<QcDoubleSpinBox>) << 1;
    QTest::newRow("QcSelector") << Maker(&Make<QcSelector>) << 1;
    QTest::newRow("QcWindow") << Maker(&Make<QcWindow>) << 8;
    QTest::newRow("QcDialog") << Maker(&Make<QcDialog>) << 12;
    QTest::newRow("QcDockWidget") << Maker(&Make<QcDockWidget>) << 1;
    QTest::newRow("QcScrollBar") << Maker([](QWidget *parent) -> QWidget * { return new QcScrollBar(Qt::Vertical, parent); }) << 1;
}

void tst_Properties::what_is_written_is_read_back_and_told_once()
{
    QFETCH(Maker, make);
    QFETCH(int, count);
    QWidget parent;
    QWidget *widget = make(&parent);
    int written = 0;
    for (const QMetaProperty &property : OwnProperties(*widget->metaObject())) {
        if (!property.isWritable())
            continue;
        const QVariant before = property.read(widget);
        QVERIFY2(before.isValid(), property.name());
        const QVariant value = AnotherValue(property, before);
        QVERIFY2(value.isValid() && value != before, property.name());
        std::unique_ptr<QSignalSpy> notified;
        if (property.hasNotifySignal())
            notified = std::make_unique<QSignalSpy>(widget, property.notifySignal());
        QVERIFY2(property.write(widget, value), property.name());
        const QVariant now = property.read(widget);
        if (property.isEnumType())
            QVERIFY2(now.toInt() == value.toInt(), property.name());
        else
            QVERIFY2(now == value, property.name());
        QVERIFY2(!notified || notified->size() == 1, property.name());
        ++written;
    }
    QCOMPARE(written, count);
}

void tst_Properties::an_input_has_one_value_for_its_user_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("QcLineEditFrame") << Maker(&Make<QcLineEditFrame>) << QByteArray("text");
    QTest::newRow("QcTextEditFrame") << Maker(&Make<QcTextEditFrame>) << QByteArray("plainText");
    QTest::newRow("QcTextEditLimiter") << Maker(&Make<QcTextEditLimiter>) << QByteArray("plainText");
    QTest::newRow("QcLineEdit") << Maker(&Make<QcLineEdit>) << QByteArray("text");
    QTest::newRow("QcSelector") << Maker(&Make<QcSelector>) << QByteArray("currentText");
    QTest::newRow("QcSpinBox") << Maker(&Make<QcSpinBox>) << QByteArray("value");
    QTest::newRow("QcDoubleSpinBox") << Maker(&Make<QcDoubleSpinBox>) << QByteArray("value");
    QTest::newRow("QCSlider") << Maker(&Make<QCSlider>) << QByteArray("value");
    QTest::newRow("QcCheckBox") << Maker(&Make<QcCheckBox>) << QByteArray("checked");
    QTest::newRow("QcRadioButton") << Maker(&Make<QcRadioButton>) << QByteArray("checked");
    QTest::newRow("QcSwitchButton") << Maker(&Make<QcSwitchButton>) << QByteArray("checked");
}

void tst_Properties::an_input_has_one_value_for_its_user()
{
    QFETCH(Maker, make);
    QFETCH(QByteArray, name);
    const std::unique_ptr<QWidget> widget(make(nullptr));
    const QMetaProperty property = widget->metaObject()->userProperty();
    QCOMPARE(QByteArray(property.name()), name);
    QVERIFY(property.isWritable() && property.hasNotifySignal());
}

void AddFramedInputs()
{
    QTest::addColumn<Maker>("make");
    QTest::newRow("QcLineEditFrame") << Maker(&Make<QcLineEditFrame>);
    QTest::newRow("QcTextEditFrame") << Maker(&Make<QcTextEditFrame>);
    QTest::newRow("QcTextEditLimiter") << Maker([](QWidget *parent) -> QWidget * {
        auto *limiter = new QcTextEditLimiter(parent);
        limiter->setMaxNum(100);
        return limiter;
    });
}

void tst_Properties::a_mapper_shows_a_row_and_takes_what_is_typed_data()
{
    AddFramedInputs();
}

void tst_Properties::a_mapper_shows_a_row_and_takes_what_is_typed()
{
    QFETCH(Maker, make);
    QStandardItemModel model(2, 1);
    model.setData(model.index(0, 0), QStringLiteral("Antwerp"));
    model.setData(model.index(1, 0), QStringLiteral("Gdynia"));
    QWidget form;
    QWidget *input = make(&form);
    form.show();
    QDataWidgetMapper mapper;
    mapper.setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
    mapper.setModel(&model);
    mapper.addMapping(input, 0);
    mapper.toFirst();
    QCOMPARE(Typed(input), QStringLiteral("Antwerp"));
    mapper.toNext();
    QCOMPARE(Typed(input), QStringLiteral("Gdynia"));

    QWidget *edit = input->focusProxy();
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, QStringLiteral("Hamburg"));
    QVERIFY(mapper.submit());
    QCOMPARE(model.index(1, 0).data().toString(), QStringLiteral("Hamburg"));
    QCOMPARE(model.index(0, 0).data().toString(), QStringLiteral("Antwerp"));
}

void tst_Properties::a_mapper_keeps_what_looks_like_html_data()
{
    AddFramedInputs();
}

void tst_Properties::a_mapper_keeps_what_looks_like_html()
{
    QFETCH(Maker, make);
    const QString text = QStringLiteral("<b>5 &lt; 6</b>");
    QStandardItemModel model(1, 1);
    model.setData(model.index(0, 0), text);
    QWidget form;
    QDataWidgetMapper mapper;
    mapper.setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
    mapper.setModel(&model);
    mapper.addMapping(make(&form), 0);
    mapper.toFirst();
    QVERIFY(mapper.submit());
    QCOMPARE(model.index(0, 0).data().toString(), text);
}

void tst_Properties::a_wizard_waits_for_a_mandatory_field_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("QcLineEditFrame") << Maker(&Make<QcLineEditFrame>) << QByteArray("Velmora::QcLineEditFrame");
    QTest::newRow("QcTextEditFrame") << Maker(&Make<QcTextEditFrame>) << QByteArray("Velmora::QcTextEditFrame");
}

void tst_Properties::a_wizard_waits_for_a_mandatory_field()
{
    QFETCH(Maker, make);
    QFETCH(QByteArray, type);
    class Page : public QWizardPage
    {
    public:
        explicit Page(QWidget *input)
        {
            auto *layout = new QVBoxLayout(this);
            layout->addWidget(input);
        }
        void Register(QWidget *input) { registerField(QStringLiteral("name*"), input); }
    };
    QWizard wizard;
    wizard.setDefaultProperty(type, "text", SIGNAL(signalTextChanged(QString)));
    QWidget *input = make(nullptr);
    auto *page = new Page(input);
    page->Register(input);
    wizard.addPage(page);
    wizard.addPage(new QWizardPage);
    wizard.show();
    QVERIFY(!wizard.button(QWizard::NextButton)->isEnabled());
    QTest::keyClicks(input->focusProxy(), QStringLiteral("Kate"));
    QVERIFY(wizard.button(QWizard::NextButton)->isEnabled());
    QCOMPARE(wizard.field(QStringLiteral("name")).toString(), QStringLiteral("Kate"));
    wizard.setField(QStringLiteral("name"), QString());
    QVERIFY(!wizard.button(QWizard::NextButton)->isEnabled());
}

void tst_Properties::a_delegate_edits_by_the_user_property_data()
{
    AddFramedInputs();
}

void tst_Properties::a_delegate_edits_by_the_user_property()
{
    QFETCH(Maker, make);
    QStandardItemModel model(1, 1);
    const QModelIndex cell = model.index(0, 0);
    model.setData(cell, QStringLiteral("Antwerp"));
    QWidget table;
    QWidget *editor = make(&table);
    const QStyledItemDelegate delegate;
    delegate.setEditorData(editor, cell);
    QCOMPARE(Typed(editor), QStringLiteral("Antwerp"));
    QTest::keyClicks(editor->focusProxy(), QStringLiteral("!"));
    delegate.setModelData(editor, &model, cell);
    QVERIFY(cell.data().toString().contains(QLatin1Char('!')));
    QCOMPARE(cell.data().toString().size(), 8);
}

void tst_Properties::a_limiter_tells_of_its_text_once_cut()
{
    QcTextEditLimiter limiter;
    limiter.setMaxNum(3);
    QSignalSpy told(&limiter, &QcTextEditLimiter::signalTextChanged);
    limiter.setText(QStringLiteral("abcdef"));
    QCOMPARE(told.size(), 1);
    QCOMPARE(told.first().first().toString(), QStringLiteral("abc"));
    QTest::keyClicks(limiter.textEdit(), QStringLiteral("x"));
    QCOMPARE(told.size(), 2);
    QCOMPARE(told.last().first().toString().size(), 3);
}

void tst_Properties::a_property_does_what_the_call_does()
{
    QcSelector byCall;
    byCall.setEditable(true);
    QcSelector byProperty;
    byProperty.setProperty("editable", true);
    QCOMPARE(byProperty.lineEdit()->textMargins(), byCall.lineEdit()->textMargins());

    QcLabel label;
    label.setProperty("type", QcLabel::Headline);
    QcLabel expected;
    expected.setType(QcLabel::Headline);
    for (QcLabel *one : {&label, &expected})
        one->setText(QStringLiteral("Port"));
    QCOMPARE(label.sizeHint(), expected.sizeHint());

    QcLineEditFrame field;
    field.setProperty("unit", QStringLiteral("kg"));
    QVERIFY(!field.findChild<QcLabel *>()->isHidden());
    QVERIFY(field.setProperty("warning", true));
    QVERIFY(field.getWarning());

    QcDoubleSpinBox plain;
    QcDoubleSpinBox themed;
    themed.setProperty("bordered", true);
    plain.bSetBorder(true);
    QCOMPARE(themed.styleSheet(), plain.styleSheet());
    QVERIFY(!plain.styleSheet().isEmpty());

    QcMultiLineText text;
    text.setText(QStringLiteral("Words"));
    const int wide = text.idealWidth();
    QVERIFY(text.setProperty("fontPixelSize", 7));
    QVERIFY(text.idealWidth() < wide);
}

void tst_Properties::properties_of_a_field_limit_its_numbers()
{
    QcLineEditFrame field;
    QVERIFY(!field.getLineEdit()->validator());
    field.setProperty("decimals", 2);
    field.setProperty("minimum", 0.25);
    field.setProperty("maximum", 120.5);
    const auto *doubles = qobject_cast<const QcDoubleValidator *>(field.getLineEdit()->validator());
    QVERIFY(doubles);
    QCOMPARE(doubles->bottom(), 0.25);
    QCOMPARE(doubles->top(), 120.5);
    QCOMPARE(doubles->decimals(), 2);

    field.setValidator(-3, 9, 0);
    QCOMPARE(field.property("minimum").toDouble(), -3.0);
    QCOMPARE(field.property("maximum").toDouble(), 9.0);
    QCOMPARE(field.property("decimals").toInt(), 0);
    QRegularExpressionValidator anything;
    field.setValidator(&anything);
    QCOMPARE(field.property("maximum").toDouble(), 0.0);
}

void tst_Properties::properties_of_a_dialog_show_its_parts()
{
    QcDialog dialog;
    for (const char *name : {"bottomFrameVisible", "minMaxButtonsVisible"}) {
        QVERIFY2(!dialog.property(name).toBool(), name);
        dialog.setProperty(name, true);
    }
    dialog.setProperty("cancelButtonVisible", false);
    dialog.show();
    QVERIFY(dialog.findChild<QPushButton *>(QStringLiteral("m_okButton"))->isVisible());
    QVERIFY(!dialog.findChild<QPushButton *>(QStringLiteral("m_cancelButton"))->isVisible());
    QVERIFY(dialog.findChild<QPushButton *>(QStringLiteral("m_maxButton"))->isVisible());
    dialog.setProperty("titleBarVisible", false);
    QVERIFY(!dialog.getTitleFrame()->isVisible());
}

} // namespace

VELMORA_TEST_MAIN(tst_Properties)

#include "tst_Properties.moc"
