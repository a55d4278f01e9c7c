#include "float_bars.h"
#include "note.h"
#include "opacity.h"
#include "ports.h"
#include "required.h"
#include "scale.h"
#include "wizard.h"

#include "../Check.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include <QScrollArea>

#include <memory>

namespace {

void CheckRequired()
{
    Velmora::QcLineEditFrame field;
    require(&field);
    Check(field.getWarning(), "an empty field is warned of");
    field.setText(QStringLiteral("text"));
    Check(!field.getWarning(), "a filled one is not");
    field.clear();
    Check(field.getWarning(), "nor forgotten when it is empty again");
}

void CheckNote()
{
    const QString note = QStringLiteral("a & b\n<b>bold</b> &lt;");
    Velmora::QcTextEditFrame field;
    showNote(&field, note);
    Check(field.getText() == note, "a stranger's text shows as it is written");
    field.setMaxLength(12);
    showNote(&field, note);
    Check(field.getText() == note.left(12), "and so does its beginning");
    field.setText(QStringLiteral("<b>bold</b>"));
    Check(field.getText() == QStringLiteral("bold"), "setText() reads HTML");
    field.setText(QStringLiteral("a & b").toHtmlEscaped());
    Check(field.getText() == QStringLiteral("a &amp; b"), "an escaped text without a bracket is not read as HTML");
}

void CheckPorts()
{
    const std::unique_ptr<Velmora::QcSelector> ports(makePorts());
    Check(ports->currentIndex() == -1 && !ports->currentData().isValid(), "no port is chosen at first");
    ports->setCurrentText(QStringLiteral("Rotterdam"));
    Check(ports->currentData() == QStringLiteral("NLRTM"), "each port has its code");
    const int width = ports->sizeHint().width();
    ports->addItem(QString(100, QLatin1Char('m')));
    Check(ports->sizeHint().width() == width, "items count for nothing in the width");
}

void CheckScale()
{
    const std::unique_ptr<Velmora::QcDoubleSpinBox> scale(makeScale());
    scale->stepUp();
    Check(scale->value() == 2.75 && scale->text() == QStringLiteral("1 : 2.75"), "a scale goes up by a quarter");
}

void CheckOpacity()
{
    const std::unique_ptr<QWidget> row(makeOpacity());
    row->findChild<Velmora::QCSlider *>()->setValue(40);
    Check(row->findChild<Velmora::QcLabel *>()->text() == QStringLiteral("40 %"), "the value stands beside the slider");
}

void CheckFloatBars()
{
    QScrollArea area;
    floatBars(&area);
    area.resize(200, 200);
    auto *content = new QWidget;
    content->setFixedSize(100, 1000);
    area.setWidget(content);
    area.show();
    area.verticalScrollBar()->setValue(50);
    const auto bars = area.findChildren<Velmora::QcScrollBar *>();
    Check(bars.size() == 2, "an area has two bars");
    for (Velmora::QcScrollBar *bar : bars) {
        const bool scrolls = bar->orientation() == Qt::Vertical;
        Check(bar->isVisible() == scrolls, "the bar shows of which there is something to scroll");
        Check(bar->value() == (scrolls ? 50 : 0), "it goes along");
    }
    Check(area.viewport()->width() == 200 - 2 * area.frameWidth(), "and takes no room");

    QScrollBar original;
    Velmora::QcScrollBar bar(Qt::Vertical, &area);
    bar.SetOriginalScrollBar(&original);
    original.setRange(-100, 0);
    Check(bar.isHidden(), "a range that ends at 0 shows no bar");
}

void CheckWizard()
{
    Velmora::QcStackedWidget wizard;
    addPage(&wizard, {QStringLiteral("Width"), QStringLiteral("Height")});
    addPage(&wizard, {QStringLiteral("Name")});
    wizard.show();
    Check(wizard.height() >= wizard.widget(0)->sizeHint().height(), "the stack is as high as its pages want");
    showNext(&wizard);
    showNext(&wizard);
    Check(wizard.currentIndex() == 1 && wizard.widget(0)->isHidden(), "the last page stays");
    QWidget *last = wizard.currentWidget();
    wizard.removeWidget(last);
    Check(last->parentWidget() == &wizard && last->isVisible(), "a page that was removed stays where it is");
    delete wizard.currentWidget();
    Check(wizard.count() == 0, "a page that is deleted leaves by itself");
}

} // namespace

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();
    CheckRequired();
    CheckNote();
    CheckPorts();
    CheckScale();
    CheckOpacity();
    CheckFloatBars();
    CheckWizard();
    return failures;
}
