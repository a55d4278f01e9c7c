#include "Ported.h"

#include "KitLoader.h"
#include "ui_promoted.h"

#include <QFile>

namespace {

void CheckForm(const QWidget &form, const char *what)
{
    auto *save = form.findChild<Velmora::QcPrimaryButton *>(QStringLiteral("save"));
    auto *name = form.findChild<Velmora::QcLineEditFrame *>(QStringLiteral("name"));
    auto *label = form.findChild<Velmora::QcLabel *>(QStringLiteral("label"));
    Check(save && name && label, what);
    if (!save || !name || !label)
        return;
    Check(save->text() == QStringLiteral("Save") && save->toolTip() == QStringLiteral("Keeps the name"), "with what the base class has");
    Check(label->text() == QStringLiteral("&Name") && label->buddy() == name, "texts and buddies");
    Check(label->property("type").toInt() == Velmora::QcLabel::Body && name->property("unit") == QStringLiteral("kg"),
          "and with what the kit adds");
}

} // namespace

void CheckForms()
{
    QWidget made;
    Ui::Promoted ui;
    ui.setupUi(&made);
    CheckForm(made, "uic makes promoted widgets");

    QFile file(QStringLiteral(FORM));
    Check(file.open(QIODevice::ReadOnly), "the form can be read");
    const std::unique_ptr<QWidget> loaded(KitLoader().load(&file));
    Check(loaded != nullptr, "and loaded");
    if (loaded)
        CheckForm(*loaded, "the loader makes promoted widgets");

    // Which says so.
    file.seek(0);
    const std::unique_ptr<QWidget> plain(QUiLoader().load(&file));
    Check(plain && plain->findChild<QPushButton *>(QStringLiteral("save")) && !plain->findChild<Velmora::QcPrimaryButton *>(),
          "another loader makes the base class");
}
