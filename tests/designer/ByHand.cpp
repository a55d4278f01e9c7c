#include "ByHand.h"

#include <Velmora/Velmora.h>

#include <QVBoxLayout>

using namespace Velmora;

namespace VelmoraTest {

namespace {

template <typename Control>
Control *Place(Control *control, const char *name, const QRect &place)
{
    control->setObjectName(name);
    control->setGeometry(place);
    return control;
}

/// As setupUi() does of a window's content.
QWidget *MakeContent(QWidget *window)
{
    auto *content = new QWidget(window);
    content->setObjectName("content");
    auto *column = new QVBoxLayout(content);
    column->setObjectName("verticalLayout");
    auto *label = new QcLabel(content);
    label->setObjectName("label");
    label->setText("In its content");
    label->setType(QcLabel::Body);
    column->addWidget(label);
    return content;
}

void FillWithButtons(QWidget &form)
{
    auto *primaryButton = Place(new QcPrimaryButton(&form), "primaryButton", {10, 10, 120, 24});
    primaryButton->setText("Save");

    auto *secondaryButton = Place(new QcSecondaryButton(&form), "secondaryButton", {142, 10, 120, 24});
    secondaryButton->setText("Cancel");

    auto *tertiaryButton = Place(new QcTertiaryButton(&form), "tertiaryButton", {274, 10, 120, 32});
    tertiaryButton->setText("Open");
    tertiaryButton->SetIconPath(":/images/close.svg");
    tertiaryButton->SetBorderRadius(8);

    auto *ghostButton = Place(new QcGhostButton(&form), "ghostButton", {406, 10, 120, 24});
    ghostButton->setText("More");
    ghostButton->setHorizontalMargin(12);

    auto *highlightButton = Place(new QcHighlightButton(&form), "highlightButton", {538, 10, 120, 24});
    highlightButton->setEnabled(false);
    highlightButton->setText("Nothing");

    auto *textButton = Place(new QcTextButton(&form), "textButton", {670, 10, 120, 24});
    textButton->setText("Details");

    auto *textLinkButton = Place(new QcTextLinkButton(&form), "textLinkButton", {10, 54, 120, 24});
    textLinkButton->setText("Home page");

    auto *button = Place(new QcButton(&form), "button", {142, 54, 120, 24});
    button->setText("Plain");
    button->SetBackgroundColorParams(QStyle::State_Enabled, "brand/brand_disable");

    auto *iconButton = Place(new QcIconButton(&form), "iconButton", {274, 54, 24, 24});
    iconButton->setCheckable(true);
    iconButton->setChecked(true);
    iconButton->SetIconPath(":/images/close.svg");

    auto *toolButton = Place(new QcToolButton(&form), "toolButton", {310, 54, 24, 24});
    toolButton->SetIconPath(":/images/close.svg");

    auto *toolColorButton = Place(new QcToolColorButton(&form), "toolColorButton", {346, 54, 24, 24});
    toolColorButton->SetIconPath(":/images/close.svg");
    toolColorButton->setChangeColor("base/red/red-60", "base/green/green-60");

    auto *menuToolButton = Place(new QcMenuToolButton(&form), "menuToolButton", {382, 54, 44, 32});
    menuToolButton->SetIconPath(":/images/close.svg");

    auto *combinedToolButton = Place(new QcCombinedToolButton(&form), "combinedToolButton", {438, 54, 44, 32});
    combinedToolButton->SetIconPath(":/images/close.svg");

    auto *menuTextButton = Place(new QcMenuTextButton(&form), "menuTextButton", {494, 54, 120, 24});
    menuTextButton->setText("Menu");

    auto *checkBox = Place(new QcCheckBox(&form), "checkBox", {626, 54, 120, 20});
    checkBox->setText("Remember me");
    checkBox->setChecked(true);

    auto *radioButton = Place(new QcRadioButton(&form), "radioButton", {10, 98, 120, 20});
    radioButton->setText("Daily");
    radioButton->setChecked(true);

    auto *switchButton = Place(new QcSwitchButton(&form), "switchButton", {142, 98, 28, 14});
    switchButton->setChecked(true);
}

void FillWithInputs(QWidget &form)
{
    // The last of these two decides about the room between them, and uic sets texts last.
    auto *lineEditFrame = Place(new QcLineEditFrame(&form), "lineEditFrame", {182, 98, 160, 24});
    lineEditFrame->setText("75.5");
    lineEditFrame->setButtonIconPath(":/images/close.svg");
    lineEditFrame->setUnit("kg");
    lineEditFrame->setWarning(true);
    lineEditFrame->setValidator(0.5, 120, 2);

    auto *textEditFrame = Place(new QcTextEditFrame(&form), "textEditFrame", {354, 98, 240, 96});
    textEditFrame->setText("A remark");
    textEditFrame->setMaxLength(100);

    auto *textEditLimiter = Place(new QcTextEditLimiter(&form), "textEditLimiter", {10, 206, 240, 96});
    textEditLimiter->setMaxNum(40);
    textEditLimiter->setText("A note");

    auto *spinBox = Place(new QcSpinBox(&form), "spinBox", {262, 206, 96, 24});
    spinBox->setMaximum(200);
    spinBox->setValue(150);

    auto *doubleSpinBox = Place(new QcDoubleSpinBox(&form), "doubleSpinBox", {370, 206, 96, 24});
    doubleSpinBox->setValue(2.5);
    doubleSpinBox->bSetBorder(true);

    auto *selector = Place(new QcSelector(&form), "selector", {478, 206, 160, 28});
    selector->addItem("Antwerp");
    selector->addItem("Hamburg");

    auto *slider = Place(new QCSlider(&form), "slider", {10, 314, 160, 24});
    slider->setValue(40);
}

void FillWithTheRest(QWidget &form)
{
    auto *label = Place(new QcLabel(&form), "label", {182, 314, 160, 24});
    label->setText("Name");
    label->setType(Velmora::QcLabel::Headline);

    auto *multiLineText = Place(new QcMultiLineText(&form), "multiLineText", {354, 314, 240, 48});
    multiLineText->setFont(12);
    multiLineText->setText("Words with <a href=\"x\">a link</a>");

    auto *frame = Place(new QcFrame(&form), "frame", {10, 374, 240, 96});
    frame->setBackgroundColorParams("bg/bg_secondary");
    frame->setBorderColorParams("brand/brand");
    frame->setBorderRadius(6);
    frame->setBorderSides(QcFrame::Left | QcFrame::Top | QcFrame::Right | QcFrame::Bottom);
    auto *inFrame = Place(new QcLabel(frame), "inFrame", {12, 12, 160, 20});
    inFrame->setText("In a frame");
    inFrame->setType(QcLabel::BodySecondary);

    auto *stackedWidget = Place(new QcStackedWidget(&form), "stackedWidget", {262, 374, 240, 96});
    auto *page = new QWidget(stackedWidget);
    page->setObjectName("page");
    auto *pageLabel = Place(new QcLabel(page), "pageLabel", {10, 10, 120, 20});
    pageLabel->setText("First page");
    pageLabel->setType(QcLabel::Body);
    auto *secondPage = new QWidget(stackedWidget);
    secondPage->setObjectName("page_2");
    stackedWidget->addWidget(page);
    stackedWidget->addWidget(secondPage);

    Place(new QcDockContainer(&form), "dockContainer", {514, 374, 240, 160});
}

} // namespace

std::unique_ptr<QWidget> EveryControlByHand()
{
    auto form = std::make_unique<QWidget>();
    form->setObjectName("EveryControl");
    form->setWindowTitle("Every control");
    form->resize(800, 544);
    FillWithButtons(*form);
    FillWithInputs(*form);
    FillWithTheRest(*form);
    return form;
}

std::unique_ptr<QWidget> WindowByHand()
{
    auto window = std::make_unique<QcWindow>();
    window->resize(480, 320);
    window->setWindowTitle("Orders");
    window->setTitle("Orders");
    window->setMinButtonVisible(false);
    window->setContentWidget(MakeContent(window.get()));
    return window;
}

std::unique_ptr<QWidget> DialogByHand()
{
    auto dialog = std::make_unique<QcDialog>();
    dialog->resize(480, 320);
    dialog->setWindowTitle("Settings");
    dialog->setTitle("Settings");
    dialog->controlMinMaxBtn(true);
    dialog->setBottomFrameVisible(true);
    dialog->setOkButtonText("OK");
    dialog->setCancelButtonText("Cancel");
    dialog->setBackgroundColorParams("bg/bg_float");
    dialog->setContentWidget(MakeContent(dialog.get()));
    return dialog;
}

} // namespace VelmoraTest
